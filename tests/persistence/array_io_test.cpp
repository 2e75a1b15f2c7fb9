#include "persistence/array_io.h"

#include <vector>

#include "persistence/file_fixture.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

class ArrayIo : public FileTest {
 protected:
  std::string scratch;
};

TEST_F(ArrayIo, AnArrayIsALabelAndItsValuesFromZeroToCount) {
  for (int i = 0; i <= 25; ++i) {
    design.FrontThick(i) = i + 0.5;
  }
  {
    ValueWriter file(Path("out"));
    AryOutput(file, 2, design.FrontThick, "[ a, b ]");
    file.Close();
  }
  EXPECT_EQ(Get("out"), "\"[ a, b ]\"\r\n0.5\r\n1.5\r\n2.5\r\n");
  ValueReader file(Path("out"));
  AryInput(file, 2, design.BackThick, scratch);
  EXPECT_EQ(scratch, "[ a, b ]");
  EXPECT_EQ(design.BackThick(0), 0.5);
  EXPECT_EQ(design.BackThick(2), 2.5);
  EXPECT_EQ(design.BackThick(3), 0);
  EXPECT_EQ(shownMessages.Lines(), Lines{});
}

TEST_F(ArrayIo, APairOfArraysHasOnePairALine) {
  for (int i = 0; i <= 2; ++i) {
    curves.TxEff(i) = i;
    curves.RxEff(i) = -i;
  }
  {
    ValueWriter file(Path("out"));
    AryOutput2(file, 2, curves.TxEff, curves.RxEff, "[ Efficiency in Tx, Rx ]");
    file.Close();
  }
  EXPECT_EQ(Get("out"), "\"[ Efficiency in Tx, Rx ]\"\r\n0,0\r\n1,-1\r\n2,-2\r\n");
  ValueReader file(Path("out"));
  AryInput2(file, 2, curves.ZinAcRe, curves.ZinAcIm, scratch);
  EXPECT_EQ(curves.ZinAcRe(2), 2);
  EXPECT_EQ(curves.ZinAcIm(2), -2);
}

TEST_F(ArrayIo, ANegativeCountIsTheLabelAlone) {
  {
    ValueWriter file(Path("out"));
    AryOutput(file, -1, design.FrontThick, "a");
    AryOutput2(file, -7, curves.TxEff, curves.RxEff, "b");
    file.Close();
  }
  EXPECT_EQ(Get("out"), "\"a\"\r\n\"b\"\r\n");
  ValueReader file(Path("out"));
  AryInput(file, -1, design.FrontThick, scratch);
  AryInput2(file, -7, curves.TxEff, curves.RxEff, scratch);
  EXPECT_EQ(scratch, "b");
  EXPECT_EQ(shownMessages.Lines(), Lines{});
}

TEST_F(ArrayIo, EachReportsItsOwnFailureAndReturns) {
  ValueReader file(Put("in", "\"a\"\r\n1\r\noops\r\n\"b\"\r\n1,2\r\n3,oops\r\n5\r\n"));
  AryInput(file, 2, design.FrontThick, scratch);
  AryInput2(file, 2, curves.TxEff, curves.RxEff, scratch);
  double next = 0;
  file.Read(next);
  EXPECT_EQ(next, 5) << "the reader goes on behind the failed value";
  EXPECT_EQ(design.FrontThick(0), 1);
  EXPECT_EQ(curves.TxEff(1), 3) << "the first of the pair was read";
  EXPECT_EQ(curves.RxEff(1), 0);
  EXPECT_EQ(shownMessages.Lines(), (Lines{"ERROR in AryInput of FILES|Error: 13. Type mismatch",
                                          "ERROR in AryInput2 of FILES|Error: 13. Type mismatch"}));
}

TEST_F(ArrayIo, CountsBeyondTheOwnersBoundsFailAtTheBound) {
  {
    ValueWriter file(Path("out"));
    AryOutput(file, 26, design.FrontThick, "a");
    AryOutput2(file, 16001, curves.TxEff, curves.RxEff, "b");
    file.Close();
  }
  std::string ones = "\"a\"\r\n";
  for (int i = 0; i < 17000; ++i) {
    ones += "1,1\r\n";
  }
  {
    ValueReader file(Put("in", ones));
    AryInput(file, 26, design.FrontThick, scratch);
  }
  {
    ValueReader file(Put("in", ones));
    AryInput2(file, 2147483647, curves.TxEff, curves.RxEff, scratch);
  }
  EXPECT_EQ(curves.RxEff(16000), 1) << "all points within the bounds are read";
  EXPECT_EQ(shownMessages.Lines(),
            (Lines{"ERROR in AryOutput of FILES|Error: 9. Subscript out of range",
                   "ERROR in AryOutput2 of FILES|Error: 9. Subscript out of range",
                   "ERROR in AryInput of FILES|Error: 9. Subscript out of range",
                   "ERROR in AryInput2 of FILES|Error: 9. Subscript out of range"}));
}

TEST_F(ArrayIo, TheEndOfTheFileEndsAnArrayOfAnyCount) {
  ValueReader file(Put("in", "\"a\"\r\n1,2\r\n"));
  AryInput2(file, 2147483647, curves.TxEff, curves.RxEff, scratch);
  EXPECT_EQ(shownMessages.Lines(),
            (Lines{"ERROR in AryInput2 of FILES|Error: 62. Input past end of file"}));
}

}  // namespace
}  // namespace halvorne::testing
