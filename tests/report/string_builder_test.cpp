#include "report/string_builder.h"

#include <gtest/gtest.h>

#include "platform/failure.h"

namespace halvorne {
namespace {

constexpr std::int32_t kChunk = 8192;

template <class Action>
int FailureOf(Action action) {
  try {
    action();
    return 0;
  } catch (const Failure& failure) {
    return failure.Number();
  }
}

TEST(StringBuilder, AFreshBufferIsEmptyAndAllocatesNothing) {
  const cStringBuilder text;
  EXPECT_EQ(text.ToString(), "");
  EXPECT_EQ(text.Length(), 0);
  EXPECT_EQ(text.Capacity(), 0);
  EXPECT_EQ(text.ChunkSize(), kChunk);
}

TEST(StringBuilder, AnAppendWithoutSpareRoomAllocatesOneChunkEvenForOneCharacter) {
  cStringBuilder text;
  text.Append("a");
  EXPECT_EQ(text.Capacity(), kChunk);
  text.Append(std::string(kChunk - 1, 'b'));
  EXPECT_EQ(text.Capacity(), kChunk) << "the first chunk is just full";
  text.Append("c");
  EXPECT_EQ(text.Capacity(), 2 * kChunk);
  EXPECT_EQ(text.Length(), kChunk + 1);
}

TEST(StringBuilder, AnAppendLongerThanOneChunkDoesNotOverrun) {
  cStringBuilder text;
  text.SetChunkSize(10);
  text.Append("ab");
  const std::string longText(35, 'x');
  text.Append(longText);
  EXPECT_EQ(text.ToString(), "ab" + longText);
  EXPECT_EQ(text.Capacity(), 40);
}

TEST(StringBuilder, AppendsStandOneBehindTheOther) {
  cStringBuilder text;
  std::string expected;
  for (int i = 0; i < 5000; ++i) {
    text.Append(std::to_string(i));
    text.AppendByVal("\t");
    text.Append("");
    expected += std::to_string(i) + "\t";
  }
  EXPECT_EQ(text.ToString(), expected);
  EXPECT_EQ(text.Length(), static_cast<std::int32_t>(expected.size()));
}

TEST(StringBuilder, InsertMovesTheTailUp) {
  cStringBuilder text;
  text.SetChunkSize(4);
  text.Insert(0, "ad");
  text.InsertByVal(1, "bc");
  text.Insert(4, "e");
  text.Insert(0, "0123456789");
  EXPECT_EQ(text.ToString(), "0123456789abcde");
  EXPECT_EQ(text.Capacity(), 16);
}

TEST(StringBuilder, InsertBeyondTheUsedPartRaises9) {
  cStringBuilder text;
  text.Append("abc");
  EXPECT_EQ(FailureOf([&] { text.Insert(4, "x"); }), 9);
  EXPECT_EQ(FailureOf([&] { text.Insert(-1, "x"); }), 9);
  EXPECT_EQ(text.ToString(), "abc");
}

TEST(StringBuilder, RemoveMovesTheTailDown) {
  cStringBuilder text;
  text.Append("abcdef");
  text.Remove(1, 2);
  EXPECT_EQ(text.ToString(), "adef");
  text.Remove(4, 0);
  text.Remove(3, 1);
  EXPECT_EQ(text.ToString(), "ade");
  text.Remove(0, 3);
  EXPECT_EQ(text.ToString(), "");
  EXPECT_EQ(text.Capacity(), kChunk) << "the allocation stays";
}

TEST(StringBuilder, RemoveBeyondTheUsedPartRaises9) {
  cStringBuilder text;
  text.Append("abc");
  EXPECT_EQ(FailureOf([&] { text.Remove(0, 4); }), 9);
  EXPECT_EQ(FailureOf([&] { text.Remove(3, 1); }), 9);
  EXPECT_EQ(FailureOf([&] { text.Remove(4, 0); }), 9);
  EXPECT_EQ(FailureOf([&] { text.Remove(-1, 1); }), 9);
  EXPECT_EQ(FailureOf([&] { text.Remove(1, -1); }), 9);
  EXPECT_EQ(FailureOf([&] { text.Remove(2147483647, 2147483647); }), 9);
  EXPECT_EQ(text.ToString(), "abc");
}

TEST(StringBuilder, HeapMinimizeLeavesAtMostOneChunkSpare) {
  cStringBuilder text;
  text.SetChunkSize(10);
  text.Append(std::string(45, 'x'));
  text.Remove(12, 33);
  ASSERT_EQ(text.Capacity(), 50);
  text.HeapMinimize();
  EXPECT_EQ(text.Capacity(), 20) << "30 would leave 18 spare, 20 leaves 8";
  EXPECT_EQ(text.ToString(), std::string(12, 'x'));
  text.HeapMinimize();
  EXPECT_EQ(text.Capacity(), 20) << "nothing to give back";
}

TEST(StringBuilder, HeapMinimizeLeavesASpareOfExactlyOneChunk) {
  cStringBuilder text;
  text.SetChunkSize(10);
  text.Append(std::string(20, 'x'));
  text.Remove(10, 10);
  text.HeapMinimize();
  EXPECT_EQ(text.Capacity(), 20);
}

TEST(StringBuilder, TheStringReplacesTheContents) {
  cStringBuilder text;
  text.SetChunkSize(10);
  text.Append("something long enough");
  text.SetTheString("short");
  EXPECT_EQ(text.ToString(), "short");
  EXPECT_EQ(text.Length(), 5);
  EXPECT_EQ(text.Capacity(), 30) << "the allocation only grows";
  text.SetTheString(std::string(31, 'y'));
  EXPECT_EQ(text.ToString(), std::string(31, 'y'));
  EXPECT_EQ(text.Capacity(), 40) << "chunk by chunk until it fits";
  text.SetTheString("");
  EXPECT_EQ(text.ToString(), "");
  EXPECT_EQ(text.Capacity(), 0) << "an empty text clears the allocation too";
}

TEST(StringBuilder, FindGivesTheFirstPositionFromStartOn) {
  cStringBuilder text;
  text.Append("abcABCabc");
  EXPECT_EQ(text.Find("bc"), 2);
  EXPECT_EQ(text.Find("bc", 3), 8);
  EXPECT_EQ(text.Find("bc", 3, 1), 5) << "without case";
  EXPECT_EQ(text.Find("a", 0), 1);
  EXPECT_EQ(text.Find("a", -7), 1) << "below 1 means the beginning";
  EXPECT_EQ(text.Find("c", 9), 9);
  EXPECT_EQ(text.Find("x"), 0);
  EXPECT_EQ(text.Find("a", 10), 0);
  EXPECT_EQ(text.Find("abcABCabcd"), 0);
}

TEST(StringBuilder, FindSeesNothingBehindTheUsedPart) {
  cStringBuilder text;
  text.Append("ab  ");
  text.Remove(2, 2);
  EXPECT_EQ(text.Find(" "), 0) << "the spare room is blank";
  EXPECT_EQ(text.Find("b "), 0);
}

TEST(StringBuilder, AChunkHoldsAtLeastOneCharacter) {
  cStringBuilder text;
  EXPECT_EQ(FailureOf([&] { text.SetChunkSize(0); }), 5);
  EXPECT_EQ(text.ChunkSize(), kChunk);
  text.SetChunkSize(1);
  text.Append("abc");
  EXPECT_EQ(text.Capacity(), 3);
}

}  // namespace
}  // namespace halvorne
