#include "platform/main_window.h"
#include "plot/measures.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

class MeasurementDisplay : public FreshProgram {
 protected:
  MeasurementDisplay() {
    for (std::size_t row = 0; row < measured.CFBWText.size(); ++row) {
      for (std::size_t column = 0; column < 4; ++column) {
        measured.CFBWText[row][column] = CellText("band", row, column);
      }
    }
    for (std::size_t row = 0; row < measured.PulseWidthText.size(); ++row) {
      for (std::size_t column = 0; column < 2; ++column) {
        measured.PulseWidthText[row][column] = CellText("pulse", row, column);
      }
    }
    design.FreqScale = 1e6F;
    design.FreqUnit = "MHz";
    design.AttenLength = 2.5F;
    design.AttenRate = 0.1234F;
    design.AttenFreq = 5e6F;
    design.AttenExp = 1;
  }
  static std::string CellText(const std::string& grid, std::size_t row, std::size_t column) {
    return grid + std::to_string(row) + std::to_string(column);
  }
};

TEST_F(MeasurementDisplay, TheFixedRowsStandInTheGridsAndInTheTexts) {
  InitGrids();
  const char* const band[2][4] = {{"Level", "Center", "Band", "Band"},
                                  {"", "Freq", "Width", "Width"}};
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 4; ++column) {
      EXPECT_EQ(window.GridCell(Grid::kCFBW, row, column), band[row][column]);
      EXPECT_EQ(measured.CFBWText[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)],
                band[row][column]);
    }
  }
  EXPECT_EQ(window.GridCell(Grid::kPulseWidth, 0, 0), "Level");
  EXPECT_EQ(window.GridCell(Grid::kPulseWidth, 0, 1), "Width");
  EXPECT_EQ(measured.PulseWidthText[0][1], "Width");
  EXPECT_EQ(measured.CFBWText[2][0], "band20") << "the unit row is not fixed";
  EXPECT_EQ(window.GridCell(Grid::kCFBW, 2, 0), "");
  EXPECT_EQ(window.GridCell(Grid::kPulseWidth, 1, 0), "");
}

TEST_F(MeasurementDisplay, ValidBandsAreShownFromTheUnitRowOn) {
  measured.CFBWValid = true;
  DisplayCFBW();
  EXPECT_EQ(window.GridCell(Grid::kCFBW, 1, 0), "") << "fixed rows are left alone";
  for (std::size_t row = 2; row < 6; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      EXPECT_EQ(window.GridCell(Grid::kCFBW, static_cast<int>(row), static_cast<int>(column)),
                CellText("band", row, column));
    }
  }
  EXPECT_TRUE(window.IsEnabled(Item::kCFBWGrid));
}

TEST_F(MeasurementDisplay, BandsThatDoNotHoldAreBlankAndDisabledButTheirTextsStay) {
  measured.CFBWValid = true;
  DisplayCFBW();
  measured.CFBWValid = false;
  DisplayCFBW();
  for (int row = 2; row < 6; ++row) {
    for (int column = 0; column < 4; ++column) {
      EXPECT_EQ(window.GridCell(Grid::kCFBW, row, column), "");
    }
  }
  EXPECT_FALSE(window.IsEnabled(Item::kCFBWGrid));
  EXPECT_EQ(measured.CFBWText[3][1], "band31");
}

TEST_F(MeasurementDisplay, PulseWidthsAreShownWithThePeakWhenTheyHold) {
  for (const bool valid : {true, false}) {
    measured.PulseWidthValid = valid;
    DisplayPulseWidth();
    EXPECT_EQ(window.GridCell(Grid::kPulseWidth, 1, 1), valid ? "pulse11" : "");
    EXPECT_EQ(window.GridCell(Grid::kPulseWidth, 4, 0), valid ? "pulse40" : "");
    EXPECT_EQ(window.IsEnabled(Item::kPulseWidthGrid), valid);
    EXPECT_EQ(window.PeakLabelVisible(), valid);
  }
}

TEST_F(MeasurementDisplay, TheLossOfTheLoadMediumIsToldInFourLabels) {
  measured.AttenValid = true;
  design.AttenOn = true;
  DisplayAtten();
  const std::array<std::string, 4> captions{"Path length 2.500 cm", "Atten rate 0.123 dB/cm",
                                            "Atten freq 5.000 MHz", "Exponent 1.000"};
  EXPECT_EQ(window.AttenuationLabels(), captions);
  EXPECT_EQ(measured.AttenCaptions, captions);
  EXPECT_TRUE(window.IsEnabled(Item::kAttenuation));
  EXPECT_TRUE(window.AttenuationLabelsVisible());
}

TEST_F(MeasurementDisplay, WithoutAttenuationTheFourLabelsAreEmpty) {
  const std::array<std::string, 4> none;
  measured.AttenCaptions.fill("old");
  measured.AttenValid = true;
  design.AttenOn = false;
  DisplayAtten();
  EXPECT_EQ(window.AttenuationLabels(), none);
  EXPECT_EQ(measured.AttenCaptions, none);
  EXPECT_TRUE(window.IsEnabled(Item::kAttenuation)) << "enabled where attenuation could be shown";
  EXPECT_TRUE(window.AttenuationLabelsVisible());

  measured.AttenValid = false;
  design.AttenOn = true;
  DisplayAtten();
  EXPECT_EQ(window.AttenuationLabels(), none);
  EXPECT_FALSE(window.IsEnabled(Item::kAttenuation));
  EXPECT_FALSE(window.AttenuationLabelsVisible());
}

TEST_F(MeasurementDisplay, AFrequencyUnitOfZeroIsReportedByTheWindow) {
  measured.AttenValid = design.AttenOn = true;
  design.FreqScale = 0;
  DisplayAtten();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{
                "ERROR in DisplayAtten of frmHalvorneMain|Error: 11. Division by zero"});
}

}  // namespace
}  // namespace halvorne::testing
