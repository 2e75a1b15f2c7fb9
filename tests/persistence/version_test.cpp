#include "persistence/version.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace halvorne::testing {
namespace {

TEST(Version, TheProgramsVersionIsThatOfTheBuild) {
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
