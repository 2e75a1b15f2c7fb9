#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "fuzz/fuzzed_program.h"
#include "fuzz/harnesses.h"
#include "persistence/value_reader.h"
#include "platform/failure.h"
#include "platform/number_text.h"

namespace halvorne::fuzz {
namespace {

/// A text of fewer digits may read as more than any number.
constexpr double kNearlyLargest = 1.797693e308;

void PromiseClose(const std::string& text, double value, double error) {
  Promise(std::fabs(SafeVal(text) - value) <= error * std::fabs(value) + 5e-324,
          text + " is another number");
}

void ReadAsNumber(std::string_view text) {
  Promise(std::isfinite(SafeVal(text)), "a number out of a text is finite");
  Promise(std::isfinite(SafeVal(text, ",")), "a number out of a text is finite");
  try {
    Promise(std::isfinite(NumberOfText(text)), "a number out of a text is finite");
  } catch (const Failure&) {  // NOLINT(bugprone-empty-catch): most texts are none
  }
}

}  // namespace

void FuzzNumberText(std::string_view bytes) {
  double value = 0;
  if (bytes.size() <= sizeof value) {
    return;
  }
  std::memcpy(&value, bytes.data(), sizeof value);
  const auto length = static_cast<unsigned char>(bytes[sizeof value]);
  bytes.remove_prefix(sizeof value + 1);
  const std::string_view pattern = bytes.substr(0, length);
  ReadAsNumber(bytes.substr(pattern.size()));
  if (!std::isfinite(value)) {
    return;
  }
  Format(value, pattern);
  if (std::fabs(value) < kNearlyLargest) {
    PromiseClose(NumberText(value), value, 5.1e-15);
    PromiseClose(Format(value, "0.00000E+00"), value, 5.1e-6);
  }
  if (const auto single = static_cast<float>(value); std::isfinite(single)) {
    PromiseClose(NumberText(single), single, 5.1e-7);
  }
}

}  // namespace halvorne::fuzz
