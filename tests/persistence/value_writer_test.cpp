#include "persistence/value_writer.h"

#include <cerrno>
#include <limits>
#include <sys/stat.h>

#include "persistence/file_fixture.h"
#include "persistence/refused_calls.h"

namespace halvorne::testing {
namespace {

class ValueWriterTest : public FileTest {
 protected:
  template <class... Value>
  std::string LineOf(const Value&... values) {
    ValueWriter file(Path("out"));
    file.Line(values...);
    file.Close();
    return Get("out");
  }
};

TEST_F(ValueWriterTest, ValuesAreSeparatedBySingleCommasAndLinesEndInCrLf) {
  EXPECT_EQ(LineOf("text", std::int16_t{-3}, std::int32_t{70000}, 1.5F, 2.5, true, false),
            "\"text\",-3,70000,1.5,2.5,#TRUE#,#FALSE#\r\n");
}

TEST_F(ValueWriterTest, TextsKeepTheirBytes) {
  EXPECT_EQ(LineOf(std::string("a,'b'\xE4\xF6\t\r\n")), "\"a,'b'\xE4\xF6\t\r\n\"\r\n");
  EXPECT_EQ(LineOf(std::string()), "\"\"\r\n");
}

TEST_F(ValueWriterTest, ADoubleQuoteBecomesTwoSingleOnes) {
  EXPECT_EQ(LineOf(std::string("1/2\", 5 MHz disc")), "\"1/2'', 5 MHz disc\"\r\n");
  EXPECT_EQ(LineOf(std::string("\""), std::string("\"\"a\"")), "\"''\",\"''''a''\"\r\n");
  ValueWriter file(Path("out"));
  file.Texts({"5\"", "b"});
  file.Close();
  EXPECT_EQ(Get("out"), "\"5''\",\"b\"\r\n");
}

TEST_F(ValueWriterTest, NumbersHaveTheirGeneralForm) {
  EXPECT_EQ(LineOf(4.0F, 0.1F, 1e7F, 9999999.0F, 16777216.0F, 0.0001F, 0.00001F, 1.0F / 3),
            "4,0.1,1E+07,9999999,1.677722E+07,0.0001,1E-05,0.3333333\r\n");
  EXPECT_EQ(LineOf(4.0, 0.1, 1e7, 999999999999999.0, 1e15, 0.0001, 0.0015e-3, 1.0 / 3, -0.0),
            "4,0.1,10000000,999999999999999,1E+15,0.0001,1.5E-06,0.333333333333333,0\r\n");
}

TEST_F(ValueWriterTest, TheLargestNumberCanBeReadAgain) {
  constexpr double largest = std::numeric_limits<double>::max();
  EXPECT_EQ(LineOf(largest, -largest), "1.79769313486231E+308,-1.79769313486231E+308\r\n")
      << "rounded to 15 digits it would be more than any number";
  EXPECT_EQ(LineOf(std::numeric_limits<float>::max()), "3.402823E+38\r\n");
}

TEST_F(ValueWriterTest, WhatIsNoNumberIsNotWritten) {
  EXPECT_EQ(FailureOf([&] { LineOf(std::numeric_limits<double>::infinity()); }), 6);
  EXPECT_EQ(FailureOf([&] { LineOf(std::numeric_limits<double>::quiet_NaN()); }), 6);
  EXPECT_EQ(FailureOf([&] { LineOf(std::numeric_limits<float>::infinity()); }), 6);
}

TEST_F(ValueWriterTest, LinesWrittenBeforeAFailureStayOnDisk) {
  EXPECT_EQ(FailureOf([&] {
              ValueWriter file(Path("out"));
              file.Line(1.0);
              file.Line(std::numeric_limits<double>::infinity());
            }),
            6);
  EXPECT_EQ(Get("out"), "1\r\n");
}

TEST_F(ValueWriterTest, FilesLongerThanItsBlocksArriveWhole) {
  std::string expected;
  {
    ValueWriter file(Path("out"));
    for (std::int32_t i = 0; i < 50000; ++i) {
      file.Line(i, "x");
      expected += std::to_string(i) + ",\"x\"\r\n";
    }
    const std::string longText(300000, 'y');
    file.Texts({longText, "z"});
    expected += "\"" + longText + "\",\"z\"\r\n";
    file.Close();
  }
  EXPECT_EQ(Get("out"), expected);
}

TEST_F(ValueWriterTest, FilesThatCannotBeCreatedRaiseTheirNumber) {
  EXPECT_EQ(FailureOf([&] { ValueWriter(Path("no folder/out")); }), 76);
  EXPECT_EQ(FailureOf([&] { ValueWriter(Folder().string()); }), 75);
}

TEST_F(ValueWriterTest, AFullDiskIsToldOnceWhenTheFileIsClosed) {
  ValueWriter file(Path("out"));
  int failure = 0;
  {
    const FullDisk full(100000);
    for (std::int32_t i = 0; i < 50000; ++i) {
      file.Line(i);
    }
    failure = FailureOf([&] { file.Close(); });
  }
  EXPECT_EQ(failure, 75);
  EXPECT_EQ(Get("out").size(), 100000U) << "what fitted stays on disk";
}

TEST_F(ValueWriterTest, NothingIsWrittenBehindARefusal) {
  ValueWriter file(Path("out"));
  {
    const FullDisk full(100000);
    for (std::int32_t i = 0; i < 50000; ++i) {
      file.Line(i);
    }
  }
  for (std::int32_t i = 0; i < 50000; ++i) {
    file.Line(i);
  }
  EXPECT_EQ(FailureOf([&] { file.Close(); }), 75) << "the disk has room again, the file a hole";
  EXPECT_EQ(Get("out").size(), 100000U);
}

TEST_F(ValueWriterTest, AShortFileOnAFullDiskIsToldToo) {
  ValueWriter file(Path("out"));
  file.Line(1.0);
  const FullDisk full(0);
  EXPECT_EQ(FailureOf([&] { file.Close(); }), 75);
}

TEST_F(ValueWriterTest, WhatIsRefusedOnlyAtTheCloseIsToldToo) {
  ValueWriter file(Path("out"));
  file.Line(1.0);
  const FailingCloses failing(EIO);
  EXPECT_EQ(FailureOf([&] { file.Close(); }), 75);
}

TEST_F(ValueWriterTest, OfTwoRefusalsTheFirstIsTold) {
  ValueWriter file(Path("out"));
  file.Line(1.0);
  const FullDisk full(0);
  const FailingCloses failing(EACCES);  // by itself 70
  EXPECT_EQ(FailureOf([&] { file.Close(); }), 75);
}

TEST_F(ValueWriterTest, WhatIsNoRegularFileIsRefusedWithoutBeingWaitedFor) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  for (const std::string& name :
       {Path("pipe"), Folder().string(), std::string("/dev/full"), std::string("/dev/null")}) {
    EXPECT_EQ(FailureOf([&] { const ValueWriter file(name); }), 75) << name;
  }
}

}  // namespace
}  // namespace halvorne::testing
