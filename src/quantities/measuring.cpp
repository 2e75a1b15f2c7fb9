#include "quantities/measuring.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <tuple>
#include <utility>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "plot/catalogue.h"
#include "plot/conversions.h"
#include "plot/gather.h"
#include "plot/measures.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "timedomain/sample_rate.h"

namespace halvorne {
namespace {

using enum MeasureKind;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

/// Crossings of a level as frequencies in Hz.
struct Band {
  double lower;
  double upper;
};

bool IsOfBand(MeasureKind kind) {
  return kind <= kPeakFrequency;
}

bool IsOfConvertedData(MeasureKind kind) {
  return !IsOfBand(kind) && kind != kLeastLoss;
}

double Largest(const MeasureBuffer& buffer, std::int32_t last) {
  double max = 0;
  double min = 0;
  ArrayMaxMin(buffer, 0, last, max, min);
  return max;
}

Band BandAt(int level) {
  float lower = 0;
  float upper = 0;
  const double max = Largest(plot.MeasBuf, design.NoFreqPts);
  CrossLevel(plot.MeasBuf, 0, design.NoFreqPts, ToSingle(kMeasureLevels.at(level) * max), lower,
             upper);
  if (lower > upper) {
    return {kNone, kNone};
  }
  return {lower * design.FreqStep + design.FreqStart, upper * design.FreqStep + design.FreqStart};
}

double PeakFrequency() {
  const auto* const first = plot.MeasBuf.begin();
  const auto* const peak = std::max_element(first, first + design.NoFreqPts + 1);
  return static_cast<double>(peak - first) * design.FreqStep + design.FreqStart;
}

double PeakLevel(int plotNumber) {
  const double max = Largest(plot.MeasBuf, design.NoFreqPts);
  return max > 0 ? LinLogFactor(plotNumber) * std::log10(max) : kNone;
}

double BandMeasure(const Measure& measure) {
  const Band band = BandAt(measure.level);
  switch (measure.kind) {
    case kBandwidth:
      return band.upper - band.lower;
    case kCentre:
      return (band.lower + band.upper) / 2;
    case kRelativeBandwidth:
      return Quotient((band.upper - band.lower) * 200, band.lower + band.upper);
    case kLowerEdge:
      return band.lower;
    case kUpperEdge:
      return band.upper;
    case kPeakFrequency:
      return PeakFrequency();
    default:
      return PeakLevel(measure.plot);
  }
}

/// The largest magnitude stands where it is, the widths only in the record's first half.
double PulseWidth(int level) {
  const double max = Largest(plot.MeasBuf, LastSample());
  float lower = 0;
  float upper = 0;
  CrossLevel(plot.MeasBuf, 0, ToInt32(design.NoTimePts / 2.0),
             ToSingle(kMeasureLevels.at(level) * max), lower, upper);
  return lower > upper ? kNone : Quotient(static_cast<double>(upper) - lower, design.SampleRateHz);
}

/// The insertion loss is gathered as a ratio.
double LeastLoss(int plotNumber) {
  double least = points.RawData(0).Y1;
  for (std::int32_t i = 1; i <= design.NoFreqPts; ++i) {
    least = std::min(least, points.RawData(i).Y1);
  }
  return LinLogFactor(plotNumber) * log10(least);
}

double ValueOf(const Measure& measure) {
  switch (measure.kind) {
    case kPulseWidth:
      return PulseWidth(measure.level);
    case kPulsePeak:
      return Largest(plot.MeasBuf, LastSample());
    case kLeastLoss:
      return LeastLoss(measure.plot);
    case kValue:
    case kSecondValue:
      return PlotValueAt(measure.plot, measure.at, measure.kind == kSecondValue);
    default:
      return BandMeasure(measure);
  }
}

bool GatherPlot(int plotNumber) {
  view.CurrentPlot = static_cast<std::int16_t>(plotNumber);
  plot.DualTrace = true;
  return Gather(*FindPlot(plotNumber));
}

bool IsDispersion(int plotNumber) {
  return LinLogFactor(plotNumber) == 0 && FindPlot(plotNumber)->steps == PlotSteps::kPolar;
}

/// The dispersion of a layer: its values are plotted as they are.
bool MakeDispersionData(int plotNumber, int form) {
  const FormList forms = FindPlot(plotNumber)->forms;
  if (forms == FormList::kFaceLayers) {
    setup.DispFaceLayer = static_cast<std::int16_t>(form + 1);
  } else if (forms == FormList::kBackLayers) {
    setup.DispBackLayer = static_cast<std::int16_t>(form + 1 + kBackSlot);
  }
  const int plates = forms == FormList::kFaceLayers   ? design.NoFace
                     : forms == FormList::kBackLayers ? design.NoBack
                                                      : 1;
  if (form >= plates || !GatherPlot(plotNumber)) {
    return false;
  }
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    points.PlotData(i) = {points.RawData(i).Y1, 0};
  }
  return true;
}

/// Gathers and converts what a measure is read off.
bool Prepare(const Measure& measure) {
  if (IsOfConvertedData(measure.kind)) {
    return MakePlotData(measure.plot, measure.form);
  }
  if (!GatherPlot(measure.plot)) {
    return false;
  }
  FillBandBuffer();
  return true;
}

/// What measures share that need to be prepared but once.
auto Preparation(const Measure& measure) {
  const bool converted = IsOfConvertedData(measure.kind);
  return std::tuple(measure.plot, converted, converted ? measure.form : 0);
}

}  // namespace

MeasureList::MeasureList(std::vector<Measure> measures)
    : measures_(std::move(measures)), order_(measures_.size()) {
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  std::ranges::stable_sort(order_, {}, [this](std::size_t k) { return Preparation(measures_[k]); });
}

void MeasureList::Take(std::span<double> values) const {
  const Measure* before = nullptr;
  bool prepared = false;
  for (const std::size_t k : order_) {
    const Measure& measure = measures_[k];
    try {
      if (before == nullptr || Preparation(*before) != Preparation(measure)) {
        before = &measure;
        prepared = false;  // NOLINT(clang-analyzer-deadcode.DeadStores): counts if Prepare raises
        prepared = Prepare(measure);
      }
      const double value = prepared ? ValueOf(measure) : kNone;
      values[k] = std::isfinite(value) ? value : kNone;
    } catch (...) {
      values[k] = kNone;
      ReportFailure("Take", "MEASURES");
    }
  }
}

bool MakePlotData(int plotNumber, int form) {
  if (IsDispersion(plotNumber)) {
    return MakeDispersionData(plotNumber, form);
  }
  if (!GatherPlot(plotNumber)) {
    return false;
  }
  ConvertToForm(static_cast<std::int16_t>(form), static_cast<std::int16_t>(plotNumber));
  return true;
}

double PlotValueAt(int plotNumber, double x, bool second) {
  const bool time = IsTimePlot(plotNumber);
  const double last = time ? LastSample() : design.NoFreqPts;
  const double place =
      time ? x * design.SampleRateHz : Quotient(x - design.FreqStart, design.FreqStep);
  // A spectrum beneath a pulse has another axis.
  if (!(place >= 0 && place <= last) || (second && (!plot.DualTrace || plot.SpectrumShown))) {
    return kNone;
  }
  const auto lower = static_cast<std::int32_t>(std::min(std::floor(place), last - 1));
  const double share = place - lower;
  const PlotPoint& from = points.PlotData(lower);
  const PlotPoint& to = points.PlotData(lower + 1);
  const double y0 = second ? from.Y2 : from.Y1;
  const double y1 = second ? to.Y2 : to.Y1;
  // What stands exactly on a point is that point's value, whatever its neighbour's.
  return share == 0 ? y0 : share == 1 ? y1 : y0 + share * (y1 - y0);
}

}  // namespace halvorne
