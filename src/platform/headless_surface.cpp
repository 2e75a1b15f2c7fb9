#include "platform/headless_surface.h"

#include <algorithm>

namespace halvorne {
namespace {
constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr std::string_view kLineEnd = "\r\n";

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::size_t end = text.find(kLineEnd); end != std::string_view::npos;
       end = text.find(kLineEnd)) {
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end + kLineEnd.size());
  }
  lines.push_back(text);
  return lines;
}
}  // namespace

DrawnOperation& HeadlessSurface::Write(DrawnOperation::Kind kind) {
  operations_.push_back(state_);
  operations_.back().kind = kind;
  return operations_.back();
}

void HeadlessSurface::Cls() {
  Write(DrawnOperation::Kind::kCls);
  pen_ = {};
}

void HeadlessSurface::Scale(double x1, double y1, double x2, double y2) {
  corner1_ = {x1, y1};
  corner2_ = {x2, y2};
  Write(DrawnOperation::Kind::kScale).points = {corner1_, corner2_};
}

void HeadlessSurface::Line(double x1, double y1, double x2, double y2) {
  Line(x1, y1, x2, y2, state_.colour);
}

void HeadlessSurface::Line(double x1, double y1, double x2, double y2, Colour colour) {
  DrawnOperation& line = Write(DrawnOperation::Kind::kLine);
  line.points = {{x1, y1}, {x2, y2}};
  line.colour = colour;
  pen_ = {x2, y2};
}

void HeadlessSurface::Box(double x1, double y1, double x2, double y2) {
  Write(DrawnOperation::Kind::kBox).points = {{x1, y1}, {x2, y2}};
  pen_ = {x2, y2};
}

void HeadlessSurface::FillBox(double x1, double y1, double x2, double y2, Colour colour) {
  DrawnOperation& filled = Write(DrawnOperation::Kind::kFill);
  filled.points = {{x1, y1}, {x2, y2}};
  filled.colour = colour;
  pen_ = {x2, y2};
}

void HeadlessSurface::Polyline(std::span<const Point> points) {
  if (points.size() < 2) {
    return;
  }
  Write(DrawnOperation::Kind::kPolyline).points.assign(points.begin(), points.end());
  pen_ = points.back();
}

void HeadlessSurface::Print(std::string_view text) {
  DrawnOperation& printed = Write(DrawnOperation::Kind::kText);
  printed.points = {pen_};
  printed.text = text;
  const auto lines = Lines(text);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    PrintLineEnd();
  }
  pen_.x += TextWidth(lines.back());
}

void HeadlessSurface::PrintLineEnd() {
  pen_ = {0, pen_.y + TextHeight("")};
}

double HeadlessSurface::TextWidth(std::string_view text) const {
  std::size_t characters = 0;
  for (const std::string_view line : Lines(text)) {
    characters = std::max(characters, line.size());
  }
  const double pixels = 0.6 * state_.fontSize * kPixelsPerPoint * static_cast<double>(characters);
  return pixels * (corner2_.x - corner1_.x) / width_;
}

double HeadlessSurface::TextHeight(std::string_view text) const {
  const auto lines = static_cast<double>(Lines(text).size());
  return 1.2 * state_.fontSize * lines * kPixelsPerPoint * (corner2_.y - corner1_.y) / height_;
}

void HeadlessSurface::NewPage() {
  Write(DrawnOperation::Kind::kNewPage);
}
void HeadlessSurface::EndDoc() {
  Write(DrawnOperation::Kind::kEndDoc);
}

}  // namespace halvorne
