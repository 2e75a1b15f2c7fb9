#include "plot/windows/frm_plot_scale_entry.h"

#include <algorithm>
#include <cmath>

#include "persistence/setup_file.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/axis_scaling.h"
#include "plot/cursor.h"
#include "plot/manual_scales.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne {

void frmPlotScaleEntry::ConnectEvents() {
  for (int i = 0; i < 3; ++i) {
    connect(CmdShow[i], &QPushButton::clicked, this, [this, i] { CmdShow_Click(i); });
  }
  OnChoice(optAmplAuto, &frmPlotScaleEntry::optAmplAuto_Click);
  OnChoice(optAmplManual, &frmPlotScaleEntry::optAmplManual_Click);
  OnChoice(optFreqAuto, &frmPlotScaleEntry::optFreqAuto_Click);
  OnChoice(optFreqManual, &frmPlotScaleEntry::optFreqManual_Click);
  OnChoice(optTimeAuto, &frmPlotScaleEntry::optTimeAuto_Click);
  OnChoice(optTimeManual, &frmPlotScaleEntry::optTimeManual_Click);
  connect(cmdPlotScaleOK, &QPushButton::clicked, this, &frmPlotScaleEntry::cmdPlotScaleOK_Click);
}

void frmPlotScaleEntry::Form_Load() try {
  Centre();
  (view.AmplAuto ? optAmplAuto : optAmplManual)->setChecked(true);
  (view.FreqAuto ? optFreqAuto : optFreqManual)->setChecked(true);
  (view.TimeAuto ? optTimeAuto : optTimeManual)->setChecked(true);
  EnableAmplitudeBoxes(!view.AmplAuto);
  EnableFrequencyBoxes(!view.FreqAuto);
  EnableTimeBoxes(!view.TimeAuto);
  FillAmplitudePage();
  for (QWidget* right : {static_cast<QWidget*>(strRightUnit), static_cast<QWidget*>(txtRightMin),
                         static_cast<QWidget*>(txtRightMax), static_cast<QWidget*>(lblRightAxis)}) {
    right->setVisible(plot.DualTrace);
  }
  SetBoxText(txtAmplWindow, NumberText(setup.AmplWindowPercent));
  txtAmplWindow->setEnabled(view.AmplAuto);
  SetBoxText(txtLogRng, NumberText(setup.LogRange));
  for (QWidget* logarithmic : {static_cast<QWidget*>(txtLogRng), static_cast<QWidget*>(lblLogRng1),
                               static_cast<QWidget*>(lblLogRng2)}) {
    logarithmic->setVisible(plot.AmplLog);
  }
  if (plot.AmplLog) {
    txtLogRng->setEnabled(view.AmplAuto);
  }
  FillFrequencyPage();
  FillTimePage();
  pages.Show(0);
  CmdShow[1]->setEnabled(!IsTimePlot(view.CurrentPlot));
  CmdShow[2]->setEnabled(IsTimePlot(view.CurrentPlot));
} catch (...) {
  ReportFailure("Form_Load", "frmPlotScaleEntry");
}

void frmPlotScaleEntry::CmdShow_Click(int index) try { pages.Show(index); } catch (...) {
  ReportFailure("CmdShow_Click", "frmPlotScaleEntry");
}

void frmPlotScaleEntry::EnableAmplitudeBoxes(bool enabled) {
  for (QLineEdit* box : {txtLeftMax, txtLeftMin, txtRightMax, txtRightMin}) {
    box->setEnabled(enabled);
  }
}

void frmPlotScaleEntry::EnableFrequencyBoxes(bool enabled) {
  txtFreqLower->setEnabled(enabled);
  txtFreqUpper->setEnabled(enabled);
}

void frmPlotScaleEntry::EnableTimeBoxes(bool enabled) {
  txtTimeLower->setEnabled(enabled);
  txtTimeUpper->setEnabled(enabled);
}

void frmPlotScaleEntry::FillAmplitudePage() {
  strLeftUnit->setText(ToQString(scale.LeftPrefix + scale.LeftUnit));
  strRightUnit->setText(ToQString(scale.RightPrefix + scale.RightUnit));
  SetBoxText(txtLeftMin, scale.LeftMinText);
  SetBoxText(txtLeftMax, scale.LeftMaxText);
  SetBoxText(txtRightMin, scale.RightMinText);
  SetBoxText(txtRightMax, scale.RightMaxText);
  lblLeftAxis->setText(ToQString(scale.LeftLabel));
  lblRightAxis->setText(ToQString(scale.RightLabel));
}

void frmPlotScaleEntry::FillFrequencyPage() {
  lblFreqUnit->setText(ToQString(design.FreqUnit));
  lblFreqUnit2->setText(ToQString(design.FreqUnit));
  SetBoxText(txtFreqLower, scale.FreqLowerText);
  SetBoxText(txtFreqUpper, scale.FreqUpperText);
  lblStartFreqLimit->setText(ToQString(wave.FreqStartText));
  lblStopFreqLimit->setText(ToQString(wave.FreqStopText));
}

void frmPlotScaleEntry::FillTimePage() {
  lblTimeUnit->setText(ToQString(view.TimeUnit));
  lblTimeUnit2->setText(ToQString(view.TimeUnit));
  SetBoxText(txtTimeLower, scale.TimeLowerText);
  SetBoxText(txtTimeUpper, scale.TimeUpperText);
  lblStopTimeLimit->setText(ToQString(scale.TimeWindowText));
  SetBoxText(txtTWindow, NumberText(view.TimeWindowPercent));
  txtTWindow->setEnabled(view.TimeAuto);
}

void frmPlotScaleEntry::optAmplAuto_Click() try {
  view.AmplAuto = true;
  EnableAmplitudeBoxes(false);
  txtAmplWindow->setEnabled(true);
  GetAmplScale(points.PlotData, view.AmplAuto);
  FillAmplitudePage();
  if (plot.AmplLog) {
    txtLogRng->setEnabled(true);
  }
} catch (...) {
  ReportFailure("optAmplAuto_Click", "frmPlotScaleEntry");
}

void frmPlotScaleEntry::optAmplManual_Click() try {
  view.AmplAuto = false;
  EnableAmplitudeBoxes(true);
  txtAmplWindow->setEnabled(false);
  if (plot.AmplLog) {
    txtLogRng->setEnabled(false);
  }
} catch (...) {
  ReportFailure("optAmplManual_Click", "frmPlotScaleEntry");
}

void frmPlotScaleEntry::optFreqAuto_Click() try {
  view.FreqAuto = true;
  GetPlotFreqTimeScale();
  EnableFrequencyBoxes(false);
  GetPlotFreqTimeScale();
  FillFrequencyPage();
} catch (...) {
  ReportFailure("optFreqAuto_Click", "frmPlotScaleEntry");
}

void frmPlotScaleEntry::optFreqManual_Click() try {
  view.FreqAuto = false;
  EnableFrequencyBoxes(true);
} catch (...) {
  ReportFailure("optFreqManual_Click", "frmPlotScaleEntry");
}

void frmPlotScaleEntry::optTimeAuto_Click() try {
  view.TimeAuto = true;
  EnableTimeBoxes(false);
  txtTWindow->setEnabled(true);
  GetPlotFreqTimeScale();
  FillTimePage();
} catch (...) {
  ReportFailure("optTimeAuto_Click", "frmPlotScaleEntry");
}

void frmPlotScaleEntry::optTimeManual_Click() try {
  view.TimeAuto = false;
  GetPlotFreqTimeScale();
  EnableTimeBoxes(true);
  txtTWindow->setEnabled(false);
} catch (...) {
  ReportFailure("optTimeManual_Click", "frmPlotScaleEntry");
}

void frmPlotScaleEntry::cmdPlotScaleOK_Click() try {
  if (!view.AmplAuto) {
    TakeManualAmplitude({.leftMax = BoxValue(txtLeftMax),
                         .leftMin = BoxValue(txtLeftMin),
                         .rightMax = BoxValue(txtRightMax),
                         .rightMin = BoxValue(txtRightMin)});
  }
  if (plot.AmplLog && view.AmplAuto) {
    setup.LogRange = std::clamp(std::fabs(BoxValue(txtLogRng)), 1.0, 200.0);
  }
  if (view.AmplAuto) {
    setup.AmplWindowPercent = ToSingle(std::clamp(std::fabs(BoxValue(txtAmplWindow)), 5.0, 100.0));
  }
  writeHalvorneSetup();
  if (IsTimePlot(view.CurrentPlot)) {
    if (view.TimeAuto) {
      view.TimeWindowPercent = ToSingle(std::clamp(BoxValue(txtTWindow), 0.25, 99.5));
      writeHalvorneSetup();
    } else {
      TakeManualTimeWindow(BoxValue(txtTimeLower), BoxValue(txtTimeUpper));
    }
  } else if (!view.FreqAuto) {
    TakeManualFrequencyWindow(BoxValue(txtFreqLower), BoxValue(txtFreqUpper));
  }
  ClearCursor();
  PlotSelect(view.CurrentPlot);
  Unload();
} catch (...) {
  ReportFailure("cmdPlotScaleOK_Click", "frmPlotScaleEntry");
}

}  // namespace halvorne
