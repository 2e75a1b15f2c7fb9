#include "dialogs/frm_elec_term_entry.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "engine/design_model.h"
#include "platform/number_text.h"
#include "plot/plot_select.h"

namespace halvorne {

frmElecTermEntry::frmElecTermEntry(QWidget* parent)
    // Kept: the caption's spelling.
    : ModalDialog("frmElecTermEntry", QStringLiteral("Electrical Terminatons"), parent) {
  auto* const outer = new QVBoxLayout(this);
  auto* const grid = new QGridLayout;
  txtXmtrZ = Named(new QLineEdit, "txtXmtrZ");
  txtRcvrZ = Named(new QLineEdit, "txtRcvrZ");
  auto* const Label1 = Named(new QLabel(QStringLiteral("Transmitter Output Impedance")), "Label1");
  auto* const Label2 = Named(new QLabel(QStringLiteral("Receiver Input Impedance")), "Label2");
  Label1->setBuddy(txtXmtrZ);
  Label2->setBuddy(txtRcvrZ);
  grid->addWidget(Label1, 0, 0);
  grid->addWidget(txtXmtrZ, 0, 1);
  grid->addWidget(new QLabel(QStringLiteral("Ohms")), 0, 2);
  grid->addWidget(Label2, 1, 0);
  grid->addWidget(txtRcvrZ, 1, 1);
  grid->addWidget(new QLabel(QStringLiteral("Ohms")), 1, 2);
  outer->addLayout(grid);

  cmdElecOK = Named(new QPushButton(QStringLiteral("OK")), "cmdElecOK");
  cmdElecOK->setDefault(true);
  cmdElecCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdElecCancel");
  auto* const closing = new QHBoxLayout;
  closing->addStretch();
  closing->addWidget(cmdElecOK);
  closing->addWidget(cmdElecCancel);
  outer->addLayout(closing);

  connect(cmdElecOK, &QPushButton::clicked, this, &frmElecTermEntry::cmdElecOK_Click);
  connect(cmdElecCancel, &QPushButton::clicked, this, &frmElecTermEntry::cmdElecCancel_Click);
  Form_Load();
  txtXmtrZ->setFocus();
}

void frmElecTermEntry::Form_Load() try {
  Centre();
  SetBoxText(txtXmtrZ, NumberText(design.TermTx));
  SetBoxText(txtRcvrZ, NumberText(design.TermRx));
} catch (...) {
  ReportFailure("Form_Load", "frmElecTermEntry");
}

void frmElecTermEntry::cmdElecOK_Click() try {
  design.TermTx = BoxValue(txtXmtrZ);
  design.TermRx = BoxValue(txtRcvrZ);
  Recalc();
  Unload();
} catch (...) {
  ReportFailure("cmdElecOK_Click", "frmElecTermEntry");
}

void frmElecTermEntry::cmdElecCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdElecCancel_Click", "frmElecTermEntry");
}

}  // namespace halvorne
