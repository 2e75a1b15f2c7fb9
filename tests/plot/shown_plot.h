#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/headless_surface.h"
#include "support/fresh_program.h"

namespace halvorne::testing {

/// The program with a plot on show in one of its forms and nothing gathered, drawn or reported.
class ShownPlot : public FreshProgram {
 protected:
  /// Frequencies in MHz, times in usec, LogRange 60, the whole span autoscaled.
  void Show(int number, int form);

  HeadlessSurface& Picture() { return window.OwnPicture(); }
};

/// The operations of a kind, in order.
std::vector<DrawnOperation> OfKind(const HeadlessSurface& surface, DrawnOperation::Kind kind);
/// The texts that are not all blanks, in order.
std::vector<std::string> TextsOn(const HeadlessSurface& surface);
/// The first text of these words; a failed expectation when there is none.
DrawnOperation FindText(const HeadlessSurface& surface, const std::string& text);
/// x of the middle of a text drawn in a scale of `unitsPerPixel`.
double MiddleOf(const DrawnOperation& text, double unitsPerPixel);

}  // namespace halvorne::testing
