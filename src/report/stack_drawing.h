#pragma once

#include "platform/surface.h"
#include "report/stack.h"
#include "report/stack_layout.h"

namespace halvorne {

/// The colour of an acoustic impedance, Rayl: one sequence from light to dark over its logarithm,
/// the ends for what lies beyond them.
Colour ImpedanceColour(double impedance);

/// Draws the stack all over a surface and tells where everything stands.
///
/// @param width,height  of the surface, pixels of 1/96 inch; a smaller one than the smallest
///                      picture gets that one, squeezed
/// @param selected      index of the part that is framed; -1 for none
StackLayout DrawStack(Surface& surface, const Stack& stack, double width, double height,
                      int selected = -1);

}  // namespace halvorne
