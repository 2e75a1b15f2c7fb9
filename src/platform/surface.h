#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace halvorne {

/// A point in the logical coordinates that Scale() set.
struct Point {
  double x = 0;
  double y = 0;
};

/// A colour as red, green, blue from 0 to 255.
struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Colour&) const = default;
};

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kBlue{0, 0, 255};
/// The cursor's colour, number 3 of the sixteen classic colours.
inline constexpr Colour kCyan{0, 128, 128};

/// Which of the known surfaces one is: a few constants of the drawing depend on it.
enum class SurfaceKind { kMainPicture, kPreview, kPrinter };

/// Values of DrawStyle.
inline constexpr int kSolid = 0;
inline constexpr int kDots = 2;
/// Values of DrawMode.
inline constexpr int kXorPen = 7;
inline constexpr int kCopyPen = 13;

/// Where pictures are drawn: operations in logical coordinates, y falling downward on paper
/// whatever its sign.
///
/// The pen stands at CurrentX, CurrentY; lines leave it at their end, Print starts there.
/// Texts are bytes: UTF-8 where they are valid UTF-8, else Latin-1.
class Surface {
 public:
  virtual ~Surface() = default;

  virtual SurfaceKind Kind() const = 0;
  /// Height of the picture in twips (1/1440 inch), the unit of the preview's font rule.
  virtual double HeightTwips() const = 0;

  /// Clears all that was drawn and puts the pen at 0, 0.
  virtual void Cls() = 0;
  /// Sets the logical coordinates of the top left and the bottom right corner.
  virtual void Scale(double x1, double y1, double x2, double y2) = 0;

  /// Straight line in the fore colour; the pen ends at (x2, y2).
  virtual void Line(double x1, double y1, double x2, double y2) = 0;
  /// The same in a colour of its own.
  virtual void Line(double x1, double y1, double x2, double y2, Colour colour) = 0;
  /// Unfilled box with two opposite corners.
  virtual void Box(double x1, double y1, double x2, double y2) = 0;
  /// Box with two opposite corners, filled with a colour, without an edge.
  virtual void FillBox(double x1, double y1, double x2, double y2, Colour colour) = 0;
  /// Lines from each point to the next, handed over at once: the way in which traces are drawn.
  /// The pen ends at the last point. Fewer than two points draw nothing.
  virtual void Polyline(std::span<const Point> points) = 0;

  virtual double CurrentX() const = 0;
  virtual double CurrentY() const = 0;
  virtual void MoveTo(double x, double y) = 0;

  /// Text with its top left corner at the pen, which then stands at the text's end.
  virtual void Print(std::string_view text) = 0;
  /// Ends the printed line: the pen goes to x = 0, one text height lower.
  virtual void PrintLineEnd() = 0;
  /// Extent of a text in logical units; the height is negative where y grows upward.
  virtual double TextWidth(std::string_view text) const = 0;
  virtual double TextHeight(std::string_view text) const = 0;

  virtual void SetFontSize(double points) = 0;
  virtual void SetFontUnderline(bool on) = 0;
  /// False: a text paints its own background, which is how blanks erase what stood there.
  virtual void SetFontTransparent(bool on) = 0;
  virtual void SetForeColor(Colour colour) = 0;
  virtual void SetDrawWidth(int pixels) = 0;
  virtual void SetDrawStyle(int style) = 0;
  /// kXorPen: a line drawn a second time removes the first.
  virtual void SetDrawMode(int mode) = 0;
  /// True: the picture is kept and repaints itself.
  virtual void SetAutoRedraw(bool on) = 0;
  /// 0: user scale.
  virtual void SetScaleMode(int mode) = 0;

  /// Printer only: ends the page and starts another; ends the document.
  virtual void NewPage() = 0;
  virtual void EndDoc() = 0;
};

}  // namespace halvorne
