#include "report/network_symbols.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "platform/numbers.h"

namespace halvorne {
namespace {

constexpr Colour kWhite{255, 255, 255};
constexpr int kFirstCircuit = 10;
constexpr int kLastShuntCircuit = 16;
constexpr int kFirstShuntCircuit = 14;
/// Letters of the equivalent circuits, by their code.
constexpr std::array kLetters{"A", "B", "C", "E", "B", "C", "D"};

/// A piece of a network along one line, from `from` to `to`; across it is `at`.
struct Run {
  Surface& surface;
  bool upright;
  double at;

  void Line(double from, double to) const { Line(from, 0, to, 0); }
  void Line(double x1, double y1, double x2, double y2) const {
    upright ? surface.Line(at + y1, x1, at + y2, x2) : surface.Line(x1, at + y1, x2, at + y2);
  }
  void Box(double from, double to, double half) const {
    const double x1 = upright ? at - half : from;
    const double y1 = upright ? from : at - half;
    const double x2 = upright ? at + half : to;
    const double y2 = upright ? to : at + half;
    surface.FillBox(x1, y1, x2, y2, kWhite);
    surface.Box(x1, y1, x2, y2);
  }
  /// Half circles side by side, as a coil is drawn.
  void Coil(double from, double to) const {
    constexpr int turns = 3;
    constexpr int corners = 8;
    const double radius = (to - from) / (2 * turns);
    std::vector<Point> points;
    for (int turn = 0; turn < turns; ++turn) {
      for (int corner = 0; corner <= corners; ++corner) {
        const double angle = kPi * corner / corners;
        const double along = from + radius * (2 * turn + 1 - std::cos(angle));
        const double across = at - std::min(radius * 1.2, 4.0) * std::sin(angle);
        points.push_back(upright ? Point{across, along} : Point{along, across});
      }
    }
    surface.Polyline(points);
  }
  void Letter(double from, double to, const std::string& text) const {
    const double middle = (from + to) / 2;
    surface.MoveTo((upright ? at : middle) - surface.TextWidth(text) / 2,
                   (upright ? middle : at) - surface.TextHeight(text) / 2);
    surface.Print(text);
  }
};

/// An element between two ends of a wire, by the code of its series form; the body takes the
/// middle.
void DrawElement(const Run& run, int seriesCode, double from, double to) {
  const double half = std::min((to - from) * 0.36, 8.0);
  const double middle = (from + to) / 2;
  const double begin = middle - half;
  const double end = middle + half;
  if (seriesCode == 5) {
    constexpr double gap = 1.5;
    constexpr double plate = 4.5;
    run.Line(from, middle - gap);
    run.Line(middle + gap, to);
    run.Line(middle - gap, -plate, middle - gap, plate);
    run.Line(middle + gap, -plate, middle + gap, plate);
    return;
  }
  run.Line(from, begin);
  run.Line(end, to);
  if (seriesCode == 3) {
    run.Coil(begin, end);
  } else {
    run.Box(begin, end, 3);
  }
}

void DrawCircuit(const Run& run, const std::string& letter, double from, double to) {
  const double half = std::min((to - from) * 0.42, 8.0);
  const double middle = (from + to) / 2;
  run.Line(from, middle - half);
  run.Line(middle + half, to);
  run.Box(middle - half, middle + half, 7);
  run.Letter(from, to, letter);
}

void DrawTransformer(Surface& surface, bool core, double left, double right, double upper,
                     double lower) {
  const double middle = (left + right) / 2;
  const double apart = std::min((right - left) * 0.2, 4.0);
  for (const double x : {middle - apart, middle + apart}) {
    const double outside = x < middle ? left : right;
    surface.Line(outside, upper, x, upper);
    surface.Line(outside, lower, x, lower);
    Run{surface, true, x}.Coil(upper, lower);
  }
  if (core) {
    surface.Line(middle, upper + 2, middle, lower - 2);
  }
}

/// A box over both rails with a text in it.
void DrawSection(Surface& surface, const std::string& text, double left, double right, double upper,
                 double lower) {
  const double inset = std::min((right - left) * 0.12, 4.0);
  for (const double rail : {upper, lower}) {
    surface.Line(left, rail, right, rail);
  }
  surface.FillBox(left + inset, upper - 1, right - inset, lower + 1, kWhite);
  surface.Box(left + inset, upper - 1, right - inset, lower + 1);
  const bool fits = surface.TextWidth(text) < right - left - 2 * inset;
  Run{surface, false, (upper + lower) / 2}.Letter(left, right, fits ? text : text.substr(1));
}

/// The inner conductor within its screen, which is the other rail.
void DrawCable(Surface& surface, double left, double right, double upper, double lower) {
  const double inset = std::min((right - left) * 0.15, 5.0);
  const double middle = (left + right) / 2;
  surface.Box(left + inset, upper - 4, right - inset, upper + 4);
  surface.Line(left, upper, right, upper);
  surface.Line(middle, upper + 4, middle, lower);
  surface.Line(left, lower, right, lower);
}

}  // namespace

void DrawNetworkSymbol(Surface& surface, int code, double left, double right, double upperRail,
                       double lowerRail) {
  constexpr int cable = 7;
  constexpr int idealTransformer = 8;
  constexpr int transformer = 9;
  constexpr int layers = 17;
  if (code == idealTransformer || code == transformer) {
    DrawTransformer(surface, code == transformer, left, right, upperRail, lowerRail);
    return;
  }
  if (code == layers) {
    DrawSection(surface, "xN", left, right, upperRail, lowerRail);
    return;
  }
  if (code == cable) {
    DrawCable(surface, left, right, upperRail, lowerRail);
    return;
  }
  surface.Line(left, lowerRail, right, lowerRail);
  const bool simple = code >= 1 && code < cable;
  const bool circuit = code >= kFirstCircuit && code <= kLastShuntCircuit;
  const bool shunt = simple ? code % 2 == 0 : code >= kFirstShuntCircuit;
  if (!simple && !circuit) {
    surface.Line(left, upperRail, right, upperRail);
    return;
  }
  if (shunt) {
    surface.Line(left, upperRail, right, upperRail);
  }
  const Run run{surface, shunt, shunt ? (left + right) / 2 : upperRail};
  const double from = shunt ? upperRail : left;
  const double to = shunt ? lowerRail : right;
  if (simple) {
    DrawElement(run, shunt ? code - 1 : code, from, to);
  } else {
    DrawCircuit(run, kLetters.at(static_cast<std::size_t>(code - kFirstCircuit)), from, to);
  }
}

}  // namespace halvorne
