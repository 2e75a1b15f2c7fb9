#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "batch/batch_run.h"

// Designs and outputs that are no regular files.

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

const std::string kOpenFailure =
    "Halvorne: Error encountered while trying to open file, please retry.\n";

class BatchStreams : public BatchTest {
 protected:
  std::string Pipe(const std::string& name) const {
    EXPECT_EQ(mkfifo(Path(name).c_str(), 0600), 0);
    return Path(name);
  }
  /// What `command` makes of the design that comes through a pipe.
  std::string OutputOfPiped(const std::string& command) const {
    const std::string program = HALVORNE_BINARY_DIR "/program/halvorne-batch";
    std::string out;
    FILE* const shell = popen(("cat '" + file + "' | '" + program + "' " + command).c_str(), "r");
    for (int c = 0; (c = std::fgetc(shell)) != EOF;) {
      out += static_cast<char>(c);
    }
    EXPECT_EQ(pclose(shell), 0) << command;
    return out;
  }

  const std::string file = Shipped("imaging_5mhz_two_layer");
  const std::string bytes = ReadFile(file);
};

TEST_F(BatchStreams, ADesignThatIsAPipeADeviceOrAFolderIsRefusedAtOnce) {
  for (const std::string& in : {Pipe("pipe"), Path("."), std::string("/dev/zero"),
                                std::string("/dev/null"), std::string("/dev/full")}) {
    const Outcome run = Run({"info", in});
    EXPECT_EQ(run.status, 1) << in;
    EXPECT_THAT(run.err, HasSubstr(kOpenFailure)) << in;
    EXPECT_LT(run.peakKib, 100L * 1024) << in << " was read from";
  }
}

TEST_F(BatchStreams, ADesignComesFromStandardInput) {
  const std::string expected = Output({"raw", file, "--plot", "31"});
  for (const char* in : {"/dev/stdin", "/dev/fd/0", "/proc/self/fd/0"}) {
    const Outcome run = Run({"raw", in, "--plot", "31"}, {.inFrom = file});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, expected) << in;
    EXPECT_EQ(OutputOfPiped(std::string("raw --plot 31 ") + in), expected) << in;
  }
  EXPECT_THAT(Run({"info", "/dev/stdin"}, {.inFrom = file}).out, HasSubstr("/dev/stdin, format 4"));
}

TEST_F(BatchStreams, AFileBesideTheDesignComesFromStandardInput) {
  std::string numbers = "From a stream\r\n";
  for (int k = 0; k <= 2000; ++k) {
    numbers += "0.5\r\n";
  }
  const std::string side = Write("side", numbers);
  for (const auto& [option, before] : {std::pair{"--front-load", ""},
                                       {"--back-load", ""},
                                       {"--excitation", ""},
                                       {"--dispersion", "0="}}) {
    const std::string fromFile =
        Output({"convert", file, option, before + side, "-o", "/dev/stdout"});
    const Outcome run =
        Run({"convert", file, option, std::string(before) + "/dev/stdin", "-o", "/dev/stdout"},
            {.inFrom = side});
    EXPECT_EQ(run.status, 0) << run.err;
    // They differ in the name alone.
    const auto expected = LinesOf(fromFile);
    const auto lines = LinesOf(run.out);
    ASSERT_EQ(lines.size(), expected.size()) << option;
    std::size_t named = 0;
    for (std::size_t k = 0; k < lines.size(); ++k) {
      if (lines[k] != expected[k]) {
        ++named;
        EXPECT_THAT(lines[k], HasSubstr("stdin\"")) << option;
        EXPECT_THAT(expected[k], HasSubstr("side\"")) << option;
      }
    }
    EXPECT_EQ(named, 1U) << option;
  }
}

TEST_F(BatchStreams, StandardInputThatIsNoDesignIsToldOf) {
  Write("none.dat", "none");
  const Outcome none = Run({"info", "/dev/stdin"}, {.inFrom = Path("none.dat")});
  EXPECT_EQ(none.status, 1);
  EXPECT_THAT(none.err, HasSubstr(kOpenFailure));
  const Outcome endless = Run({"info", "/dev/stdin"}, {.inFrom = "/dev/zero"});
  EXPECT_EQ(endless.status, 1);
  EXPECT_LT(endless.peakKib, 400L * 1024);
  const Outcome folder = Run({"info", "/dev/fd/77"});
  EXPECT_EQ(folder.status, 1);
  EXPECT_THAT(folder.err, HasSubstr("/dev/fd/77 could not be read: Bad file descriptor"));
}

TEST_F(BatchStreams, AnyOutputGoesToStandardOutputByItsName) {
  for (const char* out : {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
    EXPECT_EQ(Output({"convert", file, "-o", out}), bytes) << "nothing there is overwritten";
    EXPECT_EQ(Output({"raw", file, "--plot", "31", "-o", out}),
              Output({"raw", file, "--plot", "31"}));
    EXPECT_EQ(OutputOfPiped(std::string("convert /dev/stdin -o ") + out), bytes);
  }
}

TEST_F(BatchStreams, AnOutputByTheNameOfStandardOutputFollowsWhatStandsThere) {
  const std::string program = HALVORNE_BINARY_DIR "/program/halvorne-batch";
  const std::string log = Write("log", "before\n");
  const std::string line =
      "'" + program + "' --version -o /dev/stdout >> '" + log + "' && echo behind >> '" + log + "'";
  EXPECT_EQ(std::system(line.c_str()), 0);
  EXPECT_THAT(LinesOf(ReadFile(log)),
              ::testing::ElementsAre("before", ::testing::StartsWith("halvorne-batch"), "behind"));
}

TEST_F(BatchStreams, AnOutputThatIsAPipeIsWrittenTo) {
  const std::string pipe = Pipe("pipe");
  std::string read;
  std::thread reader([&] { read = ReadFile(pipe); });
  Output({"convert", file, "-o", pipe});
  reader.join();
  EXPECT_EQ(read, bytes);
  EXPECT_TRUE(fs::is_fifo(pipe)) << "the pipe was replaced";
}

}  // namespace
}  // namespace halvorne::testing
