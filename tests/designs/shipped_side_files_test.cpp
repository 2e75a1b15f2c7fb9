// The loads, dispersions and excitations that are shipped for any design: read by the program's
// readers, held against theory.

#include <array>
#include <cmath>
#include <complex>
#include <filesystem>

#include "designs/shipped_design.h"
#include "engine/design_model.h"
#include "persistence/complex_load_file.h"
#include "persistence/dispersion_file.h"
#include "persistence/excitation_file.h"

namespace halvorne::testing {
namespace {

constexpr int kSteps = 400;
constexpr double kSixDigits = 5.1e-6;  // what rounding a number between 1 and 10 may cost

/// Frequency of a point over the design frequency.
double FreqOf(int point) {
  return 0.2 + 1.6 * point / kSteps;
}

class ShippedSideFiles : public ShippedDesign {
 protected:
  /// Number at the end of a comment, "..., 401 points".
  static int PointsOf(const std::string& comment) {
    return std::stoi(comment.substr(comment.rfind(", ") + 2));
  }
  static std::complex<double> FrontLoad(int point) {
    return {design.ZFrontNormRe(point), design.ZFrontNormIm(point)};
  }
  void ReadLoad(const std::string& name) {
    std::fill(design.ZFrontNormRe.begin(), design.ZFrontNormRe.end(), 99.0);
    ASSERT_TRUE(ReadFrontLoadFile(SharedFile("Acoustic loads/" + name))) << name;
  }
  /// Reads a dispersion file into slot 1 and returns its comment.
  static std::string ReadDispersion(const std::string& name) {
    constexpr std::array slot = {1};
    std::fill(design.VelDisp.rows(1).begin(), design.VelDisp.rows(1).end(), 99.0);
    EXPECT_TRUE(ReadDispersionFile(SharedFile("Velocity dispersion/" + name), "unread", slot));
    return design.VelDispNames(1, 1);
  }
  static std::string ReadExcitation(const std::string& name) {
    std::string comment;
    ReadExciteFile(SharedFile("EXCITE/" + name), comment);
    return comment;
  }
};

TEST_F(ShippedSideFiles, HoldAsManyPointsAsTheySay) {
  int loads = 0;
  for (const auto& file : std::filesystem::directory_iterator(SharedFile("Acoustic loads"))) {
    ReadLoad(file.path().filename().string());
    const int points = PointsOf(design.ZFrontComment);
    EXPECT_NE(design.ZFrontNormRe(points - 1), 99) << file.path();
    EXPECT_EQ(design.ZFrontNormRe(points), 99) << file.path();
    ++loads;
  }
  EXPECT_GE(loads, 7);
  int dispersions = 0;
  for (const auto& file : std::filesystem::directory_iterator(SharedFile("Velocity dispersion"))) {
    const int points = PointsOf(ReadDispersion(file.path().filename().string()));
    EXPECT_NE(design.VelDisp(1, points - 1), 99) << file.path();
    EXPECT_EQ(design.VelDisp(1, points), 99) << file.path();
    ++dispersions;
  }
  EXPECT_GE(dispersions, 4);
  int excitations = 0;
  for (const auto& file : std::filesystem::directory_iterator(SharedFile("EXCITE"))) {
    const std::string comment = ReadExcitation(file.path().filename().string());
    EXPECT_EQ(draft.TmpExcitePoints, PointsOf(comment)) << file.path();
    ++excitations;
  }
  EXPECT_GE(excitations, 10);
}

// Its resistance is 1 - 2 J1(x)/x, its reactance 2 H1(x)/x, of which 4/(pi x) is left far from its
// resonances.
TEST_F(ShippedSideFiles, PistonsRadiateAsTheory) {
  for (const int ka : {2, 5, 10, 20, 50}) {
    ReadLoad("Piston ka " + std::to_string(ka) + ".lac");
    for (int point = 0; point <= kSteps; ++point) {
      const double x = 2 * ka * FreqOf(point);
      EXPECT_NEAR(FrontLoad(point).real(), 1 - 2 * std::cyl_bessel_j(1.0, x) / x, kSixDigits);
      EXPECT_GT(FrontLoad(point).imag(), 0) << "a mass";
      // H1(x) = 2/pi + Y1(x) + terms of the order of 1/x^2.
      if (x > 20) {
        const double reactance = 2 * (2 / M_PI + std::cyl_neumann(1.0, x)) / x;
        EXPECT_NEAR(FrontLoad(point).imag(), reactance, 2 / (x * x * x)) << "ka " << ka;
      }
    }
  }
}

// From its end in air a wave comes back by 6 dB weaker at Fd, for two ways of 3 dB, and turned by
// 16 half waves.
TEST_F(ShippedSideFiles, MountingLineSendsBackWhatItsEndReflects) {
  ReadLoad("Mounting line.lac");
  for (int point = 0; point <= kSteps; ++point) {
    const std::complex<double> z = FrontLoad(point);
    const std::complex<double> echo = (z - 1.0) / (z + 1.0);
    EXPECT_NEAR(std::abs(echo), std::pow(10, -6 * FreqOf(point) / 20), 3e-4) << point;
    const std::complex<double> turn = std::polar(1.0, -16 * M_PI * FreqOf(point));
    EXPECT_LT((echo / turn).real(), 0) << "a free end turns the sign";
    EXPECT_NEAR((echo / turn).imag(), 0, 1e-4) << point;
  }
}

// By the nearly local Kramers-Kronig relation the slowness falls by 2/pi times the loss per radian,
// which grows with a power of the frequency: 1/(2 Q) of the composite, 3 dB over 2 pi of the
// backing.
TEST_F(ShippedSideFiles, LossyLayersAreFasterAtHighFrequencies) {
  const double backing = 3 * std::log(10.0) / 20 / (2 * M_PI);
  for (const auto& [name, perRadian, power] : {std::tuple{"Piezo composite.csv", 1.0 / 40, 1.0},
                                               {"Tungsten epoxy backing.csv", backing, 1.5}}) {
    ReadDispersion(name);
    EXPECT_EQ(design.VelDisp(1, kSteps / 2), 1) << "at Fd";
    constexpr int apart = 10;
    for (int point = apart; point <= kSteps - apart; ++point) {
      const double fall =
          1 / design.VelDisp(1, point - apart) - 1 / design.VelDisp(1, point + apart);
      const double span = FreqOf(point + apart) - FreqOf(point - apart);
      EXPECT_NEAR(fall / span, 2 / M_PI * perRadian * std::pow(FreqOf(point), power - 2), 1e-3)
          << name << " " << point;
    }
  }
}

// Half the trace of a period's chain matrix is the cosine of the phase that it turns a wave by.
TEST_F(ShippedSideFiles, LaminateTurnsAWaveAsItsPeriod) {
  const auto phase = [](double freq) {
    const double ceramic = 2 * M_PI * freq / 16 * 0.4;
    const double epoxy = 2 * M_PI * freq / 16 * 0.6;
    constexpr double z = 10;  // of the ceramic over that of the epoxy
    // (cos a, j z sin a; j sin a / z, cos a) times (cos b, j sin b; j sin b, cos b).
    const double first =
        std::cos(ceramic) * std::cos(epoxy) - z * std::sin(ceramic) * std::sin(epoxy);
    const double last =
        std::cos(ceramic) * std::cos(epoxy) - std::sin(ceramic) * std::sin(epoxy) / z;
    return std::acos((first + last) / 2);
  };
  ReadDispersion("Ceramic epoxy laminate.csv");
  for (int point = 0; point <= kSteps; ++point) {
    EXPECT_NEAR(design.VelDisp(1, point), FreqOf(point) * phase(1) / phase(FreqOf(point)),
                kSixDigits);
  }
}

TEST_F(ShippedSideFiles, BurstsHaveTheirCycles) {
  for (const auto& [name, cycles] : {std::pair{"Tone burst 1 cycle.xct", 1},
                                     {"Tone burst 3 cycles.xct", 3},
                                     {"Tone burst 5 cycles.xct", 5},
                                     {"Tone burst 10 cycles.xct", 10}}) {
    ReadExcitation(name);
    EXPECT_EQ(draft.TmpExcitePoints, 20 * cycles + 1) << name;
    for (int k = 0; k <= 20 * cycles; ++k) {
      EXPECT_NEAR(draft.TmpExciteWfm(k), std::sin(M_PI * k / 10), kSixDigits) << name;
    }
  }
}

/// Spectrum of the draft's waveform at a frequency over that of 20 samples.
double SpectrumAt(double freq) {
  std::complex<double> sum = 0;
  for (int k = 0; k < draft.TmpExcitePoints; ++k) {
    sum += draft.TmpExciteWfm(k) * std::polar(1.0, -M_PI / 10 * freq * k);
  }
  return std::abs(sum);
}

TEST_F(ShippedSideFiles, GaussianPulseHasItsBandwidth) {
  ReadExcitation("Gaussian pulse.xct");
  EXPECT_EQ(draft.TmpExciteWfm(80), 1) << "its peak lies in the middle";
  EXPECT_NEAR(SpectrumAt(0.7) / SpectrumAt(1), 0.5, 1e-3);
  EXPECT_NEAR(SpectrumAt(1.3) / SpectrumAt(1), 0.5, 1e-3);
}

TEST_F(ShippedSideFiles, ChirpFillsItsBand) {
  ReadExcitation("Chirp.xct");
  const double inside = SpectrumAt(1);
  for (const double freq : {0.6, 0.8, 1.2, 1.4}) {
    EXPECT_NEAR(SpectrumAt(freq) / inside, 1, 0.5) << freq;
  }
  EXPECT_LT(SpectrumAt(0.2), 0.2 * inside);
  EXPECT_LT(SpectrumAt(1.9), 0.2 * inside);
}

TEST_F(ShippedSideFiles, StepStaysUpAndThePulserGoesBothWays) {
  ReadExcitation("Step.xct");
  EXPECT_EQ(draft.TmpExciteWfm(19), 0);
  EXPECT_EQ(draft.TmpExciteWfm(20), 1);
  EXPECT_EQ(draft.TmpExciteWfm(draft.TmpExcitePoints - 1), 1);
  ReadExcitation("Bipolar pulser.xct");
  double sum = 0;
  for (int k = 0; k < draft.TmpExcitePoints; ++k) {
    EXPECT_EQ(draft.TmpExciteWfm(k), -draft.TmpExciteWfm(draft.TmpExcitePoints - 1 - k));
    sum += draft.TmpExciteWfm(k);
  }
  EXPECT_EQ(sum, 0);
  EXPECT_EQ(draft.TmpExciteWfm(5), 1);
}

}  // namespace
}  // namespace halvorne::testing
