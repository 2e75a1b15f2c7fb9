#pragma once

#include <string>
#include <vector>

#include "platform/surface.h"

namespace halvorne {

/// One operation that a surface was told, with the state that it was drawn in.
struct DrawnOperation {
  enum class Kind { kCls, kScale, kLine, kBox, kFill, kPolyline, kText, kNewPage, kEndDoc };

  Kind kind = Kind::kCls;
  std::vector<Point> points;  ///< corners, ends or vertices; the pen for a text
  std::string text;
  Colour colour;
  int drawStyle = kSolid;
  int drawMode = kCopyPen;
  int drawWidth = 1;
  double fontSize = 8;
  bool fontTransparent = true;
  bool fontUnderline = false;
};

/// A surface that only writes down what it was told, for tests and for programs that show nothing.
///
/// Its characters, each byte one, are all 0.6 of the font size wide and 1.2 of it high, at 96 dots
/// an inch. A text of several lines is one operation.
class HeadlessSurface : public Surface {
 public:
  explicit HeadlessSurface(SurfaceKind kind = SurfaceKind::kMainPicture, double widthPixels = 800,
                           double heightPixels = 600)
      : kind_(kind), width_(widthPixels), height_(heightPixels) {}

  /// Everything since construction or Forget(). Cls() is written down too and removes nothing.
  const std::vector<DrawnOperation>& Operations() const { return operations_; }
  void Forget() { operations_.clear(); }
  bool AutoRedraw() const { return autoRedraw_; }
  int ScaleMode() const { return scaleMode_; }

  SurfaceKind Kind() const override { return kind_; }
  double HeightTwips() const override { return height_ * 15; }
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
  void Print(std::string_view text) override;
  void PrintLineEnd() override;
  double TextWidth(std::string_view text) const override;
  double TextHeight(std::string_view text) const override;
  void SetFontSize(double size) override { state_.fontSize = size; }
  void SetFontUnderline(bool on) override { state_.fontUnderline = on; }
  void SetFontTransparent(bool on) override { state_.fontTransparent = on; }
  void SetForeColor(Colour colour) override { state_.colour = colour; }
  void SetDrawWidth(int pixels) override { state_.drawWidth = pixels; }
  void SetDrawStyle(int style) override { state_.drawStyle = style; }
  void SetDrawMode(int mode) override { state_.drawMode = mode; }
  void SetAutoRedraw(bool on) override { autoRedraw_ = on; }
  void SetScaleMode(int mode) override { scaleMode_ = mode; }
  void NewPage() override;
  void EndDoc() override;

 private:
  DrawnOperation& Write(DrawnOperation::Kind kind);

  SurfaceKind kind_;
  double width_;
  double height_;
  Point corner1_{0, 0};
  Point corner2_{1, 1};
  Point pen_;
  bool autoRedraw_ = false;
  int scaleMode_ = 1;
  DrawnOperation state_;
  std::vector<DrawnOperation> operations_;
};

}  // namespace halvorne
