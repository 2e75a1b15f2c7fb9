#include "plot/band_marks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/number_text.h"
#include "plot/extent.h"
#include "plot/graph_position.h"
#include "plot/measures.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

constexpr Colour kBandColour{0, 115, 60};
constexpr Colour kSpectrumBandColour{0, 90, 170};
/// From an edge and from the level to the text, box units.
constexpr double kTextGap = 0.1;
constexpr double kTextLift = 0.05;

/// A level's mark in box units.
struct Mark {
  double left, right;  ///< the two crossings
  double level;        ///< height of the level
  bool below;          ///< the curve lies below the level within the crossings, as a loss does
  Colour colour;
  std::string text;
};

/// Places a text beside the mark, where its curve cannot be: beyond a crossing, on the side of the
/// level that the curve has left for good. Where there is no room, within the mark.
Extent PlaceText(const Surface& surface, const Mark& mark, const std::vector<Extent>& taken) {
  const double width = surface.TextWidth(mark.text);
  const double height = std::abs(surface.TextHeight(mark.text));
  const double wanted = mark.below ? mark.level - kTextLift - height : mark.level + kTextLift;
  const double bottom = std::clamp(wanted, 0.0, 10 - height);
  const double middle =
      (std::clamp(mark.left, 0.0, 10.0) + std::clamp(mark.right, 0.0, 10.0)) / 2 - width / 2;
  const double starts[] = {mark.right + kTextGap, mark.left - kTextGap - width,
                           std::clamp(middle, 0.0, std::max(0.0, 10 - width))};
  // Where texts would meet, one gives way to the inside of the box.
  const double aside = bottom < 5 ? height : -height;
  Extent place{starts[2], starts[2] + width, bottom, bottom + height};
  for (int way = 0; way < 6; ++way) {
    for (const double start : starts) {
      const Extent tried{start, start + width, bottom + way * aside, bottom + way * aside + height};
      if (start >= 0 && tried.right <= 10 && !MeetsAny(tried, taken)) {
        return tried;
      }
    }
  }
  return place;
}

void DrawMark(Surface& surface, const Mark& mark, std::vector<Extent>& taken) {
  if (!(mark.level > 0) || mark.right < mark.left || mark.right < 0 || mark.left > 10) {
    return;
  }
  surface.SetForeColor(mark.colour);
  surface.SetDrawStyle(kDots);
  for (const double edge : {mark.left, mark.right}) {
    if (0 <= edge && edge <= 10) {
      surface.Line(edge, 0, edge, std::min(mark.level, 10.0));
    }
  }
  if (mark.level < 10) {
    surface.Line(std::max(mark.left, 0.0), mark.level, std::min(mark.right, 10.0), mark.level);
  }
  surface.SetDrawStyle(kSolid);
  const Extent place = PlaceText(surface, mark, taken);
  surface.MoveTo(place.left, place.top);
  surface.SetFontTransparent(true);
  surface.Print(mark.text);
  taken.push_back(place);
}

double Height(double value, float min, float max) {
  return Quotient((value - min) * 10.0, double{max} - min);
}

std::string EdgesText(const LevelCrossings& crossings, const std::string& level) {
  const double lower = DisplayFrequency(crossings.lower);
  const double upper = DisplayFrequency(crossings.upper);
  const char* const pattern = BandPattern(lower, upper);
  return level + " dB: " + Format(lower, pattern) + " to " + Format(upper, pattern) + " " +
         design.FreqUnit;
}

Mark BandMark(std::size_t index) {
  const LevelCrossings& crossings = measured.Band[index];
  const std::string text = EdgesText(crossings, measured.CFBWText[index + 3][0]);
  if (plot.SpectrumShown) {
    const auto x = [](float point) { return Quotient(point * 10.0, design.NoFreqPts); };
    return {.left = x(crossings.lower),
            .right = x(crossings.upper),
            .level = Height(crossings.decibels, scale.RightMin, scale.RightMax),
            .below = false,
            .colour = kSpectrumBandColour,
            .text = text};
  }
  // An insertion loss is measured upside down.
  const bool loss = view.CurrentPlot == 32;
  const double linear = loss ? Quotient(1, crossings.level) : crossings.level;
  const double decibels = loss ? -crossings.decibels : crossings.decibels;
  return {.left = BoxX(crossings.lower),
          .right = BoxX(crossings.upper),
          .level = Height(plot.AmplLog ? decibels : linear, scale.LeftMin, scale.LeftMax),
          .below = loss,
          .colour = kBandColour,
          .text = text};
}

Mark PulseMark(std::size_t index) {
  const LevelCrossings& crossings = measured.Pulse[index];
  const auto& row = measured.PulseWidthText[index + 2];
  return {.left = BoxX(crossings.lower),
          .right = BoxX(crossings.upper),
          .level = Height(plot.AmplLog ? crossings.decibels : crossings.level, scale.LeftMin,
                          scale.LeftMax),
          .below = false,
          .colour = kBandColour,
          .text = row[0] + " dB: " + row[1] + " " + measured.PulseWidthText[1][1]};
}

}  // namespace

void BandMarksOn(Surface& surface) {
  if (!reading.BandOn || surface.Kind() != SurfaceKind::kMainPicture) {
    return;
  }
  std::vector<Extent> taken;
  for (std::size_t i = 0; i < measured.Pulse.size(); ++i) {
    if (measured.PulseWidthValid && measured.Pulse[i].lower <= measured.Pulse[i].upper) {
      DrawMark(surface, PulseMark(i), taken);
    }
  }
  for (std::size_t i = 0; i < measured.Band.size(); ++i) {
    if (measured.CFBWValid && measured.Band[i].lower <= measured.Band[i].upper) {
      DrawMark(surface, BandMark(i), taken);
    }
  }
  surface.SetForeColor(kBlack);
}

}  // namespace halvorne
