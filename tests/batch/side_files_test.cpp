#include <cmath>
#include <filesystem>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

constexpr const char* kImaging = "imaging_5mhz_two_layer";

class BatchSideFiles : public BatchTest {
 protected:
  Table Raw(const char* plot, Words words) const {
    words.insert(words.begin(), {"raw", Shipped(kImaging), "--plot", plot});
    return TablesOf(Output(words)).at(0);
  }
  /// A load file that is the same at each point of the sweep.
  std::string FlatLoad(const std::string& pair) const {
    static const int points = StoredDesign(Shipped(kImaging)).freqPoints;
    std::string text = "Flat\r\n";
    for (int i = 0; i <= points; ++i) {
      text += pair + "\r\n";
    }
    return Write("flat.lac", text);
  }
};

TEST_F(BatchSideFiles, LoadsAreScaledByTheirFiles) {
  for (const auto& [option, plot, field] :
       {std::tuple{"--front-load", "41", "ZFrontLoad"}, {"--back-load", "42", "ZBackLoad"}}) {
    const Table table =
        Raw(plot, {"--set", std::string(field) + "=2e6", option, FlatLoad("0.5,-0.25")});
    for (std::size_t i = 0; i < table.rows.size(); i += 20) {
      EXPECT_DOUBLE_EQ(table.Number(i, 1), 1e6) << option;
      EXPECT_DOUBLE_EQ(table.Number(i, 2), -0.5e6) << option;
    }
  }
}

// A load that is its nominal value at each point is a real one.
TEST_F(BatchSideFiles, LoadOfOneLeavesTheCurves) {
  const Table real = Raw("11", {"--recalc"});
  const Table complex = Raw("11", {"--front-load", FlatLoad("1,0"), "--recalc"});
  const Table half = Raw("11", {"--front-load", FlatLoad("0.5,0"), "--recalc"});
  EXPECT_EQ(complex.rows, real.rows);
  EXPECT_NE(half.rows, real.rows);
}

TEST_F(BatchSideFiles, NamesAreStoredWithTheirFolder) {
  FlatLoad("1,0");
  const std::string beside = std::filesystem::relative(Path("flat.lac")).string();
  const std::string info = Output({"info", Shipped(kImaging), "--front-load", beside});
  EXPECT_NE(info.find("frequency dependent from " + Path("flat.lac")), std::string::npos) << info;
}

TEST_F(BatchSideFiles, BurstIsSampledBounded) {
  // Plot 17's excitation pane shows the samples.
  const auto samples = [&](const std::string& burst) {
    const Table table = TablesOf(Output({"data", Shipped(kImaging), "--plot", "17", "--pane",
                                         "excite", "--burst", burst}))
                            .at(0);
    double peak = 0;
    std::size_t count = 0;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
      peak = std::max(peak, std::abs(table.Number(i, 1)));
      count += table.Number(i, 1) != 0 ? 1 : 0;
    }
    EXPECT_NEAR(peak, 1, 1e-6) << burst;
    return count;
  };
  const std::size_t two = samples("5e6,2,0,0,512");
  const std::size_t four = samples("5e6,4,0,0,512");
  EXPECT_NEAR(static_cast<double>(four), 2.0 * static_cast<double>(two),
              0.1 * static_cast<double>(four));
  EXPECT_EQ(samples("-5e6,-2,0,0,512"), two) << "signs are left out";
  EXPECT_GT(samples("5e6,2,0,0,512,square"), 0U);
}

TEST_F(BatchSideFiles, BurstGoesTheWayOfItsFields) {
  const Words plot{"data", Shipped(kImaging), "--plot", "17", "--pane", "excite"};
  Words burst = plot;
  burst.insert(burst.end(), {"--burst", "5e6,2,1e-7,90,512,square"});
  Words fields = plot;
  for (const char* field : {"ExciteType=1", "ExciteWave=2", "ExciteFreq=5e6", "ExciteCycles=2",
                            "ExciteDelay=1e-7", "ExcitePhase=90", "ExcitePoints=512"}) {
    fields.insert(fields.end(), {"--set", field});
  }
  EXPECT_EQ(Output(burst), Output(fields)) << "a square wave has a peak of 1 anyway";
}

TEST_F(BatchSideFiles, ExcitationFileIsTakenWithAPeakOfOne) {
  const std::string file = Write("pulse.xct", "A pulse\r\n0\r\n0.25\r\n-0.5\r\n");
  const Words info{"info", Shipped(kImaging), "--excitation", file};
  EXPECT_NE(Output(info).find("file " + file + ", 4 points"), std::string::npos) << Output(info);
  const Table table = TablesOf(Output({"data", Shipped(kImaging), "--plot", "17", "--pane",
                                       "excite", "--excitation", file}))
                          .at(0);
  EXPECT_NEAR(table.Number(1, 1), 0.5, 1e-9);
  EXPECT_NEAR(table.Number(2, 1), -1, 1e-9);
  EXPECT_NEAR(table.Number(3, 1), 0, 1e-9);
}

TEST_F(BatchSideFiles, WhatCannotBeReadIsToldAndTheRestIsDone) {
  const auto told = [&](const Words& words, const std::string& box) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find(box), std::string::npos) << outcome.err;
    EXPECT_FALSE(outcome.out.empty());
  };
  const std::string in = Shipped(kImaging);
  told({"info", in, "--front-load", Path("none.lac")},
       "open Front Acoustic Load file: The following error occured: \nError # 53\nFile not found");
  told({"info", in, "--back-load", Write("bad.lac", "c\n1,2\nx\n")},
       "open Rear Acoustic Load file: The following error occured: \nError # 13\nType mismatch");
  told({"info", in, "--excitation", Write("bad.xct", "c\n1\nx\n")},
       "OpenExciteFile_Click: The following error occured: \nError # 13\nType mismatch");
}

TEST_F(BatchSideFiles, WhatCannotBeMeantIsStatusTwo) {
  const std::string in = Shipped(kImaging);
  for (const Words& words : std::vector<Words>{{"--burst", "5e6,2,0,0"},
                                               {"--burst", "5e6,2,0,0,512,round"},
                                               {"--burst", "5e6,2,0,0,512,square,square"},
                                               {"--burst", "5e6,two,0,0,512"},
                                               {"--burst", "5e6,1e300,0,0,512"},
                                               {"--burst", ""},
                                               {"--burst", "5e6,2,0,0,512", "--excitation", "x"}}) {
    Words line{"info", in};
    line.insert(line.end(), words.begin(), words.end());
    const Outcome outcome = Run(line);
    EXPECT_EQ(outcome.status, 2) << ::testing::PrintToString(words);
    EXPECT_NE(outcome.err.find("--burst"), std::string::npos) << outcome.err;
  }
}

}  // namespace
}  // namespace halvorne::testing
