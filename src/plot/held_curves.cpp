#include "plot/held_curves.h"

#include <algorithm>
#include <cmath>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/messages.h"
#include "platform/numbers.h"
#include "plot/catalogue.h"
#include "plot/gather.h"
#include "plot/plot_select.h"
#include "timedomain/sample_rate.h"

namespace halvorne {
namespace {

/// A held design speaks through its legend: its boxes are counted and not shown.
class SilentMessages final : public Messages {
 public:
  SilentMessages() : before_(SetMessages(this)) {}
  ~SilentMessages() override { SetMessages(before_); }
  SilentMessages(const SilentMessages&) = delete;
  SilentMessages& operator=(const SilentMessages&) = delete;

  MessageAnswer Show(const Message& message) override {
    if (message.buttons == MessageButtons::kOkCancel) {
      return acceptsAliasing_ ? MessageAnswer::kOk : MessageAnswer::kCancel;
    }
    ++failures_;
    return message.defaultAnswer;
  }
  void Listen(bool acceptsAliasing) {
    acceptsAliasing_ = acceptsAliasing;
    failures_ = 0;
  }
  bool Failed() const { return failures_ > 0; }

 private:
  Messages* before_;
  bool acceptsAliasing_ = false;
  int failures_ = 0;
};

/// Puts the present state back, however the work on another design ends.
class PresentState {
 public:
  PresentState() = default;
  ~PresentState() { PutBack(*kept_); }
  PresentState(const PresentState&) = delete;
  PresentState& operator=(const PresentState&) = delete;

  const Measured& Measurements() const { return kept_->measured; }

 private:
  std::unique_ptr<StateSnapshot> kept_ = TakeState();
};

/// What hinders the design in `design` from having a plot at all; empty when nothing does.
std::string Hindrance(const CataloguePlot& row) {
  if (row.steps == PlotSteps::kExcitation && design.ExciteType == 0) {
    return "no excitation";
  }
  if (row.forms == FormList::kFaceLayers && setup.DispFaceLayer > design.NoFace) {
    return "no such faceplate";
  }
  if (row.forms == FormList::kBackLayers && setup.DispBackLayer > design.NoBack + kBackSlot) {
    return "no such backplate";
  }
  return "";
}

std::vector<PlotPoint> Copied(const TimePoints& array, std::int32_t last) {
  static_cast<void>(array(last));  // raises where there are not that many
  return {array.begin(), array.begin() + last + 1};
}

/// The curves of the design in `design`. Failures go up or are counted as boxes.
void Make(const CataloguePlot& row, HeldCurves& made) {
  plot.DualTrace = true;
  if (!Gather(row)) {
    made.why = "undersampled";
    return;
  }
  ConvertToForm(ToInt16(made.form), row.number);
  const std::int32_t last = IsTimePlot(row.number) ? LastSample() : design.NoFreqPts;
  made.axis = PresentAxis();
  made.values = Copied(points.PlotData, last);
  if (IsExcitationPlot(row.number)) {
    made.impulseValues = Copied(points.PlotDataImpulse, last);
    made.exciteValues = Copied(points.PlotDataExcite, last);
  }
  if (plot.SpectrumShown) {
    made.spectrumAxis = PresentSpectrumAxis();
    made.spectrumPoints =
        std::min<std::size_t>(static_cast<std::size_t>(design.NoFreqPts) + 1, made.values.size());
  }
  made.dualTrace = plot.DualTrace;
  made.measured = measured;
  made.shown = true;
}

/// A fresh answer, good or not, for the plot and form on show.
std::shared_ptr<HeldCurves> NewCurves() {
  auto made = std::make_shared<HeldCurves>();
  made->plotNumber = view.CurrentPlot;
  made->form = mainWindow().PlotTypeIndex();
  made->phaseOption = setup.PhaseDisplayOption;
  return made;
}

bool IsForPlotOnShow(const HeldCurves& made) {
  return made.plotNumber == view.CurrentPlot && made.form == mainWindow().PlotTypeIndex() &&
         made.phaseOption == setup.PhaseDisplayOption;
}

void MakeFor(HeldDesign& held, const CataloguePlot& row, SilentMessages& boxes) {
  const auto made = NewCurves();
  boxes.Listen(held.aliasingAccepted);
  PutBack(*held.snapshot);
  made->why = Hindrance(row);
  if (made->why.empty()) {
    try {
      Make(row, *made);
    } catch (const Failure&) {
      made->shown = false;
    }
    if (boxes.Failed() || (!made->shown && made->why.empty())) {
      made->shown = false;
      made->why = "cannot be calculated";
    }
  }
  held.curves = made;
}

void Extend(float& max, float& min, double value) {
  constexpr double bound = 1e30;
  const auto single = static_cast<float>(std::clamp(value, -bound, bound));
  max = std::max(max, single);
  min = std::min(min, single);
}

/// Looks at the points of all held curves within a piece of the x axis.
template <class Look>
void LookAtHeld(const TimePoints& array, bool spectrum, double from, double to, Look look) {
  MakeHeldCurves();
  for (const int slot : HeldSlots()) {
    const HeldCurves& made = *Held(slot)->curves;
    const std::vector<PlotPoint>& values = made.ValuesBeside(array);
    const Steps& axis = spectrum ? made.spectrumAxis : made.axis;
    const std::size_t count = spectrum ? made.spectrumPoints : values.size();
    if (!made.shown || count == 0 || !(axis.step > 0)) {
      continue;
    }
    const double end = static_cast<double>(count) - 1;
    // A rounding of the quotient does not cost the point at the edge.
    const double first = std::clamp(std::ceil(axis.Point(from) - 1e-6), 0.0, end + 1);
    const double last = std::clamp(std::floor(axis.Point(to) + 1e-6), -1.0, end);
    for (auto i = static_cast<std::ptrdiff_t>(first); i <= static_cast<std::ptrdiff_t>(last); ++i) {
      look(values[static_cast<std::size_t>(i)]);
    }
  }
}

}  // namespace

const std::vector<PlotPoint>& HeldCurves::ValuesBeside(const TimePoints& array) const {
  if (&array == &points.PlotDataImpulse) {
    return impulseValues;
  }
  return &array == &points.PlotDataExcite ? exciteValues : values;
}

Steps PresentSpectrumAxis() {
  return {design.FreqStart, Quotient(design.FreqStop - design.FreqStart, design.NoFreqPts)};
}

Steps PresentAxis() {
  if (IsTimePlot(view.CurrentPlot)) {
    return {0, Quotient(1, design.SampleRateHz)};
  }
  return PresentSpectrumAxis();
}

void MakeHeldCurves() {
  std::vector<HeldDesign*> outdated;
  for (const int slot : HeldSlots()) {
    HeldDesign* const held = Held(slot);
    if (held->curves == nullptr || !IsForPlotOnShow(*held->curves)) {
      outdated.push_back(held);
    }
  }
  if (outdated.empty()) {
    return;
  }
  const CataloguePlot* const row = FindPlot(view.CurrentPlot);
  if (row == nullptr) {
    for (HeldDesign* held : outdated) {
      held->curves = NewCurves();
      held->curves->why = "no such plot";
    }
    return;
  }
  const PresentState present;
  SilentMessages boxes;
  for (HeldDesign* held : outdated) {
    measured = present.Measurements();  // the words above its columns
    MakeFor(*held, *row, boxes);
  }
}

AxisExtremes HeldExtremes(std::int32_t first, std::int32_t last, const TimePoints& array) {
  AxisExtremes found;
  if (!comparison.ScaleToAll) {
    return found;
  }
  const Steps axis = PresentAxis();
  LookAtHeld(array, false, axis.X(first), axis.X(last), [&found](const PlotPoint& point) {
    Extend(found.LeftMax, found.LeftMin, point.Y1);
    Extend(found.RightMax, found.RightMin, point.Y2);
  });
  return found;
}

AxisExtremes HeldSpectrumExtremes(const TimePoints& array) {
  AxisExtremes found;
  if (!comparison.ScaleToAll) {
    return found;
  }
  LookAtHeld(array, true, design.FreqStart, design.FreqStop, [&found](const PlotPoint& point) {
    Extend(found.RightMax, found.RightMin, point.Y2);
  });
  return found;
}

}  // namespace halvorne
