#pragma once

namespace halvorne {

/// Twiddles of one stage side by side: exp(-j pi k / half) at k = 0 to half - 1.
struct StageTwiddles {
  const double* cosine;
  const double* sine;
};

/// The twiddles of the stage whose butterflies are `half` apart, 1 to 32768, in the program's 2 pi.
///
/// A stage has the same ones in a transform of any length, so those of the longest are made once,
/// when the first is asked for, and kept: no waveform depends on what was transformed before it.
StageTwiddles TwiddlesOfStage(long half);

}  // namespace halvorne
