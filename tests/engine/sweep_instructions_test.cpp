#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "engine/acoustic_sections.h"
#include "engine/frequency_sweep.h"
#include "engine/instruction_sets.h"
#include "engine/piezo_section.h"
#include "engine_fixture.h"
#include "random_designs.h"

// Sweeps on packs of points beside sweeps in which every point goes through the named procedures:
// the same curves, and to the bit the same boxes and the same state behind them.

namespace halvorne::testing {
namespace {

constexpr double kOld = -77;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
/// Of a curve's peak; the functions of packs are a few units of the last place off.
constexpr double kTolerance = 1e-12;

std::array<FreqCurve*, 12> AllCurves() {
  return {&curves.ZinElecRe, &curves.ZinElecIm, &curves.ZinAcRe,    &curves.ZinAcIm,
          &curves.TxEff,     &curves.RxEff,     &curves.TxTFRe,     &curves.TxTFIm,
          &curves.RxTFRe,    &curves.RxTFIm,    &curves.TwoWayTFRe, &curves.TwoWayTFIm};
}

/// What a sweep shows and leaves.
struct Outcome {
  Boxes boxes;
  std::vector<unsigned char> state;  ///< all bytes of `sweep`
  SweptCurves values;
  std::vector<bool> untouched;  ///< elements of the curves that hold what they held
};

void ExpectNearOnTheScaleOfThePeaks(const SweptCurves& actual, const SweptCurves& expected) {
  EXPECT_TRUE(CurvesNear(actual.ZinElec, expected.ZinElec, kTolerance, 1));
  EXPECT_TRUE(CurvesNear(actual.ZinAc, expected.ZinAc, kTolerance, 1));
  EXPECT_TRUE(CurvesNear(actual.TxTF, expected.TxTF, kTolerance, 1));
  EXPECT_TRUE(CurvesNear(actual.RxTF, expected.RxTF, kTolerance, 1));
  EXPECT_TRUE(CurvesNear(actual.TwoWayTF, expected.TwoWayTF, kTolerance, 1));
  EXPECT_TRUE(CurvesNear(actual.TxEff, expected.TxEff, kTolerance, 1));
  EXPECT_TRUE(CurvesNear(actual.RxEff, expected.RxEff, kTolerance, 1));
}

class SweepInstructionsTest : public EngineTest {
 protected:
  SweepInstructionsTest() = default;
  ~SweepInstructionsTest() override { SetSweepInstructions(usual_); }

  /// A sweep on what the design holds; `sweep` and the curves are put to a known start first.
  Outcome SweepBy(const InstructionSet* set) {
    Reset(sweep);
    for (FreqCurve* curve : AllCurves()) {
      std::fill(curve->begin(), curve->end(), kOld);
    }
    shown.Forget();
    SetSweepInstructions(set);
    MainCalc();
    Outcome outcome{shown.Lines(), std::vector<unsigned char>(sizeof sweep), CurrentCurves(), {}};
    std::memcpy(outcome.state.data(), &sweep, sizeof sweep);
    for (const FreqCurve* curve : AllCurves()) {
      const auto end = curve->begin() + std::min(design.NoFreqPts + 20, kLastFreqPoint);
      std::transform(curve->begin(), end, std::back_inserter(outcome.untouched),
                     [](double value) { return value == kOld; });
    }
    return outcome;
  }

  enum class Compared { kValues, kFailuresOnly };

  void ExpectAllSetsAgree(Compared compared = Compared::kValues) {
    const Outcome named = SweepBy(nullptr);
    for (const InstructionSet* set : InstructionSets()) {
      SCOPED_TRACE(set->name);
      const Outcome wide = SweepBy(set);
      EXPECT_EQ(wide.boxes, named.boxes);
      EXPECT_EQ(wide.state, named.state);
      EXPECT_EQ(wide.untouched, named.untouched);
      if (compared == Compared::kValues) {
        ExpectNearOnTheScaleOfThePeaks(wide.values, named.values);
      }
    }
  }

  static void Prepare() {
    PiezoConstants();
    PiezoLayers();
    CmplxLoad();
    PrelimCalc();
  }

 private:
  const InstructionSet* usual_ = SweepInstructions();
};

TEST_F(SweepInstructionsTest, TheWidestSetOfTheProcessorIsInUse) {
  if (InstructionSets().empty()) {
    EXPECT_EQ(SweepInstructions(), nullptr);
    return;
  }
  EXPECT_EQ(SweepInstructions(), InstructionSets().back());
  int lanes = 1;
  for (const InstructionSet* set : InstructionSets()) {
    EXPECT_EQ(set->lanes, 2 * lanes);
    lanes = set->lanes;
  }
}

TEST_F(SweepInstructionsTest, AgreeOnDesignsOfEveryKind) {
  RandomDesigns random(11);
  for (int round = 0; round < 100; ++round) {
    SCOPED_TRACE(round);
    random.Make({.dispersion = random.Chance(),
                 .complexLoads = random.Chance(),
                 .maxPlates = random.Pick(0, 10)});
    Prepare();
    ExpectAllSetsAgree();
    ASSERT_FALSE(HasFailure());
  }
}

TEST_F(SweepInstructionsTest, AgreeOnEveryKindOfElement) {
  MakePlainDesign(40);
  const double omega = 6.283185307179586 * 5e6;
  for (int code = 1; code <= 17; ++code) {
    SCOPED_TRACE(code);
    design.ElNet(1, 1) = code;
    const double resistor = 40;
    const double inductor = 50 / omega;
    const double capacitor = 1 / (70 * omega);
    const std::array first = {resistor, resistor, inductor, inductor, capacitor, capacitor};
    design.ElNet(1, 2) = code <= 6 ? first[code - 1] : code == 9 ? inductor : resistor;
    design.ElNet(1, 3) = code == 7 ? 3 : code == 9 ? resistor : inductor;
    design.ElNet(1, 4) = code == 9 ? inductor : capacitor;
    design.ElNet(1, 5) = code == 7 ? 5 : capacitor;
    Prepare();
    ExpectAllSetsAgree();
  }
}

TEST_F(SweepInstructionsTest, AgreeForEveryNumberOfPoints) {
  for (int intervals = 1; intervals <= 35; ++intervals) {
    SCOPED_TRACE(intervals);
    MakePlainDesign(intervals);
    Prepare();
    ExpectAllSetsAgree();
  }
}

TEST_F(SweepInstructionsTest, AgreeUpToTheLastPointThereIs) {
  MakePlainDesign(15999);
  Prepare();
  ExpectAllSetsAgree();
}

TEST_F(SweepInstructionsTest, AgreeDownwardsAndFromZero) {
  MakePlainDesign(24);
  design.FreqStart = 9e6;
  design.FreqStop = 0;
  Prepare();
  ExpectAllSetsAgree();
  design.FreqStop = -9e6;  // the middle point is 0 Hz
  ExpectAllSetsAgree();
}

/// What can be wrong with a number in the design.
constexpr std::array kBadNumbers = {0.0,
                                    -0.0,
                                    -1.0,
                                    1e-310,
                                    1e-200,
                                    1e150,
                                    1e200,
                                    1.7e308,
                                    kInfinity,
                                    -kInfinity,
                                    std::numeric_limits<double>::quiet_NaN()};

/// Places in the design that a sweep reads.
std::vector<std::function<double&(RandomDesigns&)>> Places() {
  const auto plate = [](RandomDesigns& random) { return random.Pick(0, 3); };
  const auto point = [](RandomDesigns& random) { return random.Pick(0, design.NoFreqPts); };
  return {
      [=](RandomDesigns& r) -> double& { return design.FrontZ(plate(r)); },
      [=](RandomDesigns& r) -> double& { return design.BackZ(plate(r)); },
      [=](RandomDesigns& r) -> double& { return design.FrontDelay(plate(r)); },
      [=](RandomDesigns& r) -> double& { return design.BackDelay(plate(r)); },
      [=](RandomDesigns& r) -> double& { return design.FrontLoss(plate(r)); },
      [=](RandomDesigns& r) -> double& { return design.BackLoss(plate(r)); },
      [=](RandomDesigns& r) -> double& { return design.FrontLossFreq(plate(r)); },
      [=](RandomDesigns& r) -> double& { return design.BackLossFreq(plate(r)); },
      [=](RandomDesigns& r) -> double& { return design.VelDisp(r.Pick(0, 21), point(r)); },
      [=](RandomDesigns& r) -> double& { return design.VelDisp(r.Pick(0, 3), point(r)); },
      [=](RandomDesigns& r) -> double& { return design.ZFrontRe(point(r)); },
      [=](RandomDesigns& r) -> double& { return design.ZFrontIm(point(r)); },
      [=](RandomDesigns& r) -> double& { return design.ZBackRe(point(r)); },
      [=](RandomDesigns& r) -> double& { return design.ZBackIm(point(r)); },
      [=](RandomDesigns& r) -> double& { return design.PZFa(r.Pick(1, 2)); },
      [=](RandomDesigns& r) -> double& { return design.PZCo(r.Pick(1, 2)); },
      [=](RandomDesigns& r) -> double& { return design.PZRp(r.Pick(1, 2)); },
      [=](RandomDesigns& r) -> double& { return design.PZM0(r.Pick(1, 2)); },
      [](RandomDesigns&) -> double& { return design.ElementArea; },
      [](RandomDesigns&) -> double& { return design.TermTx; },
      [](RandomDesigns&) -> double& { return design.TermRx; },
      [](RandomDesigns&) -> double& { return design.FreqStart; },
      [](RandomDesigns&) -> double& { return design.FreqStop; },
      [](RandomDesigns& r) -> double& { return design.ElNet(r.Pick(1, 4), r.Pick(1, 5)); },
      [](RandomDesigns& r) -> double& { return design.ElNet(r.Pick(1, 2), r.Pick(2, 5)); },
  };
}

TEST_F(SweepInstructionsTest, AgreeOnWhatFailsAndWhatItLeaves) {
  RandomDesigns random(13);
  const auto places = Places();
  int failing = 0;
  for (int round = 0; round < 1500; ++round) {
    SCOPED_TRACE(round);
    random.Make({.dispersion = random.Chance(), .complexLoads = random.Chance()});
    design.NoFreqPts = 8 + 9 * random.Pick(0, 2);
    NeutralDispersion();
    Prepare();
    for (int wrong = random.Pick(1, 2); wrong > 0; --wrong) {
      places[random.Pick(0, static_cast<int>(places.size()) - 1)](random) =
          kBadNumbers[random.Pick(0, static_cast<int>(kBadNumbers.size()) - 1)];
    }
    // Of values all but 0 or all but endless the digits are lost on the way.
    ExpectAllSetsAgree(Compared::kFailuresOnly);
    failing += SweepBy(nullptr).boxes.empty() ? 0 : 1;
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_GT(failing, 500) << "hardly anything failed, so nothing was compared";
}

TEST_F(SweepInstructionsTest, AgreeOnCountsAndConnectionsOutsideTheirRange) {
  const auto broken = [this](const std::function<void()>& breakDesign) {
    RandomDesigns random(17);
    random.Make({.layers = 2});
    Prepare();
    breakDesign();
    ExpectAllSetsAgree();
  };
  broken([] { design.PZConnect = 0; });
  broken([] { design.PZConnect = 3; });
  broken([] { design.NoPiezo = 0; });
  broken([] { design.NoPiezo = 3; });
  broken([] { design.NoFace = 11; });
  broken([] { design.NoBack = 11; });
  broken([] { design.NoFace = -1; });
  broken([] { design.ElNet(1, 1) = 18; });
  broken([] { design.ElNet(1, 1) = 1.5; });
  broken([] { design.ElNet(1, 1) = std::nan(""); });
}

TEST_F(SweepInstructionsTest, AFailingPointAmongManyFindsWhatTheOneBeforeItLeft) {
  MakePlainDesign(60);
  Prepare();
  for (const int point : {0, 1, 7, 8, 9, 31, 59, 60}) {
    SCOPED_TRACE(point);
    NeutralDispersion();
    design.VelDisp(kBackSlot, point) = 0;  // the line keeps the section that stands
    ExpectAllSetsAgree();
    EXPECT_EQ(SweepBy(nullptr).boxes, Boxes{Box("Tline", 11)});
  }
}

}  // namespace
}  // namespace halvorne::testing
