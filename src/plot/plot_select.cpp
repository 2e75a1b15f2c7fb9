#include "plot/plot_select.h"

#include <utility>

#include "persistence/setup_file.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"
#include "plot/axis_scaling.h"
#include "plot/catalogue.h"
#include "plot/conversions.h"
#include "plot/cursor.h"
#include "plot/gather.h"
#include "plot/graph.h"
#include "plot/measures.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

constexpr int kFaceDispersion = 51;
constexpr int kPiezoDispersion = 52;
constexpr int kBackDispersion = 53;
constexpr std::int16_t kFirstBackSlot = kBackSlot + 1;

/// A layer that the design no longer has becomes its last one.
void ClampLayerAbove(int plotNumber) {
  if (plotNumber == kFaceDispersion && setup.DispFaceLayer > design.NoFace) {
    setup.DispFaceLayer = design.NoFace;
  } else if (plotNumber == kBackDispersion && setup.DispBackLayer > design.NoBack + kBackSlot) {
    setup.DispBackLayer = ToInt16(design.NoBack + kBackSlot);
  }
}

void ClampLayerBelow(int plotNumber) {
  // Kept: without face layers slot 0 has been gathered by now, though layer 1 is told.
  if (plotNumber == kFaceDispersion && setup.DispFaceLayer < 1) {
    setup.DispFaceLayer = 1;
  }
  // Kept: the back layers' plot raises the face entry, not its own; plot 51 lowers it again.
  if (plotNumber == kBackDispersion && setup.DispFaceLayer < kFirstBackSlot) {
    setup.DispFaceLayer = kFirstBackSlot;
  }
}

int RememberedForm(int plotNumber) {
  switch (plotNumber) {
    case 41:
    case 42:
      // Kept: the acoustic loads open in the form of plot 21; their own memory is only written.
      return setup.PlotFormMemory(21);
    case kFaceDispersion:
      return setup.DispFaceLayer - 1;
    case kPiezoDispersion:
      return 0;
    case kBackDispersion:
      return setup.DispBackLayer - kFirstBackSlot;
    default:
      return setup.PlotFormMemory(plotNumber);
  }
}

void RememberForm(int plotNumber, int index) {
  switch (plotNumber) {
    case kFaceDispersion:
      setup.DispFaceLayer = ToInt16(index + 1);
      return;
    case kPiezoDispersion:
      return;
    case kBackDispersion:
      setup.DispBackLayer = ToInt16(index + kFirstBackSlot);
      return;
    default:
      if (FindPlot(plotNumber) != nullptr) {
        setup.PlotFormMemory(plotNumber) = ToInt16(index);
      }
  }
}

/// The impulse, the excitation and the response, each into the pane that shows it.
void ConvertExcitationPlot(std::int16_t index, std::int16_t plotNumber) {
  WfmConvert(index, plotNumber, wave.ImpulseRe, wave.ImpulseIm, wave.ImpulseSpec,
             points.PlotDataImpulse);
  measured.ImpulsePeak = measured.PeakAmpl;
  WfmConvert(index, plotNumber, wave.ExciteRe, wave.ExciteIm, wave.ExciteSpec,
             points.PlotDataExcite);
  WfmConvert(index, plotNumber, wave.ResponseRe, wave.ResponseIm, wave.ResponseSpec,
             points.PlotData);
}

void Convert(std::int16_t index, std::int16_t plotNumber) {
  switch (plotNumber) {
    case 11:
    case 21:
    case 41:
    case 42:
      return ReImConvert(index);
    case 12:
    case 13:
    case 14:
    case 15:
    case 22:
    case 23:
    case 24:
    case 25:
    case 31:
    case 32:
      return LinLogConvert(index, LinLogFactor(plotNumber));
    case 16:
    case 26:
    case 33:
      return WfmConvert(index, plotNumber, wave.ImpulseRe, wave.ImpulseIm, wave.ImpulseSpec,
                        points.PlotData);
    case 17:
    case 27:
    case 34:
      return ConvertExcitationPlot(index, plotNumber);
    case kFaceDispersion:
    case kPiezoDispersion:
    case kBackDispersion:
      return VDispConvert();
    default:
      return;
  }
}

/// The user refused the waveform of a plot: what is on show is still the plot that is chosen.
void KeepPlotOnShow(std::int16_t refused) {
  if (refused == setup.PreviousPlot) {
    plot.Outdated = true;
    return;
  }
  const CataloguePlot* const shown = FindPlot(setup.PreviousPlot);
  if (shown == nullptr || mainWindow().PlotTypeIndex() < 0) {
    return;  // nothing is on show
  }
  view.CurrentPlot = setup.PreviousPlot;
  if (!IsTimePlot(shown->number)) {
    Gather(*shown);  // the values that its other forms are made of
  }
}

/// While the question about a waveform stands, the plot on show is the one before it.
void DrawPlotOnShow(Surface& surface) {
  const std::int16_t chosen = std::exchange(view.CurrentPlot, setup.PreviousPlot);
  PlotGraphOn(surface);
  view.CurrentPlot = chosen;
}

/// Another form of an outdated waveform needs the present one.
void ChooseFormAnew(int index) {
  const int onShow = setup.LastPlotListIndex;
  RememberForm(view.CurrentPlot, index);
  PlotSelect(view.CurrentPlot);
  if (plot.Outdated) {  // refused once more
    mainWindow().SetPlotTypeIndex(onShow);
  }
}

}  // namespace

void PlotSelect(std::int16_t plotNumber) try {
  const CataloguePlot* const row = FindPlot(plotNumber);
  // The user may refuse a waveform, so it is made before anything of the plot on show changes.
  const bool waveform = IsTimePlot(plotNumber);
  if (waveform && !Gather(*row)) {
    KeepPlotOnShow(plotNumber);
    return;
  }
  plot.Outdated = false;
  if (plotNumber != setup.PreviousPlot) {
    view.AmplAuto = true;
  }
  setup.PreviousPlot = plotNumber;
  plot.DualTrace = true;
  plot.SpectrumShown = false;
  if (row == nullptr) {
    return;
  }
  PlotTypeLoad(static_cast<std::int16_t>(row->forms));
  ClampLayerAbove(plotNumber);
  if (!waveform) {
    Gather(*row);
  }
  ClampLayerBelow(plotNumber);
  plot.PlotTitle = TitleOf(*row);
  mainWindow().SetPlotTypeIndex(RememberedForm(plotNumber));
} catch (...) {
  ReportFailure("PlotSelect", "PLOTIT");
}

void PlotAgain() try {
  const CataloguePlot* const row = FindPlot(view.CurrentPlot);
  if (row == nullptr || mainWindow().PlotTypeIndex() < 0) {
    return;
  }
  if (measured.CursorOn) {
    Cursor1_Click();
  }
  plot.DualTrace = true;
  plot.SpectrumShown = false;
  plot.Outdated = !Gather(*row);
  if (!plot.Outdated) {
    PlotConvertDataType(view.CurrentPlot);
    mainWindow().RefreshWindow();
  }
} catch (...) {
  ReportFailure("PlotAgain", "PLOTIT");
}

void PlotRedraw() try {
  if (!IsTimePlot(view.CurrentPlot)) {
    PlotSelect(view.CurrentPlot);
    return;
  }
  MainWindow& window = mainWindow();
  if (measured.CursorOn) {
    Cursor1_Click();
  }
  if (window.PlotTypeIndex() < 0) {
    DrawEmptyAxes();
    return;
  }
  DrawPlotOnShow(window.Picture1());
} catch (...) {
  ReportFailure("PlotRedraw", "PLOTIT");
}

void PlotRepaint() try {
  MainWindow& window = mainWindow();
  if (!plot.DesignOpen || window.PlotTypeIndex() < 0) {
    return;  // nothing is on show
  }
  const bool cursorOn = measured.CursorOn;
  const std::int32_t point = window.CursorValue();
  if (cursorOn) {
    Cursor1_Click();
  }
  DrawPlotOnShow(window.Picture1());
  if (cursorOn) {
    Cursor1_Click();
    window.SetCursorValue(point);
  }
} catch (...) {
  ReportFailure("PlotRepaint", "PLOTIT");
}

void PlotType_Click() try {
  if (measured.CursorOn) {
    Cursor1_Click();
  }
  const int index = mainWindow().PlotTypeIndex();
  if (plot.Outdated && index != setup.LastPlotListIndex) {
    ChooseFormAnew(index);
    return;
  }
  if (index != setup.LastPlotListIndex) {
    view.AmplAuto = true;
    setup.LastPlotListIndex = ToInt16(index);
  }
  RememberForm(view.CurrentPlot, index);
  writeHalvorneSetup();
  if (!plot.Outdated) {
    PlotConvertDataType(view.CurrentPlot);
  }
  mainWindow().RefreshWindow();
} catch (...) {
  ReportFailure("PlotType_Click", "frmHalvorneMain");
}

void ConvertToForm(std::int16_t index, std::int16_t plotNumber) {
  CleanVectorRegisters();
  // Before the conversions, whose measures need the scales, and behind them, since they decide
  // whether a spectrum is shown.
  GetPlotFreqTimeScale();
  plot.AmplLog = false;
  plot.SpectrumShown = false;
  measured.CFBWValid = false;
  measured.PulseWidthValid = false;
  measured.AttenValid = false;
  Convert(index, plotNumber);
  if (plotNumber == 12 || plotNumber == 22) {
    // A reflection coefficient has no band to measure.
    measured.CFBWValid = false;
    measured.AttenValid = false;
  }
  GetPlotFreqTimeScale();
}

void PlotConvertDataType(std::int16_t plotNumber) try {
  ConvertToForm(ToInt16(mainWindow().PlotTypeIndex()), plotNumber);
  PlotGraphOn(mainWindow().Picture1());
} catch (...) {
  ReportFailure("PlotConvertDataType", "PLOTIT");
}

}  // namespace halvorne
