#pragma once

#include <functional>

#include "plot/held_curves.h"
#include "plot/shown_plot.h"

namespace halvorne::testing {

/// Two designs with all curves, plates and a tone burst, of which one may be held.
class ComparedDesigns : public FreshProgram {
 protected:
  /// Makes and calculates a design, in which `change` may alter what it likes before.
  static void Make(
      const std::string& title, const std::function<void()>& change = [] {});
  /// Makes a design, holds it and puts the present one back. Returns its slot.
  static int HoldAnother(
      const std::string& title, const std::function<void()>& change = [] {});
  /// Shows a plot in a form as the window's commands do.
  void Choose(int number, int form);
  /// What the plot on show draws on a picture of its own.
  static std::vector<DrawnOperation> Drawn(SurfaceKind kind = SurfaceKind::kMainPicture);
  /// The polylines among it in a colour.
  static std::vector<DrawnOperation> LinesIn(Colour colour);
  /// The texts of a drawing.
  static std::vector<std::string> Texts(const std::vector<DrawnOperation>& drawn);
};

}  // namespace halvorne::testing
