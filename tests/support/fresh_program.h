#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "plot/headless_window.h"
#include "support/program_state.h"
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

}  // namespace halvorne::testing
