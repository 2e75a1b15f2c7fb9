#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

constexpr const char* kBurst = "burst_3mhz_dispersive";
constexpr const char* kMeasures =
    "bandwidth6,peak,insertionLoss,impedance@3e6,pulseWidth6,pulsePeak:34,value:42.2@3e6";

class BatchVariants : public BatchTest {
 protected:
  std::vector<std::string> Lines(const std::string& variants, Words more = {}) const {
    return LinesOfDesign(file, variants, std::move(more));
  }
  std::vector<std::string> LinesOfDesign(const std::string& design, const std::string& variants,
                                         Words more) const {
    Words words{"measure", design, "--variants", Write("variants.txt", variants)};
    words.insert(words.end(), more.begin(), more.end());
    return LinesOf(Output(words));
  }
  static std::string ErrorIn(const std::string& line) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(line))
        .object()["error"]
        .toString()
        .toStdString();
  }
  /// The line without its first member, the number.
  static std::string BehindNumber(const std::string& line) {
    return "{" + line.substr(line.find(',') + 1);
  }

  const std::string file = Shipped(kBurst);
};

TEST_F(BatchVariants, AreWhatRunsOfTheProgramFindOneByOne) {
  const std::vector<Words> variants{{"FrontThick(1)=0.00025"}, {"PZThick(1)=0.0006", "TermTx=75"},
                                    {"ExciteCycles=4"},        {"ZBackLoad=3e6"},
                                    {"NoTimePts=4096"},        {"ElNet(1,1)=1", "ElNet(1,2)=12"},
                                    {"PZMatl(1).Kt=0.45"},     {"FrontThick(1)=0.00025"}};
  std::string text;
  std::vector<std::string> expected;
  for (const Words& settings : variants) {
    Words words{"measure", file, "--recalc", "--measure", kMeasures};
    for (const std::string& setting : settings) {
      text += setting + " ";
      words.insert(words.end(), {"--set", setting});
    }
    text += "\n";
    expected.push_back(LinesOf(Output(words)).at(0));
  }
  const std::vector<std::string> lines = Lines(text, {"--measure", kMeasures});
  ASSERT_EQ(lines.size(), variants.size());
  for (std::size_t k = 0; k < lines.size(); ++k) {
    EXPECT_EQ(BehindNumber(lines[k]), expected[k]) << variants[k][0];
  }
}

TEST_F(BatchVariants, OfFrequenciesAreWhatRunsFindAndTheLossOfComplexLoadsIsToldOnce) {
  const std::string list = Write("v.txt", "FreqStop=7e6\nTermTx=60\nFreqStart=1e6 NoFreqPts=99\n");
  const Outcome all = Run({"measure", file, "--variants", list});
  const std::vector<std::string> lines = LinesOf(all.out);
  ASSERT_EQ(lines.size(), 3u);
  const Outcome third =
      Run({"measure", file, "--recalc", "--set", "FreqStart=1e6", "--set", "NoFreqPts=99"});
  EXPECT_EQ(BehindNumber(lines[2]), LinesOf(third.out).at(0));
  EXPECT_EQ(BehindNumber(lines[1]),
            LinesOf(Output({"measure", file, "--recalc", "--set", "TermTx=60"})).at(0));
  EXPECT_EQ(all.err, third.err) << "one note, whatever the number of variants";
}

TEST_F(BatchVariants, MeasurementsOfADesignAreThoseOfItsGrids) {
  const std::string stats = Output({"stats", file, "--plot", "31"});
  const QJsonObject measured =
      QJsonDocument::fromJson(QByteArray::fromStdString(Output({"measure", file}))).object();
  const std::vector<std::string> row = FieldsOf(LinesOf(stats).at(4), '\t');
  ASSERT_EQ(row.at(0), "-6");
  EXPECT_NEAR(measured["centre6"].toDouble() * 1e-6, std::stod(row.at(1)), 5.1e-4);
  EXPECT_NEAR(measured["bandwidth6"].toDouble() * 1e-6, std::stod(row.at(2)), 5.1e-4);
  EXPECT_NEAR(measured["relativeBandwidth6"].toDouble(), std::stod(row.at(3)), 5.1e-3);
}

TEST_F(BatchVariants, ThatAreWrongSayWhyAndTheRestGoesOn) {
  const std::vector<std::string> lines =
      LinesOfDesign(Shipped("imaging_5mhz_two_layer"),
                    "# a comment\r\n\r\nTermTx=60\r\nNoSuch=1\n  # another\nTermTx\nNoFace=11\n"
                    "\"DesignTitle=in two words\" --set TermTx=60\nDesignTitle=\"open\nFreqStop=0 "
                    "FreqStart=0\n" +
                        std::string(70'000, 'x') + "\nTermTx=60",
                    {"--measure", "peak"});
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[0].substr(0, 17), R"({"line":3,"peak":)");
  EXPECT_EQ(ErrorIn(lines[1]),
            "NoSuch=1: the design has no such field; 'halvorne-batch help fields' lists all");
  EXPECT_EQ(ErrorIn(lines[2]), "TermTx: it is not of the form NAME=VALUE");
  EXPECT_EQ(ErrorIn(lines[3]), "NoFace=11: the value must be from 0 to 10");
  EXPECT_EQ(BehindNumber(lines[4]), BehindNumber(lines[0]));
  EXPECT_EQ(ErrorIn(lines[5]), "a double quote is not closed");
  EXPECT_NE(ErrorIn(lines[6]), "") << "a sweep of no width";
  EXPECT_EQ(ErrorIn(lines[7]), "the line is longer than 65536 bytes");
  EXPECT_EQ(lines[8].substr(0, 11), R"({"line":12,)");
  EXPECT_EQ(BehindNumber(lines[8]), BehindNumber(lines[0]));
}

TEST_F(BatchVariants, GoToAFileOrToStandardOutputAlike) {
  const std::string list = Write("v.txt", "TermTx=60\nTermTx=70\n");
  const std::string out = Output({"measure", file, "--variants", list});
  EXPECT_EQ(Output({"measure", file, "--variants", list, "-o", Path("out.json")}), "");
  EXPECT_EQ(ReadFile(Path("out.json")), out);
  const Outcome streamed = Run({"measure", file, "--variants", "/dev/stdin"}, {.inFrom = list});
  EXPECT_EQ(streamed.out, out);
}

TEST_F(BatchVariants, OfAFileThatIsNotThereAreAFailure) {
  const Outcome run = Run({"measure", file, "--variants", Path("none.txt")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "halvorne-batch: " + Path("none.txt") +
                         " could not be read: No such file or directory\n");
  EXPECT_EQ(run.out, "");
}

TEST_F(BatchVariants, ManyTakeNoMoreMemoryThanFew) {
  const std::string tiny = Path("tiny.dat");
  Run({"recalc", Shipped("ndt_2p25mhz_heavy_backing"), "--set", "NoFreqPts=10", "-o", tiny});
  std::string many;
  for (int k = 0; k < 20'000; ++k) {
    many += "TermTx=" + std::to_string(50 + k % 7) + "\n";
  }
  const std::string out = Path("out.json");
  const auto peak = [&](const std::string& list) {
    const Outcome run = Run({"measure", tiny, "--variants", list, "-o", out});
    EXPECT_EQ(run.status, 0) << run.err;
    return run.peakKib;
  };
  const long few = peak(Write("few.txt", "TermTx=50\n"));
  // The file itself, mapped once it is whole, is not the program's own.
  const long fileKib = 20'000L * 300 / 1024;
  EXPECT_LT(peak(Write("many.txt", many)), few + fileKib + 2048);
  EXPECT_EQ(LinesOf(ReadFile(out)).size(), 20'000u);
}

TEST_F(BatchVariants, HelpNamesEveryMeasureThatTheyKnow) {
  const std::string help = Output({"help", "measures"});
  for (const char* name : {"bandwidthL", "centreL", "peak ", "pulseWidthL", "insertionLoss",
                           "impedance@X", "value:N.K@X"}) {
    EXPECT_NE(help.find(name), std::string::npos) << name;
  }
}

TEST_F(BatchVariants, WrongMeasuresAreAWrongCommandLine) {
  const Outcome run = Run({"measure", file, "--measure", "peak,width"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "halvorne-batch: --measure width: there is no such measure; "
            "'halvorne-batch help measures' lists all\n");
  EXPECT_EQ(Run({"info", file, "--measure", "peak"}).status, 2);
}

}  // namespace
}  // namespace halvorne::testing
