#include "plot/shown_plot.h"

#include <algorithm>

#include "plot/catalogue.h"
#include "plot/plot_state.h"

namespace halvorne::testing {

void ShownPlot::Show(int number, int form) {
  design.NoFace = design.NoBack = 1;
  PlotTypeLoad(static_cast<std::int16_t>(FindPlot(number)->forms));
  window.SetPlotTypeIndex(form);
  // The selection has drawn and measured: what it left is swept away.
  ResetProgram();
  shownMessages.Forget();
  Picture().Forget();

  view.CurrentPlot = static_cast<std::int16_t>(number);
  view.TimeUnit = "usec";
  view.TimeScale = 1e-6;
  design.FreqUnit = "MHz";
  design.FreqScale = 1e6F;
  setup.CursorBlank = std::string(102, ' ');
  setup.LogRange = 60;
  setup.AmplWindowPercent = 100;
  scale.LeftMag = scale.RightMag = 1;
}

std::vector<DrawnOperation> OfKind(const HeadlessSurface& surface, DrawnOperation::Kind kind) {
  std::vector<DrawnOperation> found;
  std::ranges::copy_if(surface.Operations(), std::back_inserter(found),
                       [&](const DrawnOperation& operation) { return operation.kind == kind; });
  return found;
}

std::vector<std::string> TextsOn(const HeadlessSurface& surface) {
  std::vector<std::string> texts;
  for (const DrawnOperation& operation : OfKind(surface, DrawnOperation::Kind::kText)) {
    if (operation.text.find_first_not_of(' ') != std::string::npos) {
      texts.push_back(operation.text);
    }
  }
  return texts;
}

DrawnOperation FindText(const HeadlessSurface& surface, const std::string& text) {
  for (const DrawnOperation& operation : OfKind(surface, DrawnOperation::Kind::kText)) {
    if (operation.text == text) {
      return operation;
    }
  }
  ADD_FAILURE() << "no text \"" << text << "\"";
  DrawnOperation nowhere;
  nowhere.points = {{-1e9, -1e9}};
  return nowhere;
}

double MiddleOf(const DrawnOperation& text, double unitsPerPixel) {
  const double pixels = 0.6 * text.fontSize * 96 / 72 * static_cast<double>(text.text.size());
  return text.points[0].x + pixels * unitsPerPixel / 2;
}

}  // namespace halvorne::testing
