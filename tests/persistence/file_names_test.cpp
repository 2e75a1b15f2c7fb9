#include "persistence/file_names.h"

#include "persistence/file_fixture.h"

namespace halvorne::testing {
namespace {

class FileNames : public FileTest {};

std::string FileNameOf(const std::string& path) {
  std::string name = "old";
  ExtractFileName(path, name);
  return name;
}

TEST_F(FileNames, TheFileNameStandsBehindTheLastSeparator) {
  EXPECT_EQ(FileNameOf("C:\\designs\\probe.dat"), "probe.dat");
  EXPECT_EQ(FileNameOf("probe.dat"), "probe.dat") << "without a separator it is the whole path";
  EXPECT_EQ(FileNameOf("C:\\designs\\"), "");
  EXPECT_EQ(FileNameOf(""), "");
  EXPECT_EQ(FileNameOf("/home/anna/probe.dat"), "probe.dat");
}

TEST_F(FileNames, AFileExistsOnlyUnderItsName) {
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists(Path("missing")));
  EXPECT_FALSE(FileExists(Path("missing/below")));
  EXPECT_FALSE(FileExists(std::string(100000, 'x'))) << "a look-up that fails counts as no file";
  EXPECT_TRUE(FileExists(Put("here", "")));
  EXPECT_FALSE(FileExists(Folder().string())) << "a folder is no file";
  EXPECT_TRUE(shownMessages.Shown().empty());
}

}  // namespace
}  // namespace halvorne::testing
