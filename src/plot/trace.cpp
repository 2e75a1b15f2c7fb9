#include "plot/trace.h"

#include <algorithm>
#include <cmath>
#include <memory_resource>
#include <vector>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"
#include "platform/work_room.h"

namespace halvorne {
namespace {

constexpr double kTop = 10;
constexpr double kBottom = 0;

bool IsOut(double y) {
  return std::abs(y - 5) > 5;
}
bool IsStrictlyIn(double y) {
  return std::abs(y - 5) < 5;
}

/// A piece begins where the pen stays or enters the box, and each interval adds a point at most.
std::size_t PointsOfPiece(const Trace& trace) {
  return static_cast<std::size_t>(std::clamp<std::int64_t>(trace.intervals, 0, kLastTimePoint)) + 2;
}

/// The pen's way: collects a connected piece until the pen is lifted.
class PenPath {
 public:
  /// @param points  how many there can be in a piece
  PenPath(Surface& surface, Point pen, std::size_t points) : surface_(surface) {
    piece_.reserve(points);
    surface_.MoveTo(pen.x, pen.y);
    piece_.assign(1, pen);
  }
  void LineTo(Point to) { piece_.push_back(to); }
  void Line(Point from, Point to) {
    HandOver();
    piece_.assign({from, to});
  }
  void HandOver() { surface_.Polyline(piece_); }

 private:
  Surface& surface_;
  // Drawing a trace does not allocate: the longest one fits the work room.
  std::pmr::monotonic_buffer_resource room_{WorkRoom().data(), WorkRoom().size()};
  std::pmr::vector<Point> piece_{&room_};
};

/// The curve in box units.
class BoxCurve {
 public:
  explicit BoxCurve(const Trace& trace)
      : trace_(trace),
        range_(double{trace.max} - trace.min),
        pointsPerUnit_(ToSingle(trace.intervals / 10.0)) {}

  double Y(long index) const {
    const double value = trace_.array(index).*trace_.channel;
    return Finite(Quotient((value - trace_.min) * 10, range_));
  }
  double X(double interval) const { return interval / pointsPerUnit_; }

 private:
  const Trace& trace_;
  double range_;
  float pointsPerUnit_;
};

/// Draws the later points. y0 is the value before each of them, y1 its own.
void Follow(const BoxCurve& curve, const Trace& trace, double y0, PenPath& path) {
  for (std::int32_t i = 1; i <= trace.intervals; ++i) {
    const double y1 = curve.Y(long{trace.origin} + i);
    const Point point{curve.X(i), y1};
    if (!IsOut(y0) && !IsOut(y1)) {
      path.LineTo(point);
    } else if (IsOut(y0) && IsStrictlyIn(y1)) {
      if (y0 > kTop) {
        path.Line({curve.X(i - (kTop - y1) / (y0 - y1)), kTop}, point);
      } else {
        path.Line({curve.X(i - y1 / (y1 - y0)), kBottom}, point);
      }
    } else if (IsStrictlyIn(y0) && IsOut(y1)) {
      if (y1 > kTop) {
        path.LineTo({curve.X(i - (y1 - kTop) / (y1 - y0)), kTop});
      } else {
        path.LineTo({curve.X(i - y1 / (y1 - y0)), kBottom});
      }
    }
    // Kept: else nothing is drawn and the pen stays, also beside a point exactly on the edge; the
    // next line inside the box starts where the pen stayed.
    y0 = y1;
  }
}

}  // namespace

void DrawTrace(Surface& surface, const Trace& trace) {
  CleanVectorRegisters();
  const BoxCurve curve(trace);
  const double y0 = curve.Y(trace.start);
  PenPath path(surface, {0, std::clamp(y0, kBottom, kTop)}, PointsOfPiece(trace));
  try {
    Follow(curve, trace, y0, path);
  } catch (...) {
    path.HandOver();
    throw;
  }
  path.HandOver();
}

}  // namespace halvorne
