#include <algorithm>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "engine/design_model.h"
#include "persistence/design_file.h"
#include "persistence/file_fixture.h"
#include "timedomain/wave_state.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

Lines SplitLines(const std::string& text) {
  Lines lines;
  std::size_t begin = 0;
  for (std::size_t end; (end = text.find("\r\n", begin)) != std::string::npos; begin = end + 2) {
    lines.push_back(text.substr(begin, end - begin));
  }
  if (begin != text.size()) {
    lines.push_back(text.substr(begin));
  }
  return lines;
}

void Append(Lines& lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}
void Repeat(Lines& lines, int count, const std::string& line) {
  lines.insert(lines.end(), static_cast<std::size_t>(count), line);
}

class DesignFileWriter : public FileTest {
 protected:
  DesignFileWriter() {
    MakeSimpleDesign(1, 256);
    design.CalcDateTime = "1/2/2024 3:04:05 PM";
    design.DesignTitle = "A title, with a comma";
    design.DesignFreqText = "5.000";
    design.ElementSizeText = "10 x 10 mm";
    design.PZMatl(1).Vendor = "vendor";
    design.PZMatl(1).DataSource = "book";
  }

  Lines Written() {
    WriteDesignFile(Path("out.dat"));
    EXPECT_EQ(shownMessages.Lines(), Lines{});
    return SplitLines(Get("out.dat"));
  }
};

void MakeFullDesign() {
  design.NoPiezo = 2;
  design.PZConnect = 2;
  design.PZConnectName = "Parallel";
  design.PZMatl(2) = {"Second", 4100.5, 2000, 7600, 900, 0.51, 0.02, 0.003, "v2", "d2"};
  design.PZThick(2) = 0.0003;
  design.PZPolarity(2) = -1;
  design.ElementShape = 3;
  design.ElementDim1 = 10;
  design.ElementDim2 = 10.5;
  design.PZVelDispOn = true;
  design.BackVelDispOn = true;
  design.NoFace = 2;
  design.FaceMatl(1) = {"Inner", 2500, 1200, 3000, 4.5F, 5, 1.1F, "fv", "ff", "fc", "fd"};
  design.FaceMatl(2) = {"Outer", 2600, 1300, 1100, 0, 0, 0, "", "", "", ""};
  design.FrontThick(1) = 1.25e-4;
  design.FrontThick(2) = 1e-5;
  design.FrontArea(1) = 0.75;
  design.FrontArea(2) = 1;
  design.NoBack = 1;
  design.BackMatl(1) = {"Backing", 2000, 1000, 2500, 100, 1, 1, "bv", "bf", "bc", "bd"};
  design.BackThick(1) = 0.02;
  design.BackArea(1) = 1;
  design.ZFrontComplex = true;
  design.ZFrontFile = "water.lac";
  design.ZFrontComment = "sea";
  design.ZFrontNormRe(0) = 1;
  design.ZFrontNormRe(1) = 0.9;
  design.ZFrontNormIm(0) = -0.1;
  design.ZBackFile = "blank";
  design.ZBackComment = "none";
  design.VelDisp(0, 1) = 1.01;
  design.VelDisp(21, 0) = 0.99;
  design.VelDispNames(0, 0) = "first.csv";
  design.VelDispNames(21, 1) = "last comment";
  design.AttenOn = true;
  design.AttenLength = 2;
  design.AttenRate = 0.5F;
  design.AttenExp = 1.5F;
  design.ElNet(1, 1) = 3;
  design.ElNet(1, 2) = 4.7e-6;
  design.ElNet(2, 1) = 7;
  design.ElNet(20, 6) = 123456789012345;
  curves.ZinElecRe(0) = 50.25;
  curves.ZinElecIm(1) = -1e-9;
  curves.ZinAcRe(0) = 1.5e6;
  curves.ZinAcIm(1) = 2;
  curves.TxEff(0) = 0.5;
  curves.RxEff(1) = 0.25;
  curves.TxTFRe(0) = 1.0 / 3;
  curves.TxTFIm(1) = 4;
  curves.RxTFRe(0) = 5;
  curves.RxTFIm(1) = 1e15;
  curves.TwoWayTFRe(0) = 7;
  curves.TwoWayTFIm(1) = -8;
  design.ExciteType = 2;
  design.ExciteWave = 1;
  design.ExciteFreq = 5e6F;
  design.ExciteCycles = 3;
  design.ExciteDelay = 1e-7F;
  design.ExcitePhase = -90;
  design.ExcitePoints = 70000;
  design.ExciteFileName = "pulse.xct";
  design.ExciteComment = "measured";
  design.ExciteLength = 2;
  wave.ExciteRe(0) = 0.5;
  wave.ExciteRe(1) = -0.25;
  wave.ExciteRe(2) = 1;
}

Lines FullDesignUpToLoads() {
  return {"\"Halvorne for Windows Version 4.1.0\"",
          "\"1/2/2024 3:04:05 PM\",\"A title, with a comma\"",
          "4",
          "1000000,9000000",
          "1000000,\"MHz\"",
          "5000000,\"5.000\"",
          "\"[ Number of piezoelectric layers and connectivity ]\"",
          "2,2,\"Parallel\"",
          "\"[ Piezoelectric material properties ]\"",
          "\"[ Piezoelectric layer 1 ]\"",
          "\"Test ceramic\",4000,2000",
          "7500,800,0.5",
          "1E-09,0",
          "\"vendor\",\"book\"",
          "\"[ Piezoelectric layer 2 ]\"",
          "\"Second\",4100.5,2000",
          "7600,900,0.51",
          "0.02,0.003",
          "\"v2\",\"d2\"",
          "\"[ Piezoelectric layer thickness and polarity ]\"",
          "0.0004,1",
          "0.0003,-1",
          "\"[ Piezoelectric layer area, shape, and dimensions ]\"",
          "0.0001,\"10 x 10 mm\"",
          "3,10,10.5",
          "\"[ Velocity dispersion On/Off in piezo, face, and back layers ]\"",
          "#TRUE#,#FALSE#,#TRUE#",
          "\"[ Number of points in frequency, time domains ]\"",
          "1,256",
          "\"[ Electrical terminations on Tx, Rx ]\"",
          "50,50",
          "\"[ Acoustic load impedances on front, back faces ]\"",
          "1500000,3000000",
          "\"[ Number of face and back layers ]\"",
          "2,1",
          "\"[ Front layer acoustic properties ]\"",
          "\"[ Face layer 1 ]\"",
          "\"Inner\"",
          "2500,1200,3000",
          "4.5,5,1.1",
          "\"fv\"",
          "\"ff\"",
          "\"fc\"",
          "\"fd\"",
          "\"[ Face layer 2 ]\"",
          "\"Outer\"",
          "2600,1300,1100",
          "0,0,0",
          "\"\"",
          "\"\"",
          "\"\"",
          "\"\"",
          "\"[ Front layer thicknesses ]\"",
          "0.0002",
          "0.000125",
          "1E-05",
          "\"[ Front layer areas ]\"",
          "1",
          "0.75",
          "1",
          "\"[ Back layer acoustic properties ]\"",
          "\"[ Back layer 1 ]\"",
          "\"Backing\"",
          "2000,1000,2500",
          "100,1,1",
          "\"bv\"",
          "\"bf\"",
          "\"bc\"",
          "\"bd\"",
          "\"[ Back layer thicknesses ]\"",
          "0.0002",
          "0.02",
          "\"[ Back layer areas ]\"",
          "1",
          "1"};
}

Lines FullDesignFromLoadsOn() {
  Lines lines = {"#TRUE#",  "\"water.lac\"", "\"sea\"",  "\"[ Zfront Re, Im ]\"", "1,-0.1", "0.9,0",
                 "#FALSE#", "\"blank\"",     "\"none\"", "\"[ Zback Re, Im ]\"",  "0,0",    "0,0"};
  lines.push_back("\"Velocity dispersion file names\"");
  lines.push_back("\"first.csv\"");
  Repeat(lines, 21, "\"blank\"");
  lines.push_back("\"Velocity dispersion comments\"");
  Repeat(lines, 21, "\"blank\"");
  lines.push_back("\"last comment\"");
  lines.push_back("\"Velocity dispersion data\"");
  Append(lines, {"1", "1.01"});
  Repeat(lines, 40, "1");
  Append(lines, {"0.99", "1"});
  Append(lines, {"#TRUE#,2,0.5,1000000,1.5", "\"[ Electrical Network ]\"", "3,4.7E-06,0,0,0,0",
                 "7,0,0,0,0,0"});
  Repeat(lines, 17, "0,0,0,0,0,0");
  Append(lines, {"0,0,0,0,0,123456789012345",
                 "\"[ Zin Electric Re, Im ]\"",
                 "50.25,0",
                 "0,-1E-09",
                 "\"[ Zin Acoustic Re, Im ]\"",
                 "1500000,0",
                 "0,2",
                 "\"[ Efficiency in Tx, Rx ]\"",
                 "0.5,0",
                 "0,0.25",
                 "\"[ Tx TF Re, Im ]\"",
                 "0.333333333333333,0",
                 "0,4",
                 "\"[ Rx TF Re, Im ]\"",
                 "5,0",
                 "0,1E+15",
                 "\"[ Two-way TF Re, Im ]\"",
                 "7,0",
                 "0,-8",
                 "\"[ Excitation Waveform Type ]\"",
                 "2",
                 "\"[ Function Generator Settings ]\"",
                 "1,5000000,3,1E-07,-90,70000",
                 "\"[ Excitation File ]\"",
                 "\"pulse.xct\",\"measured\"",
                 "\"[ Excitation Waveform Data ]\"",
                 "2",
                 "0.5",
                 "-0.25",
                 "1"});
  return lines;
}

TEST_F(DesignFileWriter, EveryLineOfAFullDesignIsAsTheLayoutSays) {
  MakeFullDesign();
  Lines expected = FullDesignUpToLoads();
  Append(expected, FullDesignFromLoadsOn());
  const Lines written = Written();
  for (std::size_t i = 0; i < std::min(expected.size(), written.size()); ++i) {
    EXPECT_EQ(written[i], expected[i]) << "line " << i + 1;
  }
  EXPECT_EQ(written.size(), expected.size());
}

TEST_F(DesignFileWriter, EveryLineEndsInCrLfTheLastToo) {
  Written();
  const std::string text = Get("out.dat");
  EXPECT_TRUE(text.ends_with("\r\n"));
  EXPECT_FALSE(text.ends_with("\r\n\r\n"));
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n') {
      ASSERT_EQ(text[i - 1], '\r') << "at byte " << i;
    }
  }
}

TEST_F(DesignFileWriter, WithoutPlatesThereIsNoLayerLabelYetOneThickness) {
  const Lines lines = Written();
  const auto label = std::ranges::find(lines, "\"[ Front layer acoustic properties ]\"");
  ASSERT_GE(lines.end() - label, 11);
  EXPECT_EQ(Lines(label, label + 11),
            (Lines{"\"[ Front layer acoustic properties ]\"", "\"[ Front layer thicknesses ]\"",
                   "0.0002", "\"[ Front layer areas ]\"", "1",
                   "\"[ Back layer acoustic properties ]\"", "\"[ Back layer thicknesses ]\"",
                   "0.0002", "\"[ Back layer areas ]\"", "1", "#FALSE#"}));
}

TEST_F(DesignFileWriter, WithoutExcitationTheFileEndsBehindTheGenerator) {
  design.ExciteType = 0;
  const Lines lines = Written();
  EXPECT_EQ(Lines(lines.end() - 4, lines.end()),
            (Lines{"\"[ Excitation Waveform Type ]\"", "0", "\"[ Function Generator Settings ]\"",
                   "0,0,0,0,0,0"}));
}

TEST_F(DesignFileWriter, AGeneratorHasItsWaveformButNoFile) {
  design.ExciteType = 1;
  design.ExciteLength = 0;
  const Lines lines = Written();
  EXPECT_EQ(Lines(lines.end() - 4, lines.end()),
            (Lines{"0,0,0,0,0,0", "\"[ Excitation Waveform Data ]\"", "0", "0"}));
}

TEST_F(DesignFileWriter, AnExcitationFileHasBoth) {
  design.ExciteType = 2;
  design.ExciteFileName = "a.xct";
  const Lines lines = Written();
  EXPECT_EQ(Lines(lines.end() - 6, lines.end()),
            (Lines{"0,0,0,0,0,0", "\"[ Excitation File ]\"", "\"a.xct\",\"\"",
                   "\"[ Excitation Waveform Data ]\"", "0", "0"}));
}

TEST_F(DesignFileWriter, ASaveClearsTheFlagOfAnUnsavedDesign) {
  design.DesignNew = 65535;
  design.FileFormat = 3;
  Written();
  EXPECT_EQ(design.DesignNew, 0);
  EXPECT_EQ(design.FileFormat, 4);
  EXPECT_EQ(design.FileVersionText, "") << "only a reader sets it";
}

TEST_F(DesignFileWriter, AnExistingFileIsAskedForAndNoLeavesAllAsItWas) {
  Put("out.dat", "precious");
  design.DesignNew = 65535;
  design.FileFormat = 3;
  WriteDesignFile(Path("out.dat"));
  ASSERT_EQ(shownMessages.Shown().size(), 1U);
  const Message& question = shownMessages.Shown()[0];
  EXPECT_EQ(question.title, "Halvorne Save File");
  EXPECT_EQ(question.text, "Overwrite existing file?");
  EXPECT_EQ(question.icon, MessageIcon::kQuestion);
  EXPECT_EQ(question.buttons, MessageButtons::kYesNo);
  EXPECT_EQ(question.defaultAnswer, MessageAnswer::kNo);
  EXPECT_EQ(Get("out.dat"), "precious");
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_EQ(design.FileFormat, 3);
}

TEST_F(DesignFileWriter, YesReplacesTheExistingFileWhole) {
  Put("out.dat", std::string(1000000, 'x'));
  shownMessages.AnswerNext(MessageAnswer::kYes);
  WriteDesignFile(Path("out.dat"));
  EXPECT_TRUE(Get("out.dat").starts_with("\"Halvorne for Windows Version 4.1.0\"\r\n"));
  EXPECT_EQ(Get("out.dat").find("xx"), std::string::npos);
}

void ExpectSaveFailure(const RecordedMessages& messages) {
  ASSERT_FALSE(messages.Shown().empty());
  const Message& box = messages.Shown().back();
  EXPECT_EQ(box.title, "Halvorne Save File");
  EXPECT_EQ(box.text, "Error occurred trying to close file.");
  EXPECT_EQ(box.icon, MessageIcon::kExclamation);
  EXPECT_EQ(box.buttons, MessageButtons::kOk);
}

TEST_F(DesignFileWriter, AFolderThatIsNotThereFails) {
  design.DesignNew = 65535;
  WriteDesignFile(Path("missing/out.dat"));
  EXPECT_EQ(shownMessages.Shown().size(), 1U);
  ExpectSaveFailure(shownMessages);
  EXPECT_EQ(design.DesignNew, 65535);
}

TEST_F(DesignFileWriter, AFullDiskFailsOnceAndKeepsWhatFitted) {
  design.DesignNew = 65535;
  {
    const FullDisk full(1000);
    WriteDesignFile(Path("out.dat"));
  }
  EXPECT_EQ(shownMessages.Shown().size(), 1U);
  ExpectSaveFailure(shownMessages);
  EXPECT_EQ(design.DesignNew, 65535) << "the design is still not saved";
  EXPECT_EQ(Get("out.dat").size(), 1000U);
}

TEST_F(DesignFileWriter, ADeviceOrAPipeFailsAtOnceThoughItMayBeOverwritten) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  for (const std::string& name : {std::string("/dev/full"), Path("pipe")}) {
    shownMessages.Forget();
    shownMessages.AnswerNext(MessageAnswer::kYes);
    WriteDesignFile(name);
    ExpectSaveFailure(shownMessages);
  }
  EXPECT_TRUE(std::filesystem::is_fifo(Path("pipe"))) << "and stays what it is";
}

TEST_F(DesignFileWriter, ACountOutOfBoundsFailsAndKeepsWhatWasWritten) {
  design.NoFace = 11;
  design.DesignNew = 65535;
  WriteDesignFile(Path("out.dat"));
  ExpectSaveFailure(shownMessages);
  EXPECT_EQ(SplitLines(Get("out.dat")).back(), "\"[ Face layer 11 ]\"");
  EXPECT_EQ(design.DesignNew, 65535);
}

TEST_F(DesignFileWriter, TheOldFileIsKeptWhenTheNewOneDoesNotFit) {
  Put("out.dat", "precious");
  shownMessages.AnswerNext(MessageAnswer::kYes);
  {
    const FullDisk full(1000);
    WriteDesignFile(Path("out.dat"));
  }
  ExpectSaveFailure(shownMessages);
  EXPECT_EQ(Get("out.dat~"), "precious");
  EXPECT_EQ(Get("out.dat").size(), 1000U) << "what was written so far stays";
}

TEST_F(DesignFileWriter, TheOldFileIsKeptWhenTheProgramIsKilled) {
  Put("out.dat", "precious");
  EXPECT_TRUE(IsKilledAtByte(1000, [this] {
    shownMessages.AnswerNext(MessageAnswer::kYes);
    WriteDesignFile(Path("out.dat"));
  }));
  EXPECT_EQ(Get("out.dat~"), "precious");
}

TEST_F(DesignFileWriter, TheOldFileIsKeptWhenACurveHasAGap) {
  Put("out.dat", "precious");
  design.NoFreqPts = kLastFreqPoint + 1;
  shownMessages.AnswerNext(MessageAnswer::kYes);
  WriteDesignFile(Path("out.dat"));
  EXPECT_EQ(Get("out.dat~"), "precious") << "the new file cannot be read";
}

TEST_F(DesignFileWriter, TheTextOfTheDesignIsThatOfTheFile) {
  WriteDesignFile(Path("out.dat"));
  EXPECT_EQ(DesignFileText(), Get("out.dat"));
  EXPECT_EQ(shownMessages.Lines(), Lines{});
}

TEST_F(DesignFileWriter, ATextThatFailsIsToldAndHasWhatWasWritten) {
  design.NoFace = 11;
  const std::string text = DesignFileText();
  ExpectSaveFailure(shownMessages);
  EXPECT_TRUE(text.ends_with("\"[ Face layer 11 ]\"\r\n")) << text;
}

TEST_F(DesignFileWriter, TheOldFileGoesWhenTheNewOneIsWhole) {
  Put("out.dat", "old");
  shownMessages.AnswerNext(MessageAnswer::kYes);
  WriteDesignFile(Path("out.dat"));
  EXPECT_EQ(Names(), Lines{"out.dat"});
}

}  // namespace
}  // namespace halvorne::testing
