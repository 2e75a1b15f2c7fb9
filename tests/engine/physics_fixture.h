#pragma once

#include <cmath>
#include <functional>
#include <vector>

#include "engine/design_model.h"
#include "engine_fixture.h"
#include "random_designs.h"

namespace halvorne::testing {

inline constexpr double kWholeTurn = 6.283185307179586;
inline const Value kImaginary{0, 1};

/// What the plots of reflection, power and insertion loss show at a point, from the curves.
struct PlotValues {
  Value ge;           ///< plot 12, electrical reflection coefficient
  Value ga;           ///< plot 22, acoustic reflection coefficient
  double plot13 = 0;  ///< transmit efficiency
  double plot23 = 0;  ///< receive efficiency
  double plot15 = 0;  ///< transmit power transfer
  double plot25 = 0;  ///< receive power transfer
  double plot32 = 0;  ///< two-way insertion loss
};

inline PlotValues PlotsAt(const SweptCurves& swept, std::size_t i) {
  const Value load(design.ZFrontRe(static_cast<long>(i)), design.ZFrontIm(static_cast<long>(i)));
  const double area = design.FrontLoadArea;
  PlotValues plots;
  plots.ge = (swept.ZinElec[i] - design.TermTx) / (swept.ZinElec[i] + design.TermTx);
  plots.ga = (swept.ZinAc[i] - design.ZFrontLoad) / (swept.ZinAc[i] + design.ZFrontLoad);
  plots.plot13 = swept.TxEff[i];
  plots.plot23 = swept.RxEff[i];
  plots.plot15 =
      std::norm(swept.TxTF[i]) * 4 * design.TermTx * area * load.real() / std::norm(load);
  plots.plot25 = std::norm(swept.RxTF[i]) * 4e-12 * load.real() / (design.TermRx * area);
  plots.plot32 = 0.25 / std::abs(swept.TwoWayTF[i]);
  return plots;
}

/// Physical truths on designs made at random.
class PhysicsTest : public EngineTest {
 protected:
  /// Runs `check` on 40 designs of a kind; no box may appear.
  void OnRandomDesigns(const DesignKind& kind, const std::function<void(RandomDesigns&)>& check) {
    RandomDesigns random(4711);
    for (int round = 0; round < 40; ++round) {
      SCOPED_TRACE(round);
      random.Make(kind);
      check(random);
      ASSERT_EQ(shown.Lines(), Boxes{});
      ASSERT_FALSE(HasFailure());
    }
  }

  /// A curve with each value times a factor.
  static std::vector<Value> Scaled(std::vector<Value> curve, Value factor) {
    for (Value& value : curve) {
      value *= factor;
    }
    return curve;
  }
  static std::vector<double> Sizes(const std::vector<Value>& curve) {
    std::vector<double> sizes;
    sizes.reserve(curve.size());
    for (const Value& value : curve) {
      sizes.push_back(std::abs(value));
    }
    return sizes;
  }
};

}  // namespace halvorne::testing
