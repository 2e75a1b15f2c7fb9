#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/dispersion_option.h"

namespace halvorne::batch {

/// A tone burst as --burst writes it.
struct Burst {
  double hertz = 0;
  double cycles = 0;
  double seconds = 0;  ///< delay
  double degrees = 0;
  double points = 0;
  bool square = false;
};

/// Loads, dispersion and excitation that the command line gives a design: file names as they were
/// written.
struct SideInputs {
  std::optional<std::string> frontLoad;
  std::optional<std::string> backLoad;
  std::vector<DispersionInput> dispersion;
  std::optional<std::string> excitation;
  std::optional<Burst> burst;
};

/// Reads "FREQ,CYCLES,DELAY,PHASE,POINTS" in Hz, s and degrees, with ",square" behind it for a
/// square wave. Raises WrongCommandLine.
Burst ReadBurst(const std::string& text);

/// Takes the inputs into the open design as the dialogs do: files with their boxes, a burst within
/// its bounds, the waveform with a peak of 1.
void ApplySideInputs(const SideInputs& inputs);

}  // namespace halvorne::batch
