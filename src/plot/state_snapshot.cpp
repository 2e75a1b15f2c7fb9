#include "plot/state_snapshot.h"

namespace halvorne {
namespace {

void Take(DesignSnapshot& snapshot) {
  snapshot.design = design;
  snapshot.curves = curves;
  snapshot.ExciteRe = wave.ExciteRe;
}

}  // namespace

std::unique_ptr<DesignSnapshot> TakeDesign() {
  auto snapshot = std::make_unique<DesignSnapshot>();
  Take(*snapshot);
  return snapshot;
}

void PutBack(const DesignSnapshot& snapshot) {
  design = snapshot.design;
  curves = snapshot.curves;
  wave.ExciteRe = snapshot.ExciteRe;
}

std::unique_ptr<StateSnapshot> TakeState() {
  auto snapshot = std::make_unique<StateSnapshot>();
  Take(snapshot->design);
  snapshot->draft = draft;
  snapshot->wave = wave;
  snapshot->view = view;
  snapshot->points = points;
  snapshot->setup = setup;
  snapshot->plot = plot;
  snapshot->scale = scale;
  snapshot->measured = measured;
  return snapshot;
}

void PutBack(const StateSnapshot& snapshot) {
  PutBack(snapshot.design);
  draft = snapshot.draft;
  wave = snapshot.wave;
  view = snapshot.view;
  points = snapshot.points;
  setup = snapshot.setup;
  plot = snapshot.plot;
  scale = snapshot.scale;
  measured = snapshot.measured;
}

}  // namespace halvorne
