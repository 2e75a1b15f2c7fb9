#include "shell/text_extents.h"

#include <cmath>

namespace halvorne::testing {

TextExtents::TextExtents(QSize size) : DrawingSurface(SurfaceKind::kMainPicture), size_(size) {
  constexpr double dotsPerMetre = 96 / 0.0254;
  device_.setDotsPerMeterX(static_cast<int>(std::lround(dotsPerMetre)));
  device_.setDotsPerMeterY(static_cast<int>(std::lround(dotsPerMetre)));
  SetCanvas({.size = size_});
}

void TextExtents::Scale(double x1, double y1, double x2, double y2) {
  corner1_ = {x1, y1};
  corner2_ = {x2, y2};
  DrawingSurface::Scale(x1, y1, x2, y2);
}

void TextExtents::Print(std::string_view text) {
  const double perX = size_.width() / (corner2_.x - corner1_.x);
  const double perY = size_.height() / (corner2_.y - corner1_.y);
  if (text.find_first_not_of(' ') != std::string_view::npos) {
    texts_.push_back({std::string(text),
                      {(CurrentX() - corner1_.x) * perX, (CurrentY() - corner1_.y) * perY,
                       TextWidth(text) * perX, TextHeight(text) * perY}});
  }
  DrawingSurface::Print(text);
}

std::vector<std::string> TextExtents::Faults() const {
  std::vector<std::string> faults;
  const QRectF picture({0, 0}, size_);
  // Blank space above and below letters may be shared.
  const auto letters = [](const Text& text) {
    const double air = text.place.height() / 5;
    return text.place.adjusted(0, air, 0, -air);
  };
  for (std::size_t i = 0; i < texts_.size(); ++i) {
    if (!picture.contains(letters(texts_[i]))) {
      faults.push_back(texts_[i].words + " is cut off");
    }
    for (std::size_t k = i + 1; k < texts_.size(); ++k) {
      if (letters(texts_[i]).intersects(letters(texts_[k]))) {
        faults.push_back(texts_[i].words + " lies over " + texts_[k].words);
      }
    }
  }
  return faults;
}

}  // namespace halvorne::testing
