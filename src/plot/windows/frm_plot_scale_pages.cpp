#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "plot/plot_state.h"
#include "plot/windows/frm_plot_scale_entry.h"

// How the window of the plot scales looks; what it does stands in frm_plot_scale_entry.cpp.

namespace halvorne {
namespace {

/// A page whose controls lie in one titled group.
struct Page {
  QFrame* frame;
  QGridLayout* grid;
};

Page MakePage(const QString& caption) {
  auto* const frame = new QFrame;
  auto* const group = new QGroupBox(caption);
  auto* const outer = new QVBoxLayout(frame);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->addWidget(group);
  auto* const grid = new QGridLayout(group);
  grid->setHorizontalSpacing(10);
  return {frame, grid};
}

/// A box whose caption stands above or beside it, as it is called where neither is seen.
QLineEdit* Called(QLineEdit* box, const char* name) {
  box->setAccessibleName(QString::fromLatin1(name));
  return box;
}

void AddOptions(QGridLayout* grid, QRadioButton* automatic, QRadioButton* manual) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(20);
  row->addWidget(automatic);
  row->addWidget(manual);
  row->addStretch();
  grid->addLayout(row, 0, 0, 1, -1);
}

}  // namespace

frmPlotScaleEntry::frmPlotScaleEntry(QWidget* parent)
    : ModalDialog("frmPlotScaleEntry", QStringLiteral("Plot Scale Entry"), parent) {
  auto* const outer = new QVBoxLayout(this);
  auto* const buttons = new QHBoxLayout;
  const char* const captions[] = {"Amplitude", "Frequency", "Time"};
  for (int i = 0; i < 3; ++i) {
    CmdShow[i] = Named(new QPushButton(QString::fromLatin1(captions[i])), "CmdShow", i);
    CmdShow[i]->setAutoDefault(false);
    buttons->addWidget(CmdShow[i]);
  }
  outer->addLayout(buttons);

  auto* const place = new QGridLayout;
  QFrame* const frames[] = {MakeAmplitudePage(), MakeFrequencyPage(), MakeTimePage()};
  for (int i = 0; i < 3; ++i) {
    place->addWidget(frames[i], 0, 0);
    pages.Add(CmdShow[i], frames[i]);
  }
  outer->addLayout(place);

  cmdPlotScaleOK = Named(new QPushButton(QStringLiteral("OK")), "cmdPlotScaleOK");
  cmdPlotScaleOK->setDefault(true);
  auto* const closing = new QHBoxLayout;
  closing->addStretch();
  closing->addWidget(cmdPlotScaleOK);
  outer->addLayout(closing);

  ConnectEvents();
  Form_Load();
  QLineEdit* const automatic = plot.AmplLog ? txtLogRng : txtAmplWindow;
  (view.AmplAuto ? automatic : txtLeftMax)->setFocus();
}

QFrame* frmPlotScaleEntry::MakeAmplitudePage() {
  const auto [frame, grid] = MakePage(QStringLiteral("Amplitude scale"));
  Named(frame, "FrameAmp");
  optAmplAuto = Named(new QRadioButton(QStringLiteral("Auto")), "optAmplAuto");
  optAmplManual = Named(new QRadioButton(QStringLiteral("Manual")), "optAmplManual");
  AddOptions(grid, optAmplAuto, optAmplManual);

  grid->addWidget(new QLabel(QStringLiteral("Max")), 1, 1);
  grid->addWidget(new QLabel(QStringLiteral("Min")), 1, 2);
  grid->addWidget(new QLabel(QStringLiteral("Units")), 1, 3);
  lblLeftAxis = Named(new QLabel(QStringLiteral("Left scale")), "lblLeftAxis");
  txtLeftMax = Called(Named(new QLineEdit, "txtLeftMax"), "Left scale, Max");
  txtLeftMin = Called(Named(new QLineEdit, "txtLeftMin"), "Left scale, Min");
  strLeftUnit = Named(new QLabel, "strLeftUnit");
  lblRightAxis = Named(new QLabel(QStringLiteral("Right scale")), "lblRightAxis");
  txtRightMax = Called(Named(new QLineEdit, "txtRightMax"), "Right scale, Max");
  txtRightMin = Called(Named(new QLineEdit, "txtRightMin"), "Right scale, Min");
  strRightUnit = Named(new QLabel, "strRightUnit");
  QWidget* const rows[2][4] = {{lblLeftAxis, txtLeftMax, txtLeftMin, strLeftUnit},
                               {lblRightAxis, txtRightMax, txtRightMin, strRightUnit}};
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 4; ++column) {
      grid->addWidget(rows[row][column], row + 2, column);
    }
  }

  lblLogRng1 = Named(new QLabel(QStringLiteral("Log range:")), "lblLogRng1");
  txtLogRng = Called(Named(new QLineEdit, "txtLogRng"), "Log range in dB");
  lblLogRng2 = Named(new QLabel(QStringLiteral("dB")), "lblLogRng2");
  grid->addWidget(lblLogRng1, 4, 0);
  grid->addWidget(txtLogRng, 4, 1);
  grid->addWidget(lblLogRng2, 4, 2);
  txtAmplWindow = Called(Named(new QLineEdit, "txtAmplWindow"), "Autoscale on % of span");
  grid->addWidget(new QLabel(QStringLiteral("Autoscale on:")), 5, 0);
  grid->addWidget(txtAmplWindow, 5, 1);
  grid->addWidget(new QLabel(QStringLiteral("% of span")), 5, 2);
  grid->setRowStretch(6, 1);
  return frame;
}

QFrame* frmPlotScaleEntry::MakeFrequencyPage() {
  const auto [frame, grid] = MakePage(QStringLiteral("Frequency window"));
  Named(frame, "FrameFreq");
  optFreqAuto = Named(new QRadioButton(QStringLiteral("Auto")), "optFreqAuto");
  optFreqManual = Named(new QRadioButton(QStringLiteral("Manual")), "optFreqManual");
  AddOptions(grid, optFreqAuto, optFreqManual);

  grid->addWidget(new QLabel(QStringLiteral("Start")), 1, 1);
  grid->addWidget(new QLabel(QStringLiteral("Stop")), 1, 2);
  grid->addWidget(new QLabel(QStringLiteral("Units")), 1, 3);
  txtFreqLower = Called(Named(new QLineEdit, "txtFreqLower"), "Start frequency");
  txtFreqUpper = Called(Named(new QLineEdit, "txtFreqUpper"), "Stop frequency");
  lblFreqUnit = Named(new QLabel, "lblFreqUnit");
  grid->addWidget(txtFreqLower, 2, 1);
  grid->addWidget(txtFreqUpper, 2, 2);
  grid->addWidget(lblFreqUnit, 2, 3);
  lblStartFreqLimit = Named(new QLabel, "lblStartFreqLimit");
  lblStopFreqLimit = Named(new QLabel, "lblStopFreqLimit");
  lblFreqUnit2 = Named(new QLabel, "lblFreqUnit2");
  grid->addWidget(new QLabel(QStringLiteral("Limits")), 3, 0);
  grid->addWidget(lblStartFreqLimit, 3, 1);
  grid->addWidget(lblStopFreqLimit, 3, 2);
  grid->addWidget(lblFreqUnit2, 3, 3);
  grid->setRowStretch(4, 1);
  return frame;
}

QFrame* frmPlotScaleEntry::MakeTimePage() {
  const auto [frame, grid] = MakePage(QStringLiteral("Time window"));
  Named(frame, "FrameTime");
  optTimeAuto = Named(new QRadioButton(QStringLiteral("Auto")), "optTimeAuto");
  optTimeManual = Named(new QRadioButton(QStringLiteral("Manual")), "optTimeManual");
  AddOptions(grid, optTimeAuto, optTimeManual);

  grid->addWidget(new QLabel(QStringLiteral("Start")), 1, 1);
  grid->addWidget(new QLabel(QStringLiteral("Stop")), 1, 3);
  txtTimeLower = Called(Named(new QLineEdit, "txtTimeLower"), "Start time");
  txtTimeUpper = Called(Named(new QLineEdit, "txtTimeUpper"), "Stop time");
  lblTimeUnit = Named(new QLabel, "lblTimeUnit");
  grid->addWidget(txtTimeLower, 2, 1);
  grid->addWidget(txtTimeUpper, 2, 3);
  grid->addWidget(lblTimeUnit, 2, 4);
  lblStartTimeLimit = Named(new QLabel(QStringLiteral("0.000")), "lblStartTimeLimit");
  lblStopTimeLimit = Named(new QLabel, "lblStopTimeLimit");
  lblTimeUnit2 = Named(new QLabel, "lblTimeUnit2");
  grid->addWidget(new QLabel(QStringLiteral("Limits")), 3, 0);
  grid->addWidget(lblStartTimeLimit, 3, 1);
  grid->addWidget(new QLabel(QStringLiteral("0 to")), 3, 2);
  grid->addWidget(lblStopTimeLimit, 3, 3);
  grid->addWidget(lblTimeUnit2, 3, 4);
  txtTWindow = Called(Named(new QLineEdit, "txtTWindow"), "Auto window width in % of Tmax");
  grid->addWidget(new QLabel(QStringLiteral("Auto window width:")), 4, 0);
  grid->addWidget(txtTWindow, 4, 1);
  grid->addWidget(new QLabel(QStringLiteral("% of Tmax")), 4, 2, 1, 3);
  grid->setRowStretch(5, 1);
  return frame;
}

}  // namespace halvorne
