#include <filesystem>
#include <random>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

constexpr long kMostKib = 300L * 1024;
const std::string kOpenFailure =
    "Halvorne: Error encountered while trying to open file, please retry.\n";

class BatchBadInput : public BatchTest {
 protected:
  /// Reads bytes as a design and expects the box of a file that could not be opened.
  void ExpectRefused(const std::string& name, const std::string& bytes) const {
    const Outcome run = Run({"info", Write(name, bytes)});
    EXPECT_EQ(run.status, 1) << name << run.err;
    EXPECT_NE(run.err.find(kOpenFailure), std::string::npos) << name << run.err;
    EXPECT_EQ(run.out, "") << name;
    EXPECT_LE(run.peakKib, kMostKib) << name;
  }
  const std::string good = ReadFile(Shipped("burst_3mhz_dispersive"));
};

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
    text.replace(at, what.size(), with);
  }
  return text;
}

/// The text with one line, counted from 1, put in place of what stood there.
std::string WithLine(const std::string& text, std::size_t number, const std::string& line) {
  std::string changed;
  const auto lines = LinesOf(text);
  for (std::size_t k = 0; k < lines.size(); ++k) {
    changed += (k + 1 == number ? line : lines[k]) + "\r\n";
  }
  return changed;
}

std::size_t LineOf(const std::string& text, const std::string& label) {
  const auto lines = LinesOf(text);
  for (std::size_t k = 0; k < lines.size(); ++k) {
    if (lines[k] == label) {
      return k + 1;
    }
  }
  ADD_FAILURE() << "no line " << label;
  return 0;
}

TEST_F(BatchBadInput, FilesThatAreNoDesignAreRefused) {
  ExpectRefused("empty", "");
  ExpectRefused("blank", std::string(1000, ' '));
  ExpectRefused("line_ends", std::string(100000, '\n'));
  ExpectRefused("zeros", std::string(100000, '\0'));
  ExpectRefused("quote", "\"");
  ExpectRefused("quotes", std::string(10001, '"'));
  ExpectRefused("commas", std::string(100000, ','));
  ExpectRefused("digits", std::string(1000000, '9'));
  ExpectRefused("program", ReadFile(HALVORNE_BINARY_DIR "/program/halvorne-batch"));
}

TEST_F(BatchBadInput, ACutOffDesignIsRefusedWhereverItEnds) {
  for (const double share : {0.0001, 0.001, 0.01, 0.05, 0.2, 0.5, 0.9, 0.999}) {
    const auto length = static_cast<std::size_t>(share * static_cast<double>(good.size()));
    ExpectRefused("cut_off_at_" + std::to_string(length), good.substr(0, length));
  }
}

TEST_F(BatchBadInput, CountsOutOfBoundsAreRefused) {
  const std::size_t plates = LineOf(good, "\"[ Number of face and back layers ]\"") + 1;
  ExpectRefused("plates", WithLine(good, plates, "11,1"));
  ExpectRefused("many_plates", WithLine(good, plates, "99999,1"));
  const std::size_t layers =
      LineOf(good, "\"[ Number of piezoelectric layers and connectivity ]\"");
  ExpectRefused("layers", WithLine(good, layers + 1, "3,0,\"None\""));
  const std::size_t points = LineOf(good, "\"[ Number of points in frequency, time domains ]\"");
  ExpectRefused("overflow", WithLine(good, points + 1, "99999999999,4096"));
}

TEST_F(BatchBadInput, ImpossiblePointCountsEndInABoxAndNotInACrash) {
  const std::size_t points = LineOf(good, "\"[ Number of points in frequency, time domains ]\"");
  for (const char* counts :
       {"16001,4096", "2000000000,4096", "-1,4096", "0,4096", "275,0", "275,-5", "275,-2147483648",
        "275,1000", "275,70000", "275,2147483647"}) {
    const std::string file = Write("counts", WithLine(good, points + 1, counts));
    for (const char* plot : {"17", "33"}) {
      const Outcome run = Run({"data", file, "--plot", plot, "--accept-aliasing", "--recalc"});
      EXPECT_EQ(run.status, 1) << counts << " " << plot << run.err;
      EXPECT_NE(run.err, "") << counts;
      EXPECT_LE(run.peakKib, kMostKib) << counts;
    }
  }
}

TEST_F(BatchBadInput, ABurstOfImpossiblePointCountIsNotSampledAnew) {
  const std::size_t generator = LineOf(good, "\"[ Function Generator Settings ]\"") + 1;
  for (const char* count : {"65536", "70000", "2147483647", "-2", "-2147483648"}) {
    const std::string settings = std::string("1,3000000,5,1E-06,0,") + count;
    const std::string file = Write("burst", WithLine(good, generator, settings));
    const Outcome run = Run({"data", file, "--plot", "17", "--set", "ExciteCycles=2"});
    EXPECT_EQ(run.status, 1) << count;
    EXPECT_NE(run.err.find("the design's ExcitePoints, " + std::string(count) + ", must be"),
              std::string::npos)
        << run.err;
    EXPECT_EQ(run.out, "");
  }
}

TEST_F(BatchBadInput, TextsAndHugeNumbersInNumberFieldsAreRefused) {
  ExpectRefused("text", WithLine(good, 4, "\"half\",6000000"));
  ExpectRefused("word", WithLine(good, 4, "half,6000000"));
  ExpectRefused("huge", WithLine(good, 4, "1E999,6000000"));
  ExpectRefused("nan", WithLine(good, 4, "nan,6000000"));
  ExpectRefused("lone_quote", WithLine(good, 2, "\"11/21/26\",\"open"));
}

TEST_F(BatchBadInput, OtherLineEndsLeadingBlanksAndAByteOrderMarkAreRead) {
  const std::string expected = Output({"raw", Shipped("burst_3mhz_dispersive"), "--plot", "31"});
  const auto raw = [&](const std::string& name, const std::string& bytes) {
    return Output({"raw", Write(name, bytes), "--plot", "31"});
  };
  EXPECT_EQ(raw("lf", Replaced(good, "\r\n", "\n")), expected);
  EXPECT_EQ(raw("cr", Replaced(good, "\r\n", "\r")), expected);
  std::string mixed = good;
  mixed.erase(mixed.find("\r\n"), 1);
  EXPECT_EQ(raw("mixed", mixed), expected);
  EXPECT_EQ(raw("mark", std::string("\xEF\xBB\xBF").append(good)), expected);
  EXPECT_EQ(raw("blanks", Replaced(good, "\r\n", "\r\n  \t")), expected);
}

TEST_F(BatchBadInput, TenMegabytesOfNoiseTakeUnderASecond) {
  std::mt19937 random(20260214);
  std::string noise;
  noise.resize(10'000'000);
  for (char& c : noise) {
    c = static_cast<char>(random());
  }
  for (const bool behindAHead : {false, true}) {
    const std::string bytes = behindAHead ? good.substr(0, 3000) + noise : noise;
    const Outcome run = Run({"info", Write("noise", bytes)});
    EXPECT_EQ(run.status, 1);
    EXPECT_LT(run.seconds, 1);
    EXPECT_LE(run.peakKib, kMostKib);
  }
}

TEST_F(BatchBadInput, AGiantFileAndAnEndlessOneAreRefusedInBoundedMemory) {
  Write("giant", "");
  std::filesystem::resize_file(Path("giant"), std::uintmax_t{3} << 30);
  for (const std::string& file : {Path("giant"), std::string("/dev/zero")}) {
    const Outcome run = Run({"info", file});
    EXPECT_EQ(run.status, 1) << file;
    EXPECT_LE(run.peakKib, kMostKib) << file;
    EXPECT_LT(run.seconds, 3) << file;
  }
}

TEST_F(BatchBadInput, FilesThatAreNotThereOrAreFoldersAreRefused) {
  for (const std::string& file : {Path("missing"), Path("."), std::string("/dev/null")}) {
    const Outcome run = Run({"recalc", file, "-o", Path("out.dat")});
    EXPECT_EQ(run.status, 1) << file;
    EXPECT_NE(run.err.find(kOpenFailure), std::string::npos) << run.err;
    EXPECT_EQ(ReadFile(Path("out.dat")), "") << "an output without an input";
  }
}

TEST_F(BatchBadInput, GarbledDesignsNeverEndTheProgramByASignal) {
  std::mt19937 random(4711);
  for (int round = 0; round < 60; ++round) {
    std::string bytes = good;
    for (int change = 0; change < 20; ++change) {
      bytes[random() % bytes.size()] = static_cast<char>(random());
    }
    const Outcome run =
        Run({"inspect", Write("garbled", bytes), "--plot", "34", "--form", "6", "--recalc"});
    EXPECT_TRUE(run.status == 0 || run.status == 1) << "round " << round << ": " << run.status;
    EXPECT_EQ(run.status == 0, run.err.empty()) << run.err;
  }
}

TEST_F(BatchBadInput, ASweepInWhichEveryPointFailsTellsEachBoxOnceWithItsCount) {
  const Outcome run = Run({"recalc", Shipped("imaging_5mhz_two_layer"), "--set",
                           "PZMatl(1).Velocity=0", "-o", Path("out.dat")});
  EXPECT_EQ(run.status, 1);
  const auto lines = LinesOf(run.err);
  EXPECT_LE(lines.size(), 10U);
  bool counted = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_TRUE(lines[i].starts_with("ERROR in ")) << lines[i];
    EXPECT_NE(lines[i].find(": Error: 11. Division by zero"), std::string::npos) << lines[i];
    counted = counted || lines[i].ends_with(" times)");
    for (std::size_t k = 0; k < i; ++k) {
      EXPECT_NE(lines[i].substr(0, lines[i].find(" (")), lines[k].substr(0, lines[k].find(" (")));
    }
  }
  EXPECT_TRUE(counted) << run.err;
  EXPECT_LT(run.seconds, 5);
  EXPECT_EQ(StoredDesign(Path("out.dat")).freqPoints,
            StoredDesign(Shipped("imaging_5mhz_two_layer")).freqPoints)
      << "the design is written all the same";
}

}  // namespace
}  // namespace halvorne::testing
