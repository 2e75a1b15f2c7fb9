#include "plot/held_legend.h"

#include <algorithm>
#include <cmath>

#include "plot/graph.h"
#include "plot/held_curves.h"
#include "plot/trace_colours.h"

namespace halvorne {
namespace {

constexpr double kLeft = -1.9;  ///< the legend may be as wide as the picture, less a margin
constexpr double kRight = 11.9;
constexpr double kSample = 0.4;  ///< length of the line that shows the colour
constexpr double kGap = 0.12;    ///< behind it, and between columns
constexpr double kAxisFont = 8;
constexpr double kSmallFont = 6;
/// Of the room for a text, what its tail may take before it is cut off like the rest.
constexpr double kTailShare = 0.75;

/// y at the bottom of the picture.
double Bottom(std::int16_t pane) {
  return pane == 4 ? -3.7 : -2;
}

/// Where the entries stand.
struct Places {
  double top = 0;
  double lineHeight = 0;
  int rows = 0;
};

Places PlacesBelow(const Surface& surface, std::int16_t pane) {
  Places places;
  places.lineHeight = std::abs(surface.TextHeight("X"));
  places.top = ReadOutLine(surface) - places.lineHeight;
  places.rows = static_cast<int>(std::floor((places.top - Bottom(pane)) / places.lineHeight));
  return places;
}

/// The entry in a width; what is missing is missing from its title where that can be.
std::string FittedEntry(const Surface& surface, const LegendEntry& entry, double width) {
  const std::size_t title = entry.text.size() - entry.tail;
  const std::string tail = entry.text.substr(title);
  const double taken = surface.TextWidth(tail);
  if (tail.empty() || taken > kTailShare * width || surface.TextWidth(entry.text) <= width) {
    return FittedText(surface, entry.text, width);
  }
  return FittedText(surface, entry.text.substr(0, title), width - taken) + tail;
}

/// Bytes of a caption's file in brackets with the blank before it; 0 where there is none.
std::size_t FileTail(const std::string& caption) {
  const std::size_t bracket = caption.rfind(" (");
  return bracket == std::string::npos || !caption.ends_with(')') ? 0 : caption.size() - bracket;
}

void DrawEntry(Surface& surface, const LegendEntry& entry, Point place, double width,
               double lineHeight) {
  const double middle = place.y - lineHeight / 2;
  surface.SetForeColor(entry.colour);
  surface.SetDrawWidth(2);  // a colour is hard to tell from a thin short line
  surface.Line(place.x, middle, place.x + kSample, middle);
  surface.SetDrawWidth(1);
  surface.SetForeColor(kBlack);
  const double text = place.x + kSample + kGap;
  PrintAt(surface, text, place.y, FittedEntry(surface, entry, place.x + width - kGap - text));
}

}  // namespace

std::string FittedText(const Surface& surface, const std::string& text, double width) {
  if (surface.TextWidth(text) <= width) {
    return text;
  }
  const auto isInside = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
  std::string cut = text;
  while (!cut.empty() && surface.TextWidth(cut + "...") > width) {
    do {
      cut.pop_back();
    } while (!cut.empty() && isInside(text[cut.size()]));
  }
  return cut + "...";
}

std::vector<LegendEntry> Legend() {
  std::vector<LegendEntry> entries;
  for (const int slot : HeldSlots()) {
    const HeldDesign& held = *Held(slot);
    const bool drawn = held.curves == nullptr || held.curves->shown;
    const std::string remark = drawn ? "" : " - not shown: " + held.curves->why;
    entries.push_back({kHeldColours.at(static_cast<std::size_t>(slot)), held.label + remark,
                       drawn ? FileTail(held.label) : remark.size()});
  }
  if (!entries.empty()) {
    const std::string present = DesignCaption(design);
    entries.insert(entries.begin(), {kFirstTraceColour, present, FileTail(present)});
  }
  return entries;
}

void DrawLegend(Surface& surface, std::int16_t pane) {
  const std::vector<LegendEntry> entries = Legend();
  Places places = PlacesBelow(surface, pane);
  if (places.rows < 1) {
    surface.SetFontSize(kSmallFont);
    places = PlacesBelow(surface, pane);
  }
  // Where there is no room at all it stands on the lowest line, which the cursor's read-out takes.
  if (places.rows < 1) {
    places.rows = 1;
    places.top = Bottom(pane) + places.lineHeight;
  }
  const int count = static_cast<int>(entries.size());
  const int columns = (count + places.rows - 1) / places.rows;
  const int rows = (count + columns - 1) / columns;
  const double left = columns == 1 ? 0 : kLeft;  // a single column stands below the box
  const double width = (kRight - left) / columns;
  for (int i = 0; i < count; ++i) {
    // Down each column, so that the numbers are found where one looks for them.
    const int column = i / rows;
    const int row = i % rows;
    const Point place{left + column * width, places.top - row * places.lineHeight};
    DrawEntry(surface, entries[static_cast<std::size_t>(i)], place, width, places.lineHeight);
  }
  surface.SetFontSize(kAxisFont);
}

std::string LegendSentence() {
  std::string words;
  for (const int slot : HeldSlots()) {
    words += (words.empty() ? " Behind it: " : ", ") + Held(slot)->label;
  }
  return words.empty() ? "" : words + ".";
}

}  // namespace halvorne
