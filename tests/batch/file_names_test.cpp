#include <gmock/gmock.h>

#include "batch/batch_run.h"

// A file name is bytes: in old folders they are Latin-1 or nothing at all.

namespace halvorne::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kLatin = "\xE9tude 5\xB5s.dat";
constexpr const char* kBroken = "\xFF\xC3(\x80.dat";

class BatchFileNames : public BatchTest {
 protected:
  const std::string bytes = ReadFile(Shipped("imaging_5mhz_two_layer"));
};

TEST_F(BatchFileNames, AreTakenByteForByteInAndOut) {
  for (const char* name : {kLatin, kBroken, "\xC3\xA9tude.dat", " .dat ", "5\" disc \\ 'B'.dat"}) {
    const std::string in = Write(std::string("in ") + name, bytes);
    const std::string out = Path(std::string("out ") + name);
    Output({"convert", in, "-o", out});
    EXPECT_EQ(ReadFile(out), bytes) << name;
    EXPECT_THAT(Names(), ElementsAre(std::string("in ") + name, std::string("out ") + name));
    std::remove(in.c_str());
    std::remove(out.c_str());
  }
}

TEST_F(BatchFileNames, AreTakenByteForByteByEveryResult) {
  const std::string in = Write(kBroken, bytes);
  const std::string picture = Path(std::string("\xE9") + ".png");
  Output({"plot", in, "--plot", "11", "-o", picture});
  EXPECT_THAT(ReadFile(picture), ::testing::StartsWith("\x89PNG"));
  const std::string sheet = Path(std::string("\xEA") + ".png");
  Output({"contact", in, "-o", sheet, "--size", "100x100"});
  EXPECT_THAT(ReadFile(sheet), ::testing::StartsWith("\x89PNG"));
  const std::string graph = Path("\xEB");
  Output({"savedata", in, "--plot", "11", "-o", graph});
  EXPECT_THAT(ReadFile(graph), HasSubstr("Plot Title"));
}

TEST_F(BatchFileNames, MayBeAsLongAsTheSystemAllows) {
  const std::string out = Path(std::string(255, 'x'));
  Output({"convert", Write("in.dat", bytes), "-o", out});
  Output({"convert", Path("in.dat"), "-o", out, "--force"});
  EXPECT_EQ(ReadFile(out), bytes);
}

TEST_F(BatchFileNames, AreToldByteForByte) {
  const std::string in = Write(kLatin, bytes);
  EXPECT_THAT(Output({"info", in}), HasSubstr(in));
  const Outcome missing = Run({"info", Path(kBroken)});
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(missing.err, HasSubstr(Path(kBroken) + " could not be read"));
  const Outcome itself = Run({"info", in, "-o", in});
  EXPECT_EQ(itself.status, 2);
  EXPECT_EQ(ReadFile(in), bytes);
}

TEST_F(BatchFileNames, TextsOfADesignAreTakenByteForByteToo) {
  const std::string out = Path("out.dat");
  Output({"convert", Write("in.dat", bytes), "-o", out, "--set", "DesignTitle=5 \xB5m \xC3\xA9"});
  EXPECT_EQ(StoredDesign(out).title, "5 \xB5m \xC3\xA9");
}

TEST_F(BatchFileNames, WordsThatAreNotUnderstoodAreToldByteForByte) {
  const Outcome command = Run({"\xE9tude"});
  EXPECT_EQ(command.status, 2);
  EXPECT_THAT(command.err, HasSubstr("there is no command '\xE9tude'"));
  const Outcome option = Run({"info", "--\xE9tude"});
  EXPECT_EQ(option.status, 2);
  EXPECT_THAT(option.err, HasSubstr("\xE9tude"));
}

}  // namespace
}  // namespace halvorne::testing
