#include "timedomain/transform_passes.h"

#include <array>
#include <bit>
#include <cmath>

#include "timedomain/twiddles.h"
#include "timedomain/wide.h"

namespace halvorne {
namespace {

struct Complex {
  double re;
  double im;
};

inline Complex Turned(Complex x, Complex w) {
  return {x.re * w.re - x.im * w.im, x.re * w.im + x.im * w.re};
}

/// One butterfly, whose lower leg was turned before.
inline void Butterfly(Complex& upper, Complex& lower) {
  const Complex t = lower;
  lower = {upper.re - t.re, upper.im - t.im};
  upper = {t.re + upper.re, t.im + upper.im};
}

/// Twiddles of two stages: of the first one's butterflies, of the second one's upper and lower.
struct Turns {
  Complex first;
  Complex upper;
  Complex lower;
};

/// Two stages on four elements: butterflies a c, b d, then a b, c d.
inline void TwoStages(Complex& a, Complex& b, Complex& c, Complex& d, const Turns& w) {
  c = Turned(c, w.first);
  d = Turned(d, w.first);
  Butterfly(a, c);
  Butterfly(b, d);
  b = Turned(b, w.upper);
  d = Turned(d, w.lower);
  Butterfly(a, b);
  Butterfly(c, d);
}

/// The same where the first twiddle and the upper one are 1, which isn't multiplied.
inline void TwoFirstStages(Complex& a, Complex& b, Complex& c, Complex& d, Complex lower) {
  Butterfly(a, c);
  Butterfly(b, d);
  d = Turned(d, lower);
  Butterfly(a, b);
  Butterfly(c, d);
}

/// A block's real and imaginary parts.
struct Block {
  double* re;
  double* im;

  Block From(long offset) const { return {re + offset, im + offset}; }
  Complex Get(long i) const { return {re[i], im[i]}; }
  void Set(long i, Complex x) const {
    re[i] = x.re;
    im[i] = x.im;
  }
};

inline Complex At(const StageTwiddles& twiddles, long k) {
  return {twiddles.cosine[k], twiddles.sine[k]};
}

// The four quarters that a pass works on never overlap, which the compiler has to be told.

HALVORNE_WIDE void SpreadPass(Block block, long run, Turns w) {
  const Block quarter1 = block.From(run);
  const Block quarter2 = block.From(2 * run);
  const Block quarter3 = block.From(3 * run);
  HALVORNE_NO_OVERLAP
  for (long i = 0; i < run; ++i) {
    Complex a = block.Get(i);
    Complex b = quarter1.Get(i);
    Complex c = quarter2.Get(i);
    Complex d = quarter3.Get(i);
    TwoStages(a, b, c, d, w);
    block.Set(i, a);
    quarter1.Set(i, b);
    quarter2.Set(i, c);
    quarter3.Set(i, d);
  }
}

HALVORNE_WIDE void FirstSpreadPass(Block block, long run, Complex lower) {
  const Block quarter1 = block.From(run);
  const Block quarter2 = block.From(2 * run);
  const Block quarter3 = block.From(3 * run);
  HALVORNE_NO_OVERLAP
  for (long i = 0; i < run; ++i) {
    Complex a = block.Get(i);
    Complex b = quarter1.Get(i);
    Complex c = quarter2.Get(i);
    Complex d = quarter3.Get(i);
    TwoFirstStages(a, b, c, d, lower);
    block.Set(i, a);
    quarter1.Set(i, b);
    quarter2.Set(i, c);
    quarter3.Set(i, d);
  }
}

HALVORNE_WIDE void SingleSpreadPass(Block block, long run) {
  const Block half1 = block.From(run);
  HALVORNE_NO_OVERLAP
  for (long i = 0; i < run; ++i) {
    Complex a = block.Get(i);
    Complex b = half1.Get(i);
    Butterfly(a, b);
    block.Set(i, a);
    half1.Set(i, b);
  }
}

HALVORNE_WIDE void AdjacentPass(Block block, long run, StageTwiddles first, StageTwiddles second) {
  const Block quarter1 = block.From(run);
  const Block quarter2 = block.From(2 * run);
  const Block quarter3 = block.From(3 * run);
  Complex a0 = block.Get(0);
  Complex c0 = quarter1.Get(0);
  Complex b0 = quarter2.Get(0);
  Complex d0 = quarter3.Get(0);
  HALVORNE_NO_OVERLAP
  for (long j = 0; j < run; ++j) {
    Complex a = block.Get(j);
    Complex c = quarter1.Get(j);
    Complex b = quarter2.Get(j);
    Complex d = quarter3.Get(j);
    TwoStages(a, b, c, d, {At(first, j), At(second, j), At(second, j + run)});
    block.Set(j, a);
    quarter1.Set(j, c);
    quarter2.Set(j, b);
    quarter3.Set(j, d);
  }
  TwoFirstStages(a0, b0, c0, d0, At(second, run));
  block.Set(0, a0);
  quarter1.Set(0, c0);
  quarter2.Set(0, b0);
  quarter3.Set(0, d0);
}

// Bit reversal in tiles of 8 by 8: the first three bits of an index are the row within a tile, the
// last three the column, those between say which tile.
constexpr int kTileBits = 3;
constexpr long kTile = 1L << kTileBits;
constexpr std::array<long, kTile> kReversed = {0, 4, 2, 6, 1, 5, 3, 7};
using Tile = std::array<double, kTile * kTile>;

long Reversed(long value, int bits) {
  long reversed = 0;
  for (int bit = 0; bit < bits; ++bit) {
    reversed = 2 * reversed + ((value >> bit) & 1);
  }
  return reversed;
}

void LoadTile(const double* x, long stride, Tile& tile) {
  for (long row = 0; row < kTile; ++row) {
    for (long column = 0; column < kTile; ++column) {
      tile[row * kTile + column] = x[row * stride + column];
    }
  }
}

void StoreReversed(const Tile& tile, double* x, long stride, double factor) {
  for (long row = 0; row < kTile; ++row) {
    for (long column = 0; column < kTile; ++column) {
      x[row * stride + column] = factor * tile[kReversed[column] * kTile + kReversed[row]];
    }
  }
}

void ReverseBits(double* x, int bits, double factor) {
  const int tileBits = bits - 2 * kTileBits;
  const long stride = 1L << (bits - kTileBits);
  for (long at = 0; at < (1L << tileBits); ++at) {
    const long to = Reversed(at, tileBits);
    if (at <= to) {
      Tile here;
      Tile there;
      LoadTile(x + at * kTile, stride, here);
      LoadTile(x + to * kTile, stride, there);
      StoreReversed(here, x + to * kTile, stride, factor);
      StoreReversed(there, x + at * kTile, stride, factor);
    }
  }
}

/// Below this magnitude no sum of 65536 products overflows.
constexpr double kModerate = 1e300;

HALVORNE_WIDE bool AllModerate(const double* x, long n) {
  std::uint64_t large = 0;
  for (long i = 0; i < n; ++i) {
    large |= std::fabs(x[i]) <= kModerate ? 0U : 1U;
  }
  return large == 0;
}

/// One transform under way.
class Stages {
 public:
  explicit Stages(long n) : n_(n), last_(TwiddlesOfStage(n / 2)) {}

  /// @param factor  a power of two by which everything is multiplied
  void Run(Block data, double factor) {
    const int stages = std::countr_zero(static_cast<unsigned long>(n_));
    const int rounds = stages / 2;
    if (stages % 2 == 0) {
      Spread(data, n_, 0, rounds / 2);
    } else {
      SingleSpreadPass(data, n_ / 2);
      Spread(data, n_ / 2, 0, rounds / 2);
      Spread(data.From(n_ / 2), n_ / 2, n_ / 4, rounds / 2);
    }
    const int adjacentRounds = rounds - rounds / 2;
    ReverseBits(data.re, stages, factor);
    ReverseBits(data.im, stages, factor);
    Adjacent(data, n_, adjacentRounds);
  }

 private:
  /// Two stages per round in natural order; `u` is the block's place in the last stage's twiddles.
  void Spread(Block block, long length, long u, int rounds) {
    if (rounds == 0) {
      return;
    }
    const long run = length / 4;
    const Turns turns = {At(last_, u), At(last_, u / 2), At(last_, u / 2 + n_ / 4)};
    if (u == 0) {
      FirstSpreadPass(block, run, turns.lower);
    } else {
      SpreadPass(block, run, turns);
    }
    Spread(block, run, u / 4, rounds - 1);
    Spread(block.From(run), run, u / 4 + n_ / 4, rounds - 1);
    Spread(block.From(2 * run), run, u / 4 + n_ / 8, rounds - 1);
    Spread(block.From(3 * run), run, u / 4 + 3 * n_ / 8, rounds - 1);
  }

  void Adjacent(Block block, long length, int rounds) {
    if (rounds == 0) {
      return;
    }
    const long run = length / 4;
    for (long quarter = 0; quarter < 4; ++quarter) {
      Adjacent(block.From(quarter * run), run, rounds - 1);
    }
    AdjacentPass(block, run, TwiddlesOfStage(run), TwiddlesOfStage(2 * run));
  }

  long n_;
  StageTwiddles last_;
};

}  // namespace

bool FastTransform(double* re, double* im, std::int32_t n, bool inverse) {
  if (n < kFastLength || !AllModerate(re, n) || !AllModerate(im, n)) {
    return false;
  }
  if (inverse) {
    // Exchanging real and imaginary parts on both sides turns a transform round.
    Stages(n).Run({im, re}, 1.0 / n);
  } else {
    Stages(n).Run({re, im}, 1);
  }
  return true;
}

}  // namespace halvorne
