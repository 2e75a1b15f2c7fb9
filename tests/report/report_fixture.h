#pragma once

#include <string>
#include <vector>

#include "platform/headless_surface.h"
#include "support/fresh_program.h"

namespace halvorne::testing {

/// A text as it was printed.
struct PrintedText {
  int page = 1;
  double x = 0;
  double y = 0;
  std::string text;
  double size = 0;
  bool underline = false;
};

/// The program with a design of which every printed field is known, and paper to print on.
///
/// In page units a character of the report's text is 0.02 wide and a line 0.05 high; in the font
/// of the graph it is 0.025 and 0.0625.
class ReportTest : public FreshProgram {
 protected:
  ReportTest();

  /// Two layers, one face plate, two back plates, no network.
  static void FillDesign();
  static void FillMeasurements();

  /// Puts the paper in the page's scale and font, the pen in the middle, tab stops as at the start.
  void BeginPage();

  /// The texts that are not all blanks.
  std::vector<PrintedText> Printed() const;
  /// The same as "x|text", each line of print one entry with its texts joined by " & ".
  std::vector<std::string> Lines() const;
  /// The lines from the one that starts with `text` on, `count` of them.
  std::vector<std::string> LinesFrom(const std::string& text, std::size_t count) const;
  /// All texts printed as one, for searching.
  bool HasText(const std::string& part) const;

  HeadlessSurface paper{SurfaceKind::kPrinter, 3200, 2560};
};

}  // namespace halvorne::testing
