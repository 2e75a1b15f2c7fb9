#include "platform/paths.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace halvorne {
namespace {

namespace fs = std::filesystem;

class ProgramPaths : public ::testing::Test {
 public:
  ProgramPaths(const ProgramPaths&) = delete;
  ProgramPaths& operator=(const ProgramPaths&) = delete;

 protected:
  ProgramPaths() : before_(ProgramFolder()) {
    fs::create_directories(folder_ / "Acoustic loads");
    std::ofstream(folder_ / "Acoustic loads" / "Water.LAC") << "comment\n";
    std::ofstream(folder_ / "HALVORNESETUP") << "11\n";
    SetProgramFolder(folder_);
  }
  ~ProgramPaths() override {
    SetProgramFolder(before_);
    fs::remove_all(folder_);
  }

  const fs::path folder_ =
      fs::temp_directory_path() /
      ("halvorne_paths_" +
       std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));

 private:
  const fs::path before_;
};

TEST_F(ProgramPaths, AreFoundWhateverTheirCase) {
  EXPECT_EQ(ProgramPath("\\ACOUSTIC LOADS\\water.lac"), folder_ / "Acoustic loads" / "Water.LAC");
  EXPECT_EQ(ProgramPath("\\halvornesetup"), folder_ / "HALVORNESETUP");
}

TEST_F(ProgramPaths, DoNotNeedTheLeadingBackslash) {
  EXPECT_EQ(ProgramPath("HALVORNESETUP"), folder_ / "HALVORNESETUP");
}

TEST_F(ProgramPaths, KeepTheSpellingOfWhatDoesNotExist) {
  EXPECT_EQ(ProgramPath("\\DATA\\New.dat"), folder_ / "DATA" / "New.dat");
  EXPECT_EQ(ProgramPath("\\acoustic LOADS\\New.lac"), folder_ / "Acoustic loads" / "New.lac");
}

TEST_F(ProgramPaths, PreferTheSpellingThatIsThere) {
  fs::create_directories(folder_ / "DATA");
  fs::create_directories(folder_ / "data");
  EXPECT_EQ(ProgramPath("\\data"), folder_ / "data");
  EXPECT_EQ(ProgramPath("\\DATA"), folder_ / "DATA");
}

TEST_F(ProgramPaths, OfNothingAreTheFolderItself) {
  EXPECT_EQ(ProgramPath(""), folder_);
  EXPECT_EQ(ProgramPath("\\"), folder_) << "and not what is below it without a name";
}

TEST_F(ProgramPaths, LeaveOutElementsWithoutAName) {
  EXPECT_EQ(ProgramPath("\\ACOUSTIC LOADS\\"), folder_ / "Acoustic loads");
  EXPECT_EQ(ProgramPath("\\\\acoustic loads\\\\water.lac"),
            folder_ / "Acoustic loads" / "Water.LAC");
}

TEST_F(ProgramPaths, HaveElementsOfOneLetter) {
  EXPECT_EQ(ProgramPath("\\d\\x"), folder_ / "d" / "x");
}

}  // namespace
}  // namespace halvorne
