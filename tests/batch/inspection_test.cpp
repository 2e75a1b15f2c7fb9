#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

constexpr const char* kBurst = "burst_3mhz_dispersive";

class BatchInspection : public BatchTest {
 protected:
  QJsonObject Inspect(Words words) const {
    words.insert(words.begin(), "inspect");
    QJsonParseError error;
    const QByteArray bytes = QByteArray::fromStdString(Output(words));
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << bytes.toStdString();
    return document.object();
  }
  QJsonObject InspectPlot(int plot, int form = 0) const {
    return Inspect(
        {Shipped(kBurst), "--plot", std::to_string(plot), "--form", std::to_string(form)});
  }
};

std::string Text(const QJsonValue& value) {
  return value.toString("no text").toStdString();
}

struct Row {
  int plot;
  const char* title;
  int forms;
  bool dualTrace;
  bool time;
};

const Row kRows[] = {
    {11, "Electrical Input Impedance", 6, true, false},
    {12, "Voltage Reflection Coefficient - V(refl)/V(inc)", 2, true, false},
    {13, "Transmit Efficiency - Po(acoustic)/Pi(electric)", 2, false, false},
    {14, "Transmit Transfer Function - P(Pascals)/V(Tx)", 2, true, false},
    {15, "Transmit Power Transfer Function - Pout(acoust)/Pavail(elec)", 2, false, false},
    {16, "Transmit Impulse Response - P(Pascals)/V(Tx)", 9, false, true},
    {17, "Transmit Excitation Response - P(Pascals)/V(Tx)", 9, false, true},
    {21, "Acoustical Input Impedance", 6, true, false},
    {22, "Pressure Reflection Coefficient - P(refl)/P(inc)", 2, true, false},
    {23, "Receive Efficiency - Po(electric)/Pi(acoustic)", 2, false, false},
    {24, "Receive Transfer Function - V(Rx)/P(Pascals)", 2, true, false},
    {25, "Receive Power Transfer Function - Pout(elec)/Pavail(acoust)", 2, false, false},
    {26, "Receive Impulse Response - V(Rx)/P(Pascals)", 9, false, true},
    {27, "Receive Excitation Response - V(Rx)/P(Pascals)", 9, false, true},
    {31, "Two-way Transfer Function - V(Rx)/V(Tx)", 2, true, false},
    {32, "Two-way Insertion Loss - V(Rx)/V(Tx)", 2, true, false},
    {33, "Pulse-Echo (Two-way) Impulse Response - V(Rx)/V(Tx)", 9, false, true},
    {34, "Pulse-Echo (Two-way) Excitation Response - V(Rx)/V(Tx)", 9, false, true},
    {41, "Front Port Acoustic Load Impedance", 6, true, false},
    {42, "Rear Port Acoustic Load Impedance", 6, true, false},
    {51, "Velocity dispersion in face layer 1", 1, false, false},
    {52, "Velocity dispersion in piezoelectric layer", 1, false, false},
    {53, "Velocity dispersion in back layer 1", 1, false, false},
};

TEST_F(BatchInspection, NamesEachPlotItsFormsAndItsAxis) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.plot);
    const QJsonObject found = InspectPlot(row.plot);
    EXPECT_EQ(Text(found["plotTitle"]), row.title);
    EXPECT_EQ(found["forms"].toArray().size(), row.forms);
    EXPECT_EQ(found["form"].toInt(-1), 0);
    EXPECT_EQ(found["dualTrace"].toBool(), row.dualTrace);
    const QJsonObject x = found["x"].toObject();
    EXPECT_EQ(Text(x["name"]), row.time ? "Time" : "Frequency");
    EXPECT_EQ(Text(x["unit"]), row.time ? "usec" : "MHz");
    EXPECT_EQ(Text(x["lowerText"]), row.time ? "0.000" : "0.500");
    EXPECT_EQ(x["first"].toInt(-1), 0);
    EXPECT_EQ(x["last"].toInt(), row.time ? 2048 : 250);
  }
}

TEST_F(BatchInspection, HasAllItsMembersAndNoOthers) {
  const QStringList members{"amplLog",    "attenuation", "cfbw",          "dualTrace", "form",
                            "forms",      "left",        "peakLabel",     "peakText",  "plotTitle",
                            "pulseWidth", "right",       "spectrumShown", "x"};
  const QStringList axis{"label", "mag", "max", "maxText", "min", "minText", "prefix", "unit"};
  const QStringList along{"first", "last", "lowerText", "name", "unit", "upperText"};
  const QJsonObject found = InspectPlot(34, 6);
  EXPECT_EQ(found.keys(), members);
  EXPECT_EQ(found["left"].toObject().keys(), axis);
  EXPECT_EQ(found["right"].toObject().keys(), axis);
  EXPECT_EQ(found["x"].toObject().keys(), along);
  EXPECT_TRUE(found["spectrumShown"].toBool());
  EXPECT_TRUE(found["dualTrace"].toBool());
}

TEST_F(BatchInspection, ScalesHoldThePlottedValues) {
  for (const int plot : {11, 13, 14, 21, 31}) {
    SCOPED_TRACE(plot);
    const QJsonObject left = InspectPlot(plot)["left"].toObject();
    const Table data =
        TablesOf(Output({"data", Shipped(kBurst), "--plot", std::to_string(plot)})).at(0);
    double largest = 0;
    for (std::size_t i = 0; i < data.rows.size(); ++i) {
      largest = std::max(largest, data.Number(i, 1));
    }
    EXPECT_EQ(left["min"].toDouble(-1), 0);
    EXPECT_GE(left["max"].toDouble(), largest);
    EXPECT_LE(left["max"].toDouble(), 2.51 * largest) << "the trace would lie at the bottom";
    const double shown = left["max"].toDouble() / left["mag"].toDouble();
    EXPECT_NEAR(std::stod(Text(left["maxText"])), shown, 0.0006);
  }
}

TEST_F(BatchInspection, MeasurementsThatDoNotHoldAreNull) {
  const QJsonObject impedance = InspectPlot(11);
  EXPECT_TRUE(impedance["cfbw"].isNull());
  EXPECT_TRUE(impedance["pulseWidth"].isNull());
  EXPECT_TRUE(impedance["attenuation"].isNull());
  EXPECT_EQ(Text(impedance["peakLabel"]), "");
  const QJsonObject pulse = InspectPlot(33, 6);
  EXPECT_EQ(pulse["cfbw"].toArray().size(), 6);
  EXPECT_EQ(pulse["cfbw"].toArray()[0].toArray().size(), 4);
  EXPECT_EQ(pulse["pulseWidth"].toArray().size(), 5);
  EXPECT_EQ(pulse["pulseWidth"].toArray()[0].toArray().size(), 2);
  EXPECT_EQ(pulse["attenuation"].toArray(),
            (QJsonArray{"Path length 6.000 cm", "Atten rate 0.500 dB/cm", "Atten freq 1.000 MHz",
                        "Exponent 1.100"}));
  EXPECT_TRUE(Inspect({Shipped("imaging_5mhz_two_layer"), "--plot", "31"})["attenuation"].isNull())
      << "attenuation is off in this design";
}

TEST_F(BatchInspection, TheBandIsThatOfTheData) {
  const Table data = TablesOf(Output({"data", Shipped(kBurst), "--plot", "31"})).at(0);
  std::size_t peak = 0;
  for (std::size_t i = 0; i < data.rows.size(); ++i) {
    peak = data.Number(i, 1) > data.Number(peak, 1) ? i : peak;
  }
  const double level = data.Number(peak, 1) * std::pow(10, -6 / 20.0);
  std::size_t low = peak;
  std::size_t high = peak;
  while (data.Number(low, 1) > level) {
    --low;
  }
  while (data.Number(high, 1) > level) {
    ++high;
  }
  const QJsonArray row = InspectPlot(31)["cfbw"].toArray()[3].toArray();
  EXPECT_EQ(Text(row[0]), "-6");
  const double step = (data.Number(1, 0) - data.Number(0, 0)) / 1e6;
  const double centre = (data.Number(low, 0) + data.Number(high, 0)) / 2e6;
  EXPECT_NEAR(std::stod(Text(row[1])), centre, step);
  EXPECT_NEAR(std::stod(Text(row[2])), (data.Number(high, 0) - data.Number(low, 0)) / 1e6,
              2 * step);
}

TEST_F(BatchInspection, ThePeakIsThatOfTheEnvelopeInDecibels) {
  const Table data =
      TablesOf(Output({"data", Shipped(kBurst), "--plot", "16", "--form", "1"})).at(0);
  double peak = 0;
  for (std::size_t i = 0; i < data.rows.size(); ++i) {
    peak = std::max(peak, data.Number(i, 1));
  }
  char expected[64];
  std::snprintf(expected, sizeof expected, "Pk Ampl = %.2f dB re 1 Pa/V", 20 * std::log10(peak));
  const QJsonObject found = InspectPlot(16, 1);
  EXPECT_EQ(Text(found["peakLabel"]), expected);
  EXPECT_EQ(Text(found["peakText"]), expected);
  const QJsonObject excited = InspectPlot(17, 1);
  EXPECT_NE(Text(excited["peakLabel"]).find("\r\nImpulse = "), std::string::npos)
      << Text(excited["peakLabel"]);
  EXPECT_EQ(Text(excited["peakText"]).find('\n'), std::string::npos);
}

TEST_F(BatchInspection, DisplaySettingsHaveTheirMeaning) {
  const auto span = [&](const Words& words) {
    const QJsonObject left = Inspect(words)["left"].toObject();
    return left["max"].toDouble() - left["min"].toDouble();
  };
  const std::string file = Shipped(kBurst);
  EXPECT_EQ(span({file, "--plot", "31", "--form", "1"}), 60) << "the range of a log scale";
  EXPECT_EQ(span({file, "--plot", "31", "--form", "1", "--log-range", "35"}), 35);
  const QJsonObject x = Inspect({file, "--plot", "33", "--time-window", "10"})["x"].toObject();
  EXPECT_EQ(x["last"].toInt(), 409) << "a tenth of 4096 samples";
  EXPECT_EQ(Text(Inspect({file, "--plot", "31", "--phase", "2"})["right"].toObject()["label"]),
            "Delay");
  const double whole = span({file, "--plot", "11"});
  EXPECT_LT(span({file, "--plot", "11", "--ampl-window", "20"}), whole)
      << "the impedance rises at both ends, the middle alone scales finer";
}

TEST_F(BatchInspection, AFormNumberChoosesTheForm) {
  const QJsonObject found = InspectPlot(21, 3);
  EXPECT_EQ(found["form"].toInt(), 3);
  EXPECT_EQ(Text(found["forms"].toArray()[3]), "G + jB");
  EXPECT_EQ(Text(found["left"].toObject()["label"]), "G");
  EXPECT_TRUE(InspectPlot(31, 1)["amplLog"].toBool());
  EXPECT_FALSE(InspectPlot(31, 0)["amplLog"].toBool());
}

}  // namespace
}  // namespace halvorne::testing
