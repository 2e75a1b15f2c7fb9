#include <initializer_list>
#include <string>
#include <string_view>

#include "persistence/overwrite_question.h"
#include "persistence/safe_overwrite.h"
#include "persistence/value_writer.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/vector_registers.h"
#include "plot/plot_state.h"
#include "report/string_builder.h"
#include "report/text_exports.h"

namespace halvorne {
namespace {

/// In what the file and the clipboard differ beside the looks of a line.
struct TableForm {
  bool offsetInUnits;         ///< the sweep's start, which frequencies count from, in FreqUnit
  std::string noSecondTrace;  ///< stands in the third column of plots with one trace
};

/// Line k of a column is k x span / divisor + offset.
struct Abscissa {
  std::string name, unit;
  long lines;
  double span, divisor, offset;
};

// Kept: frequency tables end one point before the sweep does.
Abscissa AbscissaOf(const TableForm& form) {
  if (IsTimePlot(view.CurrentPlot)) {
    return {"Time", view.TimeUnit, design.NoTimePts, 1, design.SampleRateHz * view.TimeScale, 0};
  }
  const double unit = design.FreqScale;
  return {"Frequency",
          design.FreqUnit,
          design.NoFreqPts,
          design.FreqStop - design.FreqStart,
          unit * design.NoFreqPts,
          form.offsetInUnits ? Quotient(design.FreqStart, unit) : design.FreqStart};
}

std::string Scientific(double value) {
  return Format(Finite(value), "0.00000E+00");
}

/// Gives the table line by line, each as a list of texts, to `line`.
template <class Line>
void GraphTable(const TableForm& form, Line line) {
  CleanVectorRegisters();
  const Abscissa x = AbscissaOf(form);
  line({"Title: " + design.DesignTitle});
  line({"Plot Title: " + plot.PlotTitle});
  line({"Data Units"});
  line({x.name, scale.LeftLabel, scale.RightLabel});
  line({x.unit, scale.LeftPrefix + scale.LeftUnit, scale.RightPrefix + scale.RightUnit});
  for (long i = 0; i < x.lines; ++i) {
    const PlotPoint& point = points.PlotData(i);
    line({Scientific(Quotient(static_cast<double>(i) * x.span, x.divisor) + x.offset),
          Scientific(Quotient(point.Y1, scale.LeftMag)),
          plot.DualTrace ? Scientific(Quotient(point.Y2, scale.RightMag)) : form.noSecondTrace});
  }
}

using Fields = std::initializer_list<std::string>;

void WriteTable(ValueWriter& file) {
  file.Line("Halvorne for Windows Version 4.01");
  // Kept: the offset stays in Hz although the step is in display units.
  GraphTable({.offsetInUnits = false, .noSecondTrace = ""},
             [&file](Fields fields) { file.Texts(fields); });
}

}  // namespace

void GraphDataToClipboard(std::string& text) try {
  cStringBuilder table;
  GraphTable({.offsetInUnits = true, .noSecondTrace = "0.000"}, [&table](Fields fields) {
    std::string_view separator;
    for (const std::string& field : fields) {
      table.Append(separator);
      table.Append(field);
      separator = "\t";
    }
    table.Append("\r\n");
  });
  text = table.ToString();
} catch (...) {
  ReportFailure("GraphDataToClipboard", "PRINTIT");
}

void SaveGraphData(const std::string& fileName) {
  if (!MayOverwrite(fileName, kSaveGraphDataTitle)) {
    return;
  }
  KeptOriginal original(fileName);
  ValueWriter file(fileName);
  WriteTable(file);
  file.Close();
  original.Discard();
}

std::string GraphDataFileText() {
  ValueWriter file;
  WriteTable(file);
  return file.Text();
}

}  // namespace halvorne
