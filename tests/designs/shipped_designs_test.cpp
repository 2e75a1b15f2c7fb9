#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <numbers>

#include "designs/shipped_design.h"
#include "persistence/design_file.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/catalogue.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne::testing {
namespace {

constexpr const char* kBurst = "burst_3mhz_dispersive";
constexpr const char* kOlder = "ndt_2p25mhz_heavy_backing_version_3";
constexpr const char* kNewer = "ndt_2p25mhz_heavy_backing";

using NamedCurve = std::pair<const char*, FreqCurve Curves::*>;
constexpr std::array<NamedCurve, 12> kCurves = {{{"ZinElecRe", &Curves::ZinElecRe},
                                                 {"ZinElecIm", &Curves::ZinElecIm},
                                                 {"ZinAcRe", &Curves::ZinAcRe},
                                                 {"ZinAcIm", &Curves::ZinAcIm},
                                                 {"TxEff", &Curves::TxEff},
                                                 {"RxEff", &Curves::RxEff},
                                                 {"TxTFRe", &Curves::TxTFRe},
                                                 {"TxTFIm", &Curves::TxTFIm},
                                                 {"RxTFRe", &Curves::RxTFRe},
                                                 {"RxTFIm", &Curves::RxTFIm},
                                                 {"TwoWayTFRe", &Curves::TwoWayTFRe},
                                                 {"TwoWayTFIm", &Curves::TwoWayTFIm}}};

/// The named curve of the design that is open, over its points.
std::vector<double> Values(FreqCurve Curves::*curve) {
  return {(curves.*curve).begin(), (curves.*curve).begin() + design.NoFreqPts + 1};
}

std::vector<std::string> ShippedNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(SharedFile("DATA"))) {
    if (entry.path().extension() == ".dat") {
      names.push_back(entry.path().stem().string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

TEST(ShippedDesigns, AreTheArchetypesTheBurstProbeAndAnOlderFile) {
  std::vector<std::string> expected = kArchetypes;
  expected.emplace_back(kBurst);
  expected.emplace_back(kOlder);
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(ShippedNames(), expected);
}

class EachShippedDesign : public ShippedDesign, public ::testing::WithParamInterface<std::string> {
 protected:
  EachShippedDesign() { Open(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(All, EachShippedDesign, ::testing::ValuesIn(ShippedNames()), DesignName);

TEST_P(EachShippedDesign, OpensWithATitleThatSaysWhatItIs) {
  EXPECT_TRUE(shownMessages.Lines().empty());
  EXPECT_TRUE(plot.DesignOpen);
  EXPECT_GE(design.DesignTitle.size(), 30U) << "how is one to choose it: " << design.DesignTitle;
  EXPECT_FALSE(design.CalcDateTime.empty());
  EXPECT_FALSE(design.DesignFreqText.empty());
  EXPECT_NE(design.ElementSizeText.find(" mm "), std::string::npos);
}

TEST_P(EachShippedDesign, HasTheCurvesThatASweepGives) {
  std::array<std::vector<double>, kCurves.size()> stored;
  for (std::size_t k = 0; k < kCurves.size(); ++k) {
    stored[k] = Values(kCurves[k].second);
  }
  Reset(curves);
  Sweep();
  EXPECT_TRUE(shownMessages.Lines().empty());
  for (std::size_t k = 0; k < kCurves.size(); ++k) {
    const std::vector<double> swept = Values(kCurves[k].second);
    double peak = 0;
    double worst = 0;
    for (std::size_t point = 0; point < swept.size(); ++point) {
      peak = std::max(peak, std::abs(swept[point]));
      worst = std::max(worst, std::abs(swept[point] - stored[k][point]));
    }
    EXPECT_GT(peak, 0) << kCurves[k].first;
    EXPECT_LE(worst, 1e-13 * peak) << kCurves[k].first;
  }
}

TEST_P(EachShippedDesign, HasAnAreaThatFitsItsSize) {
  const double d1 = design.ElementDim1 / 1000;
  const double d2 = design.ElementDim2 / 1000;
  const double area = design.ElementShape == 1 ? std::numbers::pi * d1 * d1 / 4 : d1 * d2;
  EXPECT_NEAR(design.ElementArea, area, 1e-12 * area);
}

class OlderFile : public ShippedDesign {};

TEST_F(OlderFile, HoldsTheSameDesignAsItsTwin) {
  Open(kNewer);
  EXPECT_EQ(design.FileFormat, 4);
  std::array<std::vector<double>, kCurves.size()> stored;
  for (std::size_t k = 0; k < kCurves.size(); ++k) {
    stored[k] = Values(kCurves[k].second);
  }
  const std::string title = design.DesignTitle;
  const std::string plate = design.FaceMatl(1).Name;
  const double thick = design.FrontThick(1);
  const float cycles = design.ExciteCycles;

  ResetProgram();
  SetMainWindow(&window);
  Open(kOlder);
  EXPECT_EQ(design.FileFormat, 3);
  EXPECT_EQ(design.FileVersionText, "Halvorne for Windows Version 3.2.0");
  EXPECT_EQ(design.DesignTitle, title);
  EXPECT_EQ(design.FaceMatl(1).Name, plate);
  EXPECT_EQ(design.FrontThick(1), thick);
  EXPECT_EQ(design.ExciteCycles, cycles);
  EXPECT_EQ(design.ZFrontRe(design.NoFreqPts), design.ZFrontLoad);
  EXPECT_EQ(design.ZFrontFile, "blank");
  EXPECT_EQ(design.VelDisp(1, 0), 1);
  for (std::size_t k = 0; k < kCurves.size(); ++k) {
    EXPECT_EQ(Values(kCurves[k].second), stored[k]) << kCurves[k].first;
  }
}

class BurstProbe : public ShippedDesign {
 protected:
  BurstProbe() { Open(kBurst); }

  double Frequency(long point) const {
    return design.FreqStart + static_cast<double>(point) * design.FreqStep;
  }
};

TEST_F(BurstProbe, DispersesItsPlateAsItsLossDemands) {
  EXPECT_TRUE(design.FaceVelDispOn);
  // The loss grows in proportion to frequency, so 1/c falls by the same amount in every octave:
  // 2/pi ln 2 alpha/omega, here with 5.3 dB/cm at 1 MHz.
  const double alpha = 5.3 * 100 / (20 * std::log10(std::numbers::e));
  const double perOctave =
      2 / std::numbers::pi * std::numbers::ln2 * alpha / (2 * std::numbers::pi * 1e6);
  const auto slowness = [&](double freq) {
    const long point = std::lround((freq - design.FreqStart) / design.FreqStep);
    return 1 / (design.FaceMatl(1).Velocity * design.VelDisp(1, point));
  };
  for (const double freq : {0.5e6, 1e6, 2e6, 2.5e6}) {
    EXPECT_NEAR(slowness(freq) - slowness(2 * freq), perOctave, 2e-3 * perOctave) << freq;
  }
  EXPECT_NEAR(slowness(1e6), 1 / 2800.0, 1e-9) << "the velocity holds at the loss's frequency";
}

TEST_F(BurstProbe, RadiatesIntoTheLoadOfAPiston) {
  EXPECT_TRUE(design.ZFrontComplex);
  // Series of Rayleigh's functions for small and middling arguments x = 2 k a.
  for (const double freq : {0.5e6, 0.6e6, 0.8e6}) {
    const long point = std::lround((freq - design.FreqStart) / design.FreqStep);
    const double x = 4 * std::numbers::pi * freq * 0.002 / 1540;
    double re = 0;
    double term = 1;
    for (int k = 1; k < 40; ++k) {  // 1 - J1(x)/(x/2)
      term *= -(x / 2) * (x / 2) / (k * (k + 1.0));
      re -= term;
    }
    double im = 0;
    term = 4 / std::numbers::pi;
    for (int k = 0; k < 40; ++k) {  // H1(x)/(x/2)
      term *= k == 0 ? x / 3 : -x * x / ((2 * k + 1.0) * (2 * k + 3.0));
      im += term;
    }
    EXPECT_NEAR(design.ZFrontNormRe(point), re, 1e-6) << freq;
    EXPECT_NEAR(design.ZFrontNormIm(point), im, 1e-6) << freq;
    EXPECT_NEAR(design.ZFrontRe(point), design.ZFrontLoad * re, 2);
  }
  EXPECT_NEAR(design.ZFrontNormRe(design.NoFreqPts), 1, 0.02) << "a plane wave at high frequency";
}

TEST_F(BurstProbe, IsDrivenByFiveCyclesOfThreeMegahertz) {
  EXPECT_EQ(design.ExciteType, 1);
  const auto sign = [](double v) { return static_cast<int>(v > 0) - static_cast<int>(v < 0); };
  int crossings = 0;
  double peak = 0;
  for (int i = 1; i <= design.ExciteLength; ++i) {
    crossings += sign(wave.ExciteRe(i - 1)) * sign(wave.ExciteRe(i)) < 0;
    peak = std::max(peak, std::abs(wave.ExciteRe(i)));
  }
  EXPECT_EQ(crossings, 9) << "five whole cycles change sign nine times between their ends";
  EXPECT_EQ(peak, 1);
  const double start = 1e-6 * design.SampleRateHz;
  EXPECT_EQ(wave.ExciteRe(static_cast<long>(start) - 1), 0);
  EXPECT_NE(wave.ExciteRe(static_cast<long>(start) + 2), 0);
}

TEST_F(BurstProbe, HasSideFilesThatHoldItsCurves) {
  std::ifstream dispersion(SharedFile("Velocity dispersion/" + design.VelDispNames(1, 0)));
  std::ifstream load(SharedFile("Acoustic loads/" + design.ZFrontFile));
  std::string line;
  std::getline(dispersion, line);
  EXPECT_EQ(line, design.VelDispNames(1, 1) + "\r");
  std::getline(load, line);
  EXPECT_EQ(line, design.ZFrontComment + "\r");
  for (long point = 0; point <= design.NoFreqPts; ++point) {
    ASSERT_TRUE(std::getline(dispersion, line)) << point;
    EXPECT_EQ(std::stod(line), design.VelDisp(1, point)) << point;
    ASSERT_TRUE(std::getline(load, line)) << point;
    EXPECT_EQ(std::stod(line), design.ZFrontNormRe(point)) << point;
    EXPECT_EQ(std::stod(line.substr(line.find(',') + 1)), design.ZFrontNormIm(point)) << point;
  }
  EXPECT_FALSE(std::getline(dispersion, line));
  EXPECT_FALSE(std::getline(load, line));
}

TEST_F(BurstProbe, HasAnExcitationFileThatHoldsItsBurst) {
  std::ifstream file(SharedFile("EXCITE/Tone burst 3 MHz.xct"));
  std::string line;
  ASSERT_TRUE(std::getline(file, line)) << "the first line is a comment";
  EXPECT_TRUE(line.starts_with("Tone burst of 5 cycles at 3 MHz behind 1 usec, sampled at "));
  EXPECT_NE(line.find(NumberText(design.SampleRateHz / 1e6) + " MHz"), std::string::npos)
      << "samples mean nothing at another rate: " << line;
  EXPECT_TRUE(line.ends_with("\r"));
  long sample = 0;
  for (double value = 0; file >> value; ++sample) {
    ASSERT_LE(sample, design.ExciteLength);
    EXPECT_NEAR(value, wave.ExciteRe(sample), 5.1e-7) << sample;
  }
  EXPECT_TRUE(file.eof()) << "no number: sample " << sample;
  EXPECT_GT(sample, 200) << "1 usec and five periods";
  for (; sample <= design.ExciteLength; ++sample) {
    EXPECT_EQ(wave.ExciteRe(sample), 0) << "a reader zeroes what the file does not hold";
  }
}

TEST_F(BurstProbe, ShowsEveryPlotWithoutAFailure) {
  for (const CataloguePlot& shown : Catalogue()) {
    view.CurrentPlot = shown.number;
    PlotSelect(shown.number);
    EXPECT_TRUE(shownMessages.Lines().empty()) << "plot " << shown.number;
    shownMessages.Forget();
  }
}

}  // namespace
}  // namespace halvorne::testing
