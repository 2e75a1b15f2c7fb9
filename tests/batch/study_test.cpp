#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;

class BatchStudy : public BatchTest {
 protected:
  BatchStudy() {
    // Small, so that hundreds of runs take no time.
    Run({"recalc", Shipped("ndt_2p25mhz_heavy_backing"), "--set", "NoFreqPts=40", "--set",
         "NoTimePts=256", "-o", Path("probe.dat")});
  }

  std::string WriteStudy(const std::string& runs = "400", const std::string& more = "") const {
    return Write("study.json", R"({
      "design": "probe.dat", "runs": )" +
                                   runs + R"json(, "seed": 5,
      "vary": [
        {"field": "PZThick(1)", "distribution": "normal", "deviation": 2, "unit": "percent"},
        {"field": "TermTx", "distribution": "uniform", "from": 40, "to": 60}]
      )json" + more + "}");
  }
  static std::string Whole() {
    return R"(, "measure": ["bandwidth6", "peak"], "limits": [{"measure": "peak", "atLeast": -40}],
      "plots": [{"plot": 31, "form": 1}, {"plot": 33, "form": 1}], "worst": 2)";
  }
  /// Name and bytes of each file of a folder but those of shards.
  std::map<std::string, std::string> FilesOf(const std::string& folder) const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(Path(folder))) {
      const std::string name = entry.path().filename();
      if (name.find("-of-") == std::string::npos) {
        files[name] = ReadFile(entry.path());
      }
    }
    return files;
  }
};

TEST_F(BatchStudy, LeavesTheSameBytesWhateverTheJobsAndTheShards) {
  const std::string file = WriteStudy("400", Whole());
  const std::string summary = Output({"study", file, "-o", Path("one"), "--jobs", "1"});
  const auto one = FilesOf("one");
  for (const char* name :
       {"study.json", "design.dat", "runs.jsonl", "curves.f32", "summary.json", "summary.txt",
        "plot-31-1.png", "plot-33-1.png", "histogram-bandwidth6.png", "histogram-peak.png",
        "worst-1.dat", "worst-2.dat"}) {
    EXPECT_TRUE(one.contains(name)) << name;
  }
  EXPECT_EQ(one.at("summary.txt"), summary);
  EXPECT_EQ(LinesOf(one.at("runs.jsonl")).size(), 400U);
  EXPECT_EQ(Output({"study", file, "-o", Path("four"), "--jobs", "4"}), summary);
  EXPECT_EQ(FilesOf("four"), one);
  for (const char* shard : {"3/3", "1/3", "2/3"}) {
    EXPECT_EQ(Output({"study", file, "-o", Path("pieces"), "--shard", shard}), "");
  }
  EXPECT_EQ(Output({"study", "--gather", Path("pieces")}), summary);
  EXPECT_EQ(FilesOf("pieces"), one);
  EXPECT_EQ(Run({"info", Path("one") + "/worst-1.dat"}).status, 0);
}

TEST_F(BatchStudy, ARunIsWhatTheProgramFindsForItsFields) {
  const std::string file = WriteStudy("3");
  Output({"study", file, "-o", Path("out")});
  const std::string line = LinesOf(ReadFile(Path("out") + "/runs.jsonl")).at(2);
  const auto textOf = [&line](const std::string& name) {
    const std::size_t at = line.find("\"" + name + "\":") + name.size() + 3;
    return line.substr(at, line.find_first_of(",}", at) - at);
  };
  const std::string measured =
      LinesOf(Output({"measure", Path("probe.dat"), "--recalc", "--set",
                      "PZThick(1)=" + textOf("PZThick(1)"), "--set", "TermTx=" + textOf("TermTx")}))
          .at(0);
  EXPECT_EQ(line.substr(line.find("\"measures\":") + 11), measured + "}");
}

TEST_F(BatchStudy, ThatIsKilledAtAnyMomentGoesOnWhereItStood) {
  const std::string file = WriteStudy("1500", Whole());
  Output({"study", file, "-o", Path("whole")});
  const auto whole = FilesOf("whole");
  std::mt19937 random(11);
  for (int kill = 0; kill < 20; ++kill) {
    const pid_t child = fork();
    if (child == 0) {
      const std::string program = HALVORNE_BINARY_DIR "/program/halvorne-batch";
      const std::string folder = Path("killed");
      std::freopen("/dev/null", "w", stdout);
      std::freopen("/dev/null", "w", stderr);
      execl(program.c_str(), program.c_str(), "study", file.c_str(), "-o", folder.c_str(), nullptr);
      _exit(127);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(random() % 300));
    ::kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
  // A worker that has not seen the end of its parent yet holds no file.
  const Outcome last = Run({"study", file, "-o", Path("killed")});
  EXPECT_EQ(last.status, 0) << last.err;
  EXPECT_EQ(FilesOf("killed"), whole);
}

TEST_F(BatchStudy, RunsThatFailSayWhyAndStopNothing) {
  const std::string file = Write("study.json", R"({"design": "probe.dat", "vary": [
    {"field": "NoFace", "distribution": "grid", "values": [0, 11, 1]}], "measure": ["peak"]})");
  const std::string summary = Output({"study", file, "-o", Path("out")});
  const std::vector<std::string> lines = LinesOf(ReadFile(Path("out") + "/runs.jsonl"));
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(
      lines[1],
      R"({"run":1,"fields":{"NoFace":11.0},"error":"NoFace: the value must be from 0 to 10"})");
  EXPECT_NE(summary.find("Failed: 1 runs, the first of them run 1"), std::string::npos);
}

TEST_F(BatchStudy, OfAFolderThatFillsUpIsToldAndWhatWasWrittenStaysWhole) {
  const std::string file = WriteStudy("4000");
  Run({"study", file, "-o", Path("out"), "--shard", "1/4000"});
  Surroundings full;
  full.mostFileBytes = 60'000;  // more than the design, less than the lines
  const Outcome run = Run({"study", file, "-o", Path("out")}, full);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "halvorne-batch: " + Path("out") +
                         "/runs.jsonl could not be written: File too large\n");
  const std::string lines = ReadFile(Path("out") + "/runs.jsonl");
  ASSERT_FALSE(lines.empty());
  EXPECT_TRUE(lines.ends_with("}\n"));
  EXPECT_EQ(Run({"study", file, "-o", Path("out")}).status, 0);
  EXPECT_EQ(LinesOf(ReadFile(Path("out") + "/runs.jsonl")).size(), 4000U);
}

TEST_F(BatchStudy, MissingRunsOfShardsAreTold) {
  const std::string file = WriteStudy("40");
  Output({"study", file, "-o", Path("out"), "--shard", "1/4"});
  Output({"study", file, "-o", Path("out"), "--shard", "3/4"});
  const Outcome run = Run({"study", "--gather", Path("out")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "halvorne-batch: " + Path("out") +
                         " lacks runs 10 to 19 (shard 2 of 4), runs 30 to 39 (shard 4 of 4)\n");
}

TEST_F(BatchStudy, OfAnotherStudyIsRefusedUnlessForced) {
  Output({"study", WriteStudy("5"), "-o", Path("out")});
  const std::string other = WriteStudy("6");
  const Outcome run = Run({"study", other, "-o", Path("out")});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("holds the runs of another study"), std::string::npos) << run.err;
  EXPECT_EQ(Run({"study", other, "-o", Path("out"), "--force"}).status, 0);
  EXPECT_EQ(LinesOf(ReadFile(Path("out") + "/runs.jsonl")).size(), 6U);
}

TEST_F(BatchStudy, WrongFilesAndOptionsAreAWrongCommandLine) {
  const std::string bad = Write("bad.json", "{\n\"design\": 5,\n\"vary\": []}");
  const Outcome run = Run({"study", bad, "-o", Path("out")});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find(bad + ":2: design: a number cannot stand here"), std::string::npos)
      << run.err;
  EXPECT_FALSE(fs::exists(Path("out")));
  const std::string file = WriteStudy();
  EXPECT_EQ(Run({"study", file}).status, 2);
  EXPECT_EQ(Run({"study", "-o", Path("out")}).status, 2);
  for (const char* shard : {"0/3", "4/3", "1", "a/b", "1/2/3"}) {
    EXPECT_EQ(Run({"study", file, "-o", Path("out"), "--shard", shard}).status, 2) << shard;
  }
  EXPECT_EQ(Run({"study", file, "-o", Path("out"), "--jobs", "0"}).status, 2);
  EXPECT_EQ(Run({"study", file, "--gather", Path("out")}).status, 2);
  EXPECT_EQ(Run({"study", "--gather", Path("none")}).status, 1);
  EXPECT_EQ(Run({"study", Path("none.json"), "-o", Path("out")}).status, 1);
  EXPECT_EQ(Output({"help", "schema"}), ReadFile(HALVORNE_SOURCE_DIR "/docs/study.schema.json"));
}

TEST_F(BatchStudy, AHundredThousandRunsTakeTheMemoryOfFew) {
  Run({"recalc", Shipped("pvdf_membrane_hydrophone_25um"), "--set", "NoFreqPts=2", "-o",
       Path("probe.dat"), "--force"});
  const std::string more = R"(, "measure": ["peak"], "plots": [{"plot": 31, "form": 1}])";
  const auto peakOf = [&](const std::string& runs, const std::string& folder) {
    const Outcome run = Run({"study", WriteStudy(runs, more), "-o", Path(folder)});
    EXPECT_EQ(run.status, 0) << run.err;
    return run.peakKib;
  };
  const long few = peakOf("3000", "few");
  const long many = peakOf("100000", "many");
  // Three numbers of each run for the summary, sorted and ranked, and nothing that its text takes.
  const long numbersKib = 100'000L * 3 * 8 * 4 / 1024;
  EXPECT_LT(many, few + numbersKib + 4096);
  EXPECT_EQ(fs::file_size(Path("many") + "/curves.f32"), 2000U * 3 * sizeof(float));
}

}  // namespace
}  // namespace halvorne::testing
