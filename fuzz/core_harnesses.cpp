#include <array>

#include "fuzz/harnesses.h"

namespace halvorne::fuzz {

std::span<const Harness> Harnesses() {
  static constexpr std::array all = {Harness{"design_file", FuzzDesignFile},
                                     Harness{"setup_file", FuzzSetupFile},
                                     Harness{"complex_load_file", FuzzComplexLoadFile},
                                     Harness{"dispersion_file", FuzzDispersionFile},
                                     Harness{"excitation_file", FuzzExcitationFile},
                                     Harness{"number_text", FuzzNumberText}};
  return all;
}

}  // namespace halvorne::fuzz
