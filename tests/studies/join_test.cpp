#include <fstream>

#include "studies/run_study.h"
#include "studies/study_fixture.h"

namespace halvorne::testing {
namespace {

using studies::JoinShards;
using studies::Shard;
using studies::StudyFolder;

class JoinedShards : public StudyTest {
 protected:
  /// Runs of a shard, the last `lacking` of them missing.
  void WriteShard(const Shard& shard, long lacking = 0) const {
    std::ofstream file(folder.RunsFile(shard));
    for (long run = shard.First(10); run < shard.Behind(10) - lacking; ++run) {
      file << R"({"run":)" << run << R"(,"fields":{}})" << '\n';
    }
  }
  std::string WhatIsMissing() const {
    try {
      JoinShards(study, folder);
    } catch (const NotPossible& missing) {
      return missing.what();
    }
    return "nothing";
  }

  const StudyFolder folder{path};
  const studies::Study study = studies::ReadStudy(Text(), "s");
};

TEST_F(JoinedShards, AreAllRunsInTheirOrder) {
  for (const long number : {3, 1, 2}) {
    WriteShard({number, 3});
  }
  EXPECT_EQ(WhatIsMissing(), "nothing");
  EXPECT_EQ(studies::RunsWriter(folder, {}, study, 0).Next(), 10);
}

TEST_F(JoinedShards, OfDifferentCutsMayOverlap) {
  WriteShard({1, 2});
  WriteShard({2, 3});
  WriteShard({3, 3});
  EXPECT_EQ(WhatIsMissing(), "nothing");
}

TEST_F(JoinedShards, ThatLackSomethingSayWhatAndChangeNothing) {
  WriteShard({1, 4}, 1);
  WriteShard({2, 4});
  WriteShard({4, 4});
  EXPECT_EQ(WhatIsMissing(), path + " lacks run 1 (shard 1 of 4), runs 5 to 6 (shard 3 of 4)");
  EXPECT_FALSE(std::filesystem::exists(folder.RunsFile({})));
}

}  // namespace
}  // namespace halvorne::testing
