#pragma once

namespace halvorne {

/// Twiddles of one stage side by side: exp(-j pi k / half) at k = 0 to half - 1.
struct StageTwiddles {
  const double* cosine;
  const double* sine;
};

/// The twiddles of the stage whose butterflies are `half` apart, 1 to 32768, in the program's 2 pi.
///
/// A stage has the same ones in a transform of any length, so they are made once, when a stage as
/// long as this is first asked for, and kept. What was had before may hold other last digits then.
StageTwiddles TwiddlesOfStage(long half);

}  // namespace halvorne
