#include "persistence/bytes_file.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "platform/failure.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;

class BytesFile : public FreshProgram {
 protected:
  BytesFile() { fs::create_directories(folder_); }
  ~BytesFile() override { fs::remove_all(folder_); }

  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  static std::string Content(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }
  int FailureOf(const std::string& path) {
    try {
      SaveBytes(path, "new", "A title");
      return 0;
    } catch (const Failure& failure) {
      return failure.Number();
    }
  }

 private:
  fs::path folder_ = fs::temp_directory_path() / ("bytes_file_" + std::to_string(getpid()));
};

TEST_F(BytesFile, WritesAllBytesAsTheyAre) {
  const std::string bytes("a\0b\r\n\xFF", 6);
  SaveBytes(Path("new.bin"), bytes, "A title");
  EXPECT_EQ(Content(Path("new.bin")), bytes);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(BytesFile, AsksBeforeItOverwritesAndNoLeavesTheFile) {
  SaveBytes(Path("x.csv"), "old", "A title");
  SaveBytes(Path("x.csv"), "new", "A title");
  EXPECT_EQ(shownMessages.Lines(), std::vector<std::string>{"A title|Overwrite existing file?"});
  EXPECT_EQ(Content(Path("x.csv")), "old") << "No is the default";
  shownMessages.AnswerNext(MessageAnswer::kYes);
  SaveBytes(Path("x.csv"), "new", "A title");
  EXPECT_EQ(Content(Path("x.csv")), "new");
  EXPECT_FALSE(fs::exists(Path("x.csv~"))) << "the old one goes once the new one is whole";
}

TEST_F(BytesFile, ThatCannotBeWrittenIsToldByNumber) {
  fs::create_directory(Path("folder"));
  shownMessages.AnswerNext(MessageAnswer::kYes);
  EXPECT_EQ(FailureOf(Path("folder")), failure_number::kPathFileAccess);
  EXPECT_EQ(FailureOf(Path("none/x.csv")), failure_number::kPathNotFound);
  EXPECT_EQ(FailureOf("/dev/full"), failure_number::kPathFileAccess);
}

}  // namespace
}  // namespace halvorne::testing
