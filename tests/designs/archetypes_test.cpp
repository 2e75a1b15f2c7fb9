// The sample designs against an independent solution of the wave equation in their layers.

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "designs/shipped_design.h"
#include "plot/measures.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne::testing {
namespace {

class Archetype : public ShippedDesign, public ::testing::WithParamInterface<std::string> {
 protected:
  Archetype() {
    Open(GetParam());
    Sweep();
  }

  std::vector<std::vector<double>> Rows(const std::string& table) const {
    std::vector<std::vector<double>> rows;
    for (const ReferenceRow& row : ReferenceTable(table)) {
      if (row.design == GetParam()) {
        rows.push_back(row.values);
      }
    }
    return rows;
  }

  void Show(std::int16_t plotNumber, std::int16_t form) {
    setup.PlotFormMemory(plotNumber) = form;
    view.CurrentPlot = plotNumber;
    PlotSelect(plotNumber);
  }
};

INSTANTIATE_TEST_SUITE_P(All, Archetype, ::testing::ValuesIn(kArchetypes), DesignName);

/// Largest magnitude of a pair of curves over the sweep.
template <class Curve>
double PeakOf(const Curve& re, const Curve& im) {
  double peak = 0;
  for (long point = 0; point <= design.NoFreqPts; ++point) {
    peak = std::max(peak, std::abs(At(re, im, point)));
  }
  return peak;
}

TEST_P(Archetype, HasTheCurvesOfTheWaveSolution) {
  // The losses of plates are 32-bit numbers in a design and 64-bit ones in the table.
  const double tolerance = design.FaceMatl(1).Loss == 0 ? 1e-9 : 6e-8;
  const auto expectNear = [&](const auto& re, const auto& im, long point,
                              std::complex<double> reference, const char* name) {
    // Near its zeros a curve is nothing but what rounding leaves of its peak.
    const double rounding = 1e-14 * PeakOf(re, im);
    EXPECT_LE(std::abs(At(re, im, point) - reference),
              std::max(tolerance * std::abs(reference), rounding))
        << name;
  };
  const auto rows = Rows("archetype_points.csv");
  ASSERT_GE(rows.size(), 6U);
  for (const std::vector<double>& row : rows) {
    const long point = std::lround(row[0]);
    SCOPED_TRACE(row[1]);
    EXPECT_NEAR(design.FreqStart + static_cast<double>(point) * design.FreqStep, row[1], 1e-6);
    expectNear(curves.ZinElecRe, curves.ZinElecIm, point, {row[2], row[3]}, "ZinElec");
    expectNear(curves.ZinAcRe, curves.ZinAcIm, point, {row[4], row[5]}, "ZinAc");
    expectNear(curves.TxEff, curves.TxEff, point, {row[6], row[6]}, "TxEff");
    expectNear(curves.RxEff, curves.RxEff, point, {row[7], row[7]}, "RxEff");
    expectNear(curves.TxTFRe, curves.TxTFIm, point, {row[8], row[9]}, "TxTF");
    expectNear(curves.RxTFRe, curves.RxTFIm, point, {row[10], row[11]}, "RxTF");
    expectNear(curves.TwoWayTFRe, curves.TwoWayTFIm, point, {row[12], row[13]}, "TwoWayTF");
  }
}

TEST_P(Archetype, HasItsBands) {
  const auto rows = Rows("archetype_bands.csv");
  ASSERT_EQ(rows.size(), 9U);
  for (const std::vector<double>& row : rows) {
    SCOPED_TRACE("plot " + std::to_string(row[0]) + ", level " + std::to_string(row[1]));
    Show(static_cast<std::int16_t>(row[0]), 0);
    const double top =
        *std::max_element(plot.MeasBuf.begin(), plot.MeasBuf.begin() + design.NoFreqPts + 1);
    float lower = 0;
    float upper = 0;
    CrossLevel(plot.MeasBuf, 0, design.NoFreqPts, static_cast<float>(row[1] * top), lower, upper);
    const double f1 = lower * design.FreqStep + design.FreqStart;
    const double f2 = upper * design.FreqStep + design.FreqStart;
    EXPECT_NEAR((f1 + f2) / 2, row[2], 1e-5 * row[2]);
    EXPECT_NEAR(f2 - f1, row[3], 1e-5 * row[3]);
    EXPECT_NEAR((f2 - f1) * 200 / (f2 + f1), row[4], 1e-4 * row[4]);
  }
  EXPECT_TRUE(shownMessages.Lines().empty());
}

TEST_P(Archetype, HasItsExtremes) {
  const std::vector<double> row = Rows("archetype_measures.csv").at(0);
  Show(32, 1);
  const auto* const first = points.PlotData.begin();
  const auto* const least =
      std::min_element(first, first + design.NoFreqPts + 1,
                       [](const PlotPoint& a, const PlotPoint& b) { return a.Y1 < b.Y1; });
  EXPECT_NEAR(least->Y1, row[0], 6e-5) << "least insertion loss, dB";
  EXPECT_NEAR(design.FreqStart + static_cast<double>(least - first) * design.FreqStep, row[1], 1);
  Show(13, 0);
  const auto* const most =
      std::max_element(first, first + design.NoFreqPts + 1,
                       [](const PlotPoint& a, const PlotPoint& b) { return a.Y1 < b.Y1; });
  EXPECT_NEAR(most->Y1, row[2], 6e-8 * row[2]);
}

TEST_P(Archetype, HasItsTwoWayEnvelope) {
  const std::vector<double> row = Rows("archetype_measures.csv").at(0);
  EXPECT_DOUBLE_EQ(design.SampleRateHz, row[7]);
  Show(33, 1);
  EXPECT_TRUE(shownMessages.Lines().empty()) << "the sample rate carries the sweep";
  EXPECT_NEAR(measured.PeakAmpl, row[3], 1e-6 * row[3]);
  constexpr double kLevels[] = {0.5, 0.1, 0.01};
  for (std::size_t k = 0; k < 3; ++k) {
    float lower = 0;
    float upper = 0;
    CrossLevel(plot.MeasBuf, 0, design.NoTimePts / 2,
               static_cast<float>(kLevels[k] * static_cast<double>(measured.PeakAmpl)), lower,
               upper);
    EXPECT_NEAR((upper - lower) / design.SampleRateHz, row[4 + k], 2e-5 * row[4 + k]);
  }
}

}  // namespace
}  // namespace halvorne::testing
