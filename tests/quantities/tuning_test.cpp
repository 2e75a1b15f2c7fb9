#include "quantities/tuning.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <set>
#include <type_traits>

#include "engine/acoustic_sections.h"
#include "engine/element_fields.h"
#include "engine/piezo_section.h"
#include "persistence/design_file.h"
#include "plot/held_designs.h"
#include "plot/plot_select.h"
#include "quantities/tunable_numbers.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

class TuningTest : public FreshProgram {
 protected:
  TuningTest() {
    MakeSimpleDesign(64, 1024);
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
    design.FrontArea(1) = design.BackArea(1) = 1;
    design.ElementShape = 1;
    design.ElementDim1 = 11.28;
    design.ElNet(1, 1) = 3;
    design.ElNet(1, 2) = 1e-6;
    Show(11);
  }

  static void Show(int plotNumber) {
    view.CurrentPlot = static_cast<std::int16_t>(plotNumber);
    Recalc();
    design.DesignNew = 0;  // as after it was saved
  }

  static TunableNumber Number(const std::string& words) {
    const std::vector<TunableNumber> list = TunableNumbers();
    const auto found = std::ranges::find(list, words, &TunableNumber::words);
    EXPECT_NE(found, list.end()) << words;
    return found == list.end() ? TunableNumber{} : *found;
  }
};

template <class State>
bool SameBits(const State& a, const State& b) {
  static_assert(std::is_trivially_copyable_v<State>);
  return std::memcmp(&a, &b, sizeof(State)) == 0;
}

TEST_F(TuningTest, NumbersStandInWordsAndInTheUnitOfTheirDialog) {
  EXPECT_NEAR(TunedValue(Number("Face plate 1: thickness, mm")), 0.12, 1e-12);
  EXPECT_NEAR(TunedValue(Number("Piezoelectric layer: thickness, mm")), 0.4, 1e-12);
  EXPECT_EQ(TunedValue(Number("Back plate 1: density, kg/m^3")), 1500);
  EXPECT_EQ(TunedValue(Number("Front load: impedance, MRayls")), 1.5);
  EXPECT_EQ(TunedValue(Number("Element: diameter, mm")), 11.28);
  EXPECT_NEAR(TunedValue(Number("Network 1, Series L: series inductor, uH")), 1, 1e-12);
  EXPECT_EQ(TunedValue(Number("Transmitter: output impedance, Ohms")), 50);
}

TEST_F(TuningTest, EveryNumberOfTheFullestDesignIsAFieldWithWordsOfItsOwn) {
  design.NoPiezo = 2;
  design.NoFace = design.NoBack = kMaxPlates;
  design.ElementShape = 2;
  int most = 0;
  for (int code = 1; code <= kLastElementCode; ++code) {
    design.ElNet(code, 1) = code;
    most += static_cast<int>(ElementOfCode(code).fields.size());
  }
  const std::vector<TunableNumber> list = TunableNumbers();
  // Seven of each layer and plate, two diameters, two loads, two terminations, the network's.
  EXPECT_EQ(list.size(), static_cast<std::size_t>(2 * 7 + 20 * 7 + 2 + 2 + 2 + most));
  std::set<std::string> words;
  std::set<std::string> fields;
  for (const TunableNumber& number : list) {
    words.insert(number.words);
    fields.insert(number.field);
    EXPECT_TRUE(std::isfinite(TunedValue(number))) << number.words;
  }
  EXPECT_EQ(words.size(), list.size());
  EXPECT_EQ(fields.size(), list.size());
}

TEST_F(TuningTest, PutBackRestoresEveryBitWhateverIsOnShow) {
  for (const int plotNumber : {11, 24, 31, 33, 42}) {
    Show(plotNumber);
    const std::string file = DesignFileText();
    const std::string stamp = design.CalcDateTime;
    const auto before = TakeState();
    {
      Tuning tuning;
      for (const TunableNumber& number : TunableNumbers()) {
        tuning.Set(number, TunedValue(number) * 1.1);
      }
      EXPECT_EQ(tuning.Show(), "");
      EXPECT_FALSE(SameBits(curves, before->design.curves)) << plotNumber;
      EXPECT_EQ(design.DesignNew, 65535);
      tuning.PutBack();
    }
    EXPECT_TRUE(SameBits(curves, before->design.curves)) << plotNumber;
    EXPECT_TRUE(SameBits(points, before->points)) << plotNumber;
    EXPECT_EQ(DesignFileText(), file) << plotNumber;
    EXPECT_EQ(design.DesignNew, 0);
    EXPECT_EQ(design.CalcDateTime, stamp);
    EXPECT_EQ(scale.LeftMaxText, before->scale.LeftMaxText);
    EXPECT_EQ(scale.LeftMinText, before->scale.LeftMinText);
    EXPECT_EQ(measured.CFBWText, before->measured.CFBWText);
    EXPECT_EQ(measured.PulseWidthText, before->measured.PulseWidthText);
    EXPECT_EQ(Held(kReferenceSlot), nullptr);
  }
  EXPECT_TRUE(shownMessages.Lines().empty());
}

TEST_F(TuningTest, GoingWithoutAWordPutsBack) {
  const std::string file = DesignFileText();
  {
    Tuning tuning;
    tuning.Set(Number("Face plate 1: thickness, mm"), 0.2);
    tuning.Show();
    EXPECT_DOUBLE_EQ(design.FrontThick(1), 0.0002);
  }
  EXPECT_EQ(DesignFileText(), file);
}

TEST_F(TuningTest, ATitleThatIsTypedMeanwhileStays) {
  Tuning tuning;
  design.DesignTitle = "Typed meanwhile";
  tuning.PutBack();
  EXPECT_EQ(design.DesignTitle, "Typed meanwhile");
}

TEST_F(TuningTest, KeepLeavesWhatTheDialogsOkWouldLeave) {
  Tuning tuning;
  tuning.Set(Number("Piezoelectric layer: thickness, mm"), 0.5);
  tuning.Set(Number("Front load: impedance, MRayls"), 2);
  tuning.Show();
  tuning.Keep();
  const Curves kept = curves;
  EXPECT_EQ(design.DesignNew, 65535);
  // 4000 m/s / (2 x 0.5 mm) and half of it in both chains.
  EXPECT_NEAR(design.PZFa(1), 4e6, 1e-3);
  EXPECT_DOUBLE_EQ(design.FrontThick(0), 0.00025);
  EXPECT_EQ(design.ZFrontRe(64), 2e6);
  EXPECT_EQ(Held(kReferenceSlot), nullptr);
  // The other way: as the dialogs do it.
  design.PZThick(1) = 0.5 / 1000;
  PiezoConstants();
  PiezoLayers();
  design.ZFrontLoad = 2.0 * 1000000;
  CmplxLoad();
  Recalc();
  EXPECT_TRUE(SameBits(curves, kept));
}

TEST_F(TuningTest, ThePlotOfTheMomentIsThatOfARecalculation) {
  for (const int plotNumber : {11, 31, 33}) {
    Show(plotNumber);
    Tuning tuning;
    tuning.Set(Number("Face plate 1: density, kg/m^3"), 2000);
    EXPECT_EQ(tuning.Show(), "");
    const auto shown = TakeState();
    Recalc();
    EXPECT_TRUE(SameBits(points, shown->points)) << plotNumber;
    EXPECT_EQ(scale.LeftMaxText, shown->scale.LeftMaxText);
    EXPECT_EQ(measured.CFBWText, shown->measured.CFBWText);
    EXPECT_EQ(measured.PulseWidthText, shown->measured.PulseWidthText);
  }
}

TEST_F(TuningTest, TheSizeTakesAreaAndWordsAlong) {
  Tuning tuning;
  tuning.Set(Number("Element: diameter, mm"), 20);
  tuning.Show();
  EXPECT_NEAR(design.ElementArea, 3.14159265358979e-4, 1e-15);
  EXPECT_EQ(design.ElementSizeText, "20 mm disk");
}

TEST_F(TuningTest, AVelocityTakesTheShearVelocityAlong) {
  Tuning tuning;
  const TunableNumber velocity = Number("Face plate 1: longitudinal velocity, m/sec");
  tuning.Set(velocity, 5000);
  tuning.Show();
  EXPECT_NEAR(design.FaceMatl(1).ShearVelocity, 2400, 1e-9);
  EXPECT_EQ(design.BackMatl(1).ShearVelocity, 1200);
  tuning.Restore(velocity);
  tuning.Show();
  EXPECT_EQ(design.FaceMatl(1).Velocity, 2500);
  EXPECT_EQ(design.FaceMatl(1).ShearVelocity, 1200);
}

TEST_F(TuningTest, ValuesKeepTheBoundsOfTheirDialogs) {
  Tuning tuning;
  tuning.Set(Number("Face plate 1: density, kg/m^3"), 0);
  tuning.Set(Number("Face plate 1: thickness, mm"), -3);
  tuning.Set(Number("Piezoelectric layer: coupling coefficient kt"), 2);
  tuning.Set(Number("Piezoelectric layer: electrical loss tangent"), 0);
  tuning.Set(Number("Network 1, Series L: series inductor, uH"), 0);
  tuning.Show();
  EXPECT_EQ(design.FaceMatl(1).Density, 1);
  EXPECT_EQ(design.FrontThick(1), 0);
  EXPECT_EQ(design.PZMatl(1).Kt, 0.9999);
  EXPECT_EQ(design.PZMatl(1).TanDe, 0.00001);
  EXPECT_EQ(design.ElNet(1, 2), 1e-12);
}

TEST_F(TuningTest, AFailureBecomesALineAndNoBox) {
  Tuning tuning;
  const TunableNumber thickness = Number("Piezoelectric layer: thickness, mm");
  tuning.Set(thickness, 0);
  EXPECT_NE(tuning.Show().find("Division by zero"), std::string::npos);
  tuning.Set(thickness, 0.4);
  EXPECT_EQ(tuning.Show(), "") << "and is forgotten with the next value";
  EXPECT_TRUE(shownMessages.Lines().empty());
}

TEST_F(TuningTest, TheDesignAsItWasIsHeldMeanwhile) {
  Tuning tuning;
  tuning.Set(Number("Face plate 1: thickness, mm"), 0.2);
  tuning.Show();
  ASSERT_NE(Held(kReferenceSlot), nullptr);
  EXPECT_EQ(Held(kReferenceSlot)->snapshot->design.FrontThick(1), 0.00012);
}

}  // namespace
}  // namespace halvorne::testing
