#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>
#include <vector>

#include "bench_designs.h"
#include "engine/frequency_sweep.h"
#include "persistence/design_file.h"
#include "platform/number_text.h"
#include "quiet_program.h"
#include "subjects.h"

namespace halvorne::bench {
namespace {

/// A file of the largest design with its curves, gone when the program ends.
class SampleFile {
 public:
  SampleFile()
      : path_((std::filesystem::temp_directory_path() /
               ("halvorne-bench-" + std::to_string(::getpid()) + ".dat"))
                  .string()) {
    MakeLargestDesign();
    MainCalc();
    WriteDesignFile(path_);
  }
  ~SampleFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  SampleFile(const SampleFile&) = delete;
  SampleFile& operator=(const SampleFile&) = delete;

  const std::string& Path() const { return path_; }
  std::string Bytes() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string path_;
};

const SampleFile& Sample() {
  static const SampleFile file;
  return file;
}

/// Hands every number in the bytes to `take`.
template <class Take>
void ConvertNumbers(const std::string& bytes, Take take) {
  const char* at = bytes.data();
  const char* const end = at + bytes.size();
  while (at != end) {
    double value = 0;
    const bool mayBegin = (*at >= '0' && *at <= '9') || *at == '-' || *at == '.';
    const char* const next = mayBegin ? std::from_chars(at, end, value).ptr : at;
    if (next == at) {
      ++at;
    } else {
      at = next;
      take(value);
    }
  }
}

void BareFromChars(benchmark::State& state) {
  const std::string bytes = Sample().Bytes();
  for ([[maybe_unused]] auto once : state) {
    double sum = 0;
    ConvertNumbers(bytes, [&sum](double value) { sum += value; });
    benchmark::DoNotOptimize(sum);
  }
}

void ReadFile(benchmark::State& state) {
  const std::string& path = Sample().Path();
  for ([[maybe_unused]] auto once : state) {
    ReadDesignFile(path);
    benchmark::ClobberMemory();
  }
  CheckQuiet(state);
}

void BareToChars(benchmark::State& state) {
  std::vector<double> numbers;
  ConvertNumbers(Sample().Bytes(), [&numbers](double value) { numbers.push_back(value); });
  std::vector<char> memory(numbers.size() * (kNumberTextMax + 1));
  for ([[maybe_unused]] auto once : state) {
    char* at = memory.data();
    for (const double value : numbers) {
      at = std::to_chars(at, at + kNumberTextMax, value, std::chars_format::general, 15).ptr;
      *at++ = '\n';
    }
    benchmark::DoNotOptimize(at);
    benchmark::ClobberMemory();
  }
}

void WriteFile(benchmark::State& state) {
  const std::string& path = Sample().Path();
  ReadDesignFile(path);
  for ([[maybe_unused]] auto once : state) {
    WriteDesignFile(path);
  }
  CheckQuiet(state);
}

}  // namespace

std::vector<Row> DesignFileRows() {
  return {{"design file, read", 1.4, 0.9, BareFromChars, ReadFile},
          {"design file, written", 1.3, 0.6, BareToChars, WriteFile}};
}

}  // namespace halvorne::bench
