#pragma once

namespace halvorne {

/// What the fields that were set take along: derived values that have to be made anew.
enum Derived : unsigned {
  kNothing = 0,
  kPiezo = 1,       ///< constants of the piezoelectric layers, half layers of the chains
  kSampling = 2,    ///< sample rate, time window, and the sampled tone burst
  kLimits = 4,      ///< the same, and loads in force made flat, since the points have moved
  kLoads = 8,       ///< loads in force
  kExcitation = 16  ///< the sampled tone burst
};

/// Makes derived values anew as the OK of the dialog that edits the fields does, short of the
/// sweep. Raises NotPossible for a tone burst of more points than a waveform has.
/// @param which  a sum of Derived
/// @return true when a complex load has lost its values, since the frequencies have changed
bool MakeDerivedValues(unsigned which);

}  // namespace halvorne
