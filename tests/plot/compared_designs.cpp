#include "plot/compared_designs.h"

#include <algorithm>

#include "plot/graph.h"
#include "plot/plot_select.h"
#include "timedomain/excitation.h"

namespace halvorne::testing {
namespace {

void AddPlates() {
  AcousticMaterial plate;
  plate.Name = "Plate";
  plate.Velocity = 2500;
  plate.ShearVelocity = 1200;
  plate.Density = 1500;
  plate.LossFreq = 1;
  plate.LossExp = 1;
  design.NoFace = design.NoBack = 1;
  design.FaceMatl(1) = design.BackMatl(1) = plate;
  design.FrontThick(1) = 0.00012;
  design.BackThick(1) = 0.002;
  design.FrontArea(0) = design.FrontArea(1) = 1;
  design.BackArea(0) = design.BackArea(1) = 1;
}

void AddBurst() {
  design.ExciteType = 1;
  design.ExciteWave = 1;
  design.ExciteFreq = 5e6F;
  design.ExciteCycles = 3;
  design.ExcitePoints = design.ExciteLength = 1023;
  CopyExciteToTemp();
  CalcExciteWfm();
  for (int i = 0; i <= design.ExciteLength; ++i) {
    wave.ExciteRe(i) = draft.TmpExciteWfm(i);
  }
}

}  // namespace

void ComparedDesigns::Make(const std::string& title, const std::function<void()>& change) {
  MakeSimpleDesign(64, 1024);
  AddPlates();
  AddBurst();
  design.DesignTitle = title;
  design.DataFileName = "/data/" + title + ".dat";
  change();
  setup.DispFaceLayer = 1;
  setup.DispBackLayer = kBackSlot + 1;
  Recalc();
  plot.DesignOpen = true;
}

int ComparedDesigns::HoldAnother(const std::string& title, const std::function<void()>& change) {
  const auto present = TakeState();
  Make(title, change);
  const int slot = Hold();
  PutBack(*present);
  return slot;
}

void ComparedDesigns::Choose(int number, int form) {
  view.CurrentPlot = static_cast<std::int16_t>(number);
  PlotSelect(view.CurrentPlot);
  window.SetPlotTypeIndex(form);
}

std::vector<DrawnOperation> ComparedDesigns::Drawn(SurfaceKind kind) {
  HeadlessSurface surface(kind);
  PlotGraphOn(surface);
  return surface.Operations();
}

std::vector<DrawnOperation> ComparedDesigns::LinesIn(Colour colour) {
  std::vector<DrawnOperation> found = Drawn();
  std::erase_if(found, [&](const DrawnOperation& each) {
    return each.kind != DrawnOperation::Kind::kPolyline || !(each.colour == colour);
  });
  return found;
}

std::vector<std::string> ComparedDesigns::Texts(const std::vector<DrawnOperation>& drawn) {
  std::vector<std::string> texts;
  for (const DrawnOperation& each : drawn) {
    if (each.kind == DrawnOperation::Kind::kText) {
      texts.push_back(each.text);
    }
  }
  return texts;
}

}  // namespace halvorne::testing
