#include "shell/frm_touchstone.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/messages.h"
#include "platform/number_text.h"

namespace halvorne {
namespace {

constexpr double kMostOhms = 1e9;

}  // namespace

frmTouchstone::frmTouchstone(double reference, QWidget* parent)
    : ModalDialog("frmTouchstone", QStringLiteral("Save Impedance"), parent) {
  auto* const outer = new QVBoxLayout(this);
  auto* const form = new QFormLayout;
  txtReference = Named(new QLineEdit, "txtReference");
  txtReference->setAlignment(Qt::AlignRight);
  SetBoxText(txtReference, NumberText(reference));
  txtReference->selectAll();
  auto* const label = Named(new QLabel(QStringLiteral("&Reference, Ohms")), "lblReference");
  form->addRow(label, txtReference);
  label->setBuddy(txtReference);
  outer->addLayout(form);
  auto* const words = Named(new QLabel(QStringLiteral("The impedance is saved as the reflection\n"
                                                      "coefficient S11 against this resistance.")),
                            "lblMeaning");
  outer->addWidget(words);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  cmdTouchstoneOK = Named(new QPushButton(QStringLiteral("OK")), "cmdTouchstoneOK");
  cmdTouchstoneCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdTouchstoneCancel");
  cmdTouchstoneOK->setDefault(true);
  cmdTouchstoneCancel->setAutoDefault(false);
  buttons->addWidget(cmdTouchstoneOK);
  buttons->addWidget(cmdTouchstoneCancel);
  outer->addLayout(buttons);
  SetCancelButton(cmdTouchstoneCancel);
  OnClick(cmdTouchstoneOK, &frmTouchstone::cmdTouchstoneOK_Click);
  OnClick(cmdTouchstoneCancel, &frmTouchstone::cmdTouchstoneCancel_Click);
  Centre();
  txtReference->setFocus();
}

void frmTouchstone::cmdTouchstoneOK_Click() try {
  const double value = BoxValue(txtReference);
  if (!(value > 0) || value > kMostOhms) {
    messages().Show({.title = "Save Impedance",
                     .text = value > kMostOhms ? "The reference must be 1000 MOhms at most."
                                               : "The reference must be above 0 Ohms.",
                     .icon = MessageIcon::kExclamation});
    txtReference->setFocus();
    txtReference->selectAll();
    return;
  }
  reference_ = value;
  Unload();
} catch (...) {
  ReportFailure("cmdTouchstoneOK_Click", "frmTouchstone");
}

void frmTouchstone::cmdTouchstoneCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdTouchstoneCancel_Click", "frmTouchstone");
}

}  // namespace halvorne
