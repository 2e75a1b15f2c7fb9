#pragma once

#include "platform/surface.h"

namespace halvorne {

/// The upper part of another surface as a surface of its own, on which a graph leaves room below.
class UpperPart final : public Surface {
 public:
  /// @param share  of the height, above 0 to 1
  UpperPart(Surface& whole, double share) : whole_(whole), share_(share) {}

  SurfaceKind Kind() const override { return whole_.Kind(); }
  double HeightTwips() const override { return whole_.HeightTwips() * share_; }
  void Cls() override { whole_.Cls(); }
  void Scale(double x1, double y1, double x2, double y2) override {
    whole_.Scale(x1, y1, x2, y1 + (y2 - y1) / share_);
  }
  void Line(double x1, double y1, double x2, double y2) override { whole_.Line(x1, y1, x2, y2); }
  void Line(double x1, double y1, double x2, double y2, Colour colour) override {
    whole_.Line(x1, y1, x2, y2, colour);
  }
  void Box(double x1, double y1, double x2, double y2) override { whole_.Box(x1, y1, x2, y2); }
  void FillBox(double x1, double y1, double x2, double y2, Colour colour) override {
    whole_.FillBox(x1, y1, x2, y2, colour);
  }
  void Polyline(std::span<const Point> line) override { whole_.Polyline(line); }
  double CurrentX() const override { return whole_.CurrentX(); }
  double CurrentY() const override { return whole_.CurrentY(); }
  void MoveTo(double x, double y) override { whole_.MoveTo(x, y); }
  void Print(std::string_view text) override { whole_.Print(text); }
  void PrintLineEnd() override { whole_.PrintLineEnd(); }
  double TextWidth(std::string_view text) const override { return whole_.TextWidth(text); }
  double TextHeight(std::string_view text) const override { return whole_.TextHeight(text); }
  void SetFontSize(double size) override { whole_.SetFontSize(size); }
  void SetFontUnderline(bool on) override { whole_.SetFontUnderline(on); }
  void SetFontTransparent(bool on) override { whole_.SetFontTransparent(on); }
  void SetForeColor(Colour colour) override { whole_.SetForeColor(colour); }
  void SetDrawWidth(int pixels) override { whole_.SetDrawWidth(pixels); }
  void SetDrawStyle(int style) override { whole_.SetDrawStyle(style); }
  void SetDrawMode(int mode) override { whole_.SetDrawMode(mode); }
  void SetAutoRedraw(bool on) override { whole_.SetAutoRedraw(on); }
  void SetScaleMode(int mode) override { whole_.SetScaleMode(mode); }
  void NewPage() override { whole_.NewPage(); }
  void EndDoc() override { whole_.EndDoc(); }

 private:
  Surface& whole_;
  double share_;
};

}  // namespace halvorne
