#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "engine/instruction_sets.h"

// The library's functions of several numbers at a time beside those of <cmath> in extended
// precision, over all that a double can hold.

namespace halvorne::testing {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLowest = std::numeric_limits<double>::denorm_min();
constexpr double kSmallest = std::numeric_limits<double>::min();
constexpr double kLargest = std::numeric_limits<double>::max();

/// The library's claim is 4 units of the last place; one more for the rounding of the reference.
constexpr double kUnits = 5;

/// Distance from the exact value in units of its last place.
double UnitsOff(double value, long double exact) {
  const auto rounded = static_cast<double>(exact);
  if (value == rounded || (std::isnan(value) && std::isnan(rounded))) {
    return 0;
  }
  if (!std::isfinite(value) || !std::isfinite(rounded)) {
    return kInfinity;
  }
  const double size = std::fabs(rounded);
  const double unit =
      size < kLargest ? std::nextafter(size, kInfinity) - size : size - std::nextafter(size, 0);
  return static_cast<double>(std::fabs(value - exact) / unit);
}

class VectorFunctions : public ::testing::TestWithParam<int> {
 protected:
  VectorFunctions() {
    if (GetParam() < static_cast<int>(InstructionSets().size())) {
      set_ = InstructionSets()[GetParam()];
    }
  }
  void SetUp() override {
    if (set_ == nullptr) {
      GTEST_SKIP() << "not on this processor";
    }
  }

  /// Puts each argument into each lane in turn, other arguments beside it.
  template <class Function, class Exact>
  void Compare(const std::vector<double>& arguments, Function function, Exact exact) {
    const std::size_t lanes = set_->lanes;
    std::vector<double> x(lanes);
    std::vector<double> result(lanes);
    double worst = 0;
    double at = 0;
    for (std::size_t start = 0; start < arguments.size(); ++start) {
      for (std::size_t lane = 0; lane < lanes; ++lane) {
        x[lane] = arguments[(start + lane) % arguments.size()];
      }
      function(x.data(), result.data());
      for (std::size_t lane = 0; lane < lanes; ++lane) {
        const double off = UnitsOff(result[lane], exact(x[lane]));
        if (off > worst) {
          worst = off;
          at = x[lane];
        }
      }
    }
    EXPECT_LE(worst, kUnits) << set_->name << " at " << at;
  }

  const InstructionSet* set_ = nullptr;
};

/// Numbers of every size and both signs, equally many from each power of two.
std::vector<double> NumbersOfEverySize() {
  std::mt19937_64 random(7);
  std::vector<double> all = {0.0,       -0.0,      kLowest,    -kLowest,     kSmallest,    kLargest,
                             -kLargest, kInfinity, -kInfinity, std::nan(""), kSmallest / 3};
  for (int i = 0; i < 10000; ++i) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isnan(value)) {
      all.push_back(value);
    }
  }
  return all;
}

std::vector<double> Between(double low, double high) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> uniform(low, high);
  std::vector<double> all = {low, high};
  for (int i = 0; i < 10000; ++i) {
    all.push_back(uniform(random));
  }
  return all;
}

TEST_P(VectorFunctions, CosineOfNumbersOfEverySize) {
  const auto exact = [](long double x) { return std::cos(x); };
  Compare(NumbersOfEverySize(), set_->cos, exact);
  Compare(Between(-1000, 1000), set_->cos, exact);
}

TEST_P(VectorFunctions, SineOfNumbersOfEverySize) {
  const auto exact = [](long double x) { return std::sin(x); };
  Compare(NumbersOfEverySize(), set_->sin, exact);
  Compare(Between(-1000, 1000), set_->sin, exact);
}

TEST_P(VectorFunctions, SineAndCosineBesideTheirZeros) {
  std::vector<double> zeros;
  for (int quarter = 1; quarter <= 4000; ++quarter) {
    const double zero = quarter * 1.5707963267948966;
    zeros.insert(zeros.end(), {std::nextafter(zero, 0), zero, std::nextafter(zero, 1e9)});
  }
  Compare(zeros, set_->cos, [](long double x) { return std::cos(x); });
  Compare(zeros, set_->sin, [](long double x) { return std::sin(x); });
}

TEST_P(VectorFunctions, ExponentialFromNothingToOverflow) {
  const auto exact = [](long double x) { return std::exp(x); };
  Compare(NumbersOfEverySize(), set_->exp, exact);
  Compare(Between(-760, 720), set_->exp, exact);
  Compare(Between(-1, 1), set_->exp, exact);
  Compare({709.782712893384, 709.7827128933841, -745.1332191019411, -745.1332191019412}, set_->exp,
          exact);
}

TEST_P(VectorFunctions, ExponentialOfZeroIsExactlyOne) {
  std::vector<double> x(set_->lanes, 0.0);
  std::vector<double> result(set_->lanes);
  set_->exp(x.data(), result.data());
  EXPECT_EQ(result, std::vector<double>(set_->lanes, 1.0));
}

TEST_P(VectorFunctions, PowersOfNumbersOfEverySize) {
  for (const double n : {0.0, 0.1, 0.5, 1.0, 1.1, 2.0, 3.0, 7.3, -1.0, -2.0, -1.7, 40.0}) {
    SCOPED_TRACE(n);
    const auto power = [&](const double* x, double* result) { set_->pow(x, n, result); };
    // Kept apart: what isn't finite stays so, where the standard has 1 and 0.
    const auto exact = [n](long double x) {
      return std::isfinite(x) ? std::pow(x, static_cast<long double>(n))
                              : std::numeric_limits<long double>::quiet_NaN();
    };
    std::vector<double> numbers = NumbersOfEverySize();
    if (n == 1 || n == 2) {
      std::erase_if(numbers, [](double x) { return !std::isfinite(x); });
    }
    Compare(numbers, power, exact);
    Compare(Between(0, 10), power, exact);
  }
}

TEST_P(VectorFunctions, FirstAndSecondPowersAreExact) {
  const std::vector<double> numbers = Between(-1e6, 1e6);
  std::vector<double> result(set_->lanes);
  for (std::size_t i = 0; i + set_->lanes <= numbers.size(); i += set_->lanes) {
    set_->pow(&numbers[i], 1, result.data());
    EXPECT_EQ(result[0], numbers[i]);
    set_->pow(&numbers[i], 2, result.data());
    EXPECT_EQ(result[0], numbers[i] * numbers[i]);
  }
}

INSTANTIATE_TEST_SUITE_P(InstructionSets, VectorFunctions, ::testing::Values(0, 1, 2));

}  // namespace
}  // namespace halvorne::testing
