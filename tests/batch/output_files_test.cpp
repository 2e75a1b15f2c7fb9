#include <filesystem>
#include <sys/stat.h>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

constexpr const char* kImaging = "imaging_5mhz_two_layer";
constexpr const char* kOlder = "ndt_2p25mhz_heavy_backing_version_3";

using BatchFiles = BatchTest;

TEST_F(BatchFiles, AConvertedDesignHoldsTheStoredCurves) {
  EXPECT_EQ(Output({"convert", Shipped(kOlder), "-o", Path("new.dat")}), "");
  const std::string text = ReadFile(Path("new.dat"));
  EXPECT_EQ(LinesOf(text).at(0), "\"Halvorne for Windows Version 4.1.0\"");
  EXPECT_EQ(LinesOf(text).at(2), "4") << "the present format";
  EXPECT_EQ(StoredDesign(Path("new.dat")).curves.at("Zin Electric Re, Im"),
            StoredDesign(Shipped("ndt_2p25mhz_heavy_backing")).curves.at("Zin Electric Re, Im"))
      << "the older file holds the same design";
}

TEST_F(BatchFiles, ConvertingTwiceChangesNothing) {
  Output({"convert", Shipped(kImaging), "-o", Path("once.dat")});
  Output({"convert", Path("once.dat"), "-o", Path("twice.dat")});
  EXPECT_EQ(ReadFile(Path("once.dat")), ReadFile(Path("twice.dat")));
  EXPECT_EQ(ReadFile(Path("once.dat")), ReadFile(Shipped(kImaging))) << "as it was shipped";
}

TEST_F(BatchFiles, ARecalculatedDesignHoldsTheNewCurvesAndItsDate) {
  Output({"recalc", Shipped(kImaging), "--set", "TermTx=75", "-o", Path("new.dat")});
  const StoredDesign before(Shipped(kImaging));
  const StoredDesign after(Path("new.dat"));
  EXPECT_EQ(after.termTx, 75);
  EXPECT_EQ(after.title, before.title);
  EXPECT_NE(after.curves.at("Two-way TF Re, Im"), before.curves.at("Two-way TF Re, Im"));
  EXPECT_NE(LinesOf(ReadFile(Path("new.dat"))).at(1), LinesOf(ReadFile(Shipped(kImaging))).at(1));
}

TEST_F(BatchFiles, AnExistingOutputIsLeftAloneUnlessForced) {
  for (const char* command : {"recalc", "convert", "savedata"}) {
    SCOPED_TRACE(command);
    const std::string out = Write("out", "something dear");
    Words words{command, Shipped(kImaging), "-o", out};
    if (std::string(command) == "savedata") {
      words.insert(words.end(), {"--plot", "11"});
    }
    const Outcome refused = Run(words);
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(ReadFile(out), "something dear");
    EXPECT_NE(refused.err.find(": Overwrite existing file?\n"), std::string::npos) << refused.err;
    EXPECT_NE(refused.err.find("--force"), std::string::npos) << refused.err;
    words.emplace_back("--force");
    EXPECT_EQ(Run(words).status, 0);
    EXPECT_NE(ReadFile(out), "something dear");
  }
}

TEST_F(BatchFiles, ADesignMayBeRecalculatedInPlaceByForce) {
  const std::string file = Write("design.dat", ReadFile(Shipped(kImaging)));
  Output({"recalc", file, "-o", file, "--force", "--set", "TermTx=75"});
  EXPECT_EQ(StoredDesign(file).termTx, 75);
}

TEST_F(BatchFiles, ADesignIsLeftAloneWhereSomethingFailedBeforeTheWriting) {
  const std::string bytes = ReadFile(Shipped(kImaging));
  const std::string file = Write("design.dat", bytes);
  const Words failing[] = {
      {"--front-load", Path("none.lac")},
      {"--dispersion", "0=" + Path("none.csv")},
      {"--excitation", Path("none.xct")},
      {"--recalc", "--set", "PZMatl(1).Density=1e300", "--set", "ElementArea=1e300"}};
  for (const char* command : {"recalc", "convert"}) {
    for (const Words& options : failing) {
      Words words{command, file, "-o", file, "--force"};
      words.insert(words.end(), options.begin(), options.end());
      const Outcome run = Run(words);
      EXPECT_EQ(run.status, 1);
      EXPECT_NE(run.err.find(file + " was not written\n"), std::string::npos) << run.err;
      EXPECT_EQ(ReadFile(file), bytes) << command << " " << options.front();
    }
  }
}

TEST_F(BatchFiles, ADesignWhoseStoredCurvesCannotBeShownIsRecalculated) {
  std::string bytes = ReadFile(Shipped(kImaging));
  const std::string label = "\"[ Zin Electric Re, Im ]\"\r\n";
  const std::size_t first = bytes.find(label) + label.size();
  bytes.replace(first, bytes.find("\r\n", first) - first, "1E+300,1E+300");
  const std::string file = Write("design.dat", bytes);
  const Outcome run = Run({"recalc", file, "-o", Path("new.dat")});
  EXPECT_EQ(run.status, 1) << "the first plot told of it";
  EXPECT_NE(run.err, "");
  Output({"recalc", Shipped(kImaging), "-o", Path("expected.dat")});
  const auto made = LinesOf(ReadFile(Path("new.dat")));
  const auto expected = LinesOf(ReadFile(Path("expected.dat")));
  ASSERT_EQ(made.size(), expected.size());
  for (std::size_t k = 2; k < made.size(); ++k) {  // behind the date
    EXPECT_EQ(made[k], expected[k]);
  }
}

TEST_F(BatchFiles, AResultNeverReplacesTheDesignItself) {
  const std::string bytes = ReadFile(Shipped(kImaging));
  const std::string file = Write("design.dat", bytes);
  const Outcome run = Run({"info", file, "-o", Path("./design.dat")});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(ReadFile(file), bytes);
}

TEST_F(BatchFiles, AnyResultGoesToAFileThatIsNamed) {
  const std::string file = Shipped(kImaging);
  for (const Words& words : std::vector<Words>{{"info", file},
                                               {"raw", file, "--plot", "11"},
                                               {"data", file, "--plot", "16"},
                                               {"inspect", file, "--plot", "11"},
                                               {"stats", file, "--plot", "31"},
                                               {"graphdata", file, "--plot", "31"},
                                               {"help"},
                                               {"--version"}}) {
    Words named = words;
    named.insert(named.end(), {"-o", Path("result")});
    EXPECT_EQ(Output(named), "") << words[0];
    EXPECT_EQ(ReadFile(Path("result")), Output(words)) << words[0];
  }
}

TEST_F(BatchFiles, AFullDiskIsToldAndLeavesNothing) {
  const std::string file = Shipped(kImaging);
  for (const char* command : {"recalc", "convert", "raw", "plot"}) {
    SCOPED_TRACE(command);
    Words words{command, file};
    if (std::string(command) == "raw" || std::string(command) == "plot") {
      words.insert(words.end(), {"--plot", "11"});
    }
    words.insert(words.end(), {"-o", Path("out.png")});
    const Outcome run = Run(words, {.mostFileBytes = 8192, .outTo = ""});
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_NE(run.err.find("written"), std::string::npos) << run.err;
    EXPECT_EQ(Names(), std::vector<std::string>{}) << "half an output was left";
  }
}

TEST_F(BatchFiles, AFullDiskLeavesAnOlderOutputAsItWas) {
  const std::string out = Write("out.csv", "older");
  const Outcome run = Run({"raw", Shipped(kImaging), "--plot", "11", "-o", out},
                          {.mostFileBytes = 8192, .outTo = ""});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(ReadFile(out), "older");
}

TEST_F(BatchFiles, AFullDeviceIsTold) {
  const std::string file = Shipped(kImaging);
  const Outcome named = Run({"raw", file, "--plot", "11", "-o", "/dev/full"});
  EXPECT_EQ(named.status, 1);
  EXPECT_NE(named.err.find("No space left on device"), std::string::npos) << named.err;
  EXPECT_EQ(Run({"recalc", file, "-o", "/dev/full", "--force"}).status, 1);
  const Outcome piped =
      Run({"raw", file, "--plot", "11"}, {.mostFileBytes = -1, .outTo = "/dev/full"});
  EXPECT_EQ(piped.status, 1);
  EXPECT_EQ(piped.err, "halvorne-batch: standard output could not be written\n");
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full")) << "a device was replaced";
}

TEST_F(BatchFiles, AFolderThatIsMissingOrIsTheOutputIsTold) {
  const std::string file = Shipped(kImaging);
  for (const std::string& out :
       {Path("no/such/folder/out.csv"), Path("."), std::string("/proc/x")}) {
    const Outcome run = Run({"raw", file, "--plot", "11", "-o", out});
    EXPECT_EQ(run.status, 1) << out;
    EXPECT_NE(run.err.find(out), std::string::npos) << run.err;
    EXPECT_EQ(Run({"convert", file, "-o", out, "--force"}).status, 1) << out;
  }
}

TEST_F(BatchFiles, AnOutputThatHasAWrongEndingIsRefusedBeforeAnythingIsRead) {
  const Outcome run = Run({"plot", Path("missing.dat"), "--plot", "11", "-o", Path("plot.jpg")});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err.find("Halvorne:"), std::string::npos) << run.err;
}

}  // namespace
}  // namespace halvorne::testing
