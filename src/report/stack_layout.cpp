#include "report/stack_layout.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace halvorne {
namespace {

constexpr double kMargin = 6;
constexpr double kWires = 16;      ///< room for the wires beside the slabs
constexpr double kThinnest = 5;    ///< height of the thinnest slab
constexpr double kLabelGap = 14;   ///< from the slabs to the labels
constexpr double kRail = 22;       ///< from one rail of the network to the other
constexpr double kRowGap = 24;     ///< between two rows of the network
constexpr double kNarrowest = 17;  ///< width of an element
constexpr double kMostRows = 2;    ///< elements become narrower before there are more
constexpr double kWidest = 44;
constexpr double kPort = 12;
constexpr double kKeyBar = 8;
constexpr double kRoomy = 250;  ///< width from which on labels need no room of the slabs

double Thickness(const StackPart& part) {
  return std::isfinite(part.thickness) ? std::max(part.thickness, 0.0) : 0;
}

bool IsLoad(const StackPart& part) {
  return part.kind == StackKind::kRearLoad || part.kind == StackKind::kFrontLoad;
}

/// Heights of layers that share `room`: in proportion to their thickness, none below `floor`.
std::vector<double> SharedHeights(const std::vector<double>& thicknesses, double room) {
  const auto count = static_cast<double>(thicknesses.size());
  const double floor = std::min(kThinnest, room / std::max(count, 1.0));
  std::vector<double> heights(thicknesses.size(), 0);
  // Each round sets those to the floor that would lie below it, which leaves less to the others.
  for (bool settled = false; !settled;) {
    settled = true;
    double left = room;
    double sum = 0;
    for (std::size_t i = 0; i < heights.size(); ++i) {
      heights[i] > 0 ? left -= floor : sum += thicknesses[i];
    }
    for (std::size_t i = 0; i < heights.size(); ++i) {
      if (heights[i] == 0 && !(sum > 0 && thicknesses[i] / sum * left > floor)) {
        heights[i] = floor;
        settled = false;
      }
    }
    if (settled) {
      for (std::size_t i = 0; i < heights.size(); ++i) {
        heights[i] = heights[i] > 0 ? floor : thicknesses[i] / sum * left;
      }
    }
  }
  if (std::ranges::all_of(thicknesses, [](double thickness) { return thickness == 0; })) {
    std::ranges::fill(heights, room / std::max(count, 1.0));
  }
  return heights;
}

/// The slabs from the front, which is the end of the acoustic parts, downward.
void PlaceSlabs(const Stack& stack, StackLayout& layout) {
  std::vector<double> thicknesses;
  std::size_t count = 0;
  for (; count < stack.parts.size() && IsAcoustic(stack.parts[count].kind); ++count) {
    if (!IsLoad(stack.parts[count])) {
      thicknesses.push_back(Thickness(stack.parts[count]));
    }
  }
  const Area& all = layout.slabs;
  const double height = all.bottom - all.top;
  const double load = thicknesses.empty() ? height / 2 : std::clamp(height * 0.11, 12.0, 60.0);
  const std::vector<double> heights = SharedHeights(thicknesses, height - 2 * load);
  double bottom = all.bottom;
  std::size_t layer = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double top = bottom - (IsLoad(stack.parts[i]) ? load : heights[layer++]);
    layout.parts[i] = {all.left, top, all.right, bottom};
    bottom = top;
  }
}

/// The network's elements from the left, which is the transducer, to the port; as many in a row as
/// are wide enough to be told apart.
void PlaceNetwork(const Stack& stack, StackLayout& layout, double top, double perRow) {
  const double left = kMargin + kWires;
  const double right = layout.width - kMargin - kWires;
  std::size_t first = 0;
  while (IsAcoustic(stack.parts[first].kind)) {
    ++first;
  }
  const std::size_t elements = stack.parts.size() - first - 1;
  const double width =
      std::min(kWidest, (right - kPort - left) / std::min(perRow, static_cast<double>(elements)));
  double rowTop = top;
  double x = left;
  for (std::size_t i = 0; i < elements; ++i) {
    if (i > 0 && i % static_cast<std::size_t>(perRow) == 0) {
      layout.rows.push_back({left, rowTop, x, rowTop + kRail});
      rowTop += kRail + kRowGap;
      x = left;
    }
    // Wires without an element reach to the port.
    const double end = stack.parts[first + i].number == 0 ? right - kPort : x + width;
    layout.parts[first + i] = {x, rowTop - 2, end, rowTop + kRail + 2};
    x = end;
  }
  layout.parts.back() = {x, rowTop - 4, x + kPort + 4, rowTop + kRail + 4};
  layout.rows.push_back({left, rowTop, x, rowTop + kRail});
}

std::string Shortened(const std::string& text, const Surface& measure, double room) {
  std::string kept = text;
  while (!kept.empty() && measure.TextWidth(kept + "...") > room) {
    do {  // whole characters of several bytes
      kept.pop_back();
    } while (!kept.empty() && (static_cast<std::uint8_t>(kept.back()) & 0xC0U) == 0x80U);
    if (!kept.empty() && static_cast<std::uint8_t>(kept.back()) >= 0xC0U) {
      kept.pop_back();
    }
  }
  return kept.empty() ? kept : kept + "...";
}

/// The longest of the texts that fits, the shortest one cut where none does.
std::string FittingText(const std::vector<std::string>& texts, const Surface& measure,
                        double room) {
  for (const std::string& text : texts) {
    if (measure.TextWidth(text) <= room) {
      return text;
    }
  }
  return texts.empty() ? "" : Shortened(texts.back(), measure, room);
}

/// Spreads the labels' tops so that none lies on another and all stay between the bounds.
void Spread(std::vector<StackLabel>& labels, double line, double top, double bottom) {
  double free = top;
  for (StackLabel& label : labels) {
    label.y = std::max(free, label.level - line / 2);
    free = label.y + line;
  }
  free = bottom;
  std::for_each(labels.rbegin(), labels.rend(), [&](StackLabel& label) {
    label.y = std::min(label.y, free - line);
    free = label.y;
  });
}

/// Labels from the front on. Where there is no room for all, thin slabs go without.
void PlaceLabels(const Stack& stack, const Surface& measure, StackLayout& layout) {
  const double x = layout.slabs.right + kLabelGap;
  const double room = layout.width - kMargin - x;
  const double line = measure.TextHeight("X");
  std::size_t count = 0;
  while (IsAcoustic(stack.parts[count].kind)) {
    ++count;
  }
  const double height = layout.slabs.bottom - layout.slabs.top;
  const bool all = line * static_cast<double>(count) <= height;
  for (std::size_t i = count; i-- > 0;) {
    const Area& area = layout.parts[i];
    if (all || area.bottom - area.top >= line) {
      layout.labels.push_back(
          {FittingText(stack.parts[i].labels, measure, room), x, 0, area.MiddleY()});
    }
  }
  Spread(layout.labels, line, layout.slabs.top, layout.slabs.bottom);
}

}  // namespace

StackLayout LayOutStack(const Stack& stack, const Surface& measure, double width, double height) {
  StackLayout layout;
  layout.width = width;
  layout.height = height;
  layout.parts.resize(stack.parts.size());
  const auto elements =
      static_cast<double>(std::ranges::count(stack.parts, StackKind::kElement, &StackPart::kind));
  const double perRow =
      std::max(std::floor((width - 2 * kMargin - 2 * kWires - kPort) / kNarrowest),
               std::ceil(elements / kMostRows));
  const double rows = std::ceil(elements / perRow);
  const double line = measure.TextHeight("X");
  const double keyTop = height - kMargin - line - kKeyBar;
  layout.key = {kMargin, keyTop, width - 2 * kMargin - measure.TextWidth("MRayls"),
                keyTop + kKeyBar};
  const double network = keyTop - 12 - rows * kRail - (rows - 1) * kRowGap;
  const double left = kMargin + kWires;
  const double share = width < kRoomy ? 0.3 : 0.36;
  layout.slabs = {left, kMargin, left + (width - left - kMargin) * share, network - 16};
  PlaceSlabs(stack, layout);
  PlaceNetwork(stack, layout, network, perRow);
  PlaceLabels(stack, measure, layout);
  return layout;
}

int StackPartAt(const StackLayout& layout, double x, double y) {
  const auto found =
      std::ranges::find_if(layout.parts, [&](const Area& area) { return area.Holds(x, y); });
  return found == layout.parts.end() ? -1 : static_cast<int>(found - layout.parts.begin());
}

}  // namespace halvorne
