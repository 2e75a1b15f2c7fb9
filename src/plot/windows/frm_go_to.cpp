#include "plot/windows/frm_go_to.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "platform/main_window.h"
#include "platform/messages.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/cursor.h"
#include "plot/graph_position.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

constexpr const char* kPattern = "##0.##0";
/// By how much the limits may lie beside the texts that tell them.
constexpr double kTextError = 0.0005;

/// "1.000 to 9.000 MHz", the window shown.
std::string LimitsText() {
  return Format(DisplayPosition(scale.FirstPlotPt), kPattern) + " to " +
         Format(DisplayPosition(scale.LastPlotPt), kPattern) + " " + PositionUnit();
}

bool Within(double position) {
  return position >= DisplayPosition(scale.FirstPlotPt) - kTextError &&
         position <= DisplayPosition(scale.LastPlotPt) + kTextError;
}

/// The point nearest to a frequency or time in the unit of the x axis.
std::int32_t NearestPoint(double position) {
  const double first = DisplayPosition(scale.FirstPlotPt);
  const double last = DisplayPosition(scale.LastPlotPt);
  return PointAt(Quotient((position - first) * 10, last - first));
}

}  // namespace

frmGoTo::frmGoTo(QWidget* parent) : ModalDialog("frmGoTo", QStringLiteral("Go To"), parent) {
  auto* const outer = new QVBoxLayout(this);
  auto* const grid = new QGridLayout;
  lblGoTo = Named(new QLabel, "lblGoTo");
  txtGoTo = Named(new QLineEdit, "txtGoTo");
  lblGoTo->setBuddy(txtGoTo);
  lblGoToUnit = Named(new QLabel, "lblGoToUnit");
  lblGoToLimits = Named(new QLabel, "lblGoToLimits");
  grid->addWidget(lblGoTo, 0, 0);
  grid->addWidget(txtGoTo, 0, 1);
  grid->addWidget(lblGoToUnit, 0, 2);
  grid->addWidget(lblGoToLimits, 1, 1, 1, 2);
  outer->addLayout(grid);

  cmdGoToOK = Named(new QPushButton(QStringLiteral("OK")), "cmdGoToOK");
  cmdGoToCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdGoToCancel");
  cmdGoToOK->setDefault(true);
  cmdGoToCancel->setAutoDefault(true);  // Return presses it, but only while it has the focus
  auto* const closing = new QHBoxLayout;
  closing->addStretch();
  closing->addWidget(cmdGoToOK);
  closing->addWidget(cmdGoToCancel);
  outer->addLayout(closing);
  OnClick(cmdGoToOK, &frmGoTo::cmdGoToOK_Click);
  OnClick(cmdGoToCancel, &frmGoTo::cmdGoToCancel_Click);
  SetCancelButton(cmdGoToCancel);
  Form_Load();
}

void frmGoTo::Form_Load() try {
  Centre();
  lblGoTo->setText(IsTimePlot(view.CurrentPlot) ? QStringLiteral("Time")
                                                : QStringLiteral("Frequency"));
  lblGoToUnit->setText(ToQString(PositionUnit()));
  lblGoToLimits->setText(ToQString(LimitsText()));
  if (measured.CursorOn) {
    SetBoxText(txtGoTo, Format(DisplayPosition(mainWindow().CursorValue()), kPattern));
  }
  txtGoTo->selectAll();
  txtGoTo->setFocus();
} catch (...) {
  ReportFailure("Form_Load", "frmGoTo");
}

void frmGoTo::cmdGoToOK_Click() try {
  const double position = BoxValue(txtGoTo);
  if (!Within(position)) {
    const std::string what = IsTimePlot(view.CurrentPlot) ? "time" : "frequency";
    messages().Show({.title = "Go To",
                     .text = "The graph shows " + LimitsText() + ". Enter a " + what + " within.",
                     .icon = MessageIcon::kExclamation});
    txtGoTo->selectAll();
    txtGoTo->setFocus();
    return;
  }
  PutCursorAt(NearestPoint(position));
  Unload();
} catch (...) {
  ReportFailure("cmdGoToOK_Click", "frmGoTo");
}

void frmGoTo::cmdGoToCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdGoToCancel_Click", "frmGoTo");
}

}  // namespace halvorne
