#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

using BatchCommandLine = BatchTest;

const std::string kFile = Shipped("imaging_5mhz_two_layer");

struct WrongLine {
  Words words;
  const char* complaint;
};

TEST_F(BatchCommandLine, WhatCannotBeMeantIsStatusTwoAndSaysWhatIsWrong) {
  const std::vector<WrongLine> lines = {
      {{}, "the command is missing"},
      {{""}, "there is no command ''"},
      {{"bogus"}, "there is no command 'bogus'"},
      {{"info"}, "the design file is missing"},
      {{"info", ""}, "the design file is missing"},
      {{"info", kFile, "extra"}, "'extra' is one word too many"},
      {{"info", kFile, "--plot", "11"}, "--plot means nothing to info"},
      {{"info", kFile, "-platform", "none"}, "Unknown option"},
      {{"info", kFile, "-style=none"}, "Unknown option"},
      {{"info", kFile, "--bogus"}, "Unknown option 'bogus'"},
      {{"raw", kFile}, "--plot N is missing"},
      {{"raw", kFile, "--plot"}, "Missing value after '--plot'"},
      {{"raw", kFile, "--plot", ""}, "'' is not a number"},
      {{"raw", kFile, "--plot", "x"}, "'x' is not a number"},
      {{"raw", kFile, "--plot", "18"}, "there is no plot 18"},
      {{"raw", kFile, "--plot", "-11"}, "--plot: '-11'"},
      {{"raw", kFile, "--plot", "11.5"}, "'11.5' is not a whole number"},
      {{"raw", kFile, "--plot", "99999999999999999999"}, "--plot"},
      {{"raw", kFile, "--plot", "11", "--plot", "12"}, "--plot is given more than once"},
      {{"raw", kFile, "--plot", "11", "--form", "1"}, "--form means nothing to raw"},
      {{"data", kFile, "--plot", "11", "--form", "6"}, "plot 11 has 6 forms, from 0 to 5"},
      {{"data", kFile, "--plot", "33", "--form", "9"}, "plot 33 has 9 forms, from 0 to 8"},
      {{"data", kFile, "--plot", "31", "--form", "-1"}, "--form: '-1'"},
      {{"data", kFile, "--plot", "11", "--pane", "impulse"}, "plot 11 has one pane"},
      {{"data", kFile, "--plot", "17", "--pane", "x"}, "'x' is not response, impulse or excite"},
      {{"plot", kFile, "--plot", "11", "--size", "99x100", "-o", "a.png"}, "--size"},
      {{"plot", kFile, "--plot", "11", "--size", "100000x100", "-o", "a.png"}, "--size"},
      {{"plot", kFile, "--plot", "11", "--size", "200x200x200", "-o", "a.png"}, "--size"},
      {{"plot", kFile, "--plot", "11", "-o", "a.gif"}, "ends in .png, .svg or .pdf"},
      {{"recalc", kFile}, "-o FILE is missing"},
      {{"recalc", kFile, "-o", ""}, "the file has no name"},
      {{"convert", kFile}, "-o FILE is missing"},
      {{"savedata", kFile, "--plot", "11"}, "-o FILE is missing"},
      {{"raw", kFile, "--plot", "11", "-o", "a", "-o", "b"}, "more than once"},
      {{"info", kFile, "--phase", "3"}, "--phase: '3' is not from 0 to 2"},
      {{"info", kFile, "--phase", "nan"}, "--phase: 'nan' is not a number"},
      {{"info", kFile, "--log-range", "0.5"}, "--log-range"},
      {{"info", kFile, "--log-range", "1e999"}, "--log-range"},
      {{"info", kFile, "--time-window", "100"}, "--time-window"},
      {{"info", kFile, "--ampl-window", "4"}, "--ampl-window"},
      {{"help", "bogus"}, "there is no help on 'bogus'"},
  };
  for (const WrongLine& line : lines) {
    SCOPED_TRACE(::testing::PrintToString(line.words));
    const Outcome run = Run(line.words);
    EXPECT_EQ(run.status, 2) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find(line.complaint), std::string::npos) << run.err;
    EXPECT_TRUE(run.err.starts_with("halvorne-batch: ")) << run.err;
  }
}

struct WrongSetting {
  const char* text;
  const char* complaint;
};

TEST_F(BatchCommandLine, AWrongSettingIsStatusTwoAndSaysWhatIsWrong) {
  const std::vector<WrongSetting> settings = {
      {"", "not of the form NAME=VALUE"},
      {"TermTx", "not of the form NAME=VALUE"},
      {"=3", "not of the form NAME=VALUE"},
      {"Bogus=3", "the design has no such field"},
      {"termtx=3", "the field is called TermTx"},
      {"TermTx=", "'' is not a number"},
      {"TermTx=abc", "'abc' is not a number"},
      {"TermTx=5 ohms", "'5 ohms' is not a number"},
      {"TermTx=0x10", "'0x10' is not a number"},
      {"TermTx=nan", "'nan' is not a number"},
      {"TermTx=inf", "'inf' is not a number"},
      {"TermTx=1E999", "beyond the range of numbers"},
      {"TermTx(1)=3", "the field is called TermTx"},
      {"AttenLength=1e39", "'1e39' is too large"},
      {"NoFace=32768", "'32768' is too large"},
      {"NoFace=11", "must be from 0 to 10"},
      {"NoFace=1.5", "not a whole number"},
      {"NoPiezo=3", "must be 1 or 2"},
      {"NoFreqPts=16001", "must be from 1 to 16000"},
      {"NoTimePts=1000", "must be a power of two"},
      {"AttenOn=maybe", "neither true nor false"},
      {"DesignTitle=a \" quote", "no double quote"},
      {"FrontThick=1", "the field is called FrontThick(0 to 25)"},
      {"FrontThick(26)=1", "index 26 is out of bounds"},
      {"FrontThick(-1)=1", "index -1 is out of bounds"},
      {"FrontThick()=1", "'' is not a number"},
      {"FrontThick(1,2)=1", "the field is called FrontThick(0 to 25)"},
      {"FrontThick(1=1", "parentheses do not match"},
      {"FrontThick)1(=1", "parentheses do not match"},
      {"FrontThick(99999999999)=1", "too large"},
      {"ElNet(0,1)=1", "index 0 is out of bounds"},
      {"ElNet(1,7)=1", "index 7 is out of bounds"},
      {"ElNet(21,1)=1", "index 21 is out of bounds"},
      {"PZMatl(3).Velocity=1", "index 3 is out of bounds"},
      {"PZMatl(1).Bogus=1", "the design has no such field"},
      {"PZMatl(1)=1", "the design has no such field"},
  };
  for (const WrongSetting& setting : settings) {
    SCOPED_TRACE(setting.text);
    const Outcome run = Run({"info", kFile, "--set", setting.text});
    EXPECT_EQ(run.status, 2) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find(setting.complaint), std::string::npos) << run.err;
  }
}

TEST_F(BatchCommandLine, TheHelpNamesEveryCommandAndOption) {
  const std::string help = Output({"help"});
  for (const char* word : {"recalc IN",
                           "convert IN",
                           "raw IN",
                           "data IN",
                           "inspect IN",
                           "plot IN",
                           "stats IN",
                           "graphdata IN",
                           "savedata IN",
                           "info IN",
                           "measure IN",
                           "--measure NAME",
                           "--variants FILE",
                           "materials [piezo|acoustic]",
                           "help",
                           "--version",
                           "--plot",
                           "--form",
                           "--pane",
                           "--size",
                           "--table",
                           "--find",
                           "--material",
                           "--set",
                           "--recalc",
                           "--phase",
                           "--log-range",
                           "--time-window",
                           "--ampl-window",
                           "--accept-aliasing",
                           "--force"}) {
    EXPECT_NE(help.find(word), std::string::npos) << word;
  }
  EXPECT_EQ(Output({"--help"}), help);
  for (const std::string& line : LinesOf(help)) {
    EXPECT_LE(line.size(), 100U) << line;
  }
}

TEST_F(BatchCommandLine, TheVersionIsThatOfTheFilesItWrites) {
  EXPECT_EQ(Output({"--version"}), "halvorne-batch 4.1.0\n");
}

TEST_F(BatchCommandLine, OptionsMayStandAnywhereAndBeJoinedToTheirValue) {
  const std::string expected = Output({"raw", kFile, "--plot", "31", "--phase", "1"});
  EXPECT_EQ(Output({"--phase=1", "raw", "--plot=31", kFile}), expected);
}

TEST_F(BatchCommandLine, AFileWhoseNameStartsWithADashFollowsTwoDashes) {
  const Outcome run = Run({"info", "--", "-missing.dat"});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("-missing.dat could not be read"), std::string::npos) << run.err;
}

TEST_F(BatchCommandLine, AliasingIsRefusedUnlessItIsAccepted) {
  // Eight thousandths of the record: a sample rate below twice the sweep's upper end.
  const Words words{"data", kFile, "--plot", "33", "--set", "NoTimePts=256"};
  const Outcome refused = Run(words);
  EXPECT_EQ(refused.status, 1) << refused.err;
  EXPECT_EQ(refused.out, "");
  EXPECT_NE(refused.err.find("--accept-aliasing"), std::string::npos) << refused.err;
  Words accepted = words;
  accepted.emplace_back("--accept-aliasing");
  const Outcome run = Run(accepted);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(TablesOf(run.out).at(0).rows.size(), 256U);
  EXPECT_NE(run.err, "") << "the warning is told all the same";
}

}  // namespace
}  // namespace halvorne::testing
