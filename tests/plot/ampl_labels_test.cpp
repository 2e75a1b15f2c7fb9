#include <gtest/gtest.h>

#include "plot/catalogue.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

constexpr const char* kStays = "as before";

struct Labels {
  int plot;
  int index;
  const char* left;
  const char* leftUnit;
  const char* right;
  const char* rightUnit;
};

class AmplLabelsTest : public testing::FreshProgram {
 protected:
  AmplLabelsTest() { setup.PhaseDisplayOption = 0; }

  /// Chooses a form without its selection event doing anything but drawing nothing.
  void Choose(int index) {
    window.ClearPlotTypes();
    for (int i = 0; i <= index; ++i) {
      window.AddPlotType("form");
    }
    view.CurrentPlot = 60;
    if (index >= 0) {
      window.SetPlotTypeIndex(index);
    }
  }

  void MakeLabels(int plotNumber, int index) {
    Choose(index);
    scale.LeftLabel = scale.LeftUnit = kStays;
    scale.RightLabel = scale.RightUnit = kStays;
    scale.PeakUnit = kStays;
    GetAmplLabels(static_cast<std::int16_t>(plotNumber));
  }

  void Expect(const Labels& expected) {
    SCOPED_TRACE(std::to_string(expected.plot) + " index " + std::to_string(expected.index));
    MakeLabels(expected.plot, expected.index);
    EXPECT_EQ(scale.LeftLabel, expected.left);
    EXPECT_EQ(scale.LeftUnit, expected.leftUnit);
    EXPECT_EQ(scale.RightLabel, expected.right);
    EXPECT_EQ(scale.RightUnit, expected.rightUnit);
  }
};

TEST_F(AmplLabelsTest, ElectricalImpedance) {
  constexpr Labels rows[] = {
      {11, 0, "Z", "Ohms", "Theta", "Degrees"},
      {11, 1, "Y", "Siemens", "Theta", "Degrees"},
      {11, 2, "R", "Ohms", "X", "Ohms"},
      {11, 3, "G", "Siemens", "B", "Siemens"},
      {11, 4, "Log Z", "dB", "Theta", "Degrees"},
      {11, 5, "Log Y", "dB", "Theta", "Degrees"},
      {11, 6, "", "", "", ""},
      {11, -1, "", "", "", ""},
  };
  for (const Labels& row : rows) {
    Expect(row);
  }
}

TEST_F(AmplLabelsTest, AcousticImpedancesKeepTheNamesBeforeThemInTheirLogForms) {
  for (const int plotNumber : {21, 41, 42}) {
    Expect({plotNumber, 0, "Z", "Rayls", "Theta", "Degrees"});
    Expect({plotNumber, 1, "Y", "Rayls^-1", "Theta", "Degrees"});
    Expect({plotNumber, 2, "R", "Rayls", "X", "Rayls"});
    Expect({plotNumber, 3, "G", "Rayls^-1", "B", "Rayls^-1"});
    Expect({plotNumber, 4, kStays, kStays, kStays, kStays});
    Expect({plotNumber, 5, kStays, kStays, kStays, kStays});
  }
}

TEST_F(AmplLabelsTest, ReflectionsWhereTheLogPressureHasTheVoltagesName) {
  Expect({12, 0, "Vr/Vi", "V/V", "Theta", "Degrees"});
  Expect({12, 1, "Vr/Vi", "dB", "Theta", "Degrees"});
  Expect({22, 0, "Pr/Pi", "Pa/Pa", "Theta", "Degrees"});
  Expect({22, 1, "Vr/Vi", "dB", "Theta", "Degrees"});
}

TEST_F(AmplLabelsTest, PowersLeaveTheRightSideAlone) {
  for (const int plotNumber : {13, 23}) {
    Expect({plotNumber, 0, "Po/Pi", "W/W", kStays, kStays});
    Expect({plotNumber, 1, "Po/Pi", "dB", kStays, kStays});
  }
  for (const int plotNumber : {15, 25}) {
    Expect({plotNumber, 0, "Po/Pav", "W/W", kStays, kStays});
    Expect({plotNumber, 1, "Po/Pav", "dB", kStays, kStays});
  }
}

TEST_F(AmplLabelsTest, TransferFunctionsShowPhaseOrDelay) {
  struct Right {
    int option;
    const char* label;
    const char* unit;
  };
  for (const Right& right :
       {Right{0, "Theta", "Degrees"}, Right{1, "Theta", "Degrees"}, Right{2, "Delay", "sec"}}) {
    setup.PhaseDisplayOption = static_cast<std::int16_t>(right.option);
    Expect({14, 0, "Po/Vi", "Pa/V", right.label, right.unit});
    Expect({14, 1, "Po/Vi", "dB", right.label, right.unit});
    Expect({24, 0, "Vo/Pi", "V/MPa", right.label, right.unit});
    Expect({24, 1, "Vo/Pi", "dB V/MPa", right.label, right.unit});
    for (const int plotNumber : {31, 32}) {
      Expect({plotNumber, 0, "Vo/Vi", "V/V", right.label, right.unit});
      Expect({plotNumber, 1, "Vo/Vi", "dB", right.label, right.unit});
    }
  }
}

TEST_F(AmplLabelsTest, DispersionHasOneNameWhateverTheForm) {
  for (const int plotNumber : {51, 52, 53}) {
    for (const int index : {-1, 0, 4}) {
      Expect({plotNumber, index, "Velocity", "normalized", kStays, kStays});
    }
  }
}

TEST_F(AmplLabelsTest, WaveformsByTheirThreeGroupsOfForms) {
  struct Group {
    int first;
    int second;
    const char* label;
    const char* unit;
    const char* logLabel;
    const char* logUnit;
    const char* spectrumLabel;
  };
  constexpr Group groups[] = {
      {16, 17, " Po/Vi", "Pa/V", "Po/Vi", "dB", "Po/Vi"},
      {26, 27, "Vo/Pi", "V/MPa", "Vo/Pi", "dB V/MPa", "Vo/Pi"},
      {33, 34, " Vo/Vi", "V/V", "Vo/Vi", "dB", "Vo/Vi"},
  };
  for (const Group& g : groups) {
    for (const int plotNumber : {g.first, g.second}) {
      Expect({plotNumber, 0, g.label, g.unit, "", ""});
      EXPECT_EQ(scale.PeakUnit, g.unit);
      Expect({plotNumber, 1, g.label, g.unit, "", ""});
      Expect({plotNumber, 2, g.logLabel, g.logUnit, "", ""});
      EXPECT_EQ(scale.PeakUnit, g.unit);
      Expect({plotNumber, 3, g.label, g.unit, "Im Wfm", g.unit});
      Expect({plotNumber, 4, g.label, g.unit, "|Wfm|", g.unit});
      Expect({plotNumber, 5, g.logLabel, g.logUnit, "|Wfm|", g.logUnit});
      Expect({plotNumber, 6, g.label, g.unit, g.spectrumLabel, "dB"});
      Expect({plotNumber, 7, g.label, g.unit, g.spectrumLabel, "dB"});
      Expect({plotNumber, 8, g.logLabel, g.logUnit, g.spectrumLabel, "dB"});
    }
  }
}

TEST_F(AmplLabelsTest, OtherPlotsAndFormsLeaveAllAsItWas) {
  Expect({14, 2, kStays, kStays, kStays, kStays});
  Expect({16, 9, kStays, kStays, kStays, kStays});
  Expect({99, 0, kStays, kStays, kStays, kStays});
  EXPECT_EQ(scale.PeakUnit, kStays);
}

TEST_F(AmplLabelsTest, OnlyWaveformsSetThePeakUnit) {
  MakeLabels(14, 0);
  EXPECT_EQ(scale.PeakUnit, kStays);
}

}  // namespace
}  // namespace halvorne
