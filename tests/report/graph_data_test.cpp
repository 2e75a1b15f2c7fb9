#include <algorithm>
#include <ctime>
#include <set>
#include <string>
#include <vector>

#include "persistence/file_fixture.h"
#include "plot/plot_state.h"
#include "report/text_exports.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

class GraphData : public FileTest {
 protected:
  GraphData() {
    MakeSimpleDesign(4, 8);
    design.DesignTitle = "My probe";
    plot.PlotTitle = "Electrical Input Impedance";
    plot.DualTrace = true;
    scale.LeftLabel = "Magnitude";
    scale.LeftPrefix = "k";
    scale.LeftUnit = "Ohms";
    scale.LeftMag = 1000;
    scale.RightLabel = "Phase";
    scale.RightUnit = "degrees";
    scale.RightMag = 1;
    for (int i = 0; i < 8; ++i) {
      points.PlotData(i) = {1000.0 * i, -90.5 + i};
    }
  }
  void ShowTimePlot() {
    view.CurrentPlot = 16;
    view.TimeUnit = "usec";
    view.TimeScale = 1e-6;
    design.SampleRateHz = 20e6;
    plot.DualTrace = false;
  }
  static std::string Clipboard() {
    std::string text = "old";
    GraphDataToClipboard(text);
    return text;
  }
  std::string Saved() {
    SaveGraphData(Path("GRAPH1.DAT"));
    return Get("GRAPH1.DAT");
  }
};

TEST_F(GraphData, FrequencyTableOnTheClipboardLetterByLetter) {
  // 1 to 9 MHz in 4 intervals: 1, 3, 5, 7 MHz. Kept: the last point, 9 MHz, is not in it.
  EXPECT_EQ(Clipboard(),
            "Title: My probe\r\n"
            "Plot Title: Electrical Input Impedance\r\n"
            "Data Units\r\n"
            "Frequency\tMagnitude\tPhase\r\n"
            "MHz\tkOhms\tdegrees\r\n"
            "1.00000E+00\t0.00000E+00\t-9.05000E+01\r\n"
            "3.00000E+00\t1.00000E+00\t-8.95000E+01\r\n"
            "5.00000E+00\t2.00000E+00\t-8.85000E+01\r\n"
            "7.00000E+00\t3.00000E+00\t-8.75000E+01\r\n");
}

TEST_F(GraphData, FrequencyTableInAFileLetterByLetter) {
  // Kept: in the file the sweep's start stays in Hz, so 3 MHz reads as 2 + 1000000.
  EXPECT_EQ(Saved(),
            "\"Halvorne for Windows Version 4.01\"\r\n"
            "\"Title: My probe\"\r\n"
            "\"Plot Title: Electrical Input Impedance\"\r\n"
            "\"Data Units\"\r\n"
            "\"Frequency\",\"Magnitude\",\"Phase\"\r\n"
            "\"MHz\",\"kOhms\",\"degrees\"\r\n"
            "\"1.00000E+06\",\"0.00000E+00\",\"-9.05000E+01\"\r\n"
            "\"1.00000E+06\",\"1.00000E+00\",\"-8.95000E+01\"\r\n"
            "\"1.00000E+06\",\"2.00000E+00\",\"-8.85000E+01\"\r\n"
            "\"1.00001E+06\",\"3.00000E+00\",\"-8.75000E+01\"\r\n");
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(GraphData, TimeTableOfOneTraceOnTheClipboard) {
  ShowTimePlot();
  design.NoTimePts = 3;
  EXPECT_EQ(Clipboard(),
            "Title: My probe\r\n"
            "Plot Title: Electrical Input Impedance\r\n"
            "Data Units\r\n"
            "Time\tMagnitude\tPhase\r\n"
            "usec\tkOhms\tdegrees\r\n"
            "0.00000E+00\t0.00000E+00\t0.000\r\n"
            "5.00000E-02\t1.00000E+00\t0.000\r\n"
            "1.00000E-01\t2.00000E+00\t0.000\r\n");
}

TEST_F(GraphData, TimeTableOfOneTraceInAFile) {
  ShowTimePlot();
  design.NoTimePts = 2;
  const std::string text = Saved();
  EXPECT_EQ(text.substr(text.find("\"Time\"")),
            "\"Time\",\"Magnitude\",\"Phase\"\r\n"
            "\"usec\",\"kOhms\",\"degrees\"\r\n"
            "\"0.00000E+00\",\"0.00000E+00\",\"\"\r\n"
            "\"5.00000E-02\",\"1.00000E+00\",\"\"\r\n");
}

TEST_F(GraphData, EveryTimePlotHasATimeColumnAndNoOther) {
  for (const int number :
       {11, 12, 13, 14, 15, 16, 17, 21, 26, 27, 31, 33, 34, 41, 42, 51, 52, 53}) {
    ShowTimePlot();
    view.CurrentPlot = static_cast<std::int16_t>(number);
    const bool time = std::set<int>{16, 17, 26, 27, 33, 34}.contains(number);
    EXPECT_EQ(Clipboard().find("\r\nTime\t") != std::string::npos, time) << number;
    EXPECT_EQ(std::ranges::count(Clipboard(), '\n'), 5 + (time ? 8 : 4)) << number;
  }
}

TEST_F(GraphData, AZeroDivisorIsReportedAndTheTextStays) {
  scale.LeftMag = 0;
  EXPECT_EQ(Clipboard(), "old");
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in GraphDataToClipboard of PRINTIT|Error: 11. Division by zero"});
}

TEST_F(GraphData, TheDivisorOfASecondTraceThatIsNotShownDoesNotMatter) {
  ShowTimePlot();
  scale.RightMag = 0;
  design.FreqScale = 0;
  EXPECT_NE(Clipboard(), "old");
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(GraphData, MoreLinesThanPlotPointsFailAtTheBound) {
  ShowTimePlot();
  design.NoTimePts = 65537;
  EXPECT_EQ(Clipboard(), "old");
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in GraphDataToClipboard of PRINTIT|Error: 9. Subscript out of range"});
}

TEST_F(GraphData, AnExistingFileIsAskedForAndNoKeepsIt) {
  Put("GRAPH1.DAT", "precious");
  EXPECT_EQ(Saved(), "precious");
  ASSERT_EQ(shownMessages.Shown().size(), 1U);
  const Message& question = shownMessages.Shown()[0];
  EXPECT_EQ(question.title, "Halvorne Save Graph Data");
  EXPECT_EQ(question.text, "Overwrite existing file?");
  EXPECT_EQ(question.icon, MessageIcon::kQuestion);
  EXPECT_EQ(question.buttons, MessageButtons::kYesNo);
  EXPECT_EQ(question.defaultAnswer, MessageAnswer::kNo);
  shownMessages.AnswerNext(MessageAnswer::kYes);
  EXPECT_TRUE(Saved().starts_with("\"Halvorne for Windows Version 4.01\"\r\n"));
}

TEST_F(GraphData, FailuresOfTheFileReachTheCommand) {
  EXPECT_EQ(FailureOf([&] { SaveGraphData(Path("missing/GRAPH1.DAT")); }), 76);
  {
    const FullDisk full(100);
    EXPECT_EQ(FailureOf([&] { SaveGraphData(Path("full.dat")); }), 75);
  }
  scale.LeftMag = 0;
  EXPECT_EQ(FailureOf([&] { SaveGraphData(Path("zero.dat")); }), 11);
  EXPECT_TRUE(Get("zero.dat").ends_with("\"MHz\",\"kOhms\",\"degrees\"\r\n"))
      << "the lines before the failure stay";
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(GraphData, TheOldFileIsKeptUntilTheNewOneIsWhole) {
  Put("GRAPH1.DAT", "precious");
  scale.LeftMag = 0;
  shownMessages.AnswerNext(MessageAnswer::kYes);
  EXPECT_EQ(FailureOf([&] { SaveGraphData(Path("GRAPH1.DAT")); }), 11);
  EXPECT_EQ(Get("GRAPH1.DAT~"), "precious");
  scale.LeftMag = 1;
  shownMessages.AnswerNext(MessageAnswer::kYes);
  SaveGraphData(Path("GRAPH1.DAT"));
  EXPECT_EQ(Names(), Lines{"GRAPH1.DAT"});
}

TEST_F(GraphData, ADoubleQuoteInATitleBecomesTwoSingleOnesInTheFileOnly) {
  design.DesignTitle = "1/2\" disc";
  EXPECT_NE(Saved().find("\"Title: 1/2'' disc\"\r\n"), std::string::npos);
  EXPECT_TRUE(Clipboard().starts_with("Title: 1/2\" disc\r\n"));
}

TEST_F(GraphData, TheLongestTableIsLinear) {
  ShowTimePlot();
  // Processor time, which other work on the machine doesn't lengthen.
  const auto timeOf = [](std::int32_t lines) {
    design.NoTimePts = lines;
    const std::clock_t begin = std::clock();
    const std::string text = Clipboard();
    const std::clock_t end = std::clock();
    EXPECT_EQ(std::ranges::count(text, '\n'), 5 + lines);
    return static_cast<double>(end - begin);
  };
  // 16 times the lines: 16 times the work, and 256 times if each line copied those before it.
  const double few = timeOf(4096);
  EXPECT_LT(timeOf(65536), 64 * few);
}

TEST_F(GraphData, TheTextOfTheFileIsWhatIsSaved) {
  EXPECT_EQ(GraphDataFileText(), Saved());
}

}  // namespace
}  // namespace halvorne::testing
