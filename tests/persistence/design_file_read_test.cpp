#include <algorithm>
#include <string>
#include <vector>

#include "engine/design_model.h"
#include "persistence/design_file.h"
#include "persistence/file_fixture.h"
#include "persistence/random_design.h"
#include "timedomain/plot_points.h"
#include "timedomain/view.h"
#include "timedomain/wave_state.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

void ExpectOpenFailure(const RecordedMessages& messages) {
  ASSERT_FALSE(messages.Shown().empty());
  const Message& box = messages.Shown().back();
  EXPECT_EQ(box.title, "Halvorne");
  EXPECT_EQ(box.text, "Error encountered while trying to open file, please retry.");
  EXPECT_EQ(box.icon, MessageIcon::kExclamation);
  EXPECT_EQ(box.buttons, MessageButtons::kOk);
}

/// A simple design's file, as text to be changed, and a program that has read nothing since.
class DesignFileReader : public FileTest {
 protected:
  DesignFileReader() {
    MakeSimpleDesign(4, 256);
    design.DesignTitle = "title";
    WriteDesignFile(Path("simple.dat"));
    simple = Get("simple.dat");
    ResetProgram();
    shownMessages.Forget();
  }

  void Replace(const std::string& words, const std::string& with) {
    const std::size_t at = simple.find(words);
    ASSERT_NE(at, std::string::npos) << words;
    simple.replace(at, words.size(), with);
  }
  /// As a writer sets it: a double quote would end a text.
  static std::string WithSingleQuotes(std::string text) {
    for (std::size_t at; (at = text.find('"')) != std::string::npos;) {
      text.replace(at, 1, "''");
    }
    return text;
  }
  void ReadSimple() { ReadDesignFile(Put("simple.dat", simple)); }

  std::string simple;
};

TEST_F(DesignFileReader, EveryStoredFieldOfRandomDesignsComesBack) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    ResetProgram();
    MakeRandomDesign(seed, static_cast<int>(seed) % 7);
    const Lines expected = StoredFields();
    std::filesystem::remove(Path("random.dat"));
    WriteDesignFile(Path("random.dat"));
    ResetProgram();
    ReadDesignFile(Path("random.dat"));
    const Lines read = StoredFields();
    ASSERT_EQ(read.size(), expected.size()) << "seed " << seed;
    for (std::size_t i = 0; i < read.size(); ++i) {
      EXPECT_EQ(read[i], WithSingleQuotes(expected[i])) << "seed " << seed;
    }
    EXPECT_EQ(design.FileVersionText, "Halvorne for Windows Version 4.1.0");
    EXPECT_EQ(design.FileFormat, 4);
    EXPECT_EQ(design.DesignNew, 0);
  }
}

TEST_F(DesignFileReader, WhatWasReadIsWrittenLetterByLetter) {
  for (unsigned seed = 21; seed <= 30; ++seed) {
    ResetProgram();
    MakeRandomDesign(seed, 5);
    std::filesystem::remove(Path("first.dat"));
    std::filesystem::remove(Path("second.dat"));
    WriteDesignFile(Path("first.dat"));
    ResetProgram();
    ReadDesignFile(Path("first.dat"));
    WriteDesignFile(Path("second.dat"));
    EXPECT_EQ(Get("second.dat"), Get("first.dat")) << "seed " << seed;
  }
}

TEST_F(DesignFileReader, AReadDerivesConstantsAndOpensTheCommands) {
  design.DesignNew = 65535;
  design.DataFileName = "simple.dat";
  view.CurrentPlot = 11;
  window.SetEnabled(Item::kFileSaveAs, false);
  ReadSimple();
  EXPECT_EQ(shownMessages.Lines(), Lines{});
  EXPECT_NEAR(design.PZFa(1), 4000 / (2 * 0.0004), 1e-6) << "PiezoConstants ran";
  EXPECT_EQ(design.BackZ(0), 7500.0 * 4000) << "PiezoLayers ran";
  EXPECT_EQ(design.PZMatl(2).Name, "None");
  EXPECT_EQ(design.FreqStep, 2e6) << "SampleRate ran";
  EXPECT_GT(design.SampleRateHz, 0);
  EXPECT_EQ(design.ZFrontRe(4), 1.5e6) << "CmplxLoad ran";
  EXPECT_TRUE(view.AmplAuto);
  EXPECT_TRUE(view.FreqAuto);
  EXPECT_TRUE(view.TimeAuto);
  EXPECT_EQ(design.DesignNew, 0);
  EXPECT_EQ(window.Caption(), "Halvorne: simple.dat");
  EXPECT_TRUE(window.IsEnabled(Item::kFileSaveAs));
  EXPECT_FALSE(window.IsEnabled(Item::kViewTxExcite)) << "there is no excitation";
  EXPECT_EQ(window.RecentFiles(), Lines{"simple.dat"});
}

TEST_F(DesignFileReader, AnExcitationOpensItsPlots) {
  Replace("\"[ Excitation Waveform Type ]\"\r\n0", "\"[ Excitation Waveform Type ]\"\r\n1");
  simple += "\"[ Excitation Waveform Data ]\"\r\n1\r\n0.5\r\n-0.5\r\n";
  wave.ExciteRe(2) = 9;
  wave.ExciteRe(65535) = 9;
  ReadSimple();
  EXPECT_EQ(shownMessages.Lines(), Lines{});
  EXPECT_TRUE(window.IsEnabled(Item::kViewTxExcite));
  EXPECT_EQ(wave.ExciteRe(1), -0.5);
  EXPECT_EQ(wave.ExciteRe(2), 0) << "samples behind the waveform are zero";
  EXPECT_EQ(wave.ExciteRe(65535), 0);
}

TEST_F(DesignFileReader, WithoutExcitationTheOldWaveformStays) {
  wave.ExciteRe(3) = 9;
  ReadSimple();
  EXPECT_EQ(wave.ExciteRe(3), 9);
}

TEST_F(DesignFileReader, PlotPointsAreClearedEvenWhenTheUserKeepsTheDesign) {
  points.RawData(16000).Y1 = points.PlotData(65535).Y2 = 1;
  points.PlotDataImpulse(0).Y1 = points.PlotDataExcite(65535).Y1 = 1;
  window.SetCaption("Halvorne: " + Path("simple.dat"));
  design.DesignTitle = "edited";
  design.DesignNew = 65535;
  ReadSimple();
  ASSERT_EQ(shownMessages.Shown().size(), 1U);
  const Message& question = shownMessages.Shown()[0];
  EXPECT_EQ(question.title, "File Open");
  EXPECT_EQ(question.text, "Revert to the saved file ?");
  EXPECT_EQ(question.icon, MessageIcon::kQuestion);
  EXPECT_EQ(question.buttons, MessageButtons::kYesNo);
  EXPECT_EQ(question.defaultAnswer, MessageAnswer::kNo);
  EXPECT_EQ(design.DesignTitle, "edited") << "No leaves the design";
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_EQ(points.RawData(16000).Y1, 0);
  EXPECT_EQ(points.PlotData(65535).Y2, 0);
  EXPECT_EQ(points.PlotDataImpulse(0).Y1, 0);
  EXPECT_EQ(points.PlotDataExcite(65535).Y1, 0);
}

TEST_F(DesignFileReader, YesRevertsToTheSavedFile) {
  window.SetCaption("Halvorne: " + Path("simple.dat"));
  design.DesignTitle = "edited";
  shownMessages.AnswerNext(MessageAnswer::kYes);
  ReadSimple();
  EXPECT_EQ(shownMessages.Shown().size(), 1U);
  EXPECT_EQ(design.DesignTitle, "title");
}

TEST_F(DesignFileReader, AnotherCaptionAsksNothing) {
  window.SetCaption("Halvorne: simple.dat");
  ReadSimple();
  EXPECT_EQ(shownMessages.Lines(), Lines{});
}

TEST_F(DesignFileReader, LabelsAreNeverCompared) {
  Replace("[ Electrical Network ]", "any, words");
  Replace("[ Zin Electric Re, Im ]", "");
  Replace("\"[ Tx TF Re, Im ]\"", "unquoted");
  ReadSimple();
  EXPECT_EQ(shownMessages.Lines(), Lines{});
  EXPECT_EQ(design.DesignNew, 0);
}

TEST_F(DesignFileReader, AMissingLabelShiftsEveryLaterValue) {
  Replace("\"[ Electrical terminations on Tx, Rx ]\"\r\n", "");
  ReadSimple();
  ExpectOpenFailure(shownMessages);
  EXPECT_EQ(design.NoFreqPts, 4);
  EXPECT_EQ(design.TermTx, 50) << "the second value: the first was taken for the label";
}

TEST_F(DesignFileReader, LineStructureMeansNothingToTheReader) {
  for (const std::string end : {"\n", "\r", "\r\n\r\n", ",", " \t\r\n\t "}) {
    std::string text = simple;
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; at += end.size()) {
      text.replace(at, 2, end);
    }
    ResetProgram();
    ReadDesignFile(Put("ends.dat", "\xEF\xBB\xBF" + text));
    EXPECT_EQ(shownMessages.Lines(), Lines{}) << "line end '" << end << "'";
    EXPECT_EQ(design.TermRx, 50);
  }
}

TEST_F(DesignFileReader, ARealSideForgetsItsFileAndComment) {
  Replace("#FALSE#\r\n\"blank\"\r\n\"none\"", "#FALSE#\r\n\"old.lac\"\r\n\"old\"");
  ReadSimple();
  EXPECT_EQ(design.ZFrontFile, "blank");
  EXPECT_EQ(design.ZFrontComment, "none");
}

TEST_F(DesignFileReader, AFailureKeepsWhatWasReadAndRefreshesNothing) {
  design.DesignNew = 65535;
  design.ZBackLoad = 7;
  Replace("1500000,3000000", "1600000,x");
  ReadSimple();
  EXPECT_EQ(shownMessages.Shown().size(), 1U);
  ExpectOpenFailure(shownMessages);
  EXPECT_EQ(design.DesignTitle, "title");
  EXPECT_EQ(design.ZFrontLoad, 1.6e6) << "read before the failure";
  EXPECT_EQ(design.ZBackLoad, 7) << "the failed field";
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_EQ(design.SampleRateHz, 0) << "nothing is derived";
  EXPECT_FALSE(view.AmplAuto);
  EXPECT_EQ(window.RecentFiles(), Lines{});
}

TEST_F(DesignFileReader, AGarbledArrayReportsItselfAndTheReadGoesOn) {
  Replace("\"[ Front layer areas ]\"\r\n1", "\"[ Front layer areas ]\"\r\none");
  ReadSimple();
  EXPECT_EQ(shownMessages.Lines(), Lines{"ERROR in AryInput of FILES|Error: 13. Type mismatch"});
  EXPECT_EQ(design.DesignNew, 0);
  EXPECT_EQ(design.TermRx, 50);
}

TEST_F(DesignFileReader, AMissingFileFails) {
  ReadDesignFile(Path("missing.dat"));
  EXPECT_EQ(shownMessages.Shown().size(), 1U);
  ExpectOpenFailure(shownMessages);
}

TEST_F(DesignFileReader, AFolderFails) {
  ReadDesignFile(Folder().string());
  ExpectOpenFailure(shownMessages);
}

// Which format a file has.

TEST_F(DesignFileReader, TheFirstDigitOfTheVersionTellsTheFormat) {
  Replace("Version 4.1.0", "Version 9.9");
  ReadSimple();
  EXPECT_EQ(shownMessages.Lines(), Lines{}) << "any digit but 3 is followed by the format number";
  EXPECT_EQ(design.FileVersionText, "Halvorne for Windows Version 9.9");
  EXPECT_EQ(design.FileFormat, 4);
}

TEST_F(DesignFileReader, AVersionThatStartsWithNoDigitFails) {
  for (const std::string version :
       {"Halvorne for Windows Version x4", "Halvorne ", "", "-4", ".4"}) {
    std::string text = simple;
    text.replace(1, text.find('"', 1) - 1, version);
    shownMessages.Forget();
    ReadDesignFile(Put("version.dat", text));
    ExpectOpenFailure(shownMessages);
    EXPECT_EQ(design.FileVersionText, version);
    EXPECT_EQ(design.DesignTitle, "title") << "read before the version was looked at";
  }
}

TEST_F(DesignFileReader, AVersionOfOneWordWillDo) {
  Replace("Halvorne for Windows Version 4.1.0", "4");
  ReadSimple();
  EXPECT_EQ(shownMessages.Lines(), Lines{});
}

/// The text of a simple design in format 3 from that of format 4.
std::string InFormat3(const std::string& format4, const std::string& head) {
  std::string text = format4;
  const auto cut = [&text](const std::string& from, const std::string& to,
                           const std::string& with) {
    const std::size_t begin = text.find(from);
    const std::size_t end = text.find(to, begin);
    text.replace(begin, end - begin, with);
  };
  cut("\"Halvorne for Windows", "1000000,9000000", head);
  const std::string pairs = "11,12\r\n13,14\r\n15,16\r\n17,18\r\n19,20\r\n";
  cut("#FALSE#\r\n\"blank\"\r\n\"none\"\r\n\"[ Zfront", "#FALSE#,0,0",
      "\"[ Front load ]\"\r\n\"[ Zfront Re, Im ]\"\r\n" + pairs +
          "\"[ Back load ]\"\r\n\"[ Zback Re, Im ]\"\r\n" + pairs);
  return text;
}

class Format3 : public DesignFileReader {
 protected:
  void ReadIt(const std::string& head) {
    design.ZFrontComplex = design.ZBackComplex = true;
    design.ZFrontNormRe(1) = 5;
    design.VelDisp(3, 16000) = 7;
    design.VelDispNames(21, 1) = "old";
    ReadDesignFile(Put("three.dat", InFormat3(simple, head)));
  }
  void ExpectRead() {
    EXPECT_EQ(shownMessages.Lines(), Lines{});
    EXPECT_EQ(design.FileFormat, 3);
    EXPECT_EQ(design.TermRx, 50);
    EXPECT_EQ(design.AttenFreq, 1e6F) << "in step again behind the loads";
    EXPECT_FALSE(design.ZFrontComplex);
    EXPECT_FALSE(design.ZBackComplex);
    EXPECT_EQ(design.ZFrontFile, "blank");
    EXPECT_EQ(design.ZFrontComment, "none");
    EXPECT_EQ(design.ZBackFile, "blank");
    EXPECT_EQ(design.ZBackComment, "none");
    EXPECT_EQ(design.ZFrontRe(1), 1.5e6) << "the stored curves have no effect";
    EXPECT_EQ(design.ZFrontIm(1), 0);
    EXPECT_EQ(design.ZBackRe(4), 3e6);
    EXPECT_EQ(design.ZFrontNormRe(1), 5) << "normalised curves are not touched";
    EXPECT_EQ(design.VelDisp(3, 16000), 1) << "dispersion starts anew";
    EXPECT_EQ(design.VelDisp(0, 0), 1);
    EXPECT_EQ(design.VelDispNames(21, 1), "blank");
    EXPECT_EQ(design.VelDispNames(0, 0), "blank");
  }
};

TEST_F(Format3, IsToldByAVersionThatStartsWith3) {
  ReadIt("\"Halvorne for Windows Version 3.27b\"\r\n\"date\",\"title\"\r\n");
  ExpectRead();
}

TEST_F(Format3, IsToldByTheFormatNumber3Too) {
  ReadIt("\"Halvorne for Windows Version 4.0\"\r\n\"date\",\"title\"\r\n3\r\n");
  ExpectRead();
}

TEST_F(Format3, WhatFollowsTheDigit3DoesNotMatter) {
  ReadIt("\"3rd version\"\r\n\"date\",\"title\"\r\n");
  // The last word is "version": the digit has to stand in the last word.
  ExpectOpenFailure(shownMessages);
  shownMessages.Forget();
  ReadIt("\"version 3rd\"\r\n\"date\",\"title\"\r\n");
  ExpectRead();
}

TEST_F(Format3, ALoadThatWasReadHasNoFileEvenWhenTheRestIsMissing) {
  design.ZFrontFile = design.ZBackFile = "old.lac";
  design.ZFrontComment = design.ZBackComment = "old";
  const std::string text = InFormat3(simple, "\"version 3\"\r\n\"date\",\"title\"\r\n");
  ReadDesignFile(Put("cut.dat", text.substr(0, text.find("\"[ Back load ]\""))));
  ExpectOpenFailure(shownMessages);
  EXPECT_EQ(design.ZFrontFile, "blank");
  EXPECT_EQ(design.ZFrontComment, "none");
  EXPECT_EQ(design.ZBackFile, "old.lac");
  EXPECT_EQ(design.ZBackComment, "old");
}

TEST_F(DesignFileReader, AFormatBetween3And4HasNoDispersion) {
  Replace("\r\n4\r\n", "\r\n3.5\r\n");
  const std::size_t names = simple.find("\"Velocity dispersion file names\"");
  const std::size_t after = simple.find("#FALSE#,0,0", names);
  simple.erase(names, after - names);
  design.VelDisp(0, 0) = 7;
  ReadSimple();
  EXPECT_EQ(shownMessages.Lines(), Lines{});
  EXPECT_EQ(design.FileFormat, 3.5F);
  EXPECT_EQ(design.VelDisp(0, 0), 1);
  EXPECT_EQ(design.VelDispNames(5, 0), "blank");
}

TEST_F(DesignFileReader, AFormatAbove4IsReadAs4) {
  Replace("\r\n4\r\n", "\r\n5\r\n");
  ReadSimple();
  EXPECT_EQ(shownMessages.Lines(), Lines{});
  EXPECT_EQ(design.FileFormat, 5);
}

}  // namespace
}  // namespace halvorne::testing
