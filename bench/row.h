#pragma once

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace halvorne::bench {

/// One line of the table of speeds: what the program does beside what it is measured against.
struct Row {
  std::string name;
  double first = 0;  ///< ratio that the program keeps to
  double goal = 0;   ///< ratio to come
  void (*yardstick)(benchmark::State&) = nullptr;
  void (*ours)(benchmark::State&) = nullptr;
};

/// Measures all rows, repetitions of all of them interleaved, and prints their medians as a table.
/// @return false when a measurement could not be made
bool Measure(const std::vector<Row>& rows);

}  // namespace halvorne::bench
