#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "batch/batch_run.h"

// What stands on the disk when writing an output does not go well.

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

/// In the format before the present one, so that converting changes it.
constexpr const char* kOlder = "ndt_2p25mhz_heavy_backing_version_3";

/// What the folder does with the program's calls.
struct Disk {
  bool kills = false;        ///< ends the program in place of failing its call
  bool closed = false;       ///< takes no new file
  bool knowsUnnamed = true;  ///< knows files without a name
  bool holdsOlder = true;    ///< has an older output
};

class BatchOutputSafety : public BatchTest {
 protected:
  BatchOutputSafety() { fs::create_directory(Path("work")); }
  ~BatchOutputSafety() override {
    std::error_code ignored;
    fs::permissions(Path("work"), fs::perms::owner_all, ignored);
  }

  /// A run of the program in which the file call of that number does not go well.
  Outcome RunWithFailingCall(const Words& words, int number, const Disk& disk) const {
    Surroundings bad;
    bad.environment = {"LD_PRELOAD=" HALVORNE_FAILING_CALLS, "FAILING_FOLDER=" + Path("work"),
                       "FAILING_CALL=" + std::to_string(number), "TMPDIR=" + Path("work"),
                       "XDG_RUNTIME_DIR=" + Path(".")};
    if (disk.kills) {
      bad.environment.emplace_back("FAILING_KILL=1");
    }
    if (!disk.knowsUnnamed) {
      bad.environment.emplace_back("FAILING_UNNAMED=1");
    }
    bad.rightsCount = disk.closed;
    return Run(words, bad);
  }

  /// Names in the folder that the program works in.
  std::vector<std::string> WorkNames() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Path("work"))) {
      names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  /// Converts a design, in its place where there is an older one, with each call failing in turn,
  /// and expects the older or the newer one, whole, after each.
  /// @return calls that failed, by name
  std::vector<std::string> ConvertWithEachCallFailing(const Disk& disk) const {
    Output({"convert", Shipped(kOlder), "-o", Path("expected.dat"), "--force"});
    const std::string newer = ReadFile(Path("expected.dat"));
    const std::string older = disk.holdsOlder ? ReadFile(Shipped(kOlder)) : "";
    std::vector<std::string> failed;
    for (int number = 1; number < 200; ++number) {
      LayOut(disk, older);
      const std::string file = Path("work/design.dat");
      const std::string from = disk.holdsOlder ? file : Shipped(kOlder);
      const Outcome run =
          RunWithFailingCall({"convert", from, "-o", file, "--force"}, number, disk);
      const std::string mark = "failing call: ";
      const std::size_t told = run.err.find(mark);
      if (told == std::string::npos) {
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(ReadFile(file), newer);
        return failed;
      }
      const std::size_t name = told + mark.size();
      failed.push_back(run.err.substr(name, run.err.find('\n', name) - name));
      SCOPED_TRACE("call " + std::to_string(number) + ", " + failed.back());
      ExpectOneWholeDesign(run, older, newer, failed.back());
    }
    ADD_FAILURE() << "calls without end";
    return failed;
  }

  void LayOut(const Disk& disk, const std::string& older) const {
    fs::permissions(Path("work"), fs::perms::owner_all);
    fs::remove(Path("work/design.dat"));
    if (disk.holdsOlder) {
      Write("work/design.dat", older);
    }
    if (disk.closed) {
      fs::permissions(Path("work"), fs::perms::owner_read | fs::perms::owner_exec);
    }
  }

  void ExpectOneWholeDesign(const Outcome& run, const std::string& older, const std::string& newer,
                            const std::string& call) const {
    const std::string now = ReadFile(Path("work/design.dat"));
    EXPECT_TRUE(now == older || now == newer) << now.size() << " bytes of neither";
    EXPECT_EQ(fs::exists(Path("work/design.dat")), !now.empty()) << "an empty output was made";
    if (run.status == 0) {
      EXPECT_EQ(now, newer) << "nothing was told, nothing was written";
    } else if (run.status > 0) {
      EXPECT_THAT(run.err, HasSubstr("halvorne-batch: ")) << "what was refused is not told";
    }
    for (const std::string& name : WorkNames()) {
      if (name == "design.dat") {
        continue;
      }
      // Killed between its naming and its taking of the place, the new file stands beside, whole.
      EXPECT_EQ(call, "rename") << name << " was left";
      EXPECT_LT(run.status, 0) << name << " was left";
      EXPECT_EQ(ReadFile(Path("work/" + name)), newer);
      fs::remove_all(Path("work/" + name));
    }
  }
};

TEST_F(BatchOutputSafety, ADesignSurvivesWhateverCallFails) {
  const auto failed = ConvertWithEachCallFailing({});
  EXPECT_THAT(failed, ::testing::IsSupersetOf({"pwrite", "fsync", "linkat", "rename", "close"}));
}

TEST_F(BatchOutputSafety, AnOutputThatWasNotThereIsWholeOrIsNotThere) {
  const auto failed = ConvertWithEachCallFailing({.holdsOlder = false});
  EXPECT_THAT(failed, ::testing::IsSupersetOf({"pwrite", "fsync", "linkat", "close"}));
}

TEST_F(BatchOutputSafety, ADesignSurvivesWhereFilesWithoutANameAreUnknown) {
  for (const bool older : {false, true}) {
    const auto failed = ConvertWithEachCallFailing({.knowsUnnamed = false, .holdsOlder = older});
    EXPECT_THAT(failed, ::testing::IsSupersetOf({"open", "pwrite", "fsync", "rename", "close"}));
  }
}

TEST_F(BatchOutputSafety, InAFolderThatTakesNoNewFileADesignSurvivesWhateverCallFails) {
  const auto failed = ConvertWithEachCallFailing({.closed = true});
  EXPECT_THAT(failed, ::testing::IsSupersetOf({"pread", "pwrite", "ftruncate", "fsync", "close"}));
}

TEST_F(BatchOutputSafety, InAFolderThatTakesNoNewFileAFullDiskLeavesTheOlderOutput) {
  for (const char* older : {"older", ""}) {
    const std::string out = Write("work/out.csv", older);
    fs::permissions(Path("work"), fs::perms::owner_read | fs::perms::owner_exec);
    const Outcome run = Run({"raw", Shipped(kOlder), "--plot", "11", "-o", out},
                            {.mostFileBytes = 8192, .rightsCount = true});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("File too large"));
    EXPECT_EQ(ReadFile(out), older);
  }
}

TEST_F(BatchOutputSafety, InAFolderThatTakesNoNewFileAnOutputIsReplacedByALongerAndAShorterOne) {
  const std::string expected = Output({"raw", Shipped(kOlder), "--plot", "11"});
  for (const std::size_t length : {std::size_t{0}, 2 * expected.size()}) {
    const std::string out = Write("work/out.csv", std::string(length, 'x'));
    fs::permissions(Path("work"), fs::perms::owner_read | fs::perms::owner_exec);
    Surroundings closed;
    closed.rightsCount = true;
    EXPECT_EQ(Run({"raw", Shipped(kOlder), "--plot", "11", "-o", out}, closed).status, 0);
    EXPECT_EQ(ReadFile(out), expected);
    EXPECT_EQ(Run({"raw", Shipped(kOlder), "--plot", "11", "-o", Path("work/new")}, closed).status,
              1)
        << "a new file in a closed folder";
  }
}

TEST_F(BatchOutputSafety, InAFolderThatGuardsItsOwnersFilesOneThatAllMayWriteIsOverwritten) {
  if (geteuid() != 0) {
    GTEST_SKIP() << "only root may give files away";
  }
  constexpr uid_t somebody = 65534;
  const std::string out = Write("work/out.csv", "older");
  fs::permissions(out, static_cast<fs::perms>(0666));
  fs::permissions(Path("work"), static_cast<fs::perms>(01777));
  ASSERT_EQ(chown(out.c_str(), somebody, somebody), 0);
  ASSERT_EQ(chown(Path("work").c_str(), somebody, somebody), 0);
  Surroundings bound;
  bound.rightsCount = true;
  const Outcome run = Run({"raw", Shipped(kOlder), "--plot", "11", "-o", out}, bound);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(ReadFile(out), Output({"raw", Shipped(kOlder), "--plot", "11"}));
  EXPECT_EQ(WorkNames(), std::vector<std::string>{"out.csv"});
}

TEST_F(BatchOutputSafety, AnOutputThatMayNotBeWrittenToIsNotReplaced) {
  const std::string out = Write("work/out.csv", "older");
  fs::permissions(out, fs::perms::owner_read);
  Surroundings bound;
  bound.rightsCount = true;
  const Outcome run = Run({"raw", Shipped(kOlder), "--plot", "11", "-o", out}, bound);
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("Permission denied"));
  EXPECT_EQ(ReadFile(out), "older");
}

TEST_F(BatchOutputSafety, AnOutputThatIsReplacedKeepsItsRights) {
  const std::string out = Write("out.csv", "older");
  constexpr auto rights = fs::perms::owner_all | fs::perms::group_read;
  fs::permissions(out, rights);
  Output({"raw", Shipped(kOlder), "--plot", "11", "-o", out});
  EXPECT_EQ(fs::status(out).permissions(), rights);
}

TEST_F(BatchOutputSafety, AKilledProgramLeavesTheDesignAndNoDraft) {
  EXPECT_GT(ConvertWithEachCallFailing({.kills = true}).size(), 5U);
  EXPECT_GT(ConvertWithEachCallFailing({.kills = true, .holdsOlder = false}).size(), 3U);
}

}  // namespace
}  // namespace halvorne::testing
