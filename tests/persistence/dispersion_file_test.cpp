#include "persistence/dispersion_file.h"

#include <algorithm>
#include <array>

#include "engine/design_model.h"
#include "persistence/file_fixture.h"

namespace halvorne::testing {
namespace {

constexpr std::array kSlots = {0, 11};

class DispersionFiles : public FileTest {
 protected:
  DispersionFiles() { MakeSimpleDesign(); }

  static bool Read(const std::string& path) {
    return ReadDispersionFile(path, "Open Velocity Dispersion File", kSlots);
  }
  /// Expects the box of a failed read, its only one.
  void ExpectBox(const std::string& path, int number) {
    shownMessages.Forget();
    EXPECT_FALSE(Read(path));
    ASSERT_EQ(shownMessages.Shown().size(), 1U);
    EXPECT_EQ(shownMessages.Lines().at(0),
              "Open Velocity Dispersion File|The following error occured: \r\nError # " +
                  std::to_string(number) + "\r\n" + FailureDescription(number));
    EXPECT_EQ(shownMessages.Shown().at(0).icon, MessageIcon::kCritical);
  }
  void ExpectBoxForBytes(const std::string& bytes, int number) {
    ExpectBox(Put("bad.csv", bytes), number);
  }
};

TEST_F(DispersionFiles, FillTheirSlotsFromPointZeroOnAndNoOther) {
  Read(Put("a.csv", "epoxy, 2 layers\r\n0.9\r\n0.95\r\n"));
  for (const int slot : kSlots) {
    EXPECT_EQ(design.VelDispNames(slot, 0), "a.csv") << "the name has no folder";
    EXPECT_EQ(design.VelDispNames(slot, 1), "epoxy, 2 layers");
    EXPECT_EQ(design.VelDisp(slot, 0), 0.9);
    EXPECT_EQ(design.VelDisp(slot, 1), 0.95);
    EXPECT_EQ(design.VelDisp(slot, 2), 1) << "points that the file lacks stay";
  }
  EXPECT_EQ(design.VelDisp(1, 0), 1);
  EXPECT_EQ(design.VelDispNames(12, 1), "blank");
}

TEST_F(DispersionFiles, AShorterFileLeavesTheLaterPointsOfTheOneBefore) {
  Read(Put("long.csv", "long\n2\n3\n4\n"));
  Read(Put("short.csv", "short\n5\n"));
  EXPECT_EQ(design.VelDisp(11, 0), 5);
  EXPECT_EQ(design.VelDisp(11, 1), 3);
  EXPECT_EQ(design.VelDisp(11, 2), 4);
}

TEST_F(DispersionFiles, LinesBehindIndex16000AreNotLookedAt) {
  std::string bytes = "many\n";
  for (int k = 0; k <= 16000; ++k) {
    bytes += std::to_string(k + 1) + "\n";
  }
  EXPECT_TRUE(Read(Put("many.csv", bytes + "no number\n")));
  EXPECT_EQ(design.VelDisp(0, 15999), 16000);
  EXPECT_EQ(design.VelDisp(0, 16000), 16001);
}

TEST_F(DispersionFiles, AFileWithoutALineStoresNothing) {
  ExpectBoxForBytes("", 62);
  EXPECT_EQ(design.VelDispNames(0, 1), "blank");
  ExpectBox(Path("missing.csv"), 53);
  ExpectBox(Path("no/folder.csv"), 76);
  ExpectBox(Folder().string(), 75);
  EXPECT_EQ(design.VelDispNames(0, 0), "blank");
}

TEST_F(DispersionFiles, ACommentAloneIsAWholeFile) {
  Read(Put("bare.csv", "only words"));
  EXPECT_EQ(design.VelDispNames(11, 1), "only words");
  EXPECT_EQ(design.VelDisp(11, 0), 1);
}

TEST_F(DispersionFiles, ABadLineKeepsThePointsBeforeItWithNameAndComment) {
  for (const auto& [line, number] :
       {std::pair{"0,97", 13}, {"1E999", 6}, {"", 13}, {"x", 13}, {"0.9;0.8", 13}}) {
    MakeSimpleDesign();
    ExpectBoxForBytes("cut off\n0.5\n" + std::string(line) + "\n0.7\n", number);
    EXPECT_EQ(design.VelDisp(0, 0), 0.5) << line;
    EXPECT_EQ(design.VelDisp(11, 0), 0.5) << line;
    EXPECT_EQ(design.VelDisp(0, 1), 1) << line;
    EXPECT_EQ(design.VelDisp(0, 2), 1) << "nothing behind the bad line is read";
    EXPECT_EQ(design.VelDispNames(0, 0), "bad.csv");
    EXPECT_EQ(design.VelDispNames(11, 1), "cut off");
  }
}

TEST_F(DispersionFiles, AnyLineEndAndAByteOrderMarkAreTaken) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    design.VelDisp(0, 1) = 1;
    EXPECT_TRUE(Read(Put("a.csv", "\xEF\xBB\xBFwords" + end + "0.5" + end + " 0.25" + end)));
    EXPECT_EQ(design.VelDispNames(0, 1), "words");
    EXPECT_EQ(design.VelDisp(0, 1), 0.25);
  }
}

TEST_F(DispersionFiles, BinaryAndHugeFilesAreRefusedAtTheirFirstLine) {
  std::string bytes("\x7F\x45\x4C\x46\x02\0\0\n\0\x01\x80\xFF\n", 13);
  ExpectBoxForBytes(bytes, 13);
  ExpectBoxForBytes("ten megabytes\n" + std::string(10'000'000, '7'), 6);
  ExpectBoxForBytes("ten megabytes\n" + std::string(10'000'000, 'x'), 13);
}

TEST_F(DispersionFiles, TakingAFileOutMakesItsSlotNeutral) {
  Read(Put("a.csv", "words\n0.5\n"));
  ClearDispersion(11);
  EXPECT_EQ(design.VelDispNames(11, 0), "");
  EXPECT_EQ(design.VelDispNames(11, 1), "");
  EXPECT_TRUE(std::ranges::all_of(design.VelDisp.rows(11), [](double f) { return f == 1; }));
  EXPECT_EQ(design.VelDisp(0, 0), 0.5) << "only its slot";
}

}  // namespace
}  // namespace halvorne::testing
