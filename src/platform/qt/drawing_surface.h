#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QLineF>
#include <QPaintDevice>
#include <QPainter>
#include <QPen>
#include <QRectF>
#include <QSizeF>
#include <functional>

#include "platform/qt/picture_font.h"
#include "platform/qt/trace_thinning.h"
#include "platform/surface.h"

namespace halvorne {

/// Where a surface paints, in the painter's own units.
struct Canvas {
  QSizeF size{1, 1};
  double unitsPerPixel = 1;  ///< painter units of one pixel of 1/96 inch
  bool pixelGrid = true;     ///< a unit is a pixel, and lines along the axes are laid on whole ones
  bool vector = false;       ///< keeps lines as such, so that each is smooth and none costs time
  double columnsPerUnit = 1;  ///< how finely a dense trace is resolved
};

/// A straight line as it is painted.
struct PaintedLine {
  QLineF line;
  QPen pen;
  bool operator==(const PaintedLine&) const = default;
};

/// What the painted surfaces share: the logical scale, the pen, the font, and how each operation
/// looks. Where and when it is painted is the derived class's matter.
///
/// On a grid of pixels, lines along the axes cover whole pixels, so that they are crisp at any
/// resolution. A line width of 1 is a pixel of 1/96 inch; on the printer a finer one.
class DrawingSurface : public Surface {
 public:
  SurfaceKind Kind() const override { return kind_; }
  double HeightTwips() const override;
  void Cls() override;
  void Scale(double x1, double y1, double x2, double y2) override;
  void Line(double x1, double y1, double x2, double y2) override;
  void Line(double x1, double y1, double x2, double y2, Colour colour) override;
  void Box(double x1, double y1, double x2, double y2) override;
  void FillBox(double x1, double y1, double x2, double y2, Colour colour) override;
  void Polyline(std::span<const Point> points) override;
  double CurrentX() const override { return pen_.x; }
  double CurrentY() const override { return pen_.y; }
  void MoveTo(double x, double y) override { pen_ = {x, y}; }
  /// A line end within the text ends the printed line, as PrintLineEnd() does.
  void Print(std::string_view text) override;
  void PrintLineEnd() override;
  double TextWidth(std::string_view text) const override;
  double TextHeight(std::string_view text) const override;
  void SetFontSize(double points) override;
  void SetFontUnderline(bool on) override;
  void SetFontTransparent(bool on) override { fontTransparent_ = on; }
  void SetForeColor(Colour colour) override { foreColour_ = colour; }
  void SetDrawWidth(int pixels) override { drawWidth_ = pixels; }
  void SetDrawStyle(int style) override { drawStyle_ = style; }
  void SetDrawMode(int mode) override { drawMode_ = mode; }
  void SetAutoRedraw(bool /*on*/) override {}  // every painted surface keeps what was drawn
  void SetScaleMode(int /*mode*/) override {}  // the scale is always the user's
  void NewPage() override {}
  void EndDoc() override {}

 protected:
  explicit DrawingSurface(SurfaceKind kind);

  /// Lets `draw` paint with a painter of the canvas; nothing outside `touched` changes.
  virtual void Paint(const QRectF& touched, const std::function<void(QPainter&)>& draw) = 0;
  /// The device whose resolution sizes the font; null before there is one.
  virtual const QPaintDevice* Device() const = 0;
  /// Paints a single line; to be overridden where a line is not simply painted.
  virtual void DrawLine(const PaintedLine& line);

  void SetCanvas(const Canvas& canvas);
  const Canvas& GetCanvas() const { return canvas_; }
  int DrawMode() const { return drawMode_; }

  static void PaintLine(QPainter& painter, const PaintedLine& line);
  /// The rectangle that painting a line touches.
  static QRectF Touched(const PaintedLine& line);

 private:
  QPointF Map(double x, double y) const { return {mapX_(x), mapY_(y)}; }
  void MakeMaps();
  void MakeFont();
  double PenWidth() const;
  QPen MakePen(Colour colour) const;
  /// A trace so dense that smoothing would not show, on a device with pixels.
  void PaintDense(QPainter& painter, const QPolygonF& line, QPen pen) const;
  QPointF OnGrid(QPointF point) const;
  double OnGrid(double coordinate) const;
  void PrintPart(const QString& text);

  SurfaceKind kind_;
  Canvas canvas_;
  Point corner1_{0, 0};
  Point corner2_{1, 1};
  AxisMap mapX_, mapY_;
  Point pen_;
  QFont font_;
  QFontMetricsF metrics_;
  bool fontTransparent_ = true;
  Colour foreColour_ = kBlack;
  int drawWidth_ = 1;
  int drawStyle_ = kSolid;
  int drawMode_ = kCopyPen;
};

}  // namespace halvorne
