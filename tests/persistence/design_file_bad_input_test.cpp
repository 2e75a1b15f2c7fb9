#include <algorithm>
#include <chrono>
#include <random>
#include <string>
#include <vector>

#include "engine/design_model.h"
#include "persistence/design_file.h"
#include "persistence/file_fixture.h"
#include "persistence/random_design.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

const char* const kOpenFailure =
    "Halvorne|Error encountered while trying to open file, please retry.";

class BadDesignFile : public FileTest {
 protected:
  BadDesignFile() {
    MakeSimpleDesign(3, 64);
    design.ExciteType = 1;
    design.ExciteLength = 2;
    WriteDesignFile(Path("good.dat"));
    good = Get("good.dat");
    ResetProgram();
    shownMessages.Forget();
  }

  Lines Read(const std::string& bytes) {
    shownMessages.Forget();
    ReadDesignFile(Put("bad.dat", bytes));
    return shownMessages.Lines();
  }
  std::string With(const std::string& words, const std::string& instead) const {
    std::string text = good;
    const std::size_t at = text.find(words);
    EXPECT_NE(at, std::string::npos) << words;
    return text.replace(at, words.size(), instead);
  }

  std::string good;
};

TEST_F(BadDesignFile, TheGoodOneIsGood) {
  EXPECT_EQ(Read(good), Lines{});
}

TEST_F(BadDesignFile, EmptyAndBlankFilesFail) {
  EXPECT_EQ(Read(""), Lines{kOpenFailure});
  EXPECT_EQ(Read("\r\n \r\n\r\n"), Lines{kOpenFailure});
  EXPECT_EQ(Read("\xEF\xBB\xBF"), Lines{kOpenFailure});
  EXPECT_EQ(Read("\""), Lines{kOpenFailure});
}

TEST_F(BadDesignFile, MoreThanTwoPiezoLayersFailAtTheBound) {
  EXPECT_EQ(Read(With("1,0,\"None\"", "3,0,\"None\"")).back(), kOpenFailure);
}

TEST_F(BadDesignFile, AThirdLayerFailsThoughItsRowsAreThere) {
  const std::string layer =
      "\"[ Piezoelectric layer ]\"\r\n\"x\",1,2\r\n3,4,5\r\n6,7\r\n\"v\",\"d\"\r\n";
  EXPECT_EQ(Read(With("\"[ Piezoelectric material properties ]\"\r\n",
                      "\"[ Piezoelectric material properties ]\"\r\n" + layer + layer)
                     .replace(good.find("1,0,\"None\""), 1, "3")),
            Lines{kOpenFailure});
  EXPECT_EQ(design.PZMatl(2).Name, "x") << "the layers within the bound were read";
}

TEST_F(BadDesignFile, MoreThanTenPlatesFailAtTheBound) {
  std::string plates;
  for (int i = 0; i < 11; ++i) {
    plates +=
        "\"[ layer ]\"\r\n\"plate\"\r\n1,2,3\r\n4,5,6\r\n\"a\"\r\n\"b\"\r\n\"c\"\r\n\"d\"\r\n";
  }
  const std::string counts = "face and back layers ]\"\r\n";
  std::string face = With(counts + "0,0", counts + "11,0");
  const std::string faceLabel = "\"[ Front layer acoustic properties ]\"\r\n";
  face.insert(face.find(faceLabel) + faceLabel.size(), plates);
  EXPECT_EQ(Read(face), Lines{kOpenFailure});
  EXPECT_EQ(design.FaceMatl(10).Name, "plate");

  std::string back = With(counts + "0,0", counts + "0,11");
  const std::string backLabel = "\"[ Back layer acoustic properties ]\"\r\n";
  back.insert(back.find(backLabel) + backLabel.size(), plates);
  EXPECT_EQ(Read(back), Lines{kOpenFailure});
  EXPECT_EQ(design.BackMatl(10).DataSource, "d");
}

TEST_F(BadDesignFile, FrequencyPointsBeyondTheirArraysFailAtTheBound) {
  // As many pairs as the count says, and a few more.
  std::string text = With("3,64", "16001,64");
  const std::string label = "\"[ Zfront Re, Im ]\"\r\n";
  std::string pairs;
  for (int i = 0; i < 16010; ++i) {
    pairs += "1,1\r\n";
  }
  text.insert(text.find(label) + label.size(), pairs);
  const Lines boxes = Read(text);
  ASSERT_GE(boxes.size(), 2U);
  EXPECT_EQ(boxes.front(), "ERROR in AryInput2 of FILES|Error: 9. Subscript out of range");
  EXPECT_EQ(boxes.back(), kOpenFailure);
  EXPECT_EQ(design.ZFrontNormRe(16000), 1);
}

TEST_F(BadDesignFile, HugeCountsEndWithTheFile) {
  for (const long count : {16001L, 1000000L, 2147483647L}) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(Read(With("3,64", std::to_string(count) + ",64")).back(), kOpenFailure);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1)) << count;
  }
  EXPECT_EQ(Read(With("3,64", "2147483648,64")), Lines{kOpenFailure}) << "overflow of the count";
  EXPECT_EQ(Read(With("1,0,\"None\"", "32768,0,\"None\"")), Lines{kOpenFailure});
}

TEST_F(BadDesignFile, NegativeCountsReadNoElements) {
  const Lines boxes = Read(With("3,64", "-2147483648,64"));
  EXPECT_FALSE(boxes.empty()) << "the elements that stand there are taken for other fields";
  EXPECT_EQ(Read(With("1,0,\"None\"", "-32768,0,\"None\"")).back(), kOpenFailure);
}

TEST_F(BadDesignFile, AWaveformBeyondItsArrayFailsAtTheBound) {
  const std::string label = "\"[ Excitation Waveform Data ]\"\r\n";
  std::string text = With(label + "2\r\n", label + "65536\r\n");
  for (int i = 0; i < 65540; ++i) {
    text += "1\r\n";
  }
  EXPECT_EQ(Read(text), Lines{kOpenFailure});
  EXPECT_EQ(Read(With(label + "2\r\n", label + "65535\r\n")), Lines{kOpenFailure}) << "too short";
  EXPECT_EQ(Read(With(label + "2\r\n", label + "-1\r\n")), Lines{}) << "zeroed from 0 on";
  EXPECT_EQ(Read(With(label + "2\r\n", label + "-2\r\n")), Lines{kOpenFailure}) << "index -1";
}

TEST_F(BadDesignFile, TextsAndHugeNumbersInNumberFieldsFail) {
  for (const char* instead :
       {"abc,50", "1E999,50", "\"50\",50", ",50", "#TRUE#,50", "nan,50", "50,inf"}) {
    EXPECT_EQ(Read(With("50,50", instead)), Lines{kOpenFailure}) << instead;
  }
}

TEST_F(BadDesignFile, EveryCutOffFileEndsInTheBoxOrACleanRead) {
  for (std::size_t length = 0; length < good.size(); length += 13) {
    const Lines boxes = Read(good.substr(0, length));
    EXPECT_FALSE(boxes.empty()) << length;
    EXPECT_LE(boxes.size(), 20U) << length;
  }
  EXPECT_EQ(Read(good.substr(0, good.size() - 2)), Lines{}) << "the last line end may be missing";
}

TEST_F(BadDesignFile, TenMegabytesOfNoiseTakeUnderASecond) {
  std::mt19937 random(3);
  const std::vector<std::pair<int, int>> ranges = {{0, 255},   {'0', '9'},   {'"', '"'},
                                                   {',', ','}, {'\n', '\n'}, {'a', 'z'}};
  for (const auto& [low, high] : ranges) {
    std::string noise(10 << 20, ' ');
    for (char& c : noise) {
      c = static_cast<char>(low +
                            static_cast<int>(random() % static_cast<unsigned>(high - low + 1)));
    }
    for (const std::string& head : {std::string(), good.substr(0, good.size() / 2)}) {
      const std::string path = Put("noise.dat", head + noise);
      shownMessages.Forget();
      const auto begin = std::chrono::steady_clock::now();
      ReadDesignFile(path);
      EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1)) << low;
      ASSERT_FALSE(shownMessages.Shown().empty());
      EXPECT_EQ(shownMessages.Lines().back(), kOpenFailure);
    }
  }
}

TEST_F(BadDesignFile, NoFileTakesMoreThan300Megabytes) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer needs memory of its own";
#endif
  Put("huge.dat", good);
  std::filesystem::resize_file(Path("huge.dat"), std::uintmax_t{1} << 31);
  ReadDesignFile(Path("huge.dat"));
  EXPECT_EQ(shownMessages.Lines(), Lines{}) << "what stands behind a design does not matter";
  std::filesystem::resize_file(Path("huge.dat"), good.size() / 2);
  std::filesystem::resize_file(Path("huge.dat"), std::uintmax_t{1} << 31);
  ReadDesignFile(Path("huge.dat"));
  EXPECT_EQ(shownMessages.Lines().back(), kOpenFailure);
  rusage used{};
  ASSERT_EQ(getrusage(RUSAGE_SELF, &used), 0);
  EXPECT_LT(used.ru_maxrss, 300L << 10) << "KiB at the most in this process";
}

/// Kinds of damage that a file may take.
enum class Damage { kCutOff, kFlippedBytes, kDroppedLines, kChangedCounts, kDoubledQuotes, kNoise };

class DamagedDesignFile : public FileTest, public ::testing::WithParamInterface<Damage> {};

std::string Damaged(std::string text, Damage damage, std::mt19937& random) {
  const auto upTo = [&random](std::size_t limit) { return random() % limit; };
  const auto line = [&text, &upTo] {  // begin of a random line
    const std::size_t at = text.find('\n', upTo(text.size()));
    return at == std::string::npos ? 0 : at + 1;
  };
  for (std::size_t left = 1 + upTo(4); left > 0 && text.size() > 8; --left) {
    const std::size_t at = upTo(text.size());
    switch (damage) {
      case Damage::kCutOff:
        text.resize(at);
        break;
      case Damage::kFlippedBytes:
        text[at] = static_cast<char>(text[at] ^ (1 << upTo(8)));
        break;
      case Damage::kDroppedLines: {
        const std::size_t begin = line();
        text.erase(begin, text.find('\n', begin) - begin + 1);
        break;
      }
      case Damage::kChangedCounts: {
        static const std::vector<std::string> counts = {
            "-1",    "0",          "3",           "11",    "26",  "16001",  "32767", "65536",
            "99999", "2147483647", "-2147483648", "1E999", "2.5", "-32768", "#TRUE#"};
        const std::size_t begin = text.find_first_of("0123456789", at);
        if (begin != std::string::npos) {
          const std::size_t end = std::min(text.find_first_of(",\r\"", begin), text.size());
          text.replace(begin, end - begin, counts[upTo(counts.size())]);
        }
        break;
      }
      case Damage::kDoubledQuotes: {
        const std::size_t quote = text.find('"', at);
        if (quote != std::string::npos) {
          text.insert(quote, upTo(2) == 0 ? R"(")" : R"(""")");
        }
        break;
      }
      case Damage::kNoise: {
        std::string noise(1 + upTo(60), ' ');
        for (char& c : noise) {
          c = static_cast<char>(upTo(256));
        }
        text.insert(at, noise);
        break;
      }
    }
  }
  return text;
}

TEST_P(DamagedDesignFile, EndsInTheBoxOrACleanReadAndCanBeSaved) {
  constexpr int kFiles = 600;
  std::mt19937 random(static_cast<unsigned>(GetParam()) + 100);
  Lines originals;
  for (unsigned seed = 1; seed <= 6; ++seed) {
    ResetProgram();
    MakeRandomDesign(seed, 2);
    std::filesystem::remove(Path("good.dat"));
    WriteDesignFile(Path("good.dat"));
    originals.push_back(Get("good.dat"));
  }
  for (int i = 0; i < kFiles; ++i) {
    const std::string text = Damaged(originals[random() % originals.size()], GetParam(), random);
    shownMessages.Forget();
    design.DesignNew = 65535;
    ReadDesignFile(Put("bad.dat", text));
    const Lines boxes = shownMessages.Lines();
    const bool failed = std::ranges::find(boxes, kOpenFailure) != boxes.end();
    EXPECT_EQ(failed, design.DesignNew != 0) << "file " << i;
    EXPECT_LE(boxes.size(), 30U) << "file " << i;
    for (const std::string& box : boxes) {
      EXPECT_TRUE(box == kOpenFailure || box.starts_with("ERROR in ")) << box;
    }
    if (design.NoFreqPts < 100 && design.ExciteLength < 100) {
      std::filesystem::remove(Path("saved.dat"));
      WriteDesignFile(Path("saved.dat"));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(EveryKind, DamagedDesignFile,
                         ::testing::Values(Damage::kCutOff, Damage::kFlippedBytes,
                                           Damage::kDroppedLines, Damage::kChangedCounts,
                                           Damage::kDoubledQuotes, Damage::kNoise));

}  // namespace
}  // namespace halvorne::testing
