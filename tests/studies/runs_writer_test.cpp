#include <algorithm>
#include <fstream>
#include <iterator>

#include "studies/study_fixture.h"
#include "studies/study_folder.h"
#include "support/full_disk.h"

namespace halvorne::testing {
namespace {

using studies::RunResult;
using studies::RunsWriter;
using studies::StudyFolder;

std::string BytesOf(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class RunFiles : public StudyTest {
 protected:
  static RunResult Result(long run) {
    return {R"({"run":)" + std::to_string(run) + R"(,"fields":{}})" + "\n",
            {static_cast<float>(run), 1, 2}};
  }
  void Write(long first, long behind) const {
    RunsWriter writer(folder, {}, study, 3);
    ASSERT_EQ(writer.Next(), first);
    for (long run = first; run < behind; ++run) {
      writer.Add(run, Result(run));
    }
    writer.Flush();
  }

  const StudyFolder folder{path};
  const studies::Study study = studies::ReadStudy(Text(), "s");
};

TEST_F(RunFiles, GoOnWhereTheyStoodWhereverTheyWereCutOff) {
  Write(0, 10);
  const std::string lines = BytesOf(folder.RunsFile({}));
  const std::string curves = BytesOf(folder.CurvesFile({}));
  ASSERT_EQ(curves.size(), 10 * 3 * sizeof(float));
  for (std::size_t size = 0; size <= lines.size(); ++size) {
    std::filesystem::resize_file(folder.RunsFile({}), size);
    const auto whole =
        std::count(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(size), '\n');
    Write(whole, 10);
    ASSERT_EQ(BytesOf(folder.RunsFile({})), lines) << size;
    ASSERT_EQ(BytesOf(folder.CurvesFile({})), curves) << size;
  }
}

TEST_F(RunFiles, ALineWithoutItsCurvesDoesNotCount) {
  Write(0, 10);
  const std::string lines = BytesOf(folder.RunsFile({}));
  std::filesystem::resize_file(folder.CurvesFile({}), 4 * 3 * sizeof(float) + 5);
  Write(4, 10);
  EXPECT_EQ(BytesOf(folder.RunsFile({})), lines);
}

TEST_F(RunFiles, OfSomethingElseAreRefused) {
  std::ofstream(folder.RunsFile({})) << Result(0).line << Result(2).line;
  EXPECT_THROW(RunsWriter(folder, {}, study, 0), NotPossible);
}

TEST_F(RunFiles, AreWrittenByOneProgramAtATime) {
  const RunsWriter writer(folder, {}, study, 0);
  EXPECT_THROW(RunsWriter(folder, {}, study, 0), NotPossible);
}

TEST_F(RunFiles, StayWholeWhenTheDiskIsFull) {
  RunsWriter writer(folder, {}, study, 0);
  writer.Add(0, Result(0));
  writer.Flush();
  {
    const FullDisk disk(Result(0).line.size() + 10);
    writer.Add(1, Result(1));
    EXPECT_THROW(writer.Flush(), NotPossible);
  }
  EXPECT_EQ(BytesOf(folder.RunsFile({})), Result(0).line);
}

TEST_F(RunFiles, AFolderOfAnotherStudyIsLeftAloneUnlessItMayBeEmptied) {
  folder.Prepare("one", "design", false);
  folder.Prepare("one", "design", false);
  std::ofstream(folder.RunsFile({})) << Result(0).line;
  EXPECT_THROW(folder.Prepare("two", "design", false), NotPossible);
  EXPECT_THROW(folder.Prepare("one", "another design", false), NotPossible);
  EXPECT_EQ(BytesOf(folder.StudyFile()), "one");
  EXPECT_TRUE(std::filesystem::exists(folder.RunsFile({})));
  folder.Prepare("two", "design", true);
  EXPECT_EQ(BytesOf(folder.StudyFile()), "two");
  EXPECT_FALSE(std::filesystem::exists(folder.RunsFile({})));
}

}  // namespace
}  // namespace halvorne::testing
