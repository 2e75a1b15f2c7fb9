#include "dialogs/frm_size_entry.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <cmath>

#include "engine/design_model.h"
#include "engine/element_size.h"
#include "engine/piezo_section.h"
#include "platform/number_text.h"
#include "plot/plot_select.h"

namespace halvorne {

frmSizeEntry::frmSizeEntry(QWidget* parent)
    : ModalDialog("frmSizeEntry", QStringLiteral("Element Size and Shape"), parent) {
  auto* const outer = new QVBoxLayout(this);
  auto* const shapes = Named(new QGroupBox(QStringLiteral("Element Shape:")), "Frame1");
  auto* const column = new QVBoxLayout;
  optCircle = Named(new QRadioButton(QStringLiteral("Circular Disk")), "optCircle");
  optAnnulus = Named(new QRadioButton(QStringLiteral("Annular Ring")), "optAnnulus");
  optRect = Named(new QRadioButton(QStringLiteral("Rectangle")), "optRect");
  for (QRadioButton* option : {optCircle, optAnnulus, optRect}) {
    column->addWidget(option);
  }
  shapes->setLayout(column);
  outer->addWidget(shapes);

  auto* const grid = new QGridLayout;
  lblPiezoDim1 = Named(new QLabel, "lblPiezoDim1");
  txtPiezoDim1 = Named(new QLineEdit, "txtPiezoDim1");
  lblPiezoUnit1 = Named(new QLabel(QStringLiteral("mm")), "lblPiezoUnit1");
  lblPiezoDim2 = Named(new QLabel, "lblPiezoDim2");
  txtPiezoDim2 = Named(new QLineEdit, "txtPiezoDim2");
  lblPiezoUnit2 = Named(new QLabel(QStringLiteral("mm")), "lblPiezoUnit2");
  lblPiezoDim1->setBuddy(txtPiezoDim1);
  lblPiezoDim2->setBuddy(txtPiezoDim2);
  grid->addWidget(lblPiezoDim1, 0, 0);
  grid->addWidget(txtPiezoDim1, 0, 1);
  grid->addWidget(lblPiezoUnit1, 0, 2);
  grid->addWidget(lblPiezoDim2, 1, 0);
  grid->addWidget(txtPiezoDim2, 1, 1);
  grid->addWidget(lblPiezoUnit2, 1, 2);
  for (QWidget* second : {static_cast<QWidget*>(lblPiezoDim2), static_cast<QWidget*>(txtPiezoDim2),
                          static_cast<QWidget*>(lblPiezoUnit2)}) {
    QSizePolicy policy = second->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    second->setSizePolicy(policy);
  }
  lblPiezoDim1->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("Outer Diameter")));
  outer->addLayout(grid);

  cmdSizeOK = Named(new QPushButton(QStringLiteral("OK")), "cmdSizeOK");
  cmdSizeOK->setDefault(true);
  cmdSizeCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdSizeCancel");
  auto* const closing = new QHBoxLayout;
  closing->addStretch();
  closing->addWidget(cmdSizeOK);
  closing->addWidget(cmdSizeCancel);
  outer->addLayout(closing);

  OnChoice(optCircle, &frmSizeEntry::optCircle_Click);
  OnChoice(optAnnulus, &frmSizeEntry::optAnnulus_Click);
  OnChoice(optRect, &frmSizeEntry::optRect_Click);
  connect(cmdSizeOK, &QPushButton::clicked, this, &frmSizeEntry::cmdSizeOK_Click);
  connect(cmdSizeCancel, &QPushButton::clicked, this, &frmSizeEntry::cmdSizeCancel_Click);
  Form_Load();
  txtPiezoDim1->setFocus();
}

void frmSizeEntry::Form_Load() try {
  Centre();
  switch (design.ElementShape) {
    case kDisk:
      optCircle->setChecked(true);
      break;
    case kAnnulus:
      optAnnulus->setChecked(true);
      break;
    case kRectangle:
      optRect->setChecked(true);
      break;
    default:
      break;
  }
  shape = design.ElementShape;
  SetBoxText(txtPiezoDim1, NumberText(design.ElementDim1));
  // A disk's second box keeps the value, hidden.
  SetBoxText(txtPiezoDim2, NumberText(design.ElementDim2));
} catch (...) {
  ReportFailure("Form_Load", "frmSizeEntry");
}

void frmSizeEntry::ChooseShape(std::int16_t chosen) {
  shape = chosen;
  const auto captions = DimensionCaptions(chosen);
  lblPiezoDim1->setText(QString::fromLatin1(captions[0]));
  lblPiezoDim2->setText(QString::fromLatin1(captions[1]));
  const bool second = chosen != kDisk;
  lblPiezoDim2->setVisible(second);
  txtPiezoDim2->setVisible(second);
  lblPiezoUnit2->setVisible(second);
}

void frmSizeEntry::optCircle_Click() try {
  ChooseShape(kDisk);
  txtPiezoDim2->clear();
} catch (...) {
  ReportFailure("optCircle_Click", "frmSizeEntry");
}

void frmSizeEntry::optAnnulus_Click() try { ChooseShape(kAnnulus); } catch (...) {
  ReportFailure("optAnnulus_Click", "frmSizeEntry");
}

void frmSizeEntry::optRect_Click() try { ChooseShape(kRectangle); } catch (...) {
  ReportFailure("optRect_Click", "frmSizeEntry");
}

void frmSizeEntry::cmdSizeOK_Click() try {
  design.ElementShape = shape;
  design.ElementDim1 = std::fabs(BoxValue(txtPiezoDim1));
  design.ElementDim2 = std::fabs(BoxValue(txtPiezoDim2));
  TakeElementSize();
  PiezoConstants();
  Recalc();
  Unload();
} catch (...) {
  ReportFailure("cmdSizeOK_Click", "frmSizeEntry");
}

void frmSizeEntry::cmdSizeCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdSizeCancel_Click", "frmSizeEntry");
}

}  // namespace halvorne
