#include "dialogs/frm_time_entry.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "dialogs/entry_layout.h"
#include "dialogs/time_record.h"
#include "engine/design_model.h"
#include "persistence/setup_file.h"
#include "platform/main_window.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/plot_select.h"
#include "timedomain/sample_rate.h"
#include "timedomain/view.h"
#include "timedomain/wave_state.h"

namespace halvorne {
namespace {

/// Size that option `index` stands for.
std::int32_t SizeOf(int index) {
  return 256 << index;
}

constexpr int kOption512 = 1;

}  // namespace

frmTimeEntry::frmTimeEntry(QWidget* parent)
    : ModalDialog("frmTimeEntry", QStringLiteral("Time Window Points"), parent) {
  auto* const outer = new QVBoxLayout(this);
  auto* const sizes =
      Named(new QGroupBox(QStringLiteral("Size of Inverse Fast Fourier Transform")), "Frame1");
  auto* const grid = new QGridLayout(sizes);
  for (int i = 0; i < kSizes; ++i) {
    optPoints[i] = Named(new QRadioButton(QString::number(SizeOf(i))), "optPoints", i);
    grid->addWidget(optPoints[i], i % 3, i / 3);
    OnChoice(optPoints[i], &frmTimeEntry::optPoints_Click, i);
  }
  outer->addWidget(sizes);

  auto* const related = Named(new QGroupBox(QStringLiteral("Related parameters")), "Frame2");
  auto* const column = new QVBoxLayout(related);
  lblStartFreq = Named(new QLabel, "lblStartFreq");
  lblStopFreq = Named(new QLabel, "lblStopFreq");
  lblSampleRate = Named(new QLabel, "lblSampleRate");
  lblTMax = Named(new QLabel, "lblTMax");
  for (QLabel* label : {lblStartFreq, lblStopFreq, lblSampleRate, lblTMax}) {
    column->addWidget(label);
  }
  outer->addWidget(related);

  CmdTimeOK = Named(new QPushButton(QStringLiteral("OK")), "CmdTimeOK");
  CmdTimeCancel = Named(new QPushButton(QStringLiteral("Cancel")), "CmdTimeCancel");
  outer->addLayout(ClosingRow(CmdTimeOK, CmdTimeCancel));
  OnClick(CmdTimeOK, &frmTimeEntry::CmdTimeOK_Click);
  OnClick(CmdTimeCancel, &frmTimeEntry::CmdTimeCancel_Click);
  SetCancelButton(CmdTimeCancel);
  Form_Load();
  for (QRadioButton* option : optPoints) {
    if (option->isChecked() && option->isEnabled()) {
      option->setFocus();
    }
  }
}

void frmTimeEntry::Form_Load() try {
  Centre();
  SelectSize();
  DisableAliasingSizes();
  PrintParameters();
} catch (...) {
  ReportFailure("Form_Load", "frmTimeEntry");
}

void frmTimeEntry::SelectSize() {
  for (int i = 0; i < kSizes; ++i) {
    if (design.NoTimePts == SizeOf(i)) {
      optPoints[i]->setChecked(true);
      return;
    }
  }
  // Kept: a size that is none of these is corrected at once, also if the dialog is cancelled.
  design.NoTimePts = SizeOf(kOption512);
  optPoints[kOption512]->setChecked(true);
}

void frmTimeEntry::DisableAliasingSizes() {
  const std::int32_t smallest = ToInt32(PowerOfTwoAbove(NeededTimePoints()));
  for (int i = 0; i < kSizes - 1; ++i) {  // the largest one can always be chosen
    optPoints[i]->setEnabled(SizeOf(i) >= smallest);
  }
}

void frmTimeEntry::optPoints_Click(int index) try {
  points = SizeOf(index);
  PrintParameters();
} catch (...) {
  ReportFailure("optPoints_Click", "frmTimeEntry");
}

void frmTimeEntry::PrintParameters() try {
  const double span = design.FreqStop - design.FreqStart;
  const double rate = Quotient(span * points, design.NoFreqPts);
  const double last = Quotient(points - 1.0, rate);
  GetTimeScale(last);  // Kept: the unit of the plot's time axis changes with it
  const std::string unit = design.FreqUnit;
  lblStartFreq->setText(ToQString("Start frequency " + wave.FreqStartText + " " + unit));
  lblStopFreq->setText(ToQString("Stop frequency " + wave.FreqStopText + " " + unit));
  lblSampleRate->setText(ToQString("Waveform sample rate " +
                                   Format(Quotient(rate, design.FreqScale), "##0.##0 ") + unit));
  lblTMax->setText(ToQString("Max. time window " +
                             Format(Quotient(last, view.TimeScale), "##0.##0 ") + view.TimeUnit));
} catch (...) {
  ReportFailure("PrintParameters", "frmTimeEntry");
}

void frmTimeEntry::CmdTimeOK_Click() try {
  design.NoTimePts = points;
  SampleRate();
  writeHalvorneSetup();
  Unload();
  if (IsTimePlot(view.CurrentPlot)) {  // no other plot depends on the size
    mainWindow().SetMousePointer(kBusyPointer);
    PlotSelect(view.CurrentPlot);
    mainWindow().SetMousePointer(kNormalPointer);
  }
} catch (...) {
  ReportFailure("CmdTimeOK_Click", "frmTimeEntry");
}

void frmTimeEntry::CmdTimeCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("CmdTimeCancel_Click", "frmTimeEntry");
}

}  // namespace halvorne
