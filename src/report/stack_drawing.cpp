#include "report/stack_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/numbers.h"
#include "report/network_symbols.h"

namespace halvorne {
namespace {

constexpr Colour kWhite{255, 255, 255};
constexpr Colour kPale{190, 200, 215};
constexpr Colour kLeader{150, 150, 150};
constexpr Colour kSelected{213, 94, 0};
constexpr double kWireFront = 3;  ///< x of the wires from the left edge of the picture
constexpr double kWireRear = 9;

/// Ends of the key, Rayl.
constexpr double kLowest = 0.3e6;
constexpr double kHighest = 100e6;
/// Its colours, evenly over the logarithm: each darker than the one before it, from yellow through
/// green to blue, which the colour-blind tell apart as well.
constexpr std::array<Colour, 5> kColours{
    {{255, 255, 217}, {199, 233, 180}, {65, 182, 196}, {34, 94, 168}, {8, 29, 88}}};

/// 0 at the lowest impedance of the key, 1 at its highest.
double PlaceInKey(double impedance) {
  if (!(impedance > kLowest)) {
    return 0;
  }
  return std::min(std::log(impedance / kLowest) / std::log(kHighest / kLowest), 1.0);
}

std::uint8_t Between(std::uint8_t a, std::uint8_t b, double share) {
  return static_cast<std::uint8_t>(std::lround(a + (b - a) * share));
}

Colour ColourAt(double place) {
  const double step = place * (kColours.size() - 1);
  const auto below = std::min(static_cast<std::size_t>(step), kColours.size() - 2);
  const double share = step - static_cast<double>(below);
  const Colour& a = kColours.at(below);
  const Colour& b = kColours.at(below + 1);
  return {Between(a.red, b.red, share), Between(a.green, b.green, share),
          Between(a.blue, b.blue, share)};
}

bool IsDark(Colour colour) {
  return colour.red * 3 + colour.green * 6 + colour.blue < 1280;
}

void Frame(Surface& surface, const Area& area) {
  surface.Box(area.left, area.top, area.right, area.bottom);
}

/// The way of the polarity, in the middle of a layer that is high enough for it.
void DrawPolarity(Surface& surface, const Area& area, int polarity, Colour colour) {
  constexpr double half = 5;
  constexpr double head = 3;
  if (polarity == 0 || area.bottom - area.top < 3 * half) {
    return;
  }
  const double x = area.MiddleX();
  const double tip = area.MiddleY() - Sgn(polarity) * half;
  const double tail = area.MiddleY() + Sgn(polarity) * half;
  const double back = tip + Sgn(polarity) * head;
  surface.Line(x, tail, x, tip, colour);
  surface.Line(x - head, back, x, tip, colour);
  surface.Line(x + head, back, x, tip, colour);
}

void DrawSlab(Surface& surface, const StackPart& part, const Area& area) {
  const Colour colour = ImpedanceColour(part.impedance);
  surface.FillBox(area.left, area.top, area.right, area.bottom, colour);
  const bool load = part.kind == StackKind::kRearLoad || part.kind == StackKind::kFrontLoad;
  surface.SetDrawStyle(load ? kDots : kSolid);  // it goes on beyond its edges
  surface.Line(area.left, area.top, area.left, area.bottom);
  surface.Line(area.right, area.top, area.right, area.bottom);
  surface.SetDrawStyle(kSolid);
  DrawPolarity(surface, area, part.polarity, IsDark(colour) ? kWhite : kBlack);
}

void DrawSlabs(Surface& surface, const Stack& stack, const StackLayout& layout) {
  std::size_t count = 0;
  for (; count < stack.parts.size() && IsAcoustic(stack.parts[count].kind); ++count) {
    DrawSlab(surface, stack.parts[count], layout.parts[count]);
  }
  // Lines between neighbours stand on both, where each of the two leaves them visible.
  for (std::size_t i = 1; i < count; ++i) {
    const Area& area = layout.parts[i];
    const bool dark = IsDark(ImpedanceColour(stack.parts[i].impedance)) &&
                      IsDark(ImpedanceColour(stack.parts[i - 1].impedance));
    surface.Line(area.left + 1, area.bottom, area.right - 1, area.bottom, dark ? kPale : kBlack);
  }
}

/// Electrodes of the piezoelectric layers and the wires from them to the network's rails.
void DrawWires(Surface& surface, const Stack& stack, const StackLayout& layout) {
  std::vector<double> electrodes;  // from the rear to the front
  for (std::size_t i = 0; i < stack.parts.size(); ++i) {
    if (stack.parts[i].kind == StackKind::kPiezo) {
      if (electrodes.empty()) {
        electrodes.push_back(layout.parts[i].bottom);
      }
      electrodes.push_back(layout.parts[i].top);
    }
  }
  if (electrodes.empty()) {
    return;
  }
  const Area& row = layout.rows.front();
  const auto wire = [&](double level, double x, double rail) {
    surface.Polyline(std::array<Point, 4>{
        {{layout.slabs.left, level}, {x, level}, {x, rail}, {row.left, rail}}});
  };
  surface.SetDrawWidth(2);
  for (std::size_t i = 0; i < electrodes.size(); ++i) {
    const bool between = i > 0 && i + 1 < electrodes.size();
    if (!between || stack.parallel) {
      surface.Line(layout.slabs.left, electrodes[i], layout.slabs.right, electrodes[i]);
    }
  }
  surface.SetDrawWidth(1);
  if (stack.parallel && electrodes.size() == 3) {
    wire(electrodes[2], kWireFront, row.bottom);
    wire(electrodes[0], kWireFront, row.bottom);
    wire(electrodes[1], kWireRear, row.top);
  } else {
    wire(electrodes.back(), kWireFront, row.bottom);
    wire(electrodes.front(), kWireRear, row.top);
  }
}

/// Both rails from the end of a row around to the begin of the next one.
void DrawTurn(Surface& surface, const Area& from, const Area& to) {
  constexpr double near = 4;
  constexpr double far = 8;
  const double upper = from.bottom + near;
  const double lower = from.bottom + far;
  surface.Polyline(std::array<Point, 6>{{{from.right, from.bottom},
                                         {from.right + near, from.bottom},
                                         {from.right + near, upper},
                                         {to.left - far, upper},
                                         {to.left - far, to.bottom},
                                         {to.left, to.bottom}}});
  surface.Polyline(std::array<Point, 6>{{{from.right, from.top},
                                         {from.right + far, from.top},
                                         {from.right + far, lower},
                                         {to.left - near, lower},
                                         {to.left - near, to.top},
                                         {to.left, to.top}}});
}

void DrawNetwork(Surface& surface, const Stack& stack, const StackLayout& layout) {
  std::size_t row = 0;
  for (std::size_t i = 0; i < stack.parts.size(); ++i) {
    const Area& area = layout.parts[i];
    while (row + 1 < layout.rows.size() && area.top > layout.rows[row].bottom) {
      DrawTurn(surface, layout.rows[row], layout.rows[row + 1]);
      ++row;
    }
    const Area& rails = layout.rows[row];
    if (stack.parts[i].kind == StackKind::kElement) {
      DrawNetworkSymbol(surface, stack.parts[i].code, area.left, area.right, rails.top,
                        rails.bottom);
    } else if (stack.parts[i].kind == StackKind::kPort) {
      constexpr double half = 2;
      for (const double rail : {rails.top, rails.bottom}) {
        const double x = area.left + 8;
        surface.Line(area.left, rail, x - half, rail);
        surface.Box(x - half, rail - half, x + half, rail + half);
      }
    }
  }
}

void DrawLabels(Surface& surface, const StackLayout& layout) {
  const double half = surface.TextHeight("X") / 2;
  for (const StackLabel& label : layout.labels) {
    const double x = layout.slabs.right;
    surface.Line(x + 2, label.level, x + 5, label.level, kLeader);
    surface.Line(x + 5, label.level, label.x - 4, label.y + half, kLeader);
    surface.MoveTo(label.x, label.y);
    surface.Print(label.text);
  }
}

/// The bar of colours with round impedances below it.
void DrawKey(Surface& surface, const Area& bar) {
  constexpr int steps = 64;
  const double width = bar.right - bar.left;
  for (int i = 0; i < steps; ++i) {
    surface.FillBox(bar.left + width * i / steps, bar.top, bar.left + width * (i + 1) / steps,
                    bar.bottom, ColourAt((i + 0.5) / steps));
  }
  Frame(surface, bar);
  for (const auto& [impedance, text] : std::initializer_list<std::pair<double, const char*>>{
           {0.3e6, "0.3"}, {1e6, "1"}, {3e6, "3"}, {10e6, "10"}, {30e6, "30"}, {100e6, "100"}}) {
    const double x = bar.left + width * PlaceInKey(impedance);
    const double half = surface.TextWidth(text) / 2;
    surface.Line(x, bar.bottom, x, bar.bottom + 2);
    surface.MoveTo(std::max(x - half, bar.left), bar.bottom + 2);
    surface.Print(text);
  }
  surface.MoveTo(bar.right + 6, bar.MiddleY() - surface.TextHeight("X") / 2);
  surface.Print("MRayls");
}

}  // namespace

Colour ImpedanceColour(double impedance) {
  return ColourAt(PlaceInKey(impedance));
}

StackLayout DrawStack(Surface& surface, const Stack& stack, double width, double height,
                      int selected) {
  const double wide = std::max(width, kSmallestStackWidth);
  const double high = std::max(height, kSmallestStackHeight);
  surface.Cls();
  surface.Scale(0, 0, wide, high);
  surface.SetForeColor(kBlack);
  surface.SetDrawWidth(1);
  surface.SetDrawStyle(kSolid);
  StackLayout layout = LayOutStack(stack, surface, wide, high);
  DrawSlabs(surface, stack, layout);
  DrawWires(surface, stack, layout);
  DrawNetwork(surface, stack, layout);
  DrawLabels(surface, layout);
  DrawKey(surface, layout.key);
  if (selected >= 0 && selected < static_cast<int>(layout.parts.size())) {
    surface.SetForeColor(kSelected);
    surface.SetDrawWidth(2);
    Frame(surface, layout.parts[static_cast<std::size_t>(selected)]);
    surface.SetForeColor(kBlack);
    surface.SetDrawWidth(1);
  }
  return layout;
}

}  // namespace halvorne
