#pragma once

namespace halvorne {

/// Lengths of windows are told in twips, 15 to a pixel.
inline constexpr double kTwipsPerPixel = 15;

/// What Form_Resize does with the height of the screen.
struct HeightCorrection {
  double twips;   ///< added to the graph's height
  bool tinyFont;  ///< the graph's font becomes size 4
};

/// @param screenPixels  height of the screen in pixels, rounded down
HeightCorrection CorrectionFor(int screenPixels);

/// Sizes and places of the controls that follow the window's size, in twips.
struct GraphGeometry {
  double pictureHeight, pictureWidth;
  double scrollTop;  ///< of HScroll1, Cursor1, FindMax and FindMin
  double titleTop;   ///< of txtEdit, whose width is the picture's
};

/// @param height,width  of the window, twips, already limited to the screen's
/// @param correction    CorrectionFor the screen, twips
/// @param pictureTop    top of the graph, twips
GraphGeometry GraphGeometryFor(double height, double width, double correction, double pictureTop);

}  // namespace halvorne
