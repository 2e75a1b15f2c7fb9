#include "plot/curve_csv.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/shortest_number.h"
#include "plot/catalogue.h"
#include "plot/graph.h"
#include "plot/held_curves.h"
#include "timedomain/sample_rate.h"

namespace halvorne {
namespace {

void AppendCells(std::string& text, const CsvCurve& curve, std::size_t point) {
  if (point >= curve.values.size()) {
    text += ",,";
    return;
  }
  AppendShortest(text, curve.X(point));
  text += ',';
  AppendShortest(text, curve.values[point].Y1);
  text += ',';
  if (curve.dualTrace && curve.spectrumPoints == 0) {
    AppendShortest(text, curve.values[point].Y2);
  }
}

void AppendSpectrumCells(std::string& text, const CsvCurve& curve, std::size_t point) {
  if (point >= curve.spectrumPoints) {
    text += ',';
    return;
  }
  AppendShortest(text, curve.Frequency(point));
  text += ',';
  AppendShortest(text, curve.values[point].Y2);
}

/// A line of the table: `cells` of each curve, commas between.
template <class Cells>
void AppendLine(std::string& text, std::span<const CsvCurve> all, Cells cells) {
  bool first = true;
  for (const CsvCurve& curve : all) {
    text += first ? "" : ",";
    first = false;
    cells(curve);
  }
  text += '\n';
}

/// A line of the head. A line end within a title would end it.
std::string Comment(std::string words) {
  std::ranges::replace_if(
      words, [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return "# " + words + "\n";
}

/// The log forms of acoustical impedances, whose axes the graph does not name.
bool IsAcousticalLog() {
  const CataloguePlot* const row = FindPlot(view.CurrentPlot);
  return row != nullptr && row->forms == FormList::kImpedance && row->number != 11 && plot.AmplLog;
}

/// "Vo/Vi in dB", of a name that may have blanks before it.
std::string Words(const std::string& label, const std::string& unit) {
  const std::size_t start = std::min(label.find_first_not_of(' '), label.size());
  return label.substr(start) + " in " + unit;
}

std::string Head() {
  const bool time = IsTimePlot(view.CurrentPlot);
  std::string head = Comment("Halvorne, values of a plot");
  head += Comment("Design: " + DesignCaption(design));
  head += Comment("Plot: " + plot.PlotTitle);
  head += Comment("Form: " + mainWindow().PlotTypeText(mainWindow().PlotTypeIndex()));
  head += Comment(time ? "x: Time in s" : "x: Frequency in Hz");
  head += Comment(std::string("y1: ").append(FirstTraceWords()));
  if (plot.SpectrumShown) {
    head += Comment(std::string("spectrum: ").append(SecondTraceWords()).append(", x in Hz"));
  } else if (plot.DualTrace) {
    head += Comment(std::string("y2: ").append(SecondTraceWords()));
  }
  if (plot.Outdated) {
    head += Comment("The waveform is the one from before the last change of the design");
  }
  for (const int slot : HeldSlots()) {
    const HeldCurves& made = *Held(slot)->curves;
    head += Comment("Held " + Held(slot)->label + (made.shown ? "" : " - not shown: " + made.why));
  }
  return head;
}

std::string TableBeside(const TimePoints& array) {
  std::vector<CsvCurve> all{PresentCurve(array)};
  for (const int slot : HeldSlots()) {
    if (Held(slot)->curves->shown) {
      all.push_back(HeldCurve(*Held(slot), array));
    }
  }
  return CsvTable(all);
}

}  // namespace

std::string FirstTraceWords() {
  if (IsAcousticalLog()) {
    constexpr int logAdmittance = 5;
    return mainWindow().PlotTypeIndex() == logAdmittance ? "Log Y in dB" : "Log Z in dB";
  }
  return Words(scale.LeftLabel, scale.LeftUnit);
}

std::string SecondTraceWords() {
  return IsAcousticalLog() ? "Theta in Degrees" : Words(scale.RightLabel, scale.RightUnit);
}

CsvCurve PresentCurve(const TimePoints& array) {
  const bool time = IsTimePlot(view.CurrentPlot);
  const std::int32_t last = time ? LastSample() : design.NoFreqPts;
  static_cast<void>(array(last));  // raises where there are not that many
  const auto count = static_cast<std::size_t>(last) + 1;
  const auto sweep = static_cast<std::size_t>(design.NoFreqPts) + 1;
  static_cast<void>(Quotient(1, time ? design.SampleRateHz : 1));
  return {.suffix = "",
          .sampleRateHz = time ? design.SampleRateHz : 0,
          .freqStart = design.FreqStart,
          .freqStep = Quotient(design.FreqStop - design.FreqStart, design.NoFreqPts),
          .values = {array.data(), count},
          .dualTrace = plot.DualTrace,
          .spectrumPoints = plot.SpectrumShown ? std::min(sweep, count) : 0};
}

CsvCurve HeldCurve(const HeldDesign& held, const TimePoints& array) {
  const HeldCurves& made = *held.curves;
  const Design& of = held.snapshot->design;
  return {.suffix = std::string(" ").append(std::to_string(held.slot + 1)),
          .sampleRateHz = IsTimePlot(view.CurrentPlot) ? of.SampleRateHz : 0,
          .freqStart = of.FreqStart,
          .freqStep = Quotient(of.FreqStop - of.FreqStart, of.NoFreqPts),
          .values = made.ValuesBeside(array),
          .dualTrace = made.dualTrace,
          .spectrumPoints = made.spectrumPoints};
}

std::string CsvTable(std::span<const CsvCurve> all) {
  std::string text;
  std::size_t rows = 0;
  std::size_t spectrumRows = 0;
  for (const CsvCurve& curve : all) {
    rows = std::max(rows, curve.values.size());
    spectrumRows = std::max(spectrumRows, curve.spectrumPoints);
  }
  AppendLine(text, all, [&text](const CsvCurve& curve) {
    text += "x" + curve.suffix + ",y1" + curve.suffix + ",y2" + curve.suffix;
  });
  for (std::size_t i = 0; i < rows; ++i) {
    AppendLine(text, all, [&text, i](const CsvCurve& curve) { AppendCells(text, curve, i); });
  }
  if (spectrumRows > 0) {
    text += '\n';
    AppendLine(text, all, [&text](const CsvCurve& curve) {
      text += "x" + curve.suffix + ",spectrum" + curve.suffix;
    });
  }
  for (std::size_t i = 0; i < spectrumRows; ++i) {
    AppendLine(text, all,
               [&text, i](const CsvCurve& curve) { AppendSpectrumCells(text, curve, i); });
  }
  return text;
}

std::string CurvesAsCsv(const std::string& behindHead) {
  MakeHeldCurves();
  std::string text = Head() + behindHead + (behindHead.empty() ? "" : "\n");
  text += TableBeside(points.PlotData);
  if (IsExcitationPlot(view.CurrentPlot)) {
    text += '\n';
    text += Comment(std::string("Impulse response, y1: ").append(FirstTraceWords()));
    text += TableBeside(points.PlotDataImpulse);
    text += '\n';
    text +=
        Comment(std::string("Excitation, y1 in ").append(plot.AmplLog ? "dB" : ExcitationUnit()));
    text += TableBeside(points.PlotDataExcite);
  }
  return text;
}

}  // namespace halvorne
