#pragma once

#include <cstdint>

#include "platform/surface.h"

// The cursor: a dotted vertical line across the graph, moved with the scroll bar, whose point is
// read out below it. Failures end in the box of the procedure in which they arise.

namespace halvorne {

/// Turns the cursor on, at the middle of the window shown, or off.
/// A window of a single point is failure 11, with the cursor counted as turned.
void Cursor1_Click();

/// Moves the cursor to the scroll bar's value; nothing while it is off.
void HScroll1_Change();

/// Writes the read-out of the scroll bar's point under the graph, or erases it. On the main picture
/// it also tells the differences from the reference mark, if there is one.
/// @param surface  in the scale of the graph that the cursor stands in
void CursorPrint(Surface& surface, bool on);

/// Turns the cursor off before the picture changes and makes its button work again.
void ClearCursor();

/// Puts the cursor, turned on if need be, on a point; one outside the window shown is its edge.
/// Failures go up to the caller.
void PutCursorAt(std::int32_t point);

/// Draws the graph anew on the main picture with the cursor, if it is on, where it stood.
void RedrawKeepingCursor();

/// Put the cursor, turned on if need be, on the first extreme of the first trace within the window
/// shown.
void FindMax_Click();
void FindMin_Click();

}  // namespace halvorne
