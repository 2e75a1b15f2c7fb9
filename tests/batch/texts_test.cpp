#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

constexpr const char* kBurst = "burst_3mhz_dispersive";

class BatchTexts : public BatchTest {
 protected:
  QJsonObject Inspect(const std::string& plot) const {
    return QJsonDocument::fromJson(
               QByteArray::fromStdString(Output({"inspect", file, "--plot", plot})))
        .object();
  }
  Table Data(const std::string& plot) const {
    return TablesOf(Output({"data", file, "--plot", plot})).at(0);
  }

  const std::string file = Shipped(kBurst);
};

std::string Joined(const QJsonArray& cells) {
  QStringList texts;
  for (const auto& cell : cells) {
    texts += cell.toString();
  }
  return texts.join('\t').toStdString();
}

TEST_F(BatchTexts, StatisticsAreTheGridsOfTheInspection) {
  const QJsonObject seen = Inspect("33");
  std::vector<std::string> expected{"Center frequency and bandwidth:"};
  expected.emplace_back("No valid data");
  expected.emplace_back("");
  expected.emplace_back("Pulse width:");
  for (const auto& row : seen["pulseWidth"].toArray()) {
    expected.push_back(Joined(row.toArray()));
  }
  expected.push_back(seen["peakLabel"].toString().toStdString());
  expected.emplace_back("");
  expected.emplace_back("Attenuation in the load medium:");
  for (const auto& caption : seen["attenuation"].toArray()) {
    expected.push_back(caption.toString().toStdString());
  }
  expected.emplace_back("");
  const std::string text = Output({"stats", file, "--plot", "33"});
  EXPECT_EQ(LinesOf(text + "\r\n"), LinesOf([&] {
              std::string all;
              for (const std::string& line : expected) {
                all += line + "\r\n";
              }
              return all + "\r\n";
            }()));
}

TEST_F(BatchTexts, StatisticsOfABandHaveSixRows) {
  const QJsonObject seen = Inspect("31");
  const auto lines = LinesOf(Output({"stats", file, "--plot", "31"}));
  ASSERT_GE(lines.size(), 10U);
  for (int k = 0; k < 6; ++k) {
    EXPECT_EQ(lines[static_cast<std::size_t>(k) + 1], Joined(seen["cfbw"].toArray()[k].toArray()));
  }
  EXPECT_EQ(lines[8], "Pulse width:");
  EXPECT_EQ(lines[9], "No valid data");
}

TEST_F(BatchTexts, StatisticsWithoutMeasurementSayThreeTimesThatThereAreNone) {
  EXPECT_EQ(Output({"stats", file, "--plot", "11"}),
            "Center frequency and bandwidth:\r\nNo valid data\r\n\r\n"
            "Pulse width:\r\nNo valid data\r\n\r\n"
            "Attenuation in the load medium:\r\nNo valid data\r\n");
}

TEST_F(BatchTexts, GraphDataIsATableWithTabsInDisplayUnits) {
  const QJsonObject seen = Inspect("11");
  const double leftMag = seen["left"].toObject()["mag"].toDouble();
  const Table data = Data("11");
  const auto lines = LinesOf(Output({"graphdata", file, "--plot", "11"}));
  ASSERT_EQ(lines.size(), 5U + 250U) << "NoFreqPts lines, one fewer than there are points";
  EXPECT_EQ(lines[0], "Title: " + StoredDesign(file).title);
  EXPECT_EQ(lines[1], "Plot Title: Electrical Input Impedance");
  EXPECT_EQ(lines[2], "Data Units");
  EXPECT_EQ(lines[3], "Frequency\tZ\tTheta");
  EXPECT_EQ(lines[4], "MHz\tOhms\tDegrees");  // below 1000 in the whole sweep
  for (std::size_t i = 0; i < 250; ++i) {
    const auto fields = FieldsOf(lines[i + 5], '\t');
    ASSERT_EQ(fields.size(), 3U);
    const double y = data.Number(i, 1) / leftMag;
    EXPECT_NEAR(std::stod(fields[0]), data.Number(i, 0) / 1e6, 1e-5 * data.Number(i, 0) / 1e6);
    EXPECT_NEAR(std::stod(fields[1]), y, 1e-5 * std::abs(y));
    EXPECT_EQ(fields[1].size(), std::string("0.00000E+00").size()) << fields[1];
  }
}

TEST_F(BatchTexts, GraphDataOfOneTraceHasZerosInItsThirdColumn) {
  const auto lines = LinesOf(Output({"graphdata", file, "--plot", "13"}));
  EXPECT_EQ(FieldsOf(lines.at(5), '\t').at(2), "0.000");
}

TEST_F(BatchTexts, SavedDataIsQuotedAndItsOffsetStaysInHertz) {
  const std::string saved = Path("GRAPH1.DAT");
  EXPECT_EQ(Output({"savedata", file, "--plot", "13", "-o", saved}), "");
  const std::string bytes = ReadFile(saved);
  const auto lines = LinesOf(bytes);
  ASSERT_EQ(lines.size(), 6U + 250U);
  EXPECT_NE(bytes.find("\r\n"), std::string::npos);
  EXPECT_EQ(lines[0], "\"Halvorne for Windows Version 4.01\"");
  EXPECT_EQ(lines[1], "\"Title: " + StoredDesign(file).title + "\"");
  EXPECT_EQ(lines[2], "\"Plot Title: Transmit Efficiency - Po(acoustic)/Pi(electric)\"");
  EXPECT_EQ(lines[3], "\"Data Units\"");
  EXPECT_EQ(FieldsOf(lines[4], ',').at(0), "\"Frequency\"");
  EXPECT_EQ(FieldsOf(lines[4], ',').at(1), "\"Po/Pi\"");
  EXPECT_EQ(lines[6].substr(0, 13), "\"5.00000E+05\"") << "the start in hertz, the step in MHz";
  EXPECT_TRUE(lines[6].ends_with(",\"\"")) << "no second trace, an empty text";
}

TEST_F(BatchTexts, TimesRunFromZeroInTheUnitOfTheAxis) {
  const Table data = Data("33");
  const auto lines = LinesOf(Output({"graphdata", file, "--plot", "33"}));
  ASSERT_EQ(lines.size(), 5U + 4096U);
  EXPECT_EQ(FieldsOf(lines[3], '\t').at(0), "Time");
  EXPECT_EQ(FieldsOf(lines[4], '\t').at(0), "usec");
  EXPECT_NEAR(std::stod(FieldsOf(lines[105], '\t').at(0)), data.Number(100, 0) * 1e6, 1e-4);
}

TEST_F(BatchTexts, TheSummaryNamesWhatTheDesignIsMadeOf) {
  const std::string text = Output({"info", file});
  for (const char* words :
       {"3 MHz tone-burst probe", "PZT-5A", "25 % Al2O3/epoxy", "E-Solder 3022", "Piston 4 mm.lac",
        "series inductor", "ideal transformer", "coaxial cable", "0.5 MHz to 5.5 MHz in 250 steps",
        "4096 points", "sine burst of 5 cycles at 3 MHz", "0.5 dB/cm at 1 MHz"}) {
    EXPECT_NE(text.find(words), std::string::npos) << words << " is missing in\n" << text;
  }
}

}  // namespace
}  // namespace halvorne::testing
