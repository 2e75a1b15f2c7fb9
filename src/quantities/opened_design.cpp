#include "quantities/opened_design.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <tuple>

#include "engine/design_model.h"
#include "quantities/derived_values.h"
#include "timedomain/view.h"
#include "timedomain/wave_state.h"

namespace halvorne {
namespace {

/// Copies of some members of a record.
template <auto... Members>
class Copies {
 public:
  template <class Record>
  explicit Copies(const Record& record) : values_{record.*Members...} {}

  template <class Record>
  void PutInto(Record& record) const {
    std::apply([&record](const auto&... value) { ((record.*Members = value), ...); }, values_);
  }

 private:
  template <class Record, class Value>
  static Value ValueOf(Value Record::*);

  std::tuple<decltype(ValueOf(Members))...> values_;
};

/// What a calculation makes anew, and the few values that PiezoLayers() overwrites.
using Chains =
    Copies<&Design::FrontThick, &Design::BackThick, &Design::FrontArea, &Design::BackArea,
           &Design::FrontLoss, &Design::BackLoss, &Design::FrontDelay, &Design::BackDelay,
           &Design::FrontLossFreq, &Design::BackLossFreq, &Design::FrontLossExp,
           &Design::BackLossExp, &Design::FrontZ, &Design::BackZ, &Design::FrontVel,
           &Design::BackVel, &Design::FrontLoadArea, &Design::BackLoadArea, &Design::DesignNew>;
using Layers =
    Copies<&Design::PZConnect, &Design::PZConnectName, &Design::PZMatl, &Design::PZThick,
           &Design::PZPolarity, &Design::PZFa, &Design::PZCo, &Design::PZRp, &Design::PZM0>;
using Sampling =
    Copies<&Design::FreqStep, &Design::SampleRateHz, &Design::TimeWindow, &Design::ExciteLength>;
using SamplingTexts = Copies<&Wave::TimeStart, &Wave::FreqStartText, &Wave::FreqStopText>;
using LoadNames =
    Copies<&Design::ZFrontFile, &Design::ZBackFile, &Design::ZFrontComment, &Design::ZBackComment>;

constexpr unsigned kSampled = kSampling | kLimits | kExcitation;
constexpr unsigned kLoaded = kLimits | kLoads;

constexpr std::array kLoadCurves{&Design::ZFrontRe, &Design::ZFrontIm, &Design::ZBackRe,
                                 &Design::ZBackIm};

}  // namespace

struct OpenedDesign::Kept {
  Chains chains{design};
  Layers layers{design};
  Sampling sampling{design};
  SamplingTexts samplingTexts{wave};
  LoadNames loadNames{design};
  std::string stamp = design.CalcDateTime;
  std::int16_t shownPlot = view.CurrentPlot;
  std::vector<double> burst;                      ///< empty as long as none was made anew
  std::array<std::vector<double>, 4> loadCurves;  ///< the same

  void KeepBurst() {
    if (burst.empty()) {
      burst.assign(wave.ExciteRe.begin(), wave.ExciteRe.end());
    }
  }
  void KeepLoads() {
    for (std::size_t k = 0; k < kLoadCurves.size() && loadCurves[k].empty(); ++k) {
      const FreqCurve& curve = design.*kLoadCurves[k];
      loadCurves[k].assign(curve.begin(), curve.end());
    }
  }
  /// @param points  values of a curve that may have changed
  void PutLoadsBack(long points) const {
    for (std::size_t k = 0; k < kLoadCurves.size(); ++k) {
      std::copy_n(loadCurves[k].begin(), points, (design.*kLoadCurves[k]).begin());
    }
    loadNames.PutInto(design);
  }
};

OpenedDesign::OpenedDesign() : kept_(std::make_unique<Kept>()) {}

OpenedDesign::~OpenedDesign() = default;

bool OpenedDesign::Apply(std::span<const Setting> settings) {
  for (const Setting& setting : settings) {
    changed_.emplace_back(setting.place, StoredFieldValue(setting.place));
    derived_ |= setting.derived;
  }
  if ((derived_ & kSampled) != 0) {
    kept_->KeepBurst();
  }
  if ((derived_ & kLoaded) != 0) {
    kept_->KeepLoads();
  }
  return ApplySettings(settings);
}

void OpenedDesign::PutBack() {
  constexpr long whole = kLastFreqPoint + 1;
  if ((derived_ & kSampled) != 0) {
    kept_->sampling.PutInto(design);
    kept_->samplingTexts.PutInto(wave);
    std::ranges::copy(kept_->burst, wave.ExciteRe.begin());
  }
  if ((derived_ & kLoaded) != 0) {
    const bool moved = (derived_ & kLimits) != 0;
    kept_->PutLoadsBack(moved ? whole : std::clamp(design.NoFreqPts + 1L, 0L, whole));
  }
  if ((derived_ & kPiezo) != 0) {
    kept_->layers.PutInto(design);
  }
  kept_->chains.PutInto(design);
  // Backwards, so that a field that was set twice ends with its first value; and last, since a
  // field that was set may be a derived one too.
  std::for_each(changed_.rbegin(), changed_.rend(),
                [](const auto& change) { StoreFieldValue(change.first, change.second); });
  changed_.clear();
  derived_ = kNothing;
  design.CalcDateTime = kept_->stamp;
  view.CurrentPlot = kept_->shownPlot;
}

}  // namespace halvorne
