#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "fuzz/harnesses.h"

namespace halvorne::testing {
namespace {

struct Find {
  fuzz::Harness harness;
  std::filesystem::path file;

  friend void PrintTo(const Find& find, std::ostream* out) { *out << find.file; }
};

std::vector<Find> Corpus() {
  std::vector<Find> finds;
  for (const fuzz::Harness& harness : fuzz::Harnesses()) {
    const std::filesystem::path folder =
        std::filesystem::path(HALVORNE_SOURCE_DIR) / "fuzz" / "corpus" / harness.name;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      finds.push_back({harness, entry.path()});
    }
  }
  std::ranges::sort(finds, {}, &Find::file);
  return finds;
}

std::string NameOf(const ::testing::TestParamInfo<Find>& info) {
  std::string name =
      std::string(info.param.harness.name) + "_" + info.param.file.filename().string();
  std::ranges::replace_if(
      name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

class FuzzCorpus : public ::testing::TestWithParam<Find> {};

TEST_P(FuzzCorpus, BreaksNoPromise) {
  std::ifstream file(GetParam().file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  EXPECT_NO_THROW(GetParam().harness.run(bytes));
}

INSTANTIATE_TEST_SUITE_P(Replayed, FuzzCorpus, ::testing::ValuesIn(Corpus()), NameOf);

}  // namespace
}  // namespace halvorne::testing
