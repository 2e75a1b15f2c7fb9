#include "persistence/file_helpers.h"

#include "persistence/file_fixture.h"
#include "persistence/version.h"

namespace halvorne::testing {
namespace {

class FileHelpers : public FileTest {};

std::string FileNameOf(const std::string& path) {
  std::string name = "old";
  ExtractFileName(path, name);
  return name;
}

TEST_F(FileHelpers, TheFileNameStandsBehindTheLastSeparator) {
  EXPECT_EQ(FileNameOf("C:\\designs\\probe.dat"), "probe.dat");
  EXPECT_EQ(FileNameOf("probe.dat"), "probe.dat") << "without a separator it is the whole path";
  EXPECT_EQ(FileNameOf("C:\\designs\\"), "");
  EXPECT_EQ(FileNameOf(""), "");
  EXPECT_EQ(FileNameOf("/home/anna/probe.dat"), "probe.dat");
}

TEST_F(FileHelpers, AFileExistsOnlyUnderItsName) {
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists(Path("missing")));
  EXPECT_FALSE(FileExists(Path("missing/below")));
  EXPECT_FALSE(FileExists(std::string(100000, 'x'))) << "a look-up that fails counts as no file";
  EXPECT_TRUE(FileExists(Put("here", "")));
  EXPECT_FALSE(FileExists(Folder().string())) << "a folder is no file";
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(FileHelpers, WordsAreCountedFromOne) {
  EXPECT_EQ(GetWord("a,b,c", 1, ","), "a");
  EXPECT_EQ(GetWord("a,b,c", 2, ","), "b");
  EXPECT_EQ(GetWord("a,b,c", 3, ","), "c");
  EXPECT_EQ(GetWord("a,,c", 2, ","), "");
  EXPECT_EQ(GetWord("a,b,", 3, ","), "");
  EXPECT_EQ(GetWord("", 1, ","), "");
  EXPECT_EQ(GetWord("a,b", 0, ","), "a");
  EXPECT_EQ(GetWord("a,b", -5, ","), "a");
}

TEST_F(FileHelpers, AFailedSearchForAWordRestartsAtTheBegin) {
  EXPECT_EQ(GetWord("a,b", 3, ","), "a");
  EXPECT_EQ(GetWord("a,b", 4, ","), "b");
  EXPECT_EQ(GetWord("1.5", 2, ","), "1.5") << "a line without a comma gives itself twice";
}

TEST_F(FileHelpers, OnlyTheFirstCharacterOfADelimiterCounts) {
  EXPECT_EQ(GetWord("a;b;-c", 3, ";-"), "-c");
  EXPECT_EQ(GetWord("abc", 1, ""), "") << "an empty delimiter is found at once";
}

TEST_F(FileHelpers, TheProgramsVersionIsThatOfTheBuild) {
  std::ifstream file(HALVORNE_SOURCE_DIR "/CMakeLists.txt");
  const std::string build{std::istreambuf_iterator<char>(file), {}};
  const std::string words = ProgramVersionText();
  const std::string version = words.substr(words.rfind(' ') + 1);
  EXPECT_EQ(words, "Halvorne for Windows Version " + version);
  EXPECT_NE(build.find("project(Halvorne VERSION " + version + " "), std::string::npos)
      << "version.h says " << version << ", CMakeLists.txt something else";
}

}  // namespace
}  // namespace halvorne::testing
