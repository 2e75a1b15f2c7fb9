#include "persistence/setup_file.h"

#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <vector>

#include "persistence/file_fixture.h"
#include "persistence/setup_state.h"
#include "platform/paths.h"
#include "plot/plot_select.h"
#include "timedomain/view.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

class SetupFile : public FileTest {
 protected:
  SetupFile() : folderBefore_(ProgramFolder()) {
    SetProgramFolder(Folder());
    window.SetKeepsSession(true);
  }
  ~SetupFile() override { SetProgramFolder(folderBefore_); }

 private:
  std::filesystem::path folderBefore_;
};

const char* const kTenLines =
    "27\r\n"
    "1,2,3,0,1,2,3\r\n"
    "4,5,6,0,1,2,3\r\n"
    "7,8,9,1\r\n"
    "2,3\r\n"
    "1,12\r\n"
    "2,1,2\r\n"
    "72.5\r\n"
    "12.25\r\n"
    "99.5\r\n";

TEST_F(SetupFile, TenLinesAreReadInOrder) {
  Put("HALVORNESETUP", kTenLines);
  ReadHalvorneSetup();
  EXPECT_EQ(shownMessages.Lines(), Lines{});
  EXPECT_EQ(view.CurrentPlot, 27);
  const std::vector<std::pair<int, int>> forms = {
      {11, 1}, {12, 2}, {13, 3}, {14, 0}, {15, 1}, {16, 2}, {17, 3}, {21, 4}, {22, 5}, {23, 6},
      {24, 0}, {25, 1}, {26, 2}, {27, 3}, {31, 7}, {32, 8}, {33, 9}, {34, 1}, {41, 2}, {42, 3}};
  for (const auto& [plotNumber, form] : forms) {
    EXPECT_EQ(setup.PlotFormMemory(plotNumber), form) << "plot " << plotNumber;
  }
  EXPECT_EQ(setup.DispFaceLayer, 1);
  EXPECT_EQ(setup.DispBackLayer, 12);
  EXPECT_EQ(setup.ReportDetails, 2);
  EXPECT_EQ(setup.PhaseDisplayOption, 1);
  EXPECT_EQ(setup.DisplayFontSize, 2);
  EXPECT_EQ(setup.LogRange, 72.5);
  EXPECT_EQ(view.TimeWindowPercent, 12.25F);
  EXPECT_EQ(setup.AmplWindowPercent, 99.5F);
}

TEST_F(SetupFile, ReadingStartsTheSession) {
  Put("HALVORNESETUP", kTenLines);
  ReadHalvorneSetup();
  EXPECT_EQ(setup.PreviousPlot, 27);
  EXPECT_EQ(setup.LastPlotListIndex, -1) << "so that the first selection counts as a change";
  EXPECT_EQ(setup.CursorBlank, std::string(102, ' '));
}

TEST_F(SetupFile, WhatWasReadIsWrittenLetterByLetter) {
  Put("HALVORNESETUP", kTenLines);
  ReadHalvorneSetup();
  std::filesystem::remove(Path("HALVORNESETUP"));
  setup.LastPlotListIndex = 5;  // not stored
  writeHalvorneSetup();
  EXPECT_EQ(Get("HALVORNESETUP"), kTenLines);
  EXPECT_EQ(shownMessages.Lines(), Lines{}) << "and nothing is asked";
}

TEST_F(SetupFile, AnExistingFileIsReplacedWithoutAQuestion) {
  Put("HALVORNESETUP", std::string(5000, 'x'));
  writeHalvorneSetup();
  EXPECT_EQ(
      Get("HALVORNESETUP"),
      "0\r\n0,0,0,0,0,0,0\r\n0,0,0,0,0,0,0\r\n0,0,0,0\r\n0,0\r\n0,0\r\n0,0,0\r\n0\r\n0\r\n0\r\n");
  EXPECT_EQ(shownMessages.Lines(), Lines{});
}

TEST_F(SetupFile, AProgramThatKeepsNoSessionWritesNothing) {
  window.SetKeepsSession(false);
  writeHalvorneSetup();
  EXPECT_FALSE(std::filesystem::exists(Path("HALVORNESETUP")));
}

TEST_F(SetupFile, IsWrittenAfterEverySelectionOfAFormTheSameOneToo) {
  MakeSimpleDesign();
  Recalc();
  PlotSelect(11);
  const std::string first = Get("HALVORNESETUP");
  EXPECT_TRUE(first.starts_with("11\r\n"));
  std::filesystem::remove(Path("HALVORNESETUP"));
  const int form = window.PlotTypeIndex();
  PlotSelect(11);
  EXPECT_EQ(window.PlotTypeIndex(), form);
  EXPECT_EQ(Get("HALVORNESETUP"), first);
  std::filesystem::remove(Path("HALVORNESETUP"));
  PlotType_Click();
  EXPECT_EQ(Get("HALVORNESETUP"), first);
}

TEST_F(SetupFile, AFolderThatCannotBeWrittenShowsItsMessageAtEverySelection) {
  MakeSimpleDesign();
  Recalc();
  SetProgramFolder(Folder() / "missing");
  for (int time = 0; time < 2; ++time) {
    shownMessages.Forget();
    PlotSelect(11);
    EXPECT_EQ(shownMessages.Lines(),
              (Lines{"ERROR in writeHalvorneSetup of FILES|Error: 76. Path not found"}));
  }
}

/// The setup file that the program is shipped with.
std::string ShippedFile() {
  std::ostringstream text;
  text << std::ifstream(HALVORNE_SOURCE_DIR "/share/HALVORNESETUP", std::ios::binary).rdbuf();
  return text.str();
}

class UnreadableSetupFile : public SetupFile {
 protected:
  /// The session stands as if the shipped file had been read.
  void ExpectShippedSession() {
    EXPECT_EQ(view.CurrentPlot, 11);
    EXPECT_EQ(setup.PreviousPlot, 11);
    EXPECT_EQ(setup.LastPlotListIndex, -1);
    EXPECT_EQ(setup.CursorBlank, std::string(102, ' '));
    writeHalvorneSetup();
    EXPECT_EQ(Get("HALVORNESETUP"), ShippedFile());
  }
};

TEST_F(UnreadableSetupFile, ThatIsMissingIsToldAndStartsWithTheShippedSettings) {
  ReadHalvorneSetup();
  EXPECT_EQ(shownMessages.Lines(),
            (Lines{"ERROR in ReadHalvorneSetup of FILES|Error: 53. File not found"}));
  EXPECT_EQ(shownMessages.Shown().at(0).buttons, MessageButtons::kOk);
  EXPECT_FALSE(std::filesystem::exists(Path("HALVORNESETUP"))) << "nothing creates it";
  ExpectShippedSession();
}

TEST_F(UnreadableSetupFile, ThatIsShortIsToldAndStartsWithTheShippedSettings) {
  for (const char* content : {"", "31\r\n1,2,3,4\r\n",
                              "27\r\n1,2,3,0,1,2,3\r\n4,5,6,0,1,2,3\r\n"
                              "7,8,9,1\r\n2,3\r\n1,12\r\n2,1,2\r\n72.5\r\n12.25\r\n"}) {
    SCOPED_TRACE(content);
    shownMessages.Forget();
    Put("HALVORNESETUP", content);
    ReadHalvorneSetup();
    EXPECT_EQ(shownMessages.Lines(),
              (Lines{"ERROR in ReadHalvorneSetup of FILES|Error: 62. Input past end of file"}));
    ExpectShippedSession();
  }
}

TEST_F(UnreadableSetupFile, ThatIsGarbledIsToldAndStartsWithTheShippedSettings) {
  Put("HALVORNESETUP", "31\r\n1,2,x,4\r\n");
  ReadHalvorneSetup();
  EXPECT_EQ(shownMessages.Lines(),
            (Lines{"ERROR in ReadHalvorneSetup of FILES|Error: 13. Type mismatch"}));
  ExpectShippedSession();
}

TEST_F(SetupFile, AFolderThatCannotBeWrittenShowsTheMessage) {
  SetProgramFolder(Folder() / "missing");
  writeHalvorneSetup();
  EXPECT_EQ(shownMessages.Lines(),
            (Lines{"ERROR in writeHalvorneSetup of FILES|Error: 76. Path not found"}));
}

TEST_F(SetupFile, APipeOrAFolderInItsPlaceShowsTheMessageAtOnce) {
  const auto expectRefusal = [&] {
    shownMessages.Forget();
    ReadHalvorneSetup();
    writeHalvorneSetup();
    EXPECT_EQ(shownMessages.Lines(),
              (Lines{"ERROR in ReadHalvorneSetup of FILES|Error: 75. Path/File access error",
                     "ERROR in writeHalvorneSetup of FILES|Error: 75. Path/File access error"}));
  };
  ASSERT_EQ(mkfifo(Path("HALVORNESETUP").c_str(), 0600), 0);
  expectRefusal();
  std::filesystem::remove(Path("HALVORNESETUP"));
  std::filesystem::create_directory(Path("HALVORNESETUP"));
  expectRefusal();
}

TEST_F(SetupFile, AFullDiskShowsTheMessageAndKeepsTheOldFile) {
  Put("HALVORNESETUP", kTenLines);
  {
    const FullDisk full(10);
    writeHalvorneSetup();
  }
  EXPECT_EQ(shownMessages.Lines(),
            (Lines{"ERROR in writeHalvorneSetup of FILES|Error: 75. Path/File access error"}));
  EXPECT_EQ(Get("HALVORNESETUP"), kTenLines);
  EXPECT_EQ(Names(), Lines{"HALVORNESETUP"});
}

TEST_F(SetupFile, WhoReadsTheOldFileMeanwhileReadsItWhole) {
  std::ifstream reader(Put("HALVORNESETUP", kTenLines), std::ios::binary);
  writeHalvorneSetup();
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), kTenLines);
  EXPECT_TRUE(Get("HALVORNESETUP").starts_with("0\r\n"));
}

TEST_F(SetupFile, AKillLeavesTheOldFile) {
  Put("HALVORNESETUP", kTenLines);
  EXPECT_TRUE(IsKilledAtByte(10, [] { writeHalvorneSetup(); }));
  EXPECT_EQ(Get("HALVORNESETUP"), kTenLines);
}

}  // namespace
}  // namespace halvorne::testing
