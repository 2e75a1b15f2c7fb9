#include "persistence/side_file.h"

#include <sys/stat.h>

#include "engine/design_model.h"
#include "persistence/complex_load_file.h"
#include "persistence/excitation_file.h"
#include "persistence/file_fixture.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

std::string BoxText(const std::string& title, int number, const std::string& description) {
  return title + "|The following error occured: \r\nError # " + std::to_string(number) + "\r\n" +
         description;
}

class LoadFile : public FileTest {
 protected:
  LoadFile() {
    design.ZFrontComment = design.ZBackComment = "before";
    for (FreqCurve* curve :
         {&design.ZFrontNormRe, &design.ZFrontNormIm, &design.ZBackNormRe, &design.ZBackNormIm}) {
      std::fill(curve->begin(), curve->end(), 7.0);
    }
  }

  /// Title of the front side's box with what a reading failure says.
  static std::string FrontBox(int number, const std::string& description) {
    return BoxText("open Front Acoustic Load file", number, description);
  }
};

TEST_F(LoadFile, EachLineIsAPointOfItsSide) {
  EXPECT_TRUE(ReadFrontLoadFile(Put("a.lac", "Water, 20 C\r\n0.5,-0.25\r\n1,2e-1\r\n")));
  EXPECT_EQ(design.ZFrontComment, "Water, 20 C") << "commas are part of the comment";
  EXPECT_EQ(design.ZFrontNormRe(0), 0.5);
  EXPECT_EQ(design.ZFrontNormIm(0), -0.25);
  EXPECT_EQ(design.ZFrontNormRe(1), 1);
  EXPECT_EQ(design.ZFrontNormIm(1), 0.2);
  EXPECT_EQ(design.ZFrontNormRe(2), 7) << "points without a line keep their values";
  EXPECT_EQ(design.ZBackComment, "before");
  EXPECT_EQ(design.ZBackNormRe(0), 7);

  EXPECT_TRUE(ReadRearLoadFile(Put("b.lac", "Tungsten\n3,4")));
  EXPECT_EQ(design.ZBackComment, "Tungsten");
  EXPECT_EQ(design.ZBackNormRe(0), 3);
  EXPECT_EQ(design.ZBackNormIm(0), 4);
  EXPECT_EQ(design.ZFrontNormRe(0), 0.5);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(LoadFile, LineEndsOfAnyKindAndAByteOrderMarkAreTaken) {
  for (const char* end : {"\n", "\r", "\r\n"}) {
    design.ZFrontNormRe(1) = 7;
    const std::string text =
        std::string("\xEF\xBB\xBF") + "Words" + end + "1,2" + end + " +3 , -.5e1 " + end;
    EXPECT_TRUE(ReadFrontLoadFile(Put("a.lac", text)));
    EXPECT_EQ(design.ZFrontComment, "Words");
    EXPECT_EQ(design.ZFrontNormRe(1), 3);
    EXPECT_EQ(design.ZFrontNormIm(1), -5);
    EXPECT_EQ(design.ZFrontNormRe(2), 7);
  }
}

// A field that is not there is the line again.
TEST_F(LoadFile, LineWithoutACommaIsBothParts) {
  EXPECT_TRUE(ReadFrontLoadFile(Put("a.lac", "c\r\n0.75\r\n")));
  EXPECT_EQ(design.ZFrontNormRe(0), 0.75);
  EXPECT_EQ(design.ZFrontNormIm(0), 0.75);
}

TEST_F(LoadFile, FurtherFieldsOfALineMeanNothing) {
  EXPECT_TRUE(ReadFrontLoadFile(Put("a.lac", "c\r\n1,2,three\r\n")));
  EXPECT_EQ(design.ZFrontNormIm(0), 2);
}

TEST_F(LoadFile, LineThatIsNoNumberEndsTheReadWithThePointsSoFar) {
  for (const char* bad : {"ohms,1", "1,ohms", "1.5.2,0", "", "inf,0", "1,nan", "0x1,2", "1 2,3"}) {
    shownMessages.Forget();
    design.ZFrontNormRe(1) = design.ZFrontNormIm(1) = design.ZFrontNormRe(2) = 7;
    EXPECT_FALSE(ReadFrontLoadFile(Put("a.lac", std::string("Half\n4,5\n") + bad + "\n8,9\n")));
    EXPECT_EQ(shownMessages.Lines(), Lines{FrontBox(13, "Type mismatch")}) << bad;
    EXPECT_EQ(shownMessages.Shown().at(0).icon, MessageIcon::kCritical);
    EXPECT_EQ(design.ZFrontComment, "Half");
    EXPECT_EQ(design.ZFrontNormRe(0), 4) << "what was read before stays";
    EXPECT_EQ(design.ZFrontNormIm(0), 5);
    EXPECT_EQ(design.ZFrontNormRe(1), 7) << "no half of a point is taken: " << bad;
    EXPECT_EQ(design.ZFrontNormIm(1), 7) << bad;
    EXPECT_EQ(design.ZFrontNormRe(2), 7) << "the read has ended";
  }
}

TEST_F(LoadFile, DecimalCommasMakeFourFieldsOfTwo) {
  EXPECT_TRUE(ReadFrontLoadFile(Put("a.lac", "c\r\n0,5,0,25\r\n")));
  EXPECT_EQ(design.ZFrontNormRe(0), 0) << "the comma parts fields and nothing else";
  EXPECT_EQ(design.ZFrontNormIm(0), 5);
}

TEST_F(LoadFile, NumberBeyondAllBoundsOverflows) {
  EXPECT_FALSE(ReadFrontLoadFile(Put("a.lac", "c\r\n1,1E999\r\n")));
  EXPECT_EQ(shownMessages.Lines(), Lines{FrontBox(6, "Overflow")});
  shownMessages.Forget();
  EXPECT_TRUE(ReadFrontLoadFile(Put("a.lac", "c\r\n1,1E-999\r\n")));
  EXPECT_EQ(design.ZFrontNormIm(0), 0) << "too small a number is nothing";
}

TEST_F(LoadFile, The16001stLineIsReadAndNoneBehindIt) {
  std::string text = "Long\r\n";
  for (int i = 0; i <= 16000; ++i) {
    text += std::to_string(i) + ",1\r\n";
  }
  EXPECT_TRUE(ReadFrontLoadFile(Put("a.lac", text + "no number\r\n")));
  EXPECT_EQ(design.ZFrontNormRe(16000), 16000);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(LoadFile, WhatCannotBeReadIsToldByItsKind) {
  const auto box = [&](const std::string& path) {
    shownMessages.Forget();
    EXPECT_FALSE(ReadFrontLoadFile(path));
    EXPECT_EQ(design.ZFrontComment, "before");
    return shownMessages.Lines();
  };
  EXPECT_EQ(box(Path("missing.lac")), Lines{FrontBox(53, "File not found")});
  EXPECT_EQ(box(""), Lines{FrontBox(53, "File not found")});
  EXPECT_EQ(box(Path("none/missing.lac")), Lines{FrontBox(76, "Path not found")});
  EXPECT_EQ(box(Folder().string()), Lines{FrontBox(75, "Path/File access error")});
  EXPECT_EQ(box(Put("empty.lac", "")), Lines{FrontBox(62, "Input past end of file")});
  if (getuid() != 0) {  // the superuser reads all
    const std::string locked = Put("locked.lac", "c\n1,2\n");
    chmod(locked.c_str(), 0);
    EXPECT_EQ(box(locked), Lines{FrontBox(70, "Permission denied")});
  }
  shownMessages.Forget();
  EXPECT_FALSE(ReadRearLoadFile(Path("missing.lac")));
  EXPECT_EQ(shownMessages.Lines(),
            Lines{BoxText("open Rear Acoustic Load file", 53, "File not found")});
}

TEST_F(LoadFile, BytesOfAnyKindAreACommentAndThenNoNumber) {
  std::string bytes;
  for (int i = 0; i < 4096; ++i) {
    bytes += static_cast<char>(i * 37 + i / 256);
  }
  EXPECT_FALSE(ReadFrontLoadFile(Put("a.lac", bytes)));
  EXPECT_EQ(shownMessages.Lines(), Lines{FrontBox(13, "Type mismatch")});
}

TEST_F(LoadFile, TenMegabytesInOneLineAreAComment) {
  EXPECT_TRUE(ReadFrontLoadFile(Put("a.lac", std::string(10'000'000, 'x'))));
  EXPECT_EQ(design.ZFrontComment.size(), 10'000'000U);
}

class ExcitationFile : public FileTest {
 protected:
  ExcitationFile() {
    std::fill(draft.TmpExciteWfm.begin(), draft.TmpExciteWfm.end(), 7.0);
    draft.TmpExcitePoints = 77;
  }

  std::string comment = "before";
};

TEST_F(ExcitationFile, ValuesAreReadWhereverTheLinesEnd) {
  ReadExciteFile(Put("a.xct", "\"Pulse\", two\r\n1,-0.5\r\n\r\n 2e-1 ,\n3"), comment);
  EXPECT_EQ(comment, "\"Pulse\", two") << "the line as it stands";
  EXPECT_EQ(draft.TmpExcitePoints, 4);
  EXPECT_EQ(draft.TmpExciteWfm(0), 1);
  EXPECT_EQ(draft.TmpExciteWfm(1), -0.5);
  EXPECT_EQ(draft.TmpExciteWfm(2), 0.2);
  EXPECT_EQ(draft.TmpExciteWfm(3), 3);
  EXPECT_EQ(draft.TmpExciteWfm(4), 0) << "behind the values it is silent";
  EXPECT_EQ(draft.TmpExciteWfm(65535), 0);
}

TEST_F(ExcitationFile, FileWithoutDataHasAPoint) {
  ReadExciteFile(Put("a.xct", "Nothing\r\n"), comment);
  EXPECT_EQ(comment, "Nothing");
  EXPECT_EQ(draft.TmpExcitePoints, 1);
  EXPECT_EQ(draft.TmpExciteWfm(0), 0);
}

TEST_F(ExcitationFile, LongFileIsCutWithoutAWord) {
  std::string text = "Long\n";
  for (int i = 0; i < 16001; ++i) {
    text += std::to_string(i) + "\n";
  }
  ReadExciteFile(Put("a.xct", text + "99\nno number\n"), comment);
  EXPECT_EQ(draft.TmpExcitePoints, 16001);
  EXPECT_EQ(draft.TmpExciteWfm(16000), 16000);
  EXPECT_EQ(draft.TmpExciteWfm(16001), 0);
}

TEST_F(ExcitationFile, FailureLeavesTheDraftAsItWas) {
  const auto failure = [&](const std::string& path) {
    const int number = FailureOf([&] { ReadExciteFile(path, comment); });
    EXPECT_EQ(comment, "before");
    EXPECT_EQ(draft.TmpExcitePoints, 77);
    EXPECT_EQ(draft.TmpExciteWfm(0), 7);
    return number;
  };
  EXPECT_EQ(failure(""), 53);
  EXPECT_EQ(failure(Path("missing.xct")), 53);
  EXPECT_EQ(failure(Folder().string()), 75);
  EXPECT_EQ(failure(Put("a.xct", "")), 62);
  EXPECT_EQ(failure(Put("a.xct", "c\n1\nvolts\n")), 13);
  EXPECT_EQ(failure(Put("a.xct", "c\n1\n1E999\n")), 6);
}

}  // namespace
}  // namespace halvorne::testing
