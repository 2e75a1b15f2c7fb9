#include "plot/plot_state.h"
#include "report/text_exports.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

class Statistics : public FreshProgram {
 protected:
  static void FillBand() {
    measured.CFBWValid = true;
    measured.CFBWText = {{{"Level", "Center", "Bandwidth", "Bandwidth"},
                          {"", "", "", ""},
                          {"dB", "MHz", "MHz", "% of CF"},
                          {"-3", "5.0", "2.0", "40"},
                          {"-6", "5.1", "2.5", "49"},
                          {"-20", "5.2", "3.0", "58"}}};
  }
  static void FillPulse() {
    measured.PulseWidthValid = true;
    measured.PulseWidthText = {
        {{"Level", "Width"}, {"dB", "usec"}, {"-6", "0.3"}, {"-20", "0.5"}, {"-40", "0.9"}}};
    measured.PkAmplCaption = "Peak:\r\n1.2 V";
  }
  static void FillAttenuation() {
    measured.AttenValid = true;
    design.AttenOn = true;
    measured.AttenCaptions = {"Length 1 cm", "Rate 2 dB/cm", "Freq 3 MHz", "Exp 2"};
  }
};

TEST_F(Statistics, WithoutMeasurementEachOfTheThreeSectionsSaysSo) {
  EXPECT_EQ(StatisticsText(),
            "Center frequency and bandwidth:\r\n"
            "No valid data\r\n"
            "\r\n"
            "Pulse width:\r\n"
            "No valid data\r\n"
            "\r\n"
            "Attenuation in the load medium:\r\n"
            "No valid data\r\n");
}

TEST_F(Statistics, WithAllMeasurementsEveryCellIsThere) {
  FillBand();
  FillPulse();
  FillAttenuation();
  EXPECT_EQ(StatisticsText(),
            "Center frequency and bandwidth:\r\n"
            "Level\tCenter\tBandwidth\tBandwidth\r\n"
            "\t\t\t\r\n"
            "dB\tMHz\tMHz\t% of CF\r\n"
            "-3\t5.0\t2.0\t40\r\n"
            "-6\t5.1\t2.5\t49\r\n"
            "-20\t5.2\t3.0\t58\r\n"
            "\r\n"
            "Pulse width:\r\n"
            "Level\tWidth\r\n"
            "dB\tusec\r\n"
            "-6\t0.3\r\n"
            "-20\t0.5\r\n"
            "-40\t0.9\r\n"
            "Peak:\r\n1.2 V\r\n"
            "\r\n"
            "Attenuation in the load medium:\r\n"
            "Length 1 cm\r\n"
            "Rate 2 dB/cm\r\n"
            "Freq 3 MHz\r\n"
            "Exp 2\r\n"
            "\r\n");
}

TEST_F(Statistics, AttenuationNeedsBothAPlotThatHasItAndItsSwitch) {
  FillAttenuation();
  design.AttenOn = false;
  EXPECT_TRUE(StatisticsText().ends_with("medium:\r\nNo valid data\r\n"));
  FillAttenuation();
  measured.AttenValid = false;
  EXPECT_TRUE(StatisticsText().ends_with("medium:\r\nNo valid data\r\n"));
}

TEST_F(Statistics, OneSectionDoesNotHideAnother) {
  FillPulse();
  EXPECT_NE(StatisticsText().find("bandwidth:\r\nNo valid data\r\n\r\nPulse width:\r\nLevel"),
            std::string::npos);
}

}  // namespace
}  // namespace halvorne::testing
