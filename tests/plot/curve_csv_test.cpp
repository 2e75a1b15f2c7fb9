#include "plot/curve_csv.h"

#include <algorithm>
#include <sstream>

#include "plot/compared_designs.h"
#include "plot/comparison_table.h"
#include "timedomain/sample_rate.h"

namespace halvorne::testing {
namespace {

class CurveCsv : public ComparedDesigns {
 protected:
  static std::vector<std::string> Lines(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
      lines.push_back(line);
    }
    return lines;
  }
  static std::vector<double> Numbers(const std::string& line) {
    std::istringstream stream(line);
    std::vector<double> numbers;
    for (std::string cell; std::getline(stream, cell, ',');) {
      numbers.push_back(std::stod(cell));
    }
    return numbers;
  }
};

TEST_F(CurveCsv, HasAHeadThatNamesDesignPlotFormAndUnits) {
  Make("Present");
  Choose(31, 1);
  const auto lines = Lines(CurvesAsCsv());
  ASSERT_EQ(lines.size(), 7U + 1 + 65);
  EXPECT_EQ(lines[1], "# Design: Present (Present.dat)");
  EXPECT_EQ(lines[2], "# Plot: Two-way Transfer Function - V(Rx)/V(Tx)");
  EXPECT_EQ(lines[3], "# Form: Log");
  EXPECT_EQ(lines[4], "# x: Frequency in Hz");
  EXPECT_EQ(lines[5], "# y1: Vo/Vi in dB");
  EXPECT_EQ(lines[6], "# y2: Theta in Degrees");
  EXPECT_EQ(lines[7], "x,y1,y2");
}

TEST_F(CurveCsv, HoldsEveryBitOfTheValues) {
  Make("Present");
  Choose(31, 1);
  const auto lines = Lines(CurvesAsCsv());
  for (int i = 0; i <= 64; ++i) {
    const auto numbers = Numbers(lines[static_cast<std::size_t>(8 + i)]);
    ASSERT_EQ(numbers.size(), 3U);
    EXPECT_EQ(numbers[0], 1e6 + i * 125e3);
    EXPECT_EQ(numbers[1], points.PlotData(i).Y1);
    EXPECT_EQ(numbers[2], points.PlotData(i).Y2);
  }
}

TEST_F(CurveCsv, HasHeldDesignsAsFurtherColumnsWithTheirOwnX) {
  Make("Present");
  HoldAnother("Short", [] {
    design.NoFreqPts = 32;
    SampleRate();
  });
  HoldAnother("Bare", [] { design.ExciteType = 0; });
  Choose(16, 0);
  auto lines = Lines(CurvesAsCsv());
  EXPECT_EQ(lines[6], "# Held 1: Short (Short.dat)");
  EXPECT_EQ(lines[7], "# Held 2: Bare (Bare.dat)");
  EXPECT_EQ(lines[8], "x,y1,y2,x 1,y1 1,y2 1,x 2,y1 2,y2 2");
  // Half the intervals over the same sweep: twice the sample rate.
  const auto cells = lines[10];
  EXPECT_EQ(cells.substr(0, cells.find(',')), "7.8125e-09");
  EXPECT_NE(cells.find(",3.90625e-09,"), std::string::npos) << cells;

  Choose(31, 0);
  lines = Lines(CurvesAsCsv());
  ASSERT_EQ(lines.size(), 9U + 1 + 65);
  EXPECT_NE(lines.back().find(",,,,"), std::string::npos) << "the short one has ended";

  Choose(17, 0);
  lines = Lines(CurvesAsCsv());
  EXPECT_EQ(lines[7], "# Held 2: Bare (Bare.dat) - not shown: no excitation");
  EXPECT_EQ(lines[8], "x,y1,y2,x 1,y1 1,y2 1");
  EXPECT_NE(std::ranges::find(lines, "# Impulse response, y1: Po/Vi in Pa/V"), lines.end());
  EXPECT_NE(std::ranges::find(lines, "# Excitation, y1 in Volts"), lines.end());
  Choose(27, 2);
  lines = Lines(CurvesAsCsv());
  EXPECT_NE(std::ranges::find(lines, "# Excitation, y1 in dB"), lines.end());
}

TEST_F(CurveCsv, TellsTheUnitsOfAcousticalImpedancesThatTheAxesKeepFromThePlotBefore) {
  Make("Present");
  for (const int number : {21, 41, 42}) {
    Choose(11, 0);
    Choose(number, 4);
    auto lines = Lines(CurvesAsCsv());
    EXPECT_EQ(lines[5], "# y1: Log Z in dB") << number;
    EXPECT_EQ(lines[6], "# y2: Theta in Degrees") << number;
    Choose(11, 3);
    Choose(number, 5);
    lines = Lines(CurvesAsCsv());
    EXPECT_EQ(lines[5], "# y1: Log Y in dB") << number;
    EXPECT_EQ(lines[6], "# y2: Theta in Degrees") << number;
    Choose(number, 1);
    EXPECT_EQ(Lines(CurvesAsCsv())[5], "# y1: Y in Rayls^-1") << number;
  }
}

TEST_F(CurveCsv, TellsOfAWaveformThatIsNoLongerTheDesigns) {
  Make("Present");
  Choose(33, 0);
  EXPECT_EQ(Lines(CurvesAsCsv())[6], "x,y1,y2");
  plot.Outdated = true;
  EXPECT_EQ(Lines(CurvesAsCsv())[6],
            "# The waveform is the one from before the last change of the design");
}

TEST_F(CurveCsv, PutsSpectraBehindTheWaveforms) {
  Make("Present");
  Choose(33, 6);
  const auto lines = Lines(CurvesAsCsv());
  EXPECT_EQ(lines[6], "# spectrum: Vo/Vi in dB, x in Hz");
  const auto head = std::ranges::find(lines, "x,spectrum");
  ASSERT_NE(head, lines.end());
  EXPECT_EQ(lines.end() - head, 1 + 65);
  EXPECT_EQ(*(head - 1), "");
  EXPECT_EQ(Numbers(*(head + 1))[0], 1e6);
  EXPECT_EQ(Numbers(*(head + 1))[1], points.PlotData(0).Y2);
}

TEST_F(CurveCsv, ATableOfMeasurementsSetsTheDesignsSideBySide) {
  Make("Present");
  HoldAnother("Another, \"thick\"", [] { design.PZThick(1) = 5e-4; });
  HoldAnother("In kHz", [] {
    design.FreqUnit = "KHz";
    design.FreqScale = 1e3F;
  });
  Choose(31, 0);
  const ComparisonTable table = MakeComparisonTable();
  ASSERT_EQ(table.columns.size(), 9U);
  EXPECT_EQ(table.columns[0].Caption(), "Center -6 dB");
  EXPECT_EQ(table.columns[0].unit, "MHz");
  EXPECT_EQ(table.columns[8].unit, "% CF");
  ASSERT_EQ(table.rows.size(), 3U);
  EXPECT_EQ(table.rows[0].cells[0], measured.CFBWText[3][1]);
  EXPECT_NE(table.rows[1].cells[0], table.rows[0].cells[0]);
  EXPECT_TRUE(table.rows[2].cells[0].ends_with(" KHz")) << table.rows[2].cells[0];
  const auto lines = Lines(TableAsCsv(table));
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_TRUE(lines[0].starts_with("design,Center -6 dB (MHz),Band -6 dB (MHz),Band -6 dB (% CF)"));
  EXPECT_TRUE(lines[2].starts_with("\"1: Another, \"\"thick\"\" (")) << lines[2];

  Choose(33, 0);
  const ComparisonTable pulses = MakeComparisonTable();
  ASSERT_EQ(pulses.columns.size(), 4U);
  EXPECT_EQ(pulses.columns[0].Caption(), "Pulse -6 dB");
  EXPECT_EQ(pulses.columns[3].Caption(), "Peak");
  EXPECT_EQ(pulses.columns[3].unit, "dB re 1 V/V");
  EXPECT_EQ(pulses.rows[0].cells[2], measured.PulseWidthText[4][1]);
  Choose(12, 0);
  EXPECT_EQ(TableAsCsv(MakeComparisonTable()), "") << "nothing is measured there";
}

TEST_F(CurveCsv, AComparisonHasItsTableBelowTheGraphWhereItFits) {
  Make("Present");
  HoldAnother("Another", [] { design.PZThick(1) = 5e-4; });
  Choose(31, 0);
  HeadlessSurface tall(SurfaceKind::kMainPicture, 1000, 700);
  DrawComparison(tall, 1000, 700);
  const auto texts = TextsOn(tall);
  EXPECT_NE(std::ranges::find(texts, measured.CFBWText[3][1]), texts.end());
  EXPECT_NE(std::ranges::find(texts, "1: Another (Another.dat)"), texts.end());
  // A cell in a unit of its own would say something else without it.
  HoldAnother("In kHz", [] {
    design.FreqUnit = "KHz";
    design.FreqScale = 1e3F;
  });
  Choose(34, 6);
  const ComparisonTable table = MakeComparisonTable();
  ASSERT_EQ(table.columns.size(), 13U);
  HeadlessSurface wide(SurfaceKind::kMainPicture, 1300, 700);
  DrawComparison(wide, 1300, 700);
  const auto cells = TextsOn(wide);
  for (const std::string& cell : table.rows[2].cells) {
    EXPECT_NE(std::ranges::find(cells, cell), cells.end()) << cell;
  }
  Choose(31, 0);
  HeadlessSurface flat(SurfaceKind::kMainPicture, 1000, 140);
  DrawComparison(flat, 1000, 140);
  const auto few = TextsOn(flat);
  EXPECT_EQ(std::ranges::find(few, measured.CFBWText[3][1]), few.end());
}

}  // namespace
}  // namespace halvorne::testing
