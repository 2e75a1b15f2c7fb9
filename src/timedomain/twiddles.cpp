#include "timedomain/twiddles.h"

#include <algorithm>

#include "platform/numbers.h"
#include "timedomain/phasors.h"

namespace halvorne {
namespace {

constexpr long kLongest = 32768;

/// A stage finds its twiddles from index `half` on. The gap keeps sine and cosine of one twiddle
/// in different sets of a cache.
struct Table {
  double cosine[2 * kLongest];
  double gap[24];
  double sine[2 * kLongest];
};

Table table;
bool made = false;

void Make() {
  constexpr long half = kLongest;
  const Phasors phasors(-kTwoPi / static_cast<double>(2 * half));
  double cosines[Phasors::kRow];
  double sines[Phasors::kRow];
  for (long first = 0; first < half; first += Phasors::kRow) {
    phasors.Fill(static_cast<int>(first), cosines, sines);
    const long count = std::min<long>(Phasors::kRow, half - first);
    std::copy_n(cosines, count, table.cosine + half + first);
    std::copy_n(sines, count, table.sine + half + first);
  }
  for (long i = half - 1; i > 0; --i) {
    table.cosine[i] = table.cosine[2 * i];
    table.sine[i] = table.sine[2 * i];
  }
  made = true;
}

}  // namespace

StageTwiddles TwiddlesOfStage(long half) {
  if (!made) {
    Make();
  }
  return {table.cosine + half, table.sine + half};
}

}  // namespace halvorne
