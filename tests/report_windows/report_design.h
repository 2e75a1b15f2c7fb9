#pragma once

#include "support/fresh_program.h"

namespace halvorne::testing {

/// The program with a design on show whose report takes one page of the preview.
class ReportDesign : public FreshProgram {
 protected:
  ReportDesign();
  ~ReportDesign() override;

  /// Ten plates on either side, so that it takes two.
  static void MakeLong();
};

}  // namespace halvorne::testing
