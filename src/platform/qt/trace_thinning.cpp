#include "platform/qt/trace_thinning.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/vector_registers.h"

namespace halvorne {
namespace {

/// Consecutive points that fall into one column.
struct ColumnRun {
  double column;
  QPointF first, lowest, highest, last;
  bool lowestCameFirst;
};

ColumnRun StartRun(double column, QPointF point) {
  return {column, point, point, point, point, true};
}

void Extend(ColumnRun& run, QPointF point) {
  if (point.y() > run.highest.y()) {
    run.highest = point;
    run.lowestCameFirst = true;
  } else if (point.y() < run.lowest.y()) {
    run.lowest = point;
    run.lowestCameFirst = false;
  }
  run.last = point;
}

void AppendRun(const ColumnRun& run, QPolygonF& line) {
  const QPointF earlier = run.lowestCameFirst ? run.lowest : run.highest;
  const QPointF later = run.lowestCameFirst ? run.highest : run.lowest;
  line.append(run.first);
  for (const QPointF point : {earlier, later, run.last}) {
    if (point.x() != line.last().x() || point.y() != line.last().y()) {
      line.append(point);
    }
  }
}

}  // namespace

QPolygonF ThinTrace(std::span<const Point> points, AxisMap x, AxisMap y, double columnsPerUnit) {
  QPolygonF line;
  if (points.empty()) {
    return line;
  }
  CleanVectorRegisters();
  const auto mapped = [&](const Point& point) { return QPointF(x(point.x), y(point.y)); };
  const auto columnOf = [&](QPointF point) { return std::floor(point.x() * columnsPerUnit); };
  const QPointF start = mapped(points.front());
  ColumnRun run = StartRun(columnOf(start), start);
  for (const Point& point : points.subspan(1)) {
    const QPointF next = mapped(point);
    // Within the column, without the rounding itself, which is a call on old processors.
    const double place = next.x() * columnsPerUnit - run.column;
    if (place >= 0 && place < 1) {
      Extend(run, next);
    } else {
      AppendRun(run, line);
      run = StartRun(columnOf(next), next);
    }
  }
  AppendRun(run, line);
  return line;
}

double TravelOf(const QPolygonF& line) {
  double travel = 0;
  for (qsizetype i = 1; i < line.size(); ++i) {
    const QPointF step = line[i] - line[i - 1];
    travel += std::abs(step.x()) + std::abs(step.y());
  }
  return travel;
}

}  // namespace halvorne
