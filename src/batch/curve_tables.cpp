#include "batch/curve_tables.h"

#include <charconv>

#include "plot/plot_state.h"
#include "timedomain/sample_rate.h"

namespace halvorne::batch {
namespace {

/// Adds the shortest text that reads back as the same number.
void Append(std::string& text, double value) {
  char digits[32];
  text.append(digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr);
}

void AppendRow(std::string& text, double x, double y) {
  Append(text, x);
  text += ',';
  Append(text, y);
}

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

void AppendSpectrum(std::string& text, const TimePoints& data) {
  text += "\nx,spectrum\n";
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    AppendRow(text, FrequencyAt(i), data(i).Y2);
    text += '\n';
  }
}

}  // namespace

std::string RawTable() {
  std::string text = "x,y1,y2\n";
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    AppendRow(text, FrequencyAt(i), points.RawData(i).Y1);
    text += ',';
    Append(text, points.RawData(i).Y2);
    text += '\n';
  }
  return text;
}

std::string DataTable(Pane pane) {
  const TimePoints& data = PointsOf(pane);
  const bool time = IsTimePlot(view.CurrentPlot);
  const std::int32_t last = time ? LastSample() : design.NoFreqPts;
  std::string text = "x,y1,y2\n";
  for (std::int32_t i = 0; i <= last; ++i) {
    AppendRow(text, time ? Quotient(i, design.SampleRateHz) : FrequencyAt(i), data(i).Y1);
    text += ',';
    if (plot.DualTrace && !plot.SpectrumShown) {
      Append(text, data(i).Y2);
    }
    text += '\n';
  }
  if (plot.SpectrumShown) {
    AppendSpectrum(text, data);
  }
  return text;
}

}  // namespace halvorne::batch
