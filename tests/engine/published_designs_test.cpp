#include "published_designs.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>

#include "engine_fixture.h"

// Transducers of the literature: closed forms, published figures, and points that were computed
// by an independent model.

namespace halvorne::testing {
namespace {

constexpr double kTurn = 6.283185307179586;

/// The numbers behind a design's name in each of its lines of the table.
std::vector<std::vector<double>> ComputedPoints(const std::string& name) {
  std::ifstream file(HALVORNE_SOURCE_DIR "/tests/data/published_points.csv");
  std::vector<std::vector<double>> points;
  std::string line;
  while (std::getline(file, line)) {
    if (line.rfind(name + ",", 0) != 0) {
      continue;
    }
    std::istringstream fields(line.substr(name.size() + 1));
    std::vector<double> values;
    for (std::string field; std::getline(fields, field, ',');) {
      values.push_back(std::stod(field));
    }
    points.push_back(values);
  }
  return points;
}

/// Below it values are what rounding leaves of a zero, as at twice the half-wave frequency.
template <class T>
double Floor(const std::vector<T>& curve) {
  double peak = 0;
  for (const T& value : curve) {
    peak = std::max(peak, std::abs(value));
  }
  return 1e-6 * peak;
}

class PublishedPoints : public EngineTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(PublishedPoints, ComeOutOfTheSweep) {
  MakePublishedDesign(GetParam());
  const SweptCurves swept = Swept();
  const auto points = ComputedPoints(GetParam());
  ASSERT_GE(points.size(), 6U);
  // The table has twelve digits; the air layer's loss is kept in 32 bits here, not there.
  const double digits = design.FaceMatl(1).Loss != 0 ? 5e-8 : 1e-9;
  for (const std::vector<double>& v : points) {
    ASSERT_EQ(v.size(), 14U);
    const auto i = static_cast<std::size_t>(v[0]);
    SCOPED_TRACE(i);
    EXPECT_NEAR(FreqOf(static_cast<int>(i)), v[1], 1e-9 * v[1]);
    EXPECT_TRUE(Near(swept.ZinElec[i], {v[2], v[3]}, digits, Floor(swept.ZinElec)));
    EXPECT_TRUE(Near(swept.ZinAc[i], {v[4], v[5]}, digits, Floor(swept.ZinAc)));
    EXPECT_TRUE(Near(swept.TxEff[i], v[6], digits, Floor(swept.TxEff)));
    EXPECT_TRUE(Near(swept.RxEff[i], v[7], digits, Floor(swept.RxEff)));
    EXPECT_TRUE(Near(swept.TxTF[i], {v[8], v[9]}, digits, Floor(swept.TxTF)));
    EXPECT_TRUE(Near(swept.RxTF[i], {v[10], v[11]}, digits, Floor(swept.RxTF)));
    EXPECT_TRUE(Near(swept.TwoWayTF[i], {v[12], v[13]}, digits, Floor(swept.TwoWayTF)));
  }
}

INSTANTIATE_TEST_SUITE_P(Designs, PublishedPoints, ::testing::ValuesIn(PublishedDesignNames()),
                         [](const auto& param) { return param.param; });

class PublishedDesigns : public EngineTest {
 protected:
  static SweptCurves LosslessAt(double freq) {
    MakeLossless();
    return SweptAt(freq);
  }
  static double HalfWave() { return design.PZMatl(1).Velocity / (2 * design.PZThick(1)); }
};

TEST_F(PublishedDesigns, ImagingElementAtItsCentre) {
  MakePublishedDesign("imaging_5mhz_two_layer");
  design.ElNet(1, 1) = 0;
  const Value given = SweptAt(5e6).ZinElec[0];
  EXPECT_NEAR(given.real(), 17.715212827511632, 0.08 * 17.7);
  const SweptCurves lossless = LosslessAt(5e6);
  EXPECT_NEAR(lossless.ZinElec[0].real(), 17.715212827511632, 1e-6 * 17.7);
  EXPECT_NEAR(lossless.ZinElec[0].imag(), -39.59024944708741, 1e-6 * 39.6);
  EXPECT_NEAR(lossless.TxEff[0], 0.8795146748071645, 1e-6);
}

TEST_F(PublishedDesigns, ImagingElementHasTheInsertionLossAndTheOctaveOfItsRule) {
  MakePublishedDesign("imaging_5mhz_two_layer");
  std::vector<double> twoWay;
  for (const Value& value : Swept().TwoWayTF) {
    twoWay.push_back(std::abs(value));
  }
  const auto peak = std::max_element(twoWay.begin(), twoWay.end());
  const double loss = 20 * std::log10(0.25 / *peak);
  EXPECT_NEAR(loss, 3.2, 1.0);
  const double half = *peak * std::pow(10, -6.0 / 20);
  const auto above = [half](double value) { return value >= half; };
  const auto first = std::find_if(twoWay.begin(), twoWay.end(), above) - twoWay.begin();
  const auto last = std::find_if(twoWay.rbegin(), twoWay.rend(), above).base() - twoWay.begin() - 1;
  const double low = FreqOf(static_cast<int>(first));
  const double high = FreqOf(static_cast<int>(last));
  const double width = 200 * (high - low) / (high + low);
  EXPECT_GE(width, 58);
  EXPECT_LE(width, 76);
}

TEST_F(PublishedDesigns, ContactProbeWithoutItsWearPlate) {
  MakePublishedDesign("ndt_2p25mhz_heavy_backing");
  design.NoFace = 0;
  const SweptCurves lossless = LosslessAt(HalfWave());
  EXPECT_NEAR(design.PZFa(1), 2249999.483352587, 2e-6);
  EXPECT_NEAR(lossless.ZinElec[0].real(), 11.417986965147268, 1e-6 * 11.4);
  EXPECT_NEAR(lossless.TxEff[0], 0.6941896024464831, 1e-6);
  EXPECT_NEAR(SweptAt(3 * HalfWave()).ZinElec[0].real(), 1.2686652183496965, 1e-6 * 1.27);
}

TEST_F(PublishedDesigns, HydrophoneBelowItsResonance) {
  MakePublishedDesign("pvdf_membrane_hydrophone_25um");
  constexpr double kSensitivity = 7.079198399977321;  // uV/Pa, h t / cD
  EXPECT_NEAR(2 * std::abs(SweptAt(2e6).RxTF[0]), kSensitivity, 0.05 * kSensitivity);
  EXPECT_NEAR(design.PZFa(1), 45.2e6, 1e-4);
  design.TermRx = 1e12;
  EXPECT_NEAR(2 * std::abs(LosslessAt(0.5e6).RxTF[0]), kSensitivity, 1e-3 * kSensitivity);
  EXPECT_NEAR(2 * std::abs(LosslessAt(0.5e6).RxTF[0]), 8.25, 0.25 * 8.25)
      << "from the film's voltage constant";
}

TEST_F(PublishedDesigns, HydrophoneResonatesAroundFortyMegahertz) {
  MakePublishedDesign("pvdf_membrane_hydrophone_25um");
  const SweptCurves swept = Swept();
  const auto peak =
      std::max_element(swept.RxTF.begin(), swept.RxTF.end(),
                       [](const Value& x, const Value& y) { return std::abs(x) < std::abs(y); });
  const double freq = FreqOf(static_cast<int>(peak - swept.RxTF.begin()));
  EXPECT_GE(freq, 36e6);
  EXPECT_LE(freq, 46e6);
}

TEST_F(PublishedDesigns, AirLayerPresentsItsLossyImpedance) {
  // The layer is put on the back of a weakly coupled ceramic of half a wavelength.
  constexpr double kQuarterWave = 2150 / (4 * 0.003);
  MakePublishedDesign("air_coupled_200khz");
  design.BackMatl(1) = design.FaceMatl(1);
  design.BackThick(1) = design.FrontThick(1);
  design.BackArea(1) = 1;
  design.NoBack = 1;
  design.NoFace = 0;
  design.PZMatl(1).Kt = 1e-6;
  design.PZMatl(1).TanDm = 0;
  design.PZThick(1) = 3693 / (2 * kQuarterWave);
  const Value lossy = SweptAt(kQuarterWave).ZinAc[0];
  EXPECT_TRUE(Near(lossy, 32602081.44003081, 1e-6));
  EXPECT_TRUE(Near(lossy, 38324510.2965284, 0.18)) << "(4/pi) Zm Q";
  design.BackMatl(1).Loss = 0;
  EXPECT_TRUE(Near(SweptAt(kQuarterWave).ZinAc[0], 218315662.6506024, 1e-7));
}

TEST_F(PublishedDesigns, AirChangesTheImpedancePeakLittle) {
  MakePublishedDesign("air_coupled_200khz");
  const auto peak = [] {
    double highest = 0;
    const SweptCurves swept = Swept();
    for (int i = 700; i <= 860; ++i) {  // 170 to 186 kHz
      highest = std::max(highest, std::abs(swept.ZinElec[i]));
    }
    return highest;
  };
  const double air = peak();
  design.ZFrontLoad = 0.001;
  const double vacuum = peak();
  EXPECT_NEAR(air / vacuum, 1, 0.25);
  EXPECT_GT(air, 30e3 / 2.5);
  EXPECT_LT(air, 30e3 * 2.5);
}

TEST_F(PublishedDesigns, SymmetricStackIsAQuarterOfTheSingleLayer) {
  MakePublishedDesign("stack_two_layer_parallel");
  design.NoFace = 0;
  design.ZBackLoad = design.ZFrontLoad;
  const Value ze = LosslessAt(HalfWave() / 2).ZinElec[0];
  EXPECT_NEAR(ze.real(), 652.6283406789012, 1e-6 * 652.6);
  EXPECT_NEAR(ze.imag(), -175.7283969782311, 1e-6 * 175.7);
}

TEST_F(PublishedDesigns, StackCapacitanceAndItsMultilayerApproximation) {
  MakePublishedDesign("stack_two_layer_parallel");
  const Value low = LosslessAt(0.05e6).ZinElec[0];
  EXPECT_NEAR(-1 / (kTurn * 0.05e6 * low.imag()), 3.4735121376702756e-10, 3.5e-13);
  const Value centre = SweptAt(3.5e6).ZinElec[0];
  EXPECT_NEAR(centre.real(), 129.77034706230233, 0.02 * 129.8);
}

}  // namespace
}  // namespace halvorne::testing
