#include <cmath>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

constexpr const char* kImaging = "imaging_5mhz_two_layer";
constexpr const char* kBurst = "burst_3mhz_dispersive";

class BatchSettings : public BatchTest {
 protected:
  std::string Raw(Words words) const {
    words.insert(words.begin(), {"raw", Shipped(kImaging), "--plot", "11"});
    return Output(words);
  }
};

TEST_F(BatchSettings, AFieldThatIsSetChangesTheCurvesOnlyWithARecalculation) {
  const std::string stored = Raw({});
  EXPECT_EQ(Raw({"--set", "FrontThick(1)=0.00012"}), stored);
  EXPECT_NE(Raw({"--set", "FrontThick(1)=0.00012", "--recalc"}), stored);
  EXPECT_NE(Raw({"--set", "PZMatl(1).Velocity=4350", "--recalc"}), stored);
  EXPECT_NE(Raw({"--set", "ElNet(1,1)=1", "--set", "ElNet(1,2)=5", "--recalc"}), stored);
}

TEST_F(BatchSettings, ARecalculationOfAnUnchangedDesignFindsItsStoredCurves) {
  const Table stored = TablesOf(Raw({})).at(0);
  const Table anew = TablesOf(Raw({"--recalc"})).at(0);
  for (std::size_t i = 0; i < stored.rows.size(); ++i) {
    const double y = stored.Number(i, 1);
    EXPECT_NEAR(anew.Number(i, 1), y, 1e-9 * std::abs(y)) << "row " << i;
  }
}

TEST_F(BatchSettings, ASeriesResistorAddsItsResistanceToTheImpedance) {
  const Table before = TablesOf(Raw({"--recalc"})).at(0);
  // The network's end lies at the source, so that nothing comes between it and the plot.
  Words words{"--recalc"};
  const StoredDesign stored(Shipped(kImaging));
  const std::string info = Output({"info", Shipped(kImaging)});
  int row = 1;
  while (info.find(std::to_string(row) + ". s", info.find("Network")) != std::string::npos) {
    ++row;
  }
  const std::string place = "ElNet(" + std::to_string(row) + ",";
  words.insert(words.end(), {"--set", place + "1)=1", "--set", place + "2)=12.5"});
  const Table after = TablesOf(Raw(words)).at(0);
  for (std::size_t i = 0; i < before.rows.size(); i += 10) {
    const double r = before.Number(i, 1) + 12.5;
    EXPECT_NEAR(after.Number(i, 1), r, 1e-9 * r) << "row " << i;
    const double x = before.Number(i, 2);
    EXPECT_NEAR(after.Number(i, 2), x, 1e-9 * (r + std::abs(x))) << "row " << i;
  }
}

TEST_F(BatchSettings, TheTerminationsOfAPlotFollowWithoutARecalculation) {
  const Table table =
      TablesOf(Output({"data", Shipped(kImaging), "--plot", "12", "--set", "TermTx=75"})).at(0);
  const Table z = TablesOf(Raw({})).at(0);
  for (std::size_t i = 0; i < z.rows.size(); i += 7) {
    const double r = z.Number(i, 1);
    const double x = z.Number(i, 2);
    EXPECT_NEAR(table.Number(i, 1), std::hypot(r - 75, x) / std::hypot(r + 75, x), 1e-11);
  }
}

TEST_F(BatchSettings, TheLastOfSeveralValuesHolds) {
  EXPECT_EQ(Raw({"--set", "TermTx=10", "--set", "TermTx=20", "--recalc"}),
            Raw({"--set", "TermTx=20", "--recalc"}));
}

TEST_F(BatchSettings, AreWrittenWithTheDesign) {
  Output({"convert", Shipped(kBurst), "-o", Path("set.dat"), "--set", "DesignTitle=A new title",
          "--set", "ElNet(20,6)=7.5", "--set", "FaceMatl(1).LossExp=1.25", "--set",
          "PZPolarity(1)=-1", "--set", "AttenOn=false", "--set", "FrontArea(0)=1.5"});
  const std::string text = ReadFile(Path("set.dat"));
  EXPECT_EQ(StoredDesign(Path("set.dat")).title, "A new title");
  for (const char* line :
       {",7.5\r\n", ",1.25\r\n", ",-1\r\n", "#FALSE#,6,0.5,1000000,1.1\r\n", "\r\n1.5\r\n"}) {
    EXPECT_NE(text.find(line), std::string::npos) << line;
  }
}

TEST_F(BatchSettings, ABurstFollowsItsSettings) {
  const auto excitation = [&](const Words& more) {
    Words words{"data", Shipped(kBurst), "--plot", "17", "--pane", "excite"};
    words.insert(words.end(), more.begin(), more.end());
    const Table table = TablesOf(Output(words)).at(0);
    double lastTime = 0;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
      lastTime = std::abs(table.Number(i, 1)) > 1e-9 ? table.Number(i, 0) : lastTime;
    }
    return lastTime;
  };
  EXPECT_NEAR(excitation({}), 1e-6 + 5 / 3e6, 3e-8);
  EXPECT_NEAR(excitation({"--set", "ExciteCycles=2", "--set", "ExciteDelay=0"}), 2 / 3e6, 3e-8);
}

TEST_F(BatchSettings, ThePrintedFieldsAllTakeAValue) {
  const std::string help = Output({"help", "fields"});
  Words words{"info", Shipped(kBurst)};
  int count = 0;
  for (std::string line : LinesOf(help)) {
    if (line.find(' ') == 0 || line.empty() || line.find("1 to 2") != std::string::npos) {
      continue;  // explanations and layers of the stack, whose values other tests set
    }
    // "ElNet(1 to 20, 1 to 6)" becomes "ElNet(1,1)".
    if (const auto open = line.find('('); open != std::string::npos) {
      const auto close = line.find(')');
      const bool two = line.find(',') < close;
      line = line.substr(0, open + 1) + "1" + (two ? ",1" : "") + line.substr(close);
    } else if (line.find(' ') != std::string::npos) {
      continue;
    }
    words.insert(words.end(), {"--set", line + "=1"});
    ++count;
  }
  EXPECT_GE(count, 100);
  // A time record must be a power of two.
  for (std::string& word : words) {
    word = word == "NoTimePts=1" ? "NoTimePts=2" : word;
  }
  const Outcome run = Run(words);
  EXPECT_NE(run.status, 2) << run.err;
  EXPECT_GE(run.status, 0) << "ended by a signal";
}

}  // namespace
}  // namespace halvorne::testing
