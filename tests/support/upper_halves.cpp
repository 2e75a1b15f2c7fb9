#include "support/upper_halves.h"

#include <algorithm>
#include <array>

namespace halvorne::testing {

#if defined(__x86_64__) && defined(__GNUC__)

bool HasUpperHalves() {
  return __builtin_cpu_supports("avx") != 0;
}

// A comparison that is always true fills a register with ones.
#define HALVORNE_FILL(k) "vcmptrueps %%ymm" #k ", %%ymm" #k ", %%ymm" #k "\n\t"
#define HALVORNE_STORE(k) "vextractf128 $1, %%ymm" #k ", 16*" #k "(%0)\n\t"
#define HALVORNE_ALL(each)                                                                 \
  each(0) each(1) each(2) each(3) each(4) each(5) each(6) each(7) each(8) each(9) each(10) \
      each(11) each(12) each(13) each(14) each(15)

void FillUpperHalves() {
  asm volatile(HALVORNE_ALL(HALVORNE_FILL)
               :
               :
               : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7", "xmm8", "xmm9",
                 "xmm10", "xmm11", "xmm12", "xmm13", "xmm14", "xmm15");
}

bool AreUpperHalvesClean() {
  alignas(16) std::array<unsigned char, 256> halves;
  asm volatile(HALVORNE_ALL(HALVORNE_STORE) : : "r"(halves.data()) : "memory");
  return std::ranges::all_of(halves, [](unsigned char byte) { return byte == 0; });
}

#undef HALVORNE_ALL
#undef HALVORNE_STORE
#undef HALVORNE_FILL

#else

bool HasUpperHalves() {
  return false;
}
void FillUpperHalves() {}
bool AreUpperHalvesClean() {
  return true;
}

#endif

}  // namespace halvorne::testing
