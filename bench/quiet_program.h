#pragma once

#include <benchmark/benchmark.h>

#include "platform/messages.h"
#include "plot/headless_window.h"

namespace halvorne::bench {

/// The program without a window while it is measured: questions are agreed to, failures counted.
class QuietProgram final : public Messages {
 public:
  QuietProgram();
  ~QuietProgram() override;
  QuietProgram(const QuietProgram&) = delete;
  QuietProgram& operator=(const QuietProgram&) = delete;

  MessageAnswer Show(const Message& message) override;

 private:
  HeadlessWindow window_;
};

/// Marks a measurement as failed when a failure was shown since the last call: its time is then
/// not that of the work.
void CheckQuiet(benchmark::State& state);

}  // namespace halvorne::bench
