#include "persistence/plain_decimal.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace halvorne {
namespace {

constexpr double kBefore = 4711;

struct Found {
  double value = kBefore;
  long length = -1;
};

Found Read(std::string text) {
  text.append(kDecimalMargin, '\0');
  Found found;
  const char* const end = ReadPlainDecimal(text.data(), found.value);
  if (end != nullptr) {
    found.length = end - text.data();
  }
  return found;
}

/// What is taken at all has to be what the library reads, to the bit.
/// @return whether it was taken
bool AgreesWithTheLibrary(const std::string& number) {
  const Found found = Read(number + ",1");
  if (found.length < 0) {
    EXPECT_EQ(found.value, kBefore) << number;
    return false;
  }
  double expected = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), expected);
  EXPECT_TRUE(error == std::errc() && end == number.data() + number.size()) << number;
  EXPECT_EQ(std::bit_cast<std::uint64_t>(found.value), std::bit_cast<std::uint64_t>(expected))
      << number;
  EXPECT_EQ(found.length, static_cast<long>(number.size())) << number;
  return true;
}

TEST(PlainDecimal, TakesTheFormsThatFilesAreFullOf) {
  for (const char* number : {"0",
                             "-0",
                             "7",
                             "-12",
                             "1.5",
                             "-0.5",
                             ".5",
                             "5.",
                             "-.25",
                             "12345678",
                             "123456789",
                             "1234567.8",
                             "12345678.9",
                             "0.12345678",
                             "0.123456789012345",
                             "9007199254740992",
                             "0.000123456789012345",
                             "1E+07",
                             "1.5E-03",
                             "1e7",
                             "-2.5e2",
                             "9.99999999999999E-08",
                             "1E22",
                             "1E-22",
                             "0.000000000000000001",
                             "0000000000000000001"}) {
    EXPECT_TRUE(AgreesWithTheLibrary(number)) << number;
  }
}

TEST(PlainDecimal, StopsAtEachKindOfSeparator) {
  for (const char* text : {"12.5,", "12.5\r\n", "12.5\n"}) {
    EXPECT_EQ(Read(text).value, 12.5);
    EXPECT_EQ(Read(text).length, 4);
  }
}

TEST(PlainDecimal, LeavesEverythingElseToOthers) {
  for (const char* text : {"",
                           ",",
                           ".",
                           ".,",
                           "-,",
                           "+5,",
                           "--5,",
                           "E5,",
                           "1E,",
                           "1E+,",
                           "1E1234,",
                           "1.2.3,",
                           "1E5.5,",
                           "12 ,",
                           "12",
                           "12abc,",
                           "1 2,",
                           "0x10,",
                           "inf,",
                           "nan,",
                           "\"12\",",
                           "1E23,",
                           "1E-23,",
                           "9007199254740993,",
                           "12345678901234567890,",
                           "0.00000000000000000001,",
                           "1:2,",
                           "1/2,"}) {
    const Found found = Read(text);
    EXPECT_EQ(found.length, -1) << text;
    EXPECT_EQ(found.value, kBefore) << text;
  }
  for (int c = 1; c < 256; ++c) {
    if (std::string_view("0123456789.,\r\nEe").find(static_cast<char>(c)) == std::string::npos) {
      EXPECT_EQ(Read(std::string("1234") + static_cast<char>(c) + "56,").length, -1) << c;
    }
  }
}

TEST(PlainDecimal, ReadsWhatTheProgramWritesAsTheLibraryDoes) {
  std::mt19937_64 random(11);
  long taken = 0;
  constexpr int kTrials = 1000000;
  for (int trial = 0; trial < kTrials; ++trial) {
    const double value =
        std::ldexp(static_cast<double>(random()), -40 - static_cast<int>(random() % 50));
    char text[64];
    char* const end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15).ptr;
    taken += AgreesWithTheLibrary(std::string(text, end)) ? 1 : 0;
  }
  EXPECT_GT(taken, kTrials * 9 / 10) << "the short way is the common one";
}

TEST(PlainDecimal, NeverDiffersFromTheLibraryWhateverTheBits) {
  std::mt19937_64 random(12);
  for (int trial = 0; trial < 1000000; ++trial) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) {
      continue;
    }
    char text[400];
    const int digits = 1 + static_cast<int>(random() % 19);
    char* const end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits).ptr;
    AgreesWithTheLibrary(std::string(text, end));
  }
}

TEST(PlainDecimal, NeverDiffersFromTheLibraryWhateverTheDigits) {
  std::mt19937_64 random(13);
  for (int trial = 0; trial < 1000000; ++trial) {
    std::string text = random() % 2 == 0 ? "-" : "";
    const int digits = 1 + static_cast<int>(random() % 21);
    const int point = static_cast<int>(random() % 23);
    for (int i = 0; i < digits; ++i) {
      text += i == point ? "." : "";
      text += static_cast<char>('0' + random() % 10);
    }
    if (random() % 3 == 0) {
      text += "E" + std::to_string(static_cast<int>(random() % 60) - 30);
    }
    AgreesWithTheLibrary(text);
  }
}

}  // namespace
}  // namespace halvorne
