#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

class BatchCompare : public BatchTest {
 protected:
  std::string imaging = Shipped("imaging_5mhz_two_layer");
  std::string burst = Shipped("burst_3mhz_dispersive");

  /// A shipped design with another field, by the program itself.
  std::string Variant(const std::string& name, const std::string& setting) const {
    Output({"recalc", imaging, "--set", setting, "-o", Path(name)});
    return Path(name);
  }
};

TEST_F(BatchCompare, DrawsSeveralDesignsWithTheirLegend) {
  const std::string thick = Variant("thick.dat", "FrontThick(1)=0.0002");
  Output({"compare", imaging, thick, burst, "--plot", "31", "-o", Path("all.svg")});
  const std::string svg = ReadFile(Path("all.svg"));
  EXPECT_NE(svg.find("(imaging_5mhz_two_layer.dat)"), std::string::npos);
  EXPECT_NE(svg.find("(thick.dat)"), std::string::npos);
  EXPECT_NE(svg.find("2: "), std::string::npos);
  EXPECT_NE(svg.find("Center"), std::string::npos) << "the measurements stand below";
  Output({"compare", imaging, thick, "--plot", "31", "-o", Path("all.pdf")});
  EXPECT_TRUE(ReadFile(Path("all.pdf")).starts_with("%PDF"));
  Output({"compare", imaging, thick, "--plot", "31", "-o", Path("all.png"), "--size", "800x500"});
  EXPECT_EQ(QImage(QString::fromStdString(Path("all.png"))).size(), QSize(800, 500));
}

TEST_F(BatchCompare, WritesMeasurementsAndCurvesSideBySideAsCsv) {
  const std::string thick = Variant("thick.dat", "FrontThick(1)=0.0002");
  Output({"compare", imaging, thick, "--plot", "31", "--form", "1", "-o", Path("all.csv")});
  std::vector<std::string> lines = LinesOf(ReadFile(Path("all.csv")));
  std::erase_if(lines, [](const std::string& line) { return line.starts_with("#"); });
  ASSERT_GT(lines.size(), 5U);
  EXPECT_TRUE(lines[0].starts_with("design,Center -6 dB (MHz)")) << lines[0];
  EXPECT_EQ(lines[3], "");
  EXPECT_EQ(lines[4], "x,y1,y2,x 1,y1 1,y2 1");
  // Each design's columns are those that it has alone.
  for (const auto& [file, column] : {std::pair{imaging, 0U}, {thick, 3U}}) {
    const auto alone = LinesOf(Output({"data", file, "--plot", "31", "--form", "1"}));
    ASSERT_EQ(alone.size() + 4, lines.size());
    for (std::size_t i = 1; i < alone.size(); ++i) {
      const auto one = FieldsOf(alone[i], ',');
      const auto all = FieldsOf(lines[4 + i], ',');
      for (unsigned k = 0; k < 3; ++k) {
        ASSERT_EQ(all.at(column + k), one.at(k)) << file << " row " << i;
      }
    }
    const auto stats = LinesOf(Output({"stats", file, "--plot", "31", "--form", "1"}));
    const auto row = FieldsOf(lines[column == 0 ? 1 : 2], ',');
    const auto level = FieldsOf(stats.at(4), '\t');
    EXPECT_EQ(row.at(row.size() - 9), level.at(1)) << "center frequency at the first level";
  }
}

TEST_F(BatchCompare, WritesThemAsJson) {
  Output({"compare", imaging, burst, "--plot", "33", "-o", Path("all.json")});
  const QJsonObject all =
      QJsonDocument::fromJson(QByteArray::fromStdString(ReadFile(Path("all.json")))).object();
  EXPECT_EQ(all["plot"].toInt(), 33);
  const QJsonArray designs = all["designs"].toArray();
  ASSERT_EQ(designs.size(), 2);
  for (const auto& each : designs) {
    const QJsonObject object = each.toObject();
    EXPECT_TRUE(object["shown"].toBool());
    EXPECT_EQ(object["x"].toArray().size(), object["y1"].toArray().size());
    EXPECT_EQ(object["measurements"].toArray().size(), 4);
  }
  const Table alone = TablesOf(Output({"data", burst, "--plot", "33"})).at(0);
  const QJsonObject held = designs[1].toObject();
  for (const unsigned row : {1U, 10U, 100U}) {
    const auto k = static_cast<qsizetype>(row);
    EXPECT_EQ(held["x"].toArray()[k].toDouble(), alone.Number(row, 0));
    EXPECT_EQ(held["y1"].toArray()[k].toDouble(), alone.Number(row, 1));
  }
}

TEST_F(BatchCompare, TellsEachMeasurementInJsonInTheUnitOfItsDesign) {
  Output({"compare", imaging, Shipped("air_coupled_200khz"), "--plot", "31", "-o", Path("a.json")});
  const QJsonArray designs =
      QJsonDocument::fromJson(QByteArray::fromStdString(ReadFile(Path("a.json"))))
          .object()["designs"]
          .toArray();
  ASSERT_EQ(designs.size(), 2);
  const QJsonObject first = designs[0].toObject()["measurements"].toArray()[0].toObject();
  const QJsonObject held = designs[1].toObject()["measurements"].toArray()[0].toObject();
  EXPECT_EQ(first["unit"].toString(), "MHz");
  EXPECT_NEAR(first["value"].toString().toDouble(), 5, 1);
  EXPECT_EQ(held["unit"].toString(), "kHz");
  EXPECT_NEAR(held["value"].toString().toDouble(), 200, 40);
}

TEST_F(BatchCompare, RefusesMoreThanSevenDesigns) {
  Words words{"compare", "--plot", "31", "-o", Path("all.png")};
  words.insert(words.begin() + 1, 8, imaging);
  const Outcome refused = Run(words);
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err, "halvorne-batch: compare takes 7 designs at most, not 8\n");
  EXPECT_TRUE(Names().empty());
  words.erase(words.begin() + 1);
  EXPECT_EQ(Run(words).status, 0);
}

TEST_F(BatchCompare, TellsADesignThatCannotShowThePlotAndDrawsTheOthers) {
  const std::string none = Path("none.dat");
  Output({"recalc", burst, "--set", "ExciteType=0", "-o", none});
  const Outcome lacking = Run({"compare", burst, none, "--plot", "17", "-o", Path("lacking.csv")});
  EXPECT_EQ(lacking.status, 1);
  EXPECT_NE(lacking.err.find("(no excitation)"), std::string::npos) << lacking.err;
  EXPECT_NE(ReadFile(Path("lacking.csv")).find("not shown: no excitation"), std::string::npos);
  const Outcome missing =
      Run({"compare", burst, Path("missing.dat"), "--plot", "31", "-o", Path("all.png")});
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(ReadFile(Path("all.png")), "");
}

TEST_F(BatchCompare, PutsNoDesignInThePlaceOfOneThatCannotBeRead) {
  const std::string missing = Path("missing.dat");
  for (const Words& designs : {Words{imaging, burst, missing}, Words{missing, burst}}) {
    Words words{"compare"};
    words.insert(words.end(), designs.begin(), designs.end());
    words.insert(words.end(), {"--plot", "31", "-o", Path("all.csv")});
    const Outcome refused = Run(words);
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.err.find("missing.dat could not be read"), std::string::npos) << refused.err;
    EXPECT_TRUE(Names().empty()) << "nothing is written";
  }
}

TEST_F(BatchCompare, ReadsADesignAgainThatIsNamedTwice) {
  Output({"compare", imaging, imaging, imaging, "--plot", "31", "-o", Path("twice.csv")});
  EXPECT_NE(ReadFile(Path("twice.csv")).find("x 2,y1 2"), std::string::npos);
}

TEST_F(BatchCompare, NeverOverwritesOneOfItsDesigns) {
  const std::string mine = Variant("mine.csv", "FrontThick(1)=0.0002");
  const std::string before = ReadFile(mine);
  const Outcome refused = Run({"compare", imaging, mine, "--plot", "31", "-o", mine});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(ReadFile(mine), before);
  EXPECT_EQ(Run({"compare", imaging, "--plot", "31", "-o", Path("a.txt")}).status, 2);
}

TEST_F(BatchCompare, OtherCommandsStillTakeOneDesign) {
  const Outcome refused = Run({"info", imaging, burst});
  EXPECT_EQ(refused.status, 2);
  EXPECT_NE(refused.err.find("is one word too many"), std::string::npos);
}

TEST_F(BatchCompare, TouchstoneHoldsTheStoredImpedance) {
  Output({"touchstone", imaging, "-o", Path("z.s1p"), "--reference", "75"});
  const StoredDesign stored(imaging);
  std::vector<std::string> lines = LinesOf(ReadFile(Path("z.s1p")));
  std::erase_if(lines, [](const std::string& line) { return line.starts_with("!"); });
  EXPECT_EQ(lines.at(0), "# HZ S RI R 75");
  const auto& curve = stored.curves.at("Zin Electric Re, Im");
  ASSERT_EQ(lines.size(), curve.size() + 1);
  for (std::size_t i = 0; i < curve.size(); ++i) {
    const auto fields = FieldsOf(lines[i + 1], ' ');
    const double re = std::stod(fields.at(1));
    const double im = std::stod(fields.at(2));
    // Z = R (1 + S)/(1 - S), worked out backward.
    const double square = (1 - re) * (1 - re) + im * im;
    EXPECT_NEAR(75 * (1 - re * re - im * im) / square, curve[i].first,
                1e-6 * std::abs(curve[i].first) + 1e-6);
    EXPECT_NEAR(75 * 2 * im / square, curve[i].second, 1e-6 * std::abs(curve[i].second) + 1e-6);
  }
  const Outcome kept = Run({"touchstone", imaging, "-o", Path("z.s1p")});
  EXPECT_EQ(kept.status, 1) << "it asks first";
  EXPECT_EQ(Run({"touchstone", imaging, "-o", Path("z.s1p"), "--force"}).status, 0);
  EXPECT_EQ(Run({"touchstone", imaging, "-o", Path("y.s1p"), "--reference", "0"}).status, 2);
}

}  // namespace
}  // namespace halvorne::testing
