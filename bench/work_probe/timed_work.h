#pragma once

#include <functional>

namespace halvorne::bench {

/// Does one piece of the program's work some times, each right behind `before`, and prints the
/// median of the processor times in seconds; nothing for a piece that it doesn't know.
/// @param name  "sweep", "transform", "read" or "write": the largest design, its longest transform,
///              its file
void PrintTimeOf(const char* name, const std::function<void()>& before);

}  // namespace halvorne::bench
