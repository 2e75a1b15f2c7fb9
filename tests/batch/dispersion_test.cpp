#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

constexpr const char* kBurst = "burst_3mhz_dispersive";  // one faceplate, one backplate

class BatchDispersion : public BatchTest {
 protected:
  /// A file that is the same at each point of the sweep.
  std::string Flat(const std::string& factor) const {
    static const int points = StoredDesign(Shipped(kBurst)).freqPoints;
    std::string text = "Flat words\r\n";
    for (int i = 0; i <= points; ++i) {
      text += factor + "\r\n";
    }
    return Write("flat.csv", text);
  }
  Table Raw(const char* plot, Words words) const {
    words.insert(words.begin(), {"raw", Shipped(kBurst), "--plot", plot});
    return TablesOf(Output(words)).at(0);
  }
};

TEST_F(BatchDispersion, AFileBecomesTheTableOfItsSlot) {
  for (const auto& [slot, plot] :
       {std::pair{"1", "51"}, {"0", "52"}, {"piezo", "52"}, {"12", "53"}}) {
    const Table table = Raw(plot, {"--dispersion", std::string(slot) + "=" + Flat("0.875")});
    for (std::size_t i = 0; i < table.rows.size(); i += 20) {
      EXPECT_EQ(table.Number(i, 1), 0.875) << slot;
    }
  }
}

TEST_F(BatchDispersion, PiezoFillsBothHalvesOfTheStackAndSwitchesThemOn) {
  Output(
      {"convert", Shipped(kBurst), "--dispersion", "piezo=" + Flat("0.875"), "-o", Path("a.dat")});
  const std::string both = ReadFile(Path("a.dat"));
  Output({"convert", Shipped(kBurst), "--dispersion", "0=" + Flat("0.875"), "--dispersion",
          "11=" + Flat("0.875"), "-o", Path("b.dat")});
  EXPECT_EQ(both, ReadFile(Path("b.dat")));
  EXPECT_NE(both.find("\"Flat words\""), std::string::npos);
  const std::string info = Output({"info", Path("a.dat")});
  EXPECT_NE(info.find("on in layers: piezoelectric, face"), std::string::npos) << info;
}

// Curves follow only by --recalc. In a neutral table nothing changes, in one of 0.5 everything.
TEST_F(BatchDispersion, TheTableIsInForceInTheSweep) {
  const Table neutral = Raw("11", {"--dispersion", "1=" + Flat("1"), "--recalc"});
  const Table stored = Raw("11", {"--dispersion", "1=" + Flat("0.5")});
  const Table slow = Raw("11", {"--dispersion", "1=" + Flat("0.5"), "--recalc"});
  EXPECT_EQ(stored.rows, Raw("11", {}).rows);
  EXPECT_NE(slow.rows, neutral.rows);
}

TEST_F(BatchDispersion, ABadFileTellsItsBoxAndKeepsWhatWasRead) {
  const Outcome bad = Run({"raw", Shipped(kBurst), "--plot", "51", "--dispersion",
                           "1=" + Write("bad.csv", "words\n0.25\n0,5\n")});
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(bad.err,
            "open velocity dispersion file: The following error occured: \nError # 13\nType "
            "mismatch\n");
  EXPECT_EQ(TablesOf(bad.out).at(0).Number(0, 1), 0.25);
  const Outcome missing =
      Run({"info", Shipped(kBurst), "--dispersion", "piezo=" + Path("missing.csv")});
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.err,
            "Open Velocity Dispersion File: The following error occured: \nError # 53\nFile not "
            "found\n");
}

TEST_F(BatchDispersion, WhatCannotBeMeantIsRefused) {
  for (const char* text :
       {"22=a.csv", "-1=a.csv", "1.5=a.csv", "1e300=a.csv", "front=a.csv", "=a.csv", "1=", "1"}) {
    const Outcome refused = Run({"info", Shipped(kBurst), "--dispersion", text});
    EXPECT_EQ(refused.status, 2) << text;
    EXPECT_NE(refused.err.find("--dispersion"), std::string::npos) << text;
  }
  const Outcome none = Run({"info", Shipped(kBurst), "--dispersion", "5=" + Flat("1")});
  EXPECT_EQ(none.status, 2);
  EXPECT_NE(none.err.find("slot 5 belongs to none"), std::string::npos) << none.err;
}

}  // namespace
}  // namespace halvorne::testing
