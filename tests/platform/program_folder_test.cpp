#include "platform/program_folder.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace halvorne {
namespace {

namespace fs = std::filesystem;

std::string ReadAll(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Write(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

/// An installed program, a user, and nothing of the user's own yet.
class InstalledProgram : public ::testing::Test {
 public:
  InstalledProgram(const InstalledProgram&) = delete;
  InstalledProgram& operator=(const InstalledProgram&) = delete;

 protected:
  InstalledProgram() {
    fs::remove_all(root_);
    fs::create_directories(Bin());
    Write(Shipped() / "HALVORNESETUP", "11\r\n");
    Write(Shipped() / "HALVORNE.HLP", "pages");
    Write(Shipped() / "Acoustic loads" / "Piston 4 mm.lac", "load");
    Write(Shipped() / "DATA" / "probe.dat", "design");
    fs::create_directories(Shipped() / "EXCITE");
    setenv("XDG_DATA_HOME", (root_ / "data").c_str(), 1);
  }
  ~InstalledProgram() override {
    before_.empty() ? unsetenv("XDG_DATA_HOME") : setenv("XDG_DATA_HOME", before_.c_str(), 1);
    fs::remove_all(root_);
  }

  fs::path Bin() const { return root_ / "usr" / "bin"; }
  fs::path Shipped() const { return root_ / "usr" / "share" / "halvorne"; }
  fs::path Own() const { return root_ / "data" / "halvorne"; }
  void Start() const { FillProgramFolder(FindProgramPlace(Bin())); }

  const fs::path root_ =
      fs::temp_directory_path() /
      ("halvorne_installed_" +
       std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));

 private:
  std::string before_ = std::getenv("XDG_DATA_HOME") != nullptr ? std::getenv("XDG_DATA_HOME") : "";
};

TEST_F(InstalledProgram, HasItsFolderWithTheUser) {
  const ProgramPlace place = FindProgramPlace(Bin());
  EXPECT_EQ(place.folder, Own());
  EXPECT_EQ(place.shipped, Shipped());
  EXPECT_FALSE(fs::exists(Own())) << "looking writes nothing";
}

TEST_F(InstalledProgram, HasItBelowHomeWhereNothingElseIsSaid) {
  const std::string home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "";
  setenv("HOME", root_.c_str(), 1);
  for (const char* said : {"", "relative/place"}) {
    setenv("XDG_DATA_HOME", said, 1);
    EXPECT_EQ(FindProgramPlace(Bin()).folder, root_ / ".local" / "share" / "halvorne") << said;
  }
  setenv("HOME", home.c_str(), 1);
}

TEST_F(InstalledProgram, BuiltOrUnpackedHasItsFilesBesideIt) {
  Write(Bin() / "HALVORNESETUP", "12\r\n");
  const ProgramPlace place = FindProgramPlace(Bin());
  EXPECT_EQ(place.folder, Bin());
  Start();
  EXPECT_FALSE(fs::exists(Own()));
}

TEST_F(InstalledProgram, WithoutAnyFilesWorksBesideItsExecutable) {
  fs::remove_all(Shipped());
  EXPECT_EQ(FindProgramPlace(Bin()).folder, Bin());
}

TEST_F(InstalledProgram, IsReadWithoutAFirstStart) {
  EXPECT_EQ(FolderToRead(FindProgramPlace(Bin())), Shipped());
  EXPECT_FALSE(fs::exists(Own()));
  Start();
  EXPECT_EQ(FolderToRead(FindProgramPlace(Bin())), Own()) << "the user's changes count";
  Write(Bin() / "HALVORNESETUP", "12\r\n");
  EXPECT_EQ(FolderToRead(FindProgramPlace(Bin())), Bin());
}

TEST_F(InstalledProgram, FillsItsFolderAtTheFirstStart) {
  Start();
  EXPECT_EQ(ReadAll(Own() / "HALVORNESETUP"), "11\r\n");
  EXPECT_EQ(ReadAll(Own() / "Acoustic loads" / "Piston 4 mm.lac"), "load");
  EXPECT_EQ(ReadAll(Own() / "DATA" / "probe.dat"), "design");
  EXPECT_EQ(ReadAll(Own() / "HALVORNE.HLP"), "pages");
  EXPECT_TRUE(fs::is_directory(Own() / "EXCITE")) << "empty folders count too";
  int beside = 0;
  for ([[maybe_unused]] const auto& entry : fs::directory_iterator(Own().parent_path())) {
    ++beside;
  }
  EXPECT_EQ(beside, 1) << "nothing is left over";
}

TEST_F(InstalledProgram, FillsAFolderThatIsThereAndEmpty) {
  fs::create_directories(Own());
  Start();
  EXPECT_TRUE(fs::exists(Own() / "DATA" / "probe.dat"));
}

TEST_F(InstalledProgram, NeverOverwritesWhatTheUserHas) {
  Start();
  Write(Own() / "HALVORNESETUP", "33\r\n");
  fs::remove(Own() / "DATA" / "probe.dat");
  Write(Shipped() / "HALVORNESETUP", "21\r\n");
  Write(Shipped() / "DATA" / "newer.dat", "newer");
  Start();
  EXPECT_EQ(ReadAll(Own() / "HALVORNESETUP"), "33\r\n");
  EXPECT_FALSE(fs::exists(Own() / "DATA" / "probe.dat")) << "what was deleted stays away";
  EXPECT_FALSE(fs::exists(Own() / "DATA" / "newer.dat"));
}

TEST_F(InstalledProgram, CopiesMayBeWrittenThoughTheShippedFilesMayNot) {
  fs::permissions(Shipped() / "DATA" / "probe.dat", fs::perms::owner_read);
  Start();
  EXPECT_NE(fs::status(Own() / "DATA" / "probe.dat").permissions() & fs::perms::owner_write,
            fs::perms::none);
}

TEST_F(InstalledProgram, ShowsTheHelpOfTheProgramThatRuns) {
  Start();
  Write(Shipped() / "HALVORNE.HLP", "pages of the next version");
  EXPECT_EQ(ReadAll(Own() / "HALVORNE.HLP"), "pages of the next version");
  fs::rename(root_ / "usr", root_ / "opt");
  FillProgramFolder(FindProgramPlace(root_ / "opt" / "bin"));
  EXPECT_EQ(ReadAll(Own() / "HALVORNE.HLP"), "pages of the next version") << "elsewhere installed";
  fs::rename(root_ / "opt", root_ / "usr");
}

TEST_F(InstalledProgram, LeavesAHelpFileOfTheUsers) {
  Start();
  fs::remove(Own() / "HALVORNE.HLP");
  Write(Own() / "HALVORNE.HLP", "mine");
  Start();
  EXPECT_EQ(ReadAll(Own() / "HALVORNE.HLP"), "mine");
}

TEST_F(InstalledProgram, LeavesNoHalfFolderWhenItCannotBeMade) {
  Write(root_ / "data", "a file in the way");
  EXPECT_THROW(Start(), fs::filesystem_error);
  fs::remove(root_ / "data");
  fs::create_symlink("nowhere", Shipped() / "DATA" / "zz_dangling.dat");
  EXPECT_THROW(Start(), fs::filesystem_error) << "a file that cannot be copied";
  EXPECT_FALSE(fs::exists(Own()));
  EXPECT_TRUE(fs::is_empty(root_ / "data"));
}

}  // namespace
}  // namespace halvorne
