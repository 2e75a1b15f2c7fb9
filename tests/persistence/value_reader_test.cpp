#include "persistence/value_reader.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <sys/stat.h>
#include <vector>

#include "persistence/file_fixture.h"

namespace halvorne::testing {
namespace {

class ValueReaderTest : public FileTest {
 protected:
  ValueReader Open(const std::string& bytes) { return ValueReader(Put("values", bytes)); }

  template <class Value>
  Value One(const std::string& bytes) {
    ValueReader file = Open(bytes);
    Value value{};
    file.Read(value);
    return value;
  }
  template <class Value>
  int FailureOfOne(const std::string& bytes) {
    return FailureOf([&] { One<Value>(bytes); });
  }
};

TEST_F(ValueReaderTest, TakesAllCommonDecimalForms) {
  const std::vector<std::pair<std::string, double>> forms = {
      {"0", 0},
      {"-0", 0},
      {"7", 7},
      {"+7", 7},
      {"-7", -7},
      {"007", 7},
      {"0.5", 0.5},
      {".5", 0.5},
      {"-.5", -0.5},
      {"+.5", 0.5},
      {"5.", 5},
      {"1E+07", 1e7},
      {"1e7", 1e7},
      {"1.5E-03", 1.5e-3},
      {"1.5e-3", 1.5e-3},
      {"-2.5E2", -250},
      {"0.E5", 0},
      {"1E308", 1e308},
      {"1E-310", 1e-310},
      {"123456789012345678", 123456789012345678.0},
      {"0.1234567890123456789", 0.1234567890123456789}};
  for (const auto& [text, value] : forms) {
    EXPECT_EQ(One<double>(text), value) << text;
  }
}

TEST_F(ValueReaderTest, ReadsEveryNumberAsTheNearestDouble) {
  std::mt19937_64 random(7);
  std::string text;
  std::vector<double> expected;
  for (int i = 0; i < 20000; ++i) {
    char digits[64];
    const int places = static_cast<int>(random() % 18);
    const double magnitude = static_cast<double>(random() % 1000000000000000ULL) *
                             std::pow(10.0, -static_cast<int>(random() % 19));
    std::snprintf(digits, sizeof digits, "%s%.*f", random() % 2 == 0 ? "-" : "", places, magnitude);
    expected.push_back(std::strtod(digits, nullptr));
    text += std::string(digits) + (random() % 2 == 0 ? "," : "\r\n");
  }
  ValueReader file = Open(text);
  for (const double value : expected) {
    double read = 0;
    file.Read(read);
    ASSERT_EQ(read, value);
  }
}

TEST_F(ValueReaderTest, RefusesWhatIsNoNumber) {
  for (const std::string text :
       {"abc", "12abc", "\"12\"", "inf", "nan",   "-inf", "+-5",  "-+5", "--5",    ".",  "-",
        "+",   "E5",    "1E",     "1E+", "1.2.3", "0x10", "&H10", "1 2", "#TRUE#", "1D5"}) {
    EXPECT_EQ(FailureOfOne<double>(text), 13) << text;
  }
  EXPECT_EQ(FailureOfOne<double>(std::string("1\0", 2)), 13) << "a NUL byte is no separator";
}

TEST_F(ValueReaderTest, AnEmptyNumberIsAFailure) {
  EXPECT_EQ(FailureOfOne<double>(",5"), 13);
}

TEST_F(ValueReaderTest, NumbersBeyondTheRangeOverflowAndTinyOnesAreZero) {
  for (const char* text :
       {"1E999", "-1E999", "1E+99999999999999999999", "1000000E305", ".001E312"}) {
    EXPECT_EQ(FailureOfOne<double>(text), 6) << text;
  }
  EXPECT_EQ(FailureOfOne<double>(std::string(400, '9')), 6);
  EXPECT_EQ(FailureOfOne<double>(std::string(400, '9') + "E-001"), 6);
  for (const char* text :
       {"1E-999", "-1E-999", "1E-99999999999999999999", "0.0001E-322", "100E-340"}) {
    EXPECT_EQ(One<double>(text), 0) << text;
  }
  EXPECT_EQ(One<double>("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(One<double>("0." + std::string(400, '0') + "1E+001"), 0);
  EXPECT_EQ(FailureOfOne<float>("1E39"), 6);
}

TEST_F(ValueReaderTest, DigitsAndExponentTogetherTellWhetherANumberIsBeyondTheRange) {
  const std::string zeros(330, '0');
  EXPECT_EQ(FailureOfOne<double>("0." + zeros + "1E640"), 6) << "10 to the 309";
  EXPECT_EQ(One<double>("1" + zeros + "E-660"), 0) << "10 to the -330";
  EXPECT_DOUBLE_EQ(One<double>("0." + zeros + "1E632"), 1e301);
  EXPECT_DOUBLE_EQ(One<double>("1" + zeros + "E-630"), 1e-300);
}

TEST_F(ValueReaderTest, IntegersRoundHalfToEvenAndKeepTheirRange) {
  EXPECT_EQ(One<std::int16_t>("2.5"), 2);
  EXPECT_EQ(One<std::int16_t>("3.5"), 4);
  EXPECT_EQ(One<std::int32_t>("-2.5"), -2);
  EXPECT_EQ(One<std::int16_t>("-32768"), -32768);
  EXPECT_EQ(FailureOfOne<std::int16_t>("32768"), 6);
  EXPECT_EQ(One<std::int32_t>("2147483647"), 2147483647);
  EXPECT_EQ(FailureOfOne<std::int32_t>("2147483648"), 6);
}

TEST_F(ValueReaderTest, TruthValues) {
  EXPECT_TRUE(One<bool>("#TRUE#"));
  EXPECT_FALSE(One<bool>("#FALSE#\r\n"));
  EXPECT_TRUE(One<bool>(" #TRUE# ,1"));
  EXPECT_TRUE(One<bool>("-1"));
  EXPECT_FALSE(One<bool>("0"));
  for (const char* text : {"1", "2", "True", "#MAYBE#", "#", "\"#TRUE#\"", "-0.5"}) {
    EXPECT_EQ(FailureOfOne<bool>(text), 13) << text;
  }
}

TEST_F(ValueReaderTest, TextsEndAtTheirClosingQuoteWithEveryByteKept) {
  std::string bytes;
  for (int c = 1; c < 256; ++c) {
    if (c != '"') {
      bytes += static_cast<char>(c);
    }
  }
  EXPECT_EQ(One<std::string>("\"" + bytes + "\"\r\n"), bytes);
  EXPECT_EQ(One<std::string>("\"[ Zfront Re, Im ]\""), "[ Zfront Re, Im ]");
  EXPECT_EQ(One<std::string>("\"\""), "");
  EXPECT_EQ(One<std::string>("\" x \""), " x ");
}

TEST_F(ValueReaderTest, AQuoteInsideATextEndsItAndTheRestOfTheValueIsDropped) {
  ValueReader file = Open("\"a \"b\" c\",5\r\n\"\"twice\"\"\r\n6");
  std::string first;
  std::string second;
  std::int32_t five = 0;
  std::int32_t six = 0;
  file.Line(first, five, second, six);
  EXPECT_EQ(first, "a ");
  EXPECT_EQ(five, 5);
  EXPECT_EQ(second, "");
  EXPECT_EQ(six, 6);
}

TEST_F(ValueReaderTest, ATextWithoutQuotesGoesUpToCommaOrLineEnd) {
  ValueReader file = Open("  two words,third \r\nit's \"odd\"\n,x");
  std::string texts[5];
  file.Line(texts[0], texts[1], texts[2], texts[3], texts[4]);
  EXPECT_EQ(texts[0], "two words");
  EXPECT_EQ(texts[1], "third ");
  EXPECT_EQ(texts[2], "it's \"odd\"");
  EXPECT_EQ(texts[3], "") << "nothing before a comma is an empty text";
  EXPECT_EQ(texts[4], "x");
}

TEST_F(ValueReaderTest, ALoneQuoteReachesTheEndOfTheFile) {
  EXPECT_EQ(FailureOfOne<std::string>("\"never closed\r\n1,2,3"), 62);
  EXPECT_EQ(FailureOfOne<double>("\"never closed"), 62);
}

TEST_F(ValueReaderTest, LineEndsOfAnyKindAndEmptyLinesMeanNothingBetweenValues) {
  ValueReader file = Open("\xEF\xBB\xBF\r\n\n\r  1\n2\r3\r\n\t4 , 5,\r\n6\n\n\r\n\"x\"\r\r7");
  double n[7];
  std::string text;
  file.Line(n[0], n[1], n[2], n[3], n[4], n[5], text, n[6]);
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(n[i], i + 1);
  }
  EXPECT_EQ(text, "x");
}

TEST_F(ValueReaderTest, AFailedValueIsUsedUpAndItsTargetKept) {
  ValueReader file = Open("abc,\"a,b\",99999,#X#,5");
  double number = 7;
  std::int16_t integer = 8;
  bool truth = true;
  EXPECT_EQ(FailureOf([&] { file.Read(number); }), 13);
  EXPECT_EQ(FailureOf([&] { file.Read(number); }), 13);
  EXPECT_EQ(FailureOf([&] { file.Read(integer); }), 6);
  EXPECT_EQ(FailureOf([&] { file.Read(truth); }), 13);
  EXPECT_EQ(number, 7);
  EXPECT_EQ(integer, 8);
  EXPECT_TRUE(truth);
  file.Read(number);
  EXPECT_EQ(number, 5);
  EXPECT_EQ(FailureOf([&] { file.Read(number); }), 62);
  EXPECT_EQ(FailureOf([&] { file.Read(number); }), 62) << "the end of the file stays";
}

TEST_F(ValueReaderTest, AnEmptyFileHasNoValue) {
  EXPECT_EQ(FailureOfOne<double>(""), 62);
  EXPECT_EQ(FailureOfOne<std::string>(" \r\n\r\n"), 62);
}

TEST_F(ValueReaderTest, FilesThatCannotBeReadRaiseTheirNumber) {
  EXPECT_EQ(FailureOf([&] { ValueReader(Path("missing")); }), 53);
  EXPECT_EQ(FailureOf([&] { ValueReader(Path("no folder/missing")); }), 76);
  EXPECT_EQ(FailureOf([&] { ValueReader(Folder().string()); }), 75) << "a folder is no file";
  Put("file", "1");
  EXPECT_EQ(FailureOf([&] { ValueReader(Path("file/below")); }), 76);
  EXPECT_EQ(FailureOf([&] { ValueReader(""); }), 53);
}

TEST_F(ValueReaderTest, FilesWithoutTheRightToReadRaise70) {
  if (geteuid() == 0) {
    GTEST_SKIP() << "root may read everything";
  }
  std::filesystem::permissions(Put("mine", "1"), std::filesystem::perms::none);
  EXPECT_EQ(FailureOf([&] { ValueReader(Path("mine")); }), 70);
}

TEST_F(ValueReaderTest, WhatIsNoRegularFileIsRefusedWithoutBeingWaitedFor) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  for (const std::string& name : {Path("pipe"), std::string("/dev/zero"), std::string("/dev/null"),
                                  std::string("/dev/full")}) {
    EXPECT_EQ(FailureOf([&] { const ValueReader file(name); }), 75) << name;
  }
}

TEST_F(ValueReaderTest, AGiantFileIsReadInPartOnly) {
  Put("giant", "");
  std::filesystem::resize_file(Path("giant"), std::uintmax_t{3} << 30);
  ValueReader file(Path("giant"));
  double number = 7;
  EXPECT_EQ(FailureOf([&] { file.Read(number); }), 13);
  EXPECT_EQ(FailureOf([&] { file.Read(number); }), 62);
}

TEST_F(ValueReaderTest, AFileThatTellsNoSizeIsRead) {
  ValueReader file("/proc/self/status");
  std::string first;
  file.Read(first);
  EXPECT_TRUE(first.starts_with("Name:")) << first;
}

}  // namespace
}  // namespace halvorne::testing
