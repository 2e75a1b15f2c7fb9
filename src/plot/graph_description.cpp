#include "plot/graph_description.h"

#include <cstdint>
#include <optional>

#include "platform/number_text.h"
#include "plot/graph_position.h"
#include "plot/held_legend.h"
#include "plot/plot_state.h"
#include "plot/reference_mark.h"

namespace halvorne {
namespace {

/// A sentence behind what was told before: " Time in usec from 0.000 to 2.500."
std::string AxisSentence(const std::string& name, const std::string& unit, const std::string& from,
                         const std::string& to) {
  return " " + name + (unit.empty() ? "" : " in " + unit) + " from " + from + " to " + to + ".";
}

}  // namespace

std::string GraphDescription() {
  std::string words = plot.PlotTitle + ".";
  const bool time = IsTimePlot(view.CurrentPlot);
  if (time) {
    words += AxisSentence("Time", view.TimeUnit, scale.TimeLowerText, scale.TimeUpperText);
  }
  if (!time || plot.SpectrumShown) {
    words += AxisSentence("Frequency", design.FreqUnit, scale.FreqLowerText, scale.FreqUpperText);
  }
  words += AxisSentence("Left axis " + scale.LeftLabel, scale.LeftPrefix + scale.LeftUnit,
                        scale.LeftMinText, scale.LeftMaxText);
  if (plot.DualTrace) {
    words += AxisSentence("Right axis " + scale.RightLabel, scale.RightPrefix + scale.RightUnit,
                          scale.RightMinText, scale.RightMaxText);
  }
  if (const std::optional<std::int32_t> mark = MarkPoint()) {
    words += " Reference mark at " + Format(DisplayPosition(*mark), "##0.##0") + " " +
             PositionUnit() + ".";
  }
  if (!measured.ReadOut.empty()) {
    words += " Cursor " + measured.ReadOut + ".";
  }
  return words + LegendSentence();
}

}  // namespace halvorne
