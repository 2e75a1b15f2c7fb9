#include "report/report_content.h"

#include <gmock/gmock.h>

#include "plot/plot_state.h"
#include "report/report_fixture.h"
#include "report/report_layout.h"

namespace halvorne::testing {
namespace {

using Texts = std::vector<std::string>;

class ReportContent : public ReportTest {
 protected:
  Texts Print() {
    paper.Forget();
    BeginPage();
    PrintParasOn(paper);
    EXPECT_EQ(shownMessages.Lines(), Texts{});
    return Lines();
  }
};

TEST_F(ReportContent, SaysAllInputsInTheirOrder) {
  EXPECT_EQ(
      Print(),
      (Texts{
          "0|HALVORNE INPUT PARAMETERS & 4|Program version: Version 4.01",
          "0|Data file: probe.dat & 4|Date and time calculated: then",
          "0|TITLE:  A probe\r\n",
          "0|FREQUENCY AND TIME",
          "0.15|Design center frequency Fd = 5.000 MHz & "
          "4|Frequency range of calculation: 1.000  to 9.000 MHz",
          "0.15|Number of points in frequency domain:  16  & 4|Time domain:  256 ",
          "0|PIEZOELECTRIC ELEMENT DESCRIPTION",
          "0.15|Connection = Series",
          "0.15|Element size: 12.7 mm disk & 4|Element area: 125.0000 mm^2",
          "0.15|PARAMETER & 2|REAR LAYER & 4|FRONT LAYER & 6|UNITS",
          "0.15|Thickness & 2|0.40000 & 4|0.44000 & 6|mm",
          "0.15|Parallel frequency Fp & 2|5.00000 & 4|5.50000 & 6|MHz",
          "0.15|Material & 2|Rear & 4|Front",
          "0.15|Polarity & connection & 2|+ & 4|- & 6|Series",
          "0.15|Longitudinal impedance & 2|30.000 & 4|33.000 & 6|MRayls",
          "0.15|Longitudinal velocity & 2|4000.0 & 4|4400.0 & 6|m/sec",
          "0.15|Shear velocity & 2|1750.3 & 4|1750.3 & 6|m/sec",
          "0.15|Density & 2|7500.0 & 4|7500.0 & 6|kg/m^3",
          "0.15|Clamped capacitance Co & 2|125.0 & 4|250.0 & 6|pF",
          "0.15|Clamped dielectric const. & 2|850.13 & 4|850.13 & 6|E33s",
          "0.15|Thickness coupling kt & 2|0.5000 & 4|0.5000",
          "0.15|Electrical loss tangent & 2|0.0200 & 4|0.0200 & 6|tan de",
          "0.15|Mechanical loss tangent & 2|0.0040 & 4|0.0040 & 6|tan dm",
          "0.15|Vendor & 2|Rear Ltd & 4|Front Ltd",
          "0.15|Data source & 2|measured & 4|measured",
          "0|ACOUSTIC LAYERS",
          "0.15|FACE & 0.7|MATL & 1.8|SHEAR & 2.6|LONG. & 3.4|LONG & 4.2|LOSS & 5|LOSS & "
          "5.8|LOSS & 6.6|REL. & 7.4|THICK & 8.2|THICK",
          "0.15|PLATE & 0.7|NAME & 1.8|VEL. & 2.6|VEL. & 3.4|IMPED. & 4.2|ALPHA & 5|AT F & "
          "5.8|   N & 6.6|AREA & 7.4|Lambdas",
          "0.15|No. & 1.8|m/sec & 2.6|m/sec & 3.4|MRayls & 4.2|dB/cm & 5|MHz & 7.4|At Fd & "
          "8.2|  mm",
          "0.15| 1  & 0.7|Epoxy & 1.8|1200.0 & 2.6|2500.0 & 3.4|3.000 & 4.2|1.500 & 5|2.000 & "
          "5.8|1.25 & 6.6|1.000 & 7.4|0.25000 & 8.2|0.12500",
          "0|BACKPLATES",
          "0.15| 1  & 0.7|Tungsten & 1.8|1200.0 & 2.6|2500.0 & 3.4|3.000 & 4.2|1.500 & 5|2.000 & "
          "5.8|1.25 & 6.6|0.750 & 7.4|0.50000 & 8.2|0.25000",
          "0.15| 2  & 0.7|Brass & 1.8|1200.0 & 2.6|2500.0 & 3.4|3.000 & 4.2|1.500 & 5|2.000 & "
          "5.8|1.25 & 6.6|0.500 & 7.4|1.00000 & 8.2|0.50000",
          "0|ACOUSTIC LOAD IMPEDANCES:   Rear: 10000.0   Rayls & 5|Front: 1.500   MRayls",
          "0|ELECTRICAL TERMINATIONS:   Transmitter output = 50.0  Ohms & "
          "5|Receiver input = 75.3 Ohms",
          "0|ELECTRICAL MATCHING NETWORK: ",
          "0.15|No electrical matching network",
      }));
}

TEST_F(ReportContent, OneLayerHasOneColumnOfValues) {
  design.NoPiezo = 1;
  Print();
  EXPECT_EQ(LinesFrom("PARAMETER", 5),
            (Texts{"0.15|PARAMETER & 2|VALUE & 4|UNITS", "0.15|Thickness & 2|0.40000 & 4|mm",
                   "0.15|Parallel frequency Fp & 2|5.00000 & 4|MHz", "0.15|Material & 2|Rear",
                   "0.15|Polarity & 2|+"}));
  EXPECT_FALSE(HasText("Connection"));
}

TEST_F(ReportContent, PolarityOtherThanOneIsMinus) {
  design.PZPolarity(1) = 0;
  Print();
  EXPECT_EQ(LinesFrom("Polarity", 1), Texts{"0.15|Polarity & connection & 2|- & 4|- & 6|Series"});
}

TEST_F(ReportContent, PartialDetailsLeaveTheMaterialOut) {
  setup.ReportDetails = 2;
  Print();
  EXPECT_EQ(LinesFrom("Polarity", 2),
            (Texts{"0.15|Polarity & connection & 2|+ & 4|- & 6|Series", "0|ACOUSTIC LAYERS"}));
}

TEST_F(ReportContent, ADesignNeverSavedSaysSo) {
  design.DesignNew = 65535;
  Print();
  EXPECT_TRUE(HasText("Data file: NEW - Not saved"));
  EXPECT_FALSE(HasText("probe.dat"));
}

TEST_F(ReportContent, StatisticsStandUnderTheTitle) {
  FillMeasurements();
  Print();
  EXPECT_EQ(
      LinesFrom("PLOT STATISTICS", 6),
      (Texts{"0|PLOT STATISTICS", "0.15|Center frequency at -6, -20, and -40 dB: 5.0, 5.1, 5.2 MHz",
             "0.15|Bandwidth at -6, -20, and -40 dB: 2.0, 3.0, 4.0 MHz  In percent of CF: 40.00, "
             "58.82, 76.92 % of CF",
             "0.15|Pulse width at -6, -20, -40 dB: 0.3, 0.5, 0.9 usec  Pk Ampl = 1.00 dB re 1 V/V",
             "0|ATTENUATION IN THE LOAD MEDIUM:  Path length 1.000 cm, Atten rate 2.000 dB/cm, "
             "Atten freq 3.000 MHz, Exponent 1.000",
             "0|FREQUENCY AND TIME"}));
}

TEST_F(ReportContent, StatisticsDisappearOnlyWithoutAnyMeasurement) {
  FillMeasurements();
  measured.AttenValid = false;
  measured.CFBWValid = false;
  Print();
  EXPECT_EQ(LinesFrom("PLOT STATISTICS", 5),
            (Texts{"0|PLOT STATISTICS", "0.15|Center frequency: No valid data",
                   "0.15|Bandwidth: No valid data",
                   "0.15|Pulse width at -6, -20, -40 dB: 0.3, 0.5, 0.9 usec  Pk Ampl = 1.00 dB re "
                   "1 V/V",
                   "0|FREQUENCY AND TIME"}));
  measured.CFBWValid = true;
  measured.PulseWidthValid = false;
  Print();
  EXPECT_TRUE(HasText("Center frequency at -6"));
  EXPECT_TRUE(HasText("Pulse width: No valid data"));
  measured.CFBWValid = false;
  Print();
  EXPECT_FALSE(HasText("PLOT STATISTICS"));
  EXPECT_FALSE(HasText("No valid data"));
}

TEST_F(ReportContent, AttenuationNeedsAPlotThatHasItAndItsSwitch) {
  FillMeasurements();
  design.AttenOn = false;
  Print();
  EXPECT_EQ(LinesFrom("ATTENUATION", 1), Texts{"0|ATTENUATION IN THE LOAD MEDIUM:  Not enabled"});
  design.AttenOn = true;
  measured.AttenValid = false;
  Print();
  EXPECT_FALSE(HasText("ATTENUATION"));
}

TEST_F(ReportContent, ABurstTakesFrequencyAndPointsFromTheDesignAndTheRestFromTheCopies) {
  design.ExciteType = 1;
  design.ExciteWave = 1;
  design.ExciteFreq = 5e6F;
  design.ExciteCycles = design.ExciteDelay = design.ExcitePhase = 9;
  design.ExcitePoints = 512;
  draft.TmpExciteFreq = 1e6F;
  draft.TmpExciteCycles = 2.5F;
  draft.TmpExciteDelay = 1e-6F;
  draft.TmpExcitePhase = 45;
  draft.TmpExcitePoints = 64;
  for (const std::int16_t plotNumber : std::initializer_list<std::int16_t>{17, 27, 34}) {
    view.CurrentPlot = plotNumber;
    Print();
    EXPECT_EQ(LinesFrom("EXCITATION", 2),
              (Texts{"0|EXCITATION WAVEFORM:  Sine wave burst 5. MHz, 2.5 cycles, delay: 1. usec, "
                     "phase: 45. degrees, 512 points",
                     "0|FREQUENCY AND TIME"}));
  }
  design.ExciteWave = 2;
  Print();
  EXPECT_TRUE(HasText("Square wave burst 5. MHz"));
  view.CurrentPlot = 16;
  Print();
  EXPECT_FALSE(HasText("EXCITATION"));
}

TEST_F(ReportContent, AnExcitationFileIsNamed) {
  view.CurrentPlot = 17;
  design.ExciteType = 2;
  design.ExciteFileName = "pulse.xct";
  design.ExciteLength = 127;
  design.ExciteComment = "measured";
  Print();
  EXPECT_TRUE(HasText("EXCITATION WAVEFORM:  File name: pulse.xct Length: 127 Comment: measured"));
  design.ExciteType = 0;
  Print();
  EXPECT_EQ(LinesFrom("EXCITATION", 1), Texts{"0|EXCITATION WAVEFORM:  "});
}

TEST_F(ReportContent, StartsAtItsOwnTabStopsWhateverStoodBefore) {
  for (int stop = 0; stop <= 2; ++stop) {
    report.ReportTab(stop) = 7;
  }
  paper.Forget();
  PrintParasOn(paper);
  EXPECT_EQ(LinesFrom("HALVORNE", 1)[0].substr(0, 27), "0|HALVORNE INPUT PARAMETERS");
}

TEST_F(ReportContent, PlatesOfOneSideHaveTheirOwnHeading) {
  design.NoFace = 0;
  Print();
  EXPECT_EQ(LinesFrom("ACOUSTIC LAYERS", 2), (Texts{"0|ACOUSTIC LAYERS", "0.15|No Faceplates"}));
  EXPECT_EQ(LinesFrom("BACK", 1)[0].substr(0, 22), "0.15|BACK & 0.7|MATL &");
  EXPECT_FALSE(HasText("BACKPLATES"));
  EXPECT_FALSE(HasText("FACE"));
  design.NoFace = 1;
  design.NoBack = 0;
  Print();
  EXPECT_EQ(LinesFrom("No Backplates", 1), Texts{"0.15|No Backplates"});
  EXPECT_FALSE(HasText("BACKPLATES"));
}

TEST_F(ReportContent, EachSidesLoadHasItsOwnUnit) {
  design.ZBackLoad = 10000.5;
  design.ZFrontLoad = 415.04;
  Print();
  EXPECT_EQ(LinesFrom("ACOUSTIC LOAD", 1),
            Texts{"0|ACOUSTIC LOAD IMPEDANCES:   Rear: 0.010   MRayls & 5|Front: 415.0   Rayls"});
}

TEST_F(ReportContent, ANetworkFillsLinesAndStopsAtRowTwenty) {
  for (int row = 1; row <= kNetworkRows; ++row) {
    design.ElNet(row, 1) = 1;
    design.ElNet(row, 2) = 1e9 + row;
  }
  Print();
  // "nn. Series R 10000000nn Ohms" is 28 characters; with ", " 16 of them take 9.6 of 9.85.
  const auto network = Printed().back();
  EXPECT_EQ(network.text.substr(0, 29), "1. Series R 1000000001 Ohms, ");
  EXPECT_TRUE(network.text.ends_with("20. Series R 1000000020 Ohms"));
  EXPECT_NE(network.text.find("Ohms\r\n17. Series"), std::string::npos) << network.text;
  EXPECT_NEAR(network.x, 0.15, 1e-6);
  design.ElNet(3, 1) = 0;
  Print();
  EXPECT_EQ(Printed().back().text, "1. Series R 1000000001 Ohms, 2. Series R 1000000002 Ohms");
}

TEST_F(ReportContent, AFailureEndsItsProcedureAndTheRestIsPrinted) {
  design.FaceMatl(1).Velocity = 0;
  BeginPage();
  PrintParasOn(paper);
  EXPECT_EQ(shownMessages.Lines(),
            Texts{"ERROR in PrintFacePlatesOn of PRINTIT|Error: 11. Division by zero"});
  EXPECT_TRUE(HasText("BACKPLATES"));
}

TEST_F(ReportContent, TextsThatWouldMoveThePenAreSeenInstead) {
  design.DesignTitle = "a\tb\r\nc";
  design.PZMatl(1).Name = "x\ny";
  design.DataFileName = "caf\xE9.dat";
  Print();
  EXPECT_TRUE(
      HasText("TITLE:  a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD\xEF\xBF\xBD"
              "c\r\n"));
  EXPECT_TRUE(HasText("x\xEF\xBF\xBDy"));
  EXPECT_TRUE(HasText("caf\xC3\xA9.dat"));
}

/// Where each section begins and how many of its lines stay together.
struct Section {
  std::string text;
  int lines;
};

// With one line more than is kept free below a section the page goes on, without it a new one
// begins there and nowhere before.
TEST_F(ReportContent, EachSectionStaysTogetherByItsOwnNumberOfLines) {
  design.NoFace = 2;
  design.FaceMatl(2) = design.FaceMatl(1);
  design.FaceMatl(2).Name = "Glass";
  design.NoBack = 5;
  for (int i = 3; i <= 5; ++i) {
    design.BackMatl(i) = design.BackMatl(2);
  }
  design.BackMatl(5).Name = "Lead";
  for (int row = 1; row <= kNetworkRows; ++row) {  // two lines of print
    design.ElNet(row, 1) = 1;
    design.ElNet(row, 2) = 1e9 + row;
  }
  const auto place = [this](const std::string& start) {
    for (const PrintedText& printed : Printed()) {
      if (printed.text.starts_with(start)) {
        return printed;
      }
    }
    ADD_FAILURE() << start << " is not printed";
    return PrintedText();
  };
  Print();
  const double top = Printed().front().y;
  const Section sections[] = {{"Number of points", 1},
                              {"PIEZOELECTRIC", 7},
                              {"Longitudinal impedance", 4},
                              {"Clamped capacitance", 3},
                              {"Electrical loss tangent", 4},
                              {"ACOUSTIC LAYERS", 5},
                              {"Glass", 1},
                              {"BACKPLATES", 4},
                              {"Lead", 1},
                              {"ACOUSTIC LOAD", 1},
                              {"ELECTRICAL TERMINATIONS", 1},
                              {"ELECTRICAL MATCHING", 2},
                              {"1. Series R", 3}};
  std::vector<double> above;
  for (const Section& section : sections) {
    above.push_back(top - place(section.text).y);
  }
  for (std::size_t i = 0; i < std::size(sections); ++i) {
    for (const int left : {sections[i].lines + 1, sections[i].lines + 2}) {
      paper.Forget();
      BeginPage();
      report.ReportLineHeight = 0.05F;
      paper.MoveTo(0, (left + 0.5) * 0.05 + above[i]);
      PrintParasOn(paper);
      const bool breaks = left < sections[i].lines + 2;
      EXPECT_EQ(place(sections[i].text).page, breaks ? 2 : 1)
          << sections[i].text << " with " << left << " lines left";
      if (i > 0) {
        EXPECT_EQ(place(sections[i - 1].text).page, 1) << "before " << sections[i].text;
      }
    }
  }
}

// Sections stay together by the lines that their tests of the page's end ask for.
TEST_F(ReportContent, PagesBreakBetweenSections) {
  BeginPage();
  paper.MoveTo(0, 1.3);
  PrintParasOn(paper);
  std::vector<std::pair<int, std::string>> first;
  int page = 0;
  for (const PrintedText& text : Printed()) {
    if (text.page != page && !text.underline) {
      page = text.page;
      first.emplace_back(page, text.text);
    }
  }
  // Before the rows of the losses 21 lines of 0.05 leave 0.25, four lines of the first header where
  // six are asked for; before that there were always enough.
  ASSERT_EQ(first.size(), 2U);
  EXPECT_EQ(first[1], std::pair(2, std::string("Electrical loss tangent")));
}

}  // namespace
}  // namespace halvorne::testing
