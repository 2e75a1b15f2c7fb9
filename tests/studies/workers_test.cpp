#include "studies/workers.h"

#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

#include "quantities/refusals.h"

namespace halvorne::testing {
namespace {

using studies::RunResult;
using studies::Work;
using studies::Workers;

/// Lines as they were taken, from workers that answer with the square of the run.
struct Taken {
  std::vector<std::string> lines;
  int flushes = 0;

  Work Of(std::function<void(long)> before = [](long) {}) {
    return {
        .calculate =
            [before](long run) {
              before(run);
              return RunResult{std::to_string(run * run) + "\n", {static_cast<float>(run), 0.5F}};
            },
        .failed =
            [](long run, const std::string& why) {
              return RunResult{std::to_string(run) + ": " + why + "\n", {}};
            },
        .take =
            [this](long run, const RunResult& result) {
              EXPECT_EQ(run, static_cast<long>(lines.size())) << "in ascending order";
              lines.push_back(result.line);
              if (!result.curves.empty()) {
                EXPECT_EQ(result.curves[0], static_cast<float>(run));
              }
            },
        .flush = [this] { ++flushes; }};
  }
};

TEST(StudyWorkers, GiveTheSameWhateverTheirNumber) {
  Taken one;
  Workers(1, one.Of()).Run(0, 3000);
  ASSERT_EQ(one.lines.size(), 3000U);
  EXPECT_EQ(one.lines[2999], "8994001\n");
  EXPECT_GT(one.flushes, 0);
  for (const int jobs : {2, 5}) {
    Taken many;
    Workers(jobs, many.Of()).Run(0, 3000);
    EXPECT_EQ(many.lines, one.lines);
  }
}

TEST(StudyWorkers, HaveNothingToDoForNoRuns) {
  Taken taken;
  Workers(3, taken.Of()).Run(7, 7);
  EXPECT_TRUE(taken.lines.empty());
}

TEST(StudyWorkers, ARunThatEndsItsWorkerTwiceIsToldAndTheRestIsWhole) {
  Taken taken;
  Workers(3, taken.Of([](long run) {
    if (run == 40 || run == 41 || run == 300) {
      std::signal(SIGTERM, SIG_DFL);
      raise(SIGTERM);
    }
  })).Run(0, 500);
  ASSERT_EQ(taken.lines.size(), 500U);
  for (long run = 0; run < 500; ++run) {
    const std::string expected =
        run == 40 || run == 41 || run == 300
            ? std::to_string(run) + ": the calculation ended its process twice, by signal 15\n"
            : std::to_string(run * run) + "\n";
    EXPECT_EQ(taken.lines[static_cast<std::size_t>(run)], expected);
  }
}

TEST(StudyWorkers, ARunThatEndsItsWorkerOnceIsCalculatedOnceMore) {
  int once[2];
  ASSERT_EQ(pipe(once), 0);
  ASSERT_EQ(write(once[1], "x", 1), 1);
  close(once[1]);
  Taken taken;
  Workers(2, taken.Of([&](long run) {
    char c = 0;
    if (run == 20 && read(once[0], &c, 1) == 1) {
      _exit(3);
    }
  })).Run(0, 100);
  close(once[0]);
  ASSERT_EQ(taken.lines.size(), 100U);
  EXPECT_EQ(taken.lines[20], "400\n");
}

TEST(StudyWorkers, LetGoOfWhatIsNotTheirsBeforeTheirFirstRun) {
  Taken taken;
  bool gone = false;
  Work work = taken.Of([&gone](long run) {
    if (!gone && run > 0) {
      _exit(1);
    }
  });
  work.letGo = [&gone] { gone = true; };
  Workers(2, work).Run(0, 50);
  EXPECT_EQ(taken.lines.at(49), "2401\n");
  EXPECT_FALSE(gone) << "only in the copies";
}

TEST(StudyWorkers, EndWhenWhatTheyFoundCannotBeTaken) {
  Taken taken;
  Work work = taken.Of();
  work.flush = [] { throw NotPossible("full"); };
  EXPECT_THROW(Workers(2, work).Run(0, 100'000), NotPossible);
}

}  // namespace
}  // namespace halvorne::testing
