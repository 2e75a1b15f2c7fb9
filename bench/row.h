#pragma once

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace halvorne::bench {

/// How a value of a row comes about.
enum class Taken {
  kByTime,     ///< processor time of the work in microseconds, run as often as it takes
  kByReading,  ///< the work is run once per repetition and leaves it in the counter kReading
};

inline constexpr const char* kReading = "reading";

/// One line of the table of speeds: what the program does beside what it is measured against.
struct Row {
  std::string name;
  double first = 0;  ///< ratio that the program keeps to
  double goal = 0;   ///< ratio to come
  void (*yardstick)(benchmark::State&) = nullptr;
  void (*ours)(benchmark::State&) = nullptr;
  Taken taken = Taken::kByTime;
};

/// Measures all rows, repetitions of all of them interleaved, and prints their medians as a table.
/// @param check  whether a row that is worse than `first` by more than a quarter is measured once
///               more and, worse again, counts as failed
/// @return false when a measurement could not be made, or a row failed
bool Measure(const std::vector<Row>& rows, bool check);

}  // namespace halvorne::bench
