#include "quantities/tuning.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/element_size.h"
#include "platform/failure.h"
#include "plot/cursor.h"
#include "plot/held_designs.h"
#include "plot/plot_select.h"
#include "quantities/caught_messages.h"
#include "quantities/derived_values.h"

namespace halvorne {
namespace {

constexpr const char* kReferenceLabel = "Before tuning";

bool WaveformOnShow() {
  return IsTimePlot(view.CurrentPlot) && !plot.Outdated && !wave.WaveformInvalid;
}

/// A velocity that is tuned takes the shear velocity along, so that Poisson's ratio stays as it is
/// in the dialogs; below the highest that any ratio allows.
template <class Material>
void TakeShearVelocityAlong(Material& tuned, const Material& before) {
  tuned.ShearVelocity = before.ShearVelocity;
  if (tuned.Velocity != before.Velocity && before.Velocity > 0) {
    tuned.ShearVelocity = std::min(before.ShearVelocity / before.Velocity * tuned.Velocity,
                                   std::sqrt(0.5) * tuned.Velocity);
  }
}

void TakeShearVelocitiesAlong(const Design& before) {
  for (int layer = 1; layer <= design.NoPiezo; ++layer) {
    TakeShearVelocityAlong(design.PZMatl(layer), before.PZMatl(layer));
  }
  for (int plate = 1; plate <= kMaxPlates; ++plate) {
    TakeShearVelocityAlong(design.FaceMatl(plate), before.FaceMatl(plate));
    TakeShearVelocityAlong(design.BackMatl(plate), before.BackMatl(plate));
  }
}

}  // namespace

Tuning::Tuning() {
  if (measured.CursorOn) {
    Cursor1_Click();  // as before any calculation
  }
  before_ = TakeDesign();
  HoldReference(kReferenceLabel);
}

Tuning::~Tuning() {
  PutBack();
}

void Tuning::Set(const TunableNumber& number, double value) {
  double stored = WithinBounds(number, value) * number.unitSize / number.divisor;
  if (stored == 0) {
    stored = number.least;
  }
  const NamedField field = FindNamedField(number.field);
  starts_.try_emplace(number.field, StoredFieldValue(field.place));
  set_.insert_or_assign(number.field, SettingOf(field, stored));
}

void Tuning::Restore(const TunableNumber& number) {
  if (const auto found = set_.find(number.field); found != set_.end()) {
    found->second.value = starts_.at(number.field);
  }
}

void Tuning::Store() {
  std::vector<Setting> settings;
  bool size = false;
  for (const auto& [field, setting] : set_) {
    settings.push_back(setting);
    size = size || field == "ElementDim1" || field == "ElementDim2";
  }
  ApplySettings(settings);
  TakeShearVelocitiesAlong(before_->design);
  if (size) {
    TakeElementSize();
    MakeDerivedValues(kPiezo);
  }
}

std::string Tuning::Show() {
  CaughtMessages caught(WaveformOnShow());
  try {
    Store();
    RecalcOnShow();
  } catch (...) {
    ReportFailure("Show", "frmTune");
  }
  return caught.First();
}

void Tuning::Keep() {
  open_ = false;
  Drop(kReferenceSlot);
  Recalc();
}

void Tuning::PutBack() {
  if (!open_) {
    return;
  }
  open_ = false;
  const std::string title = design.DesignTitle;
  halvorne::PutBack(*before_);
  design.DesignTitle = title;
  Drop(kReferenceSlot);
  PlotAgain();
}

}  // namespace halvorne
