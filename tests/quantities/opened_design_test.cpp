#include "quantities/opened_design.h"

#include <algorithm>
#include <limits>
#include <memory>

#include "engine/frequency_sweep.h"
#include "persistence/design_file.h"
#include "support/fresh_program.h"
#include "timedomain/wave_state.h"

namespace halvorne::testing {
namespace {

/// Everything of a design that a calculation may read, and what its file says.
struct Picture {
  Picture() : file(DesignFileText()), excitation(wave.ExciteRe.begin(), wave.ExciteRe.end()) {
    for (const auto* curve :
         {&design.ZFrontRe, &design.ZFrontIm, &design.ZBackRe, &design.ZBackIm}) {
      loads.insert(loads.end(), curve->begin(), curve->end());
    }
    for (const auto* values : {&design.FrontThick, &design.BackThick, &design.FrontZ, &design.BackZ,
                               &design.FrontDelay, &design.FrontVel}) {
      chains.insert(chains.end(), values->begin(), values->end());
    }
    constants = {design.PZFa(1),    design.PZCo(1),    design.PZRp(1),
                 design.PZM0(1),    design.PZThick(2), design.SampleRateHz,
                 design.TimeWindow, design.FreqStep,   design.FrontLoadArea};
  }
  bool operator==(const Picture&) const = default;

  std::string file;
  std::vector<double> excitation;
  std::vector<double> loads;
  std::vector<double> chains;
  std::vector<double> constants;
};

class DesignPutBack : public FreshProgram {
 protected:
  DesignPutBack() {
    MakeSimpleDesign();
    design.ZFrontComplex = true;
    design.ZFrontFile = "water.lod";
    for (int i = 0; i <= 16; ++i) {
      design.ZFrontNormRe(i) = 1 + 0.01 * i;
      design.ZFrontRe(i) = design.ZFrontLoad * design.ZFrontNormRe(i);
    }
    design.ExciteType = 1;
    design.ExciteWave = 1;
    design.ExciteFreq = 5e6F;
    design.ExciteCycles = 2;
    design.ExcitePoints = 64;
    wave.ExciteRe(3) = 0.25;  // what the file held is not what the burst would be
    design.CalcDateTime = "before";
  }
};

TEST_F(DesignPutBack, AfterEachKindOfFieldItStandsAsItWasOpened) {
  const Picture before;
  OpenedDesign opened;
  for (const char* text :
       {"PZThick(1)=3e-4", "NoPiezo=1", "PZMatl(1).Velocity=4000", "TermTx=75",
        "DesignTitle=another", "FreqStop=12e6", "NoFreqPts=8", "NoFreqPts=40", "NoTimePts=128",
        "ZFrontLoad=2e6", "ZFrontComplex=false", "ZBackLoad=3e6", "ExciteCycles=5",
        "ElementArea=2e-6", "FrontZ(0)=1", "ZFrontRe(3)=5", "ZFrontNormRe(2)=4"}) {
    const Setting setting = ReadSetting(text);
    opened.Apply({&setting, 1});
    const auto stored = std::make_unique<Curves>(curves);
    PrelimCalc();
    MainCalc();
    opened.PutBack();
    curves = *stored;
    const Picture after;
    EXPECT_TRUE(before == after) << text;
  }
}

TEST_F(DesignPutBack, AFieldThatIsSetTwiceHasItsFirstValueAgain) {
  const double before = design.TermTx;
  OpenedDesign opened;
  opened.Apply(std::vector{ReadSetting("TermTx=75"), ReadSetting("TermTx=80")});
  EXPECT_EQ(design.TermTx, 80);
  opened.PutBack();
  EXPECT_EQ(design.TermTx, before);
}

TEST_F(DesignPutBack, CountsThatNoCurveHasPutNoMoreBackThanThereIs) {
  for (const std::int32_t count : {-1, -2, -5, std::numeric_limits<std::int32_t>::min(),
                                   kLastFreqPoint + 1, std::numeric_limits<std::int32_t>::max()}) {
    const Setting setting = ReadSetting("ZFrontLoad=2e6");
    design.NoFreqPts = count;
    const auto before = std::make_unique<FreqCurve>(design.ZFrontRe);
    OpenedDesign opened;
    opened.Apply({&setting, 1});
    opened.PutBack();
    EXPECT_TRUE(std::ranges::equal(*before, design.ZFrontRe)) << count;
  }
}

TEST_F(DesignPutBack, ASettingTakesItsDerivedValuesAlong) {
  OpenedDesign opened;
  const double capacitance = design.PZCo(1);
  EXPECT_FALSE(opened.Apply(std::vector{ReadSetting("ElementArea=2e-6")}));
  EXPECT_NE(design.PZCo(1), capacitance);
  opened.PutBack();
  EXPECT_TRUE(opened.Apply(std::vector{ReadSetting("FreqStop=10e6")}))
      << "the complex load has lost its values";
  EXPECT_EQ(design.ZFrontRe(5), design.ZFrontLoad);
  opened.PutBack();
}

}  // namespace
}  // namespace halvorne::testing
