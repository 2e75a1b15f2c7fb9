#pragma once

#include <string>
#include <string_view>

#include "platform/surface.h"

namespace halvorne {

/// The record of a report: what is drawn on another surface, written down as lines of JSON in page
/// units, x from 0 to 10 and y from 10 to 0 from top to bottom of every page.
///
/// It forwards all to the surface it stands before, by which texts are measured. A text that holds
/// line ends is written down line by line, an empty one not at all.
class PageRecord final : public Surface {
 public:
  explicit PageRecord(Surface& drawn) : drawn_(drawn) {}

  /// The record so far, its first line about the report as a whole.
  /// @param font          name of the font that texts were measured in
  /// @param width,height  of the page, points
  std::string Text(const std::string& font, double width, double height) const;

  SurfaceKind Kind() const override { return drawn_.Kind(); }
  double HeightTwips() const override { return drawn_.HeightTwips(); }
  void Cls() override { drawn_.Cls(); }
  void Scale(double x1, double y1, double x2, double y2) override;
  void Line(double x1, double y1, double x2, double y2) override;
  void Line(double x1, double y1, double x2, double y2, Colour colour) override;
  void Box(double x1, double y1, double x2, double y2) override;
  void FillBox(double x1, double y1, double x2, double y2, Colour colour) override;
  void Polyline(std::span<const Point> points) override;
  double CurrentX() const override { return drawn_.CurrentX(); }
  double CurrentY() const override { return drawn_.CurrentY(); }
  void MoveTo(double x, double y) override { drawn_.MoveTo(x, y); }
  void Print(std::string_view text) override;
  void PrintLineEnd() override { drawn_.PrintLineEnd(); }
  double TextWidth(std::string_view text) const override { return drawn_.TextWidth(text); }
  double TextHeight(std::string_view text) const override { return drawn_.TextHeight(text); }
  void SetFontSize(double points) override;
  void SetFontUnderline(bool on) override;
  void SetFontTransparent(bool on) override { drawn_.SetFontTransparent(on); }
  void SetForeColor(Colour colour) override;
  void SetDrawWidth(int pixels) override { drawn_.SetDrawWidth(pixels); }
  void SetDrawStyle(int style) override;
  void SetDrawMode(int mode) override { drawn_.SetDrawMode(mode); }
  void SetAutoRedraw(bool on) override { drawn_.SetAutoRedraw(on); }
  void SetScaleMode(int mode) override { drawn_.SetScaleMode(mode); }
  void NewPage() override;
  void EndDoc() override { drawn_.EndDoc(); }

 private:
  double PageX(double x) const;
  double PageY(double y) const;
  void PrintPart(std::string_view line);

  Surface& drawn_;
  std::string lines_;
  int page_ = 1;
  Point corner1_{0, 0};
  Point corner2_{1, 1};
  Colour foreColour_ = kBlack;
  int drawStyle_ = kSolid;
  double fontSize_ = 8;
  bool underline_ = false;
};

}  // namespace halvorne
