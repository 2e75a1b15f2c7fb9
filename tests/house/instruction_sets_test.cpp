#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <memory>
#include <regex>
#include <string>

// Files that are compiled for instructions which not every processor has must not bring forth code
// under a name that other files use too: the linker keeps one of the copies for all.

namespace halvorne::testing {
namespace {

/// What nm says of the engine's library, the names of its functions spelt out.
std::string SymbolsOfTheEngine() {
  const auto close = [](FILE* pipe) { ::pclose(pipe); };
  const std::unique_ptr<FILE, decltype(close)> pipe(
      ::popen("nm -C --defined-only '" HALVORNE_ENGINE_LIBRARY "'", "r"), close);
  std::string all;
  std::array<char, 4096> part{};
  while (pipe != nullptr && std::fgets(part.data(), part.size(), pipe.get()) != nullptr) {
    all += part.data();
  }
  return all;
}

TEST(InstructionSets, WideFilesShareNoCodeWithOthers) {
  const std::string symbols = SymbolsOfTheEngine();
  if (symbols.find("sweep_avx2.cpp") == std::string::npos) {
    GTEST_SKIP() << "no such files on this machine, or no nm";
  }
  static const std::regex member(R"((\w+)\.cpp\.o:)");
  static const std::regex sharedCode(R"(^[0-9a-f]* *W (.*)$)");
  static const std::regex ownName(R"(Pack<|packs::)");
  std::string file;
  int own = 0;
  std::size_t start = 0;
  while (start < symbols.size()) {
    const std::size_t end = symbols.find('\n', start);
    const std::string line = symbols.substr(start, end - start);
    start = end + 1;
    std::smatch match;
    if (std::regex_match(line, match, member)) {
      file = match[1];
    } else if (file.starts_with("sweep_avx") && std::regex_match(line, match, sharedCode)) {
      const std::string name = match[1];
      own += std::regex_search(name, ownName) ? 1 : 0;
      EXPECT_TRUE(std::regex_search(name, ownName)) << file << ".cpp shares " << name;
    }
  }
  EXPECT_GT(own, 10) << "the names were not found, so nothing was looked at";
}

}  // namespace
}  // namespace halvorne::testing
