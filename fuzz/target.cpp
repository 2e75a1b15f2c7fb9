#include <cstddef>
#include <cstdint>

#include "fuzz/harnesses.h"

// The fuzzer calls it with one input after the other; what escapes from it is a find.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  halvorne::fuzz::HALVORNE_HARNESS({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
