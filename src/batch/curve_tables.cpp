#include "batch/curve_tables.h"

#include "platform/failure.h"
#include "platform/shortest_number.h"
#include "plot/curve_csv.h"

namespace halvorne::batch {
namespace {

double FrequencyAt(std::int32_t point) {
  return point * Quotient(design.FreqStop - design.FreqStart, design.NoFreqPts) + design.FreqStart;
}

const TimePoints& PointsOf(Pane pane) {
  switch (pane) {
    case Pane::kImpulse:
      return points.PlotDataImpulse;
    case Pane::kExcite:
      return points.PlotDataExcite;
    default:
      return points.PlotData;
  }
}

}  // namespace

std::string RawTable() {
  std::string text = "x,y1,y2\n";
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    AppendShortest(text, FrequencyAt(i));
    text += ',';
    AppendShortest(text, points.RawData(i).Y1);
    text += ',';
    AppendShortest(text, points.RawData(i).Y2);
    text += '\n';
  }
  return text;
}

std::string DataTable(Pane pane) {
  const CsvCurve curve = PresentCurve(PointsOf(pane));
  return CsvTable({&curve, 1});
}

}  // namespace halvorne::batch
