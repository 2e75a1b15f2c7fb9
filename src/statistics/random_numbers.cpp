#include "statistics/random_numbers.h"

namespace halvorne {
namespace {

constexpr int kRounds = 10;
constexpr std::array<std::uint64_t, 2> kMultipliers{0xD2511F53, 0xCD9E8D57};
constexpr std::array<std::uint32_t, 2> kWeyl{0x9E3779B9, 0xBB67AE85};

constexpr std::uint32_t High(std::uint64_t value) {
  return static_cast<std::uint32_t>(value >> 32);
}
constexpr std::uint32_t Low(std::uint64_t value) {
  return static_cast<std::uint32_t>(value);
}

}  // namespace

std::array<std::uint32_t, 4> Philox(std::array<std::uint32_t, 4> counter,
                                    std::array<std::uint32_t, 2> key) {
  for (int round = 0; round < kRounds; ++round) {
    const std::uint64_t first = kMultipliers[0] * counter[0];
    const std::uint64_t second = kMultipliers[1] * counter[2];
    counter = {High(second) ^ counter[1] ^ key[0], Low(second), High(first) ^ counter[3] ^ key[1],
               Low(first)};
    key[0] += kWeyl[0];
    key[1] += kWeyl[1];
  }
  return counter;
}

double UniformNumber(std::uint64_t seed, std::uint64_t run, std::uint32_t stream) {
  const auto words = Philox({Low(run), High(run), stream, 0}, {Low(seed), High(seed)});
  const std::uint64_t bits = (static_cast<std::uint64_t>(words[0]) << 32 | words[1]) >> 12;
  // The middle of one of 2^52 equal parts, so that neither end is met.
  return (static_cast<double>(bits) + 0.5) * 0x1p-52;
}

}  // namespace halvorne
