#include "timedomain/transform.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

#include "support/fresh_program.h"
#include "timedomain/wave_state.h"
#include "timedomain/waves.h"

namespace halvorne::testing {
namespace {

/// The transform as it is written in textbooks, over the program's twiddle table.
void Textbook(double* re, double* im, int n, bool inverse) {
  if (inverse) {
    for (int i = 0; i < n; ++i) {
      re[i] /= n;
      im[i] /= n;
    }
  }
  int j = 0;
  for (int i = 0; i <= n - 2; ++i) {
    if (i < j) {
      std::swap(re[i], re[j]);
      std::swap(im[i], im[j]);
    }
    int k = n / 2;
    while (k <= j) {
      j -= k;
      k /= 2;
    }
    j += k;
  }
  for (int le = 2; le <= n; le *= 2) {
    const int le2 = le / 2;
    int u = 0;
    for (j = 0; j < le2; ++j, u += n / le) {
      for (int i = j; i < n; i += le) {
        const int ip = i + le2;
        double tr = re[ip];
        double ti = im[ip];
        if (j != 0) {
          tr = re[ip] * wave.TwiddleCos(u) - im[ip] * wave.TwiddleSin(u);
          ti = re[ip] * wave.TwiddleSin(u) + im[ip] * wave.TwiddleCos(u);
        }
        re[ip] = re[i] - tr;
        im[ip] = im[i] - ti;
        re[i] = tr + re[i];
        im[i] = ti + im[i];
      }
    }
  }
}

class Transform : public FreshProgram {
 protected:
  void Set(const Wave64& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      re()(static_cast<long>(i)) = values[i].real();
      im()(static_cast<long>(i)) = values[i].imag();
    }
  }
  TimeCurve& re() { return curves_->first; }
  TimeCurve& im() { return curves_->second; }

 private:
  std::unique_ptr<std::pair<TimeCurve, TimeCurve>> curves_ =
      std::make_unique<std::pair<TimeCurve, TimeCurve>>();
};

class TransformOfLength : public Transform, public ::testing::WithParamInterface<int> {};

TEST_P(TransformOfLength, HasTheBitsOfTheTextbookLoop) {
  const int n = GetParam();
  for (const std::int16_t inverse : Codes{0, 1}) {
    const Wave64 input = RandomWave(n, 17);
    Set(input);
    FFTSolve(re(), im(), n, inverse);
    std::vector<double> plainRe(static_cast<std::size_t>(n));
    std::vector<double> plainIm(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
      plainRe[i] = input[i].real();
      plainIm[i] = input[i].imag();
    }
    Textbook(plainRe.data(), plainIm.data(), n, inverse != 0);
    const std::size_t bytes = sizeof(double) * static_cast<std::size_t>(n);
    EXPECT_EQ(std::memcmp(re().data(), plainRe.data(), bytes), 0) << n << " inverse " << inverse;
    EXPECT_EQ(std::memcmp(im().data(), plainIm.data(), bytes), 0) << n << " inverse " << inverse;
  }
}

TEST_F(Transform, HasTheSameBitsWhateverWasTransformedBefore) {
  const int n = 4096;
  const Wave64 input = RandomWave(n, 23);
  Set(input);
  FFTSolve(re(), im(), n, 0);
  const std::vector<double> first(re().data(), re().data() + n);

  Set(RandomWave(65536, 29));
  FFTSolve(re(), im(), 65536, 0);
  Set(input);
  FFTSolve(re(), im(), n, 0);
  EXPECT_EQ(std::memcmp(re().data(), first.data(), sizeof(double) * n), 0);
}

TEST_P(TransformOfLength, HasATwiddleTableOfItsOwnConstant) {
  const int n = GetParam();
  for (const std::int16_t inverse : Codes{0, 1}) {
    Set(Wave64(static_cast<std::size_t>(n)));
    FFTSolve(re(), im(), n, inverse);
    const double w = 6.28318530717958 / n;
    for (int i = 0; i < n; ++i) {
      const long double angle = i * w;
      EXPECT_NEAR(wave.TwiddleCos(i), static_cast<double>(std::cos(angle)), 4e-16) << i;
      EXPECT_NEAR(wave.TwiddleSin(i),
                  static_cast<double>(inverse != 0 ? std::sin(angle) : -std::sin(angle)), 4e-16)
          << i;
    }
  }
}

TEST_P(TransformOfLength, ComesBackThroughItsInverse) {
  const int n = GetParam();
  const Wave64 input = RandomWave(n, 3);
  Set(input);
  FFTCalc(re(), im(), n);
  FFTInvCalc(re(), im(), n);
  for (int i = 0; i < n; ++i) {
    EXPECT_NEAR(re()(i), input[i].real(), 1e-13) << i;
    EXPECT_NEAR(im()(i), input[i].imag(), 1e-13) << i;
  }
}

TEST_P(TransformOfLength, TurnsAnImpulseIntoAFlatSpectrum) {
  const int n = GetParam();
  Wave64 impulse(static_cast<std::size_t>(n));
  impulse[0] = 1;
  Set(impulse);
  FFTCalc(re(), im(), n);
  for (int i = 0; i < n; ++i) {
    ASSERT_EQ(re()(i), 1) << i;
    ASSERT_EQ(im()(i), 0) << i;
  }
  Set(impulse);
  FFTInvCalc(re(), im(), n);
  for (int i = 0; i < n; ++i) {
    ASSERT_EQ(re()(i), 1.0 / n) << i;
    ASSERT_EQ(im()(i), 0) << i;
  }
}

TEST_P(TransformOfLength, KeepsTheEnergy) {
  const int n = GetParam();
  const Wave64 input = RandomWave(n, 5);
  long double before = 0;
  for (const std::complex<double>& value : input) {
    before += std::norm(value);
  }
  Set(input);
  FFTCalc(re(), im(), n);
  long double after = 0;
  for (int i = 0; i < n; ++i) {
    after += static_cast<long double>(re()(i)) * re()(i) + im()(i) * im()(i);
  }
  EXPECT_NEAR(static_cast<double>(after / n / before), 1, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Powers, TransformOfLength,
                         ::testing::Values(1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 1024, 2048, 4096,
                                           8192, 16384, 32768, 65536));

class SummedTransform : public Transform, public ::testing::WithParamInterface<int> {};

TEST_P(SummedTransform, EqualsTheSumWrittenOut) {
  const int n = GetParam();
  const Wave64 input = RandomWave(n, 11);
  const std::vector<Wide> wide(input.begin(), input.end());
  const std::vector<Wide> forward = DirectSum(wide, -1);
  const std::vector<Wide> inverse = DirectSum(wide, +1);
  Set(input);
  FFTCalc(re(), im(), n);
  for (int k = 0; k < n; ++k) {
    EXPECT_NEAR(re()(k), static_cast<double>(forward[k].real()), 2e-14 * n) << k;
    EXPECT_NEAR(im()(k), static_cast<double>(forward[k].imag()), 2e-14 * n) << k;
  }
  Set(input);
  FFTInvCalc(re(), im(), n);
  for (int k = 0; k < n; ++k) {
    EXPECT_NEAR(re()(k), static_cast<double>(inverse[k].real() / n), 2e-14) << k;
    EXPECT_NEAR(im()(k), static_cast<double>(inverse[k].imag() / n), 2e-14) << k;
  }
}

INSTANTIATE_TEST_SUITE_P(Small, SummedTransform, ::testing::Values(2, 4, 8, 32, 64, 128, 256, 512));

TEST_F(Transform, OfTwoPointsAddsAndSubtractsOnly) {
  Set({{0.1, 1e-17}, {0.7, 3}});
  FFTCalc(re(), im(), 2);
  EXPECT_EQ(re()(0), 0.7 + 0.1);
  EXPECT_EQ(re()(1), 0.1 - 0.7);
  EXPECT_EQ(im()(0), 3 + 1e-17);
  EXPECT_EQ(im()(1), 1e-17 - 3);
}

TEST_F(Transform, UsesTheWrittenConstantForTwoPi) {
  FFTCalc(re(), im(), 65536);
  // With a pi of full width the sine would be 1.2e-16.
  EXPECT_NEAR(wave.TwiddleSin(32768), -3.23e-15, 1e-17);
}

TEST_F(Transform, LeavesWhatLiesBehindItsLengthAlone) {
  Set(RandomWave(300, 1));
  const double before = re()(256);
  FFTCalc(re(), im(), 256);
  EXPECT_EQ(re()(256), before);
}

TEST_F(Transform, OfValuesNearTheLimitIsStillExact) {
  Wave64 impulse(256);
  impulse[0] = {1e307, -1e307};
  Set(impulse);
  FFTCalc(re(), im(), 256);
  EXPECT_TRUE(shownMessages.Shown().empty());
  for (int i = 0; i < 256; ++i) {
    ASSERT_EQ(re()(i), 1e307);
    ASSERT_EQ(im()(i), -1e307);
  }
}

TEST_F(Transform, ReportsAnOverflowAndHoldsFiniteValues) {
  Set(Wave64(256, {1e307, 0}));
  FFTCalc(re(), im(), 256);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in FFTSolve of FFT|Error: 6. Overflow"});
  for (int i = 0; i < 256; ++i) {
    ASSERT_TRUE(std::isfinite(re()(i)));
  }
}

struct BadLength {
  std::int32_t n;
  const char* text;
};

TEST_F(Transform, OfALengthThatIsNoPowerOfTwoEndsInTheBox) {
  const BadLength lengths[] = {{0, "Error: 11. Division by zero"},
                               {-4, "Error: 5. Invalid procedure call or argument"},
                               {INT32_MIN, "Error: 5. Invalid procedure call or argument"},
                               {1000, "Error: 5. Invalid procedure call or argument"},
                               {131072, "Error: 9. Subscript out of range"}};
  for (const BadLength& length : lengths) {
    shownMessages.Forget();
    Set({{1, 2}});
    FFTInvCalc(re(), im(), length.n);
    EXPECT_EQ(shownMessages.Lines(),
              std::vector<std::string>{std::string("ERROR in FFTSolve of FFT|") + length.text})
        << length.n;
    EXPECT_EQ(re()(0), 1);
    EXPECT_EQ(im()(0), 2);
  }
}

}  // namespace
}  // namespace halvorne::testing
