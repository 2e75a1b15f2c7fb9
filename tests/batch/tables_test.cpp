#include <cmath>
#include <complex>
#include <numbers>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

using Complex = std::complex<double>;

constexpr double kDegrees = 180 / std::numbers::pi;
constexpr const char* kImaging = "imaging_5mhz_two_layer";
constexpr const char* kBurst = "burst_3mhz_dispersive";

/// Tables of a shipped design beside what its file holds.
class BatchTables : public BatchTest {
 protected:
  explicit BatchTables(const std::string& name = kImaging) : file(Shipped(name)), stored(file) {}

  Table TableOf(Words words) const {
    words.insert(words.begin() + 1, file);
    const std::vector<Table> tables = TablesOf(Output(words));
    EXPECT_EQ(tables.size(), 1U);
    return tables.at(0);
  }
  std::vector<Complex> Curve(const std::string& label) const {
    std::vector<Complex> curve;
    for (const auto& [re, im] : stored.curves.at(label)) {
      curve.emplace_back(re, im);
    }
    return curve;
  }
  double FrequencyAt(std::size_t point) const {
    return stored.freqStart +
           static_cast<double>(point) * (stored.freqStop - stored.freqStart) / stored.freqPoints;
  }
  double SampleRateHz() const {
    return (stored.freqStop - stored.freqStart) * stored.timePoints / stored.freqPoints;
  }

  std::string file;
  StoredDesign stored;
};

void ExpectNear(double actual, double expected, double relative, std::size_t row) {
  EXPECT_LE(std::abs(actual - expected), relative * std::max(1e-12, std::abs(expected)))
      << actual << " for " << expected << " in row " << row;
}

TEST_F(BatchTables, RawImpedancesAreTheStoredCurvesToTheLastBit) {
  for (const auto& [plot, label] :
       {std::pair{"11", "Zin Electric Re, Im"}, std::pair{"21", "Zin Acoustic Re, Im"}}) {
    const Table table = TableOf({"raw", "--plot", plot});
    const auto curve = Curve(label);
    EXPECT_EQ(table.header, "x,y1,y2");
    ASSERT_EQ(table.rows.size(), curve.size());
    for (std::size_t i = 0; i < curve.size(); ++i) {
      ExpectNear(table.Number(i, 0), FrequencyAt(i), 1e-14, i);
      EXPECT_EQ(Complex(table.Number(i, 1), table.Number(i, 2)), curve[i]) << plot << " row " << i;
    }
  }
}

TEST_F(BatchTables, RawTransferFunctionIsMagnitudeAndDegrees) {
  const Table table = TableOf({"raw", "--plot", "31"});
  const auto curve = Curve("Two-way TF Re, Im");
  ASSERT_EQ(table.rows.size(), curve.size());
  for (std::size_t i = 0; i < curve.size(); ++i) {
    ExpectNear(table.Number(i, 1), std::abs(curve[i]), 1e-12, i);
    EXPECT_NEAR(table.Number(i, 2), std::arg(curve[i]) * kDegrees, 1e-6) << "row " << i;
  }
}

TEST_F(BatchTables, TheReceiveCurveIsDoubledForTheVoltagePlotAlone) {
  const auto curve = Curve("Rx TF Re, Im");
  const Table pressure = TableOf({"raw", "--plot", "24"});
  for (std::size_t i = 0; i < curve.size(); ++i) {
    ExpectNear(pressure.Number(i, 1), 2 * std::abs(curve[i]), 1e-12, i);
  }
}

TEST_F(BatchTables, AReflectionIsThatOfTheImpedanceAgainstTheTransmitter) {
  const auto z = Curve("Zin Electric Re, Im");
  const Table table = TableOf({"data", "--plot", "12"});
  for (std::size_t i = 0; i < z.size(); ++i) {
    ExpectNear(table.Number(i, 1), std::abs((z[i] - stored.termTx) / (z[i] + stored.termTx)), 1e-11,
               i);
  }
}

TEST_F(BatchTables, FormsOfAnImpedance) {
  const auto z = Curve("Zin Electric Re, Im");
  const auto expected = [](int form, Complex value) -> std::pair<double, double> {
    const Complex y = 1.0 / value;
    switch (form) {
      case 0:
        return {std::abs(value), std::arg(value) * kDegrees};
      case 1:
        return {std::abs(y), std::arg(y) * kDegrees};
      case 2:
        return {value.real(), value.imag()};
      case 3:
        return {y.real(), y.imag()};
      case 4:
        return {20 * std::log10(std::abs(value)), std::arg(value) * kDegrees};
      default:
        return {20 * std::log10(std::abs(y)), std::arg(y) * kDegrees};
    }
  };
  for (int form = 0; form <= 5; ++form) {
    const Table table = TableOf({"data", "--plot", "11", "--form", std::to_string(form)});
    ASSERT_EQ(table.rows.size(), z.size());
    for (std::size_t i = 0; i < z.size(); ++i) {
      const auto [y1, y2] = expected(form, z[i]);
      ExpectNear(table.Number(i, 1), y1, 1e-11, i);
      ExpectNear(table.Number(i, 2), y2, 1e-11, i);
    }
  }
}

TEST_F(BatchTables, DecibelsOfAmplitudesCountTwiceThoseOfPowers) {
  const auto transfer = Curve("Tx TF Re, Im");
  const Table amplitude = TableOf({"data", "--plot", "14", "--form", "1"});
  const auto& efficiency = stored.curves.at("Efficiency in Tx, Rx");
  const Table power = TableOf({"data", "--plot", "13", "--form", "1"});
  for (std::size_t i = 0; i < transfer.size(); ++i) {
    ExpectNear(amplitude.Number(i, 1), 20 * std::log10(std::abs(transfer[i])), 1e-11, i);
    ExpectNear(power.Number(i, 1), 10 * std::log10(efficiency[i].first), 1e-11, i);
    EXPECT_EQ(power.rows[i].at(2), "") << "an efficiency has one trace";
  }
}

TEST_F(BatchTables, UnwrappedPhasesDifferByWholeTurnsAndDelaysAreTheirSlope) {
  const Table wrapped = TableOf({"raw", "--plot", "31"});
  const Table unwrapped = TableOf({"raw", "--plot", "31", "--phase", "1"});
  const Table delay = TableOf({"raw", "--plot", "31", "--phase", "2"});
  const double step = FrequencyAt(1) - FrequencyAt(0);
  const std::size_t last = wrapped.rows.size() - 1;
  double turns = 0;
  for (std::size_t i = 1; i < last; ++i) {  // the ends are extrapolated
    const double turn = (unwrapped.Number(i, 2) - wrapped.Number(i, 2)) / 360;
    EXPECT_NEAR(turn, std::round(turn), 1e-9);
    turns = std::max(turns, std::abs(turn));
    const double slope = (unwrapped.Number(i + 1, 2) - unwrapped.Number(i - 1, 2)) / (2 * step);
    EXPECT_NEAR(delay.Number(i, 2), std::max(0.0, -slope / 360), 1e-15) << "row " << i;
  }
  EXPECT_GE(turns, 3) << "a phase that falls through several turns was to be unwrapped";
}

TEST_F(BatchTables, AWaveformIsTheInverseTransformOfItsCurve) {
  const Table table = TableOf({"data", "--plot", "33"});
  const auto curve = Curve("Two-way TF Re, Im");
  ASSERT_EQ(table.rows.size(), static_cast<std::size_t>(stored.timePoints));
  double peak = 0;
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    peak = std::max(peak, std::abs(table.Number(i, 1)));
    EXPECT_EQ(table.rows[i].at(2), "");
  }
  for (const std::size_t i : {0U, 1U, 37U, 100U, 222U, 1000U, 4001U}) {
    const double t = static_cast<double>(i) / SampleRateHz();
    Complex sum = 0;
    for (std::size_t k = 0; k < curve.size(); ++k) {
      sum += curve[k] * std::polar(1.0, 2 * std::numbers::pi * FrequencyAt(k) * t);
    }
    ExpectNear(table.Number(i, 0), t, 1e-13, i);
    EXPECT_NEAR(table.Number(i, 1), 2 * sum.real() / stored.timePoints, 1e-9 * peak) << i;
  }
}

TEST_F(BatchTables, AnEnvelopeIsTheLengthOfWaveformAndQuadrature) {
  const Table both = TableOf({"data", "--plot", "16", "--form", "3"});
  const Table envelope = TableOf({"data", "--plot", "16", "--form", "1"});
  const Table rectified = TableOf({"data", "--plot", "16", "--form", "4"});
  for (std::size_t i = 0; i < both.rows.size(); ++i) {
    ExpectNear(envelope.Number(i, 1), std::hypot(both.Number(i, 1), both.Number(i, 2)), 1e-11, i);
    EXPECT_EQ(rectified.Number(i, 2), std::abs(both.Number(i, 1)));
  }
}

TEST_F(BatchTables, ASpectrumFollowsAsASecondTable) {
  const auto tables = TablesOf(Output({"data", file, "--plot", "33", "--form", "6"}));
  ASSERT_EQ(tables.size(), 2U);
  EXPECT_EQ(tables[0].header, "x,y1,y2");
  EXPECT_EQ(tables[0].rows.size(), static_cast<std::size_t>(stored.timePoints));
  EXPECT_EQ(tables[0].rows[5].at(2), "") << "the spectrum is no trace over time";
  EXPECT_EQ(tables[1].header, "x,spectrum");
  const auto curve = Curve("Two-way TF Re, Im");
  ASSERT_EQ(tables[1].rows.size(), curve.size());
  for (std::size_t i = 0; i < curve.size(); ++i) {
    ExpectNear(tables[1].Number(i, 0), FrequencyAt(i), 1e-14, i);
    ExpectNear(tables[1].Number(i, 1), 20 * std::log10(std::abs(curve[i])), 1e-11, i);
  }
}

TEST_F(BatchTables, NumbersReadBackAsTheyWere) {
  // Seventeen digits would do it too; fewer than fifteen never.
  const Table table = TableOf({"raw", "--plot", "31"});
  std::size_t longest = 0;
  for (const auto& row : table.rows) {
    longest = std::max(longest, row.at(1).size());
  }
  EXPECT_GE(longest, 17U) << "digits were cut off";
}

class BatchPanes : public BatchTables {
 protected:
  BatchPanes() : BatchTables(kBurst) {}
};

TEST_F(BatchPanes, OfAnExcitationPlotAreImpulseExcitationAndResponse) {
  const Table impulse = TableOf({"data", "--plot", "34", "--pane", "impulse"});
  const Table excite = TableOf({"data", "--plot", "34", "--pane", "excite"});
  const Table response = TableOf({"data", "--plot", "34", "--pane", "response"});
  EXPECT_EQ(TableOf({"data", "--plot", "33"}).rows, impulse.rows)
      << "the impulse is that of the impulse plot";
  EXPECT_EQ(TableOf({"data", "--plot", "34"}).rows, response.rows) << "the response is the default";
  double largest = 0;
  for (std::size_t i = 0; i < excite.rows.size(); ++i) {
    largest = std::max(largest, std::abs(excite.Number(i, 1)));
    const double t = static_cast<double>(i) / SampleRateHz();
    if (t < 0.9e-6 || t > 3e-6) {  // five cycles of 3 MHz, 1 usec late
      EXPECT_EQ(excite.Number(i, 1), 0) << "silence before and after the burst, row " << i;
    }
  }
  EXPECT_NEAR(largest, 1, 0.01) << "a burst of amplitude 1";
}

TEST_F(BatchPanes, TheResponseIsTheImpulseFoldedWithTheExcitation) {
  const Table impulse = TableOf({"data", "--plot", "17", "--form", "3", "--pane", "impulse"});
  const Table excite = TableOf({"data", "--plot", "17", "--pane", "excite"});
  const Table response = TableOf({"data", "--plot", "17"});
  const std::size_t n = impulse.rows.size();
  double peak = 0;
  for (std::size_t i = 0; i < n; ++i) {
    peak = std::max(peak, std::abs(response.Number(i, 1)));
  }
  for (const std::size_t i : {0U, 90U, 150U, 200U, 300U}) {
    double folded = 0;
    for (std::size_t k = 0; k < n; ++k) {  // the transform makes time a circle
      folded += excite.Number(k, 1) * impulse.Number((i + n - k) % n, 1);
    }
    EXPECT_NEAR(response.Number(i, 1), folded, 1e-6 * peak) << "sample " << i;
  }
}

TEST_F(BatchPanes, AttenuationOfTheLoadReachesTheTransferFunction) {
  // 0.5 dB/cm at 1 MHz with exponent 1.1 over 6 cm, both ways.
  const Table table = TableOf({"raw", "--plot", "31"});
  const auto curve = Curve("Two-way TF Re, Im");
  for (std::size_t i = 0; i < curve.size(); ++i) {
    const double loss = 2 * 6 * 0.5 * std::pow(FrequencyAt(i) / 1e6, static_cast<double>(1.1F));
    ExpectNear(table.Number(i, 1), std::abs(curve[i]) * std::pow(10, -loss / 20), 1e-11, i);
  }
}

}  // namespace
}  // namespace halvorne::testing
