#pragma once

#include <functional>

namespace halvorne::bench {

/// Makes the largest design and sweeps it some times, each right behind `before`; prints the median
/// of the processor times in seconds.
void PrintSweepTime(const std::function<void()>& before);

}  // namespace halvorne::bench
