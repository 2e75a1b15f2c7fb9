#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

using BatchMaterials = BatchTest;
using ::testing::HasSubstr;

const std::string kFile = Shipped("imaging_5mhz_two_layer");

/// The table that a database is built from.
std::vector<std::string> SourceLines(const std::string& name) {
  return LinesOf(ReadFile(HALVORNE_SOURCE_DIR "/databases/" + name + "_materials.csv"));
}

TEST_F(BatchMaterials, PrintWhatTheDatabasesAreBuiltFrom) {
  for (const std::string name : {"piezo", "acoustic"}) {
    std::vector<std::string> source = SourceLines(name);
    std::vector<std::string> printed = LinesOf(Output({"materials", name}));
    EXPECT_EQ(printed.front(), source.front());
    // Rows of one table lie together in the output, wherever they stand in the source.
    std::sort(source.begin(), source.end());
    std::sort(printed.begin(), printed.end());
    EXPECT_EQ(printed, source);
  }
}

TEST_F(BatchMaterials, PrintBothDatabasesOneBehindTheOther) {
  EXPECT_EQ(Output({"materials"}),
            Output({"materials", "piezo"}) + "\n" + Output({"materials", "acoustic"}));
}

TEST_F(BatchMaterials, PrintOneTable) {
  const std::string table = Output({"materials", "--table", "Backing_Materials"});
  EXPECT_EQ(table, Output({"materials", "acoustic", "--table=Backing_Materials"}));
  const std::vector<std::string> lines = LinesOf(table);
  const std::vector<std::string> source = SourceLines("acoustic");
  const auto expected = std::count_if(source.begin(), source.end(), [](const std::string& line) {
    return line.starts_with("Backing_Materials,");
  });
  EXPECT_EQ(static_cast<long>(lines.size()), 1 + expected);
  EXPECT_TRUE(lines.front().starts_with("Table,Material,Longit vel m/sec"));
}

TEST_F(BatchMaterials, PrintWhatIsFoundWhateverItsCase) {
  const std::vector<std::string> lines =
      LinesOf(Output({"materials", "piezo", "--find", "pzt-5a, BAR"}));
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_TRUE(lines[1].starts_with("Lead_Zirconate_Titanate,\"PZT-5A, bar mode\",3693,1650,7750,"));
  EXPECT_EQ(LinesOf(Output({"materials", "piezo", "--find", "no such thing"})).size(), 1U);
}

TEST_F(BatchMaterials, AreWrittenToAFile) {
  EXPECT_EQ(Output({"materials", "piezo", "-o", Path("piezo.csv")}), "");
  EXPECT_EQ(ReadFile(Path("piezo.csv")), Output({"materials", "piezo"}));
}

TEST_F(BatchMaterials, GoIntoALayerAsTheyStand) {
  const std::string design = Path("new.dat");
  Output({"convert", kFile, "--material", "PZMatl(1)=Lead_Zirconate_Titanate/PZT-5A, bar mode",
          "-o", design});
  const std::string bytes = ReadFile(design);
  EXPECT_THAT(bytes, HasSubstr("PZT-5A, bar mode"));
  // The same values set one by one.
  const std::string setByHand = Path("set.dat");
  Output({"convert",
          kFile,
          "--set",
          "PZMatl(1).Name=PZT-5A, bar mode",
          "--set",
          "PZMatl(1).Velocity=3693",
          "--set",
          "PZMatl(1).ShearVelocity=1650",
          "--set",
          "PZMatl(1).Density=7750",
          "--set",
          "PZMatl(1).Ks=855.1",
          "--set",
          "PZMatl(1).Kt=0.705",
          "--set",
          "PZMatl(1).TanDe=0.02",
          "--set",
          "PZMatl(1).TanDm=0.01333",
          "--set",
          "PZMatl(1).Vendor=Generic",
          "--set",
          "PZMatl(1).DataSource=TP-226: v = 1/sqrt(sD33 rho), k33, eT33 (1 - k33^2); for slender "
          "elements",
          "-o",
          setByHand});
  EXPECT_EQ(bytes, ReadFile(setByHand));
}

TEST_F(BatchMaterials, WithoutElectricalLossCanBeCalculated) {
  const std::string design = Path("new.dat");
  Output({"recalc", kFile, "--material", "PZMatl(1)=Single_Crystals/Quartz X-cut", "-o", design});
  EXPECT_THAT(ReadFile(design), HasSubstr("Quartz X-cut"));
}

TEST_F(BatchMaterials, GoIntoPlatesBeforeFieldsAreSetAndTheDesignIsCalculated) {
  const Words common{"recalc",     kFile,
                     "--material", "FaceMatl(1)=Metals/Aluminum",
                     "--material", "BackMatl(1)=Metals/Brass",
                     "--set",      "FaceMatl(1).Density=2701",
                     "--recalc"};
  Words words = common;
  words.insert(words.end(), {"-o", Path("new.dat")});
  Output(words);
  const std::string summary = Output({"info", Path("new.dat")});
  EXPECT_THAT(summary, HasSubstr("Aluminum"));
  EXPECT_THAT(ReadFile(Path("new.dat")), HasSubstr("2701"));
  const Table before = TablesOf(Output({"raw", kFile, "--plot", "11"})).at(0);
  const Table after = TablesOf(Output({"raw", Path("new.dat"), "--plot", "11"})).at(0);
  double difference = 0;
  for (std::size_t row = 0; row < before.rows.size(); ++row) {
    difference += std::abs(before.Number(row, 1) - after.Number(row, 1));
  }
  EXPECT_GT(difference, 1) << "the curves are those of the materials before";
}

struct WrongLine {
  Words words;
  std::vector<std::string> complaints;
};

TEST_F(BatchMaterials, ThatAreNotThereAreAWrongCommandLineWithNearNames) {
  const std::vector<WrongLine> lines = {
      {{"materials", "liquid"}, {"no materials 'liquid'"}},
      {{"materials", "--plot", "11"}, {"--plot means nothing to materials"}},
      {{"info", kFile, "--table", "Metals"}, {"--table means nothing to info"}},
      {{"materials", "--material", "PZMatl(1)=A/B"}, {"--material means nothing to materials"}},
      {{"materials", "--table", "metal"}, {"no table 'metal'", "'Metals'"}},
      {{"materials", "piezo", "--table", "Metals"}, {"no table 'Metals'"}},
      {{"info", kFile, "--material", "FaceMatl(1)=Metal/Brass"}, {"no table 'Metal'", "'Metals'"}},
      {{"info", kFile, "--material", "FaceMatl(1)=Metals/Bras"},
       {"the table 'Metals' has no material 'Bras'", "'Brass'"}},
      {{"info", kFile, "--material", "PZMatl(2)=Lead_Zirconate_Titanate/PZT4"},
       {"no material 'PZT4'", "'PZT-4'"}},
      {{"info", kFile, "--material", "PZMatl(1)=Metals/Brass"}, {"no table 'Metals'"}},
      {{"info", kFile, "--material", "PZMatl(3)=A/B"}, {"PZMatl(1 to 2)"}},
      {{"info", kFile, "--material", "FaceMatl(11)=A/B"}, {"FaceMatl(1 to 10)"}},
      {{"info", kFile, "--material", "BackMatl()=A/B"}, {"BackMatl(1 to 10)"}},
      {{"info", kFile, "--material", "Matl(1)=A/B"}, {"PZMatl(1 to 2), FaceMatl(1 to 10)"}},
      {{"info", kFile, "--material", "PZMatl(1)=A"}, {"not of the form PZMatl(1)=TABLE/NAME"}},
      {{"info", kFile, "--material", "PZMatl(1)"}, {"not of the form PZMatl(1)=TABLE/NAME"}},
  };
  for (const WrongLine& line : lines) {
    SCOPED_TRACE(::testing::PrintToString(line.words));
    const Outcome run = Run(line.words);
    EXPECT_EQ(run.status, 2) << run.err;
    EXPECT_EQ(run.out, "");
    for (const std::string& complaint : line.complaints) {
      EXPECT_THAT(run.err, HasSubstr(complaint));
    }
  }
}

TEST_F(BatchMaterials, AMissingMaterialLeavesNoOutput) {
  const Outcome run = Run(
      {"convert", kFile, "--material", "FaceMatl(1)=Metals/Unobtainium", "-o", Path("new.dat")});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(ReadFile(Path("new.dat")), "");
}

}  // namespace
}  // namespace halvorne::testing
