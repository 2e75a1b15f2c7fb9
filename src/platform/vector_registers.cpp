#include "platform/vector_registers.h"

namespace halvorne {

#if defined(__x86_64__) && defined(__GNUC__)

namespace {

[[gnu::target("avx")]] void ClearUpperHalves() noexcept {
  __builtin_ia32_vzeroupper();
}

}  // namespace

void CleanVectorRegisters() noexcept {
  // Asks a word in memory; the check of the system's own support is in it.
  if (__builtin_cpu_supports("avx") != 0) {
    ClearUpperHalves();
  }
}

#else

void CleanVectorRegisters() noexcept {}

#endif

}  // namespace halvorne
