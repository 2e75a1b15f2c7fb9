#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "plot/headless_window.h"
#include "support/recorded_messages.h"

namespace halvorne::testing {

/// The program as it stands before any file was read: all state zero, a window that shows nothing,
/// messages written down.
class FreshProgram : public ::testing::Test {
 public:
  FreshProgram(const FreshProgram&) = delete;
  FreshProgram& operator=(const FreshProgram&) = delete;

 protected:
  FreshProgram();
  ~FreshProgram() override;

  RecordedMessages shownMessages;
  HeadlessWindow window;
};

/// Puts every state of the core back to its start.
void ResetProgram();

/// A small valid single-layer design in `design`: one lossless piezoelectric layer (Kt 0.5,
/// 5 MHz), real loads, no plates, no network, `points` intervals from 1 to 9 MHz, VelDisp 1, and
/// display settings as shipped. Derived values are made; no sweep is run.
void MakeSimpleDesign(int points = 16, int timePoints = 256);

}  // namespace halvorne::testing
