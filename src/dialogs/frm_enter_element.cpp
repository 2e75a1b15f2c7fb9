#include "dialogs/frm_enter_element.h"

#include <QGroupBox>
#include <QVBoxLayout>
#include <cmath>

#include "dialogs/entry_layout.h"
#include "engine/design_model.h"
#include "platform/number_text.h"

namespace halvorne {
namespace {

constexpr int kInsert = 1;
constexpr int kChange = 2;
constexpr int kFirstCircuit = 10;
constexpr int kLastCircuit = 16;
constexpr int kPiezoLayers = 17;

}  // namespace

frmEnterElement::frmEnterElement(QWidget* parent)
    : ModalDialog("frmEnterElement", QStringLiteral("Enter Element"), parent) {
  auto* const outer = new QVBoxLayout(this);
  outer->addWidget(MakeChooser());
  outer->addWidget(MakeValues());
  cmdElSelectOK = Named(new QPushButton(QStringLiteral("OK")), "cmdElSelectOK");
  cmdElSelectCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdElSelectCancel");
  outer->addLayout(ClosingRow(cmdElSelectOK, cmdElSelectCancel));
  OnClick(cmdElSelectOK, &frmEnterElement::cmdElSelectOK_Click);
  OnClick(cmdElSelectCancel, &frmEnterElement::cmdElSelectCancel_Click);
  SetCancelButton(cmdElSelectCancel);
  Form_Load();
  if (selected > 0) {
    txtElValue[0]->setFocus();
    txtElValue[0]->selectAll();
  } else {
    optElSelect[0]->setFocus();
  }
}

QGroupBox* frmEnterElement::MakeChooser() {
  auto* const frame = new QGroupBox(QStringLiteral("Element"));
  auto* const grid = new QGridLayout(frame);
  for (int code = 0; code <= kLastElementCode; ++code) {
    optElSelect[code] = Named(new QRadioButton(QString::fromLatin1(ElementOfCode(code).caption)),
                              "optElSelect", code);
    OnChoice(optElSelect[code], &frmEnterElement::optElSelect_Click, code);
    if (code < kFirstCircuit) {
      grid->addWidget(optElSelect[code], code, 0);
    } else if (code <= kLastCircuit) {
      grid->addWidget(optElSelect[code], code - kFirstCircuit + 1, 1);
    }
  }
  grid->addWidget(new QLabel(QStringLiteral("HP 4194A Circuits:")), 0, 1);
  grid->addWidget(optElSelect[kPiezoLayers], kFirstCircuit, 0, 1, 2);
  grid->setColumnMinimumWidth(0, fontMetrics().averageCharWidth() * 28);
  return frame;
}

QGroupBox* frmEnterElement::MakeValues() {
  auto* const frame = new QGroupBox(QStringLiteral("Values"));
  auto* const grid = new QGridLayout(frame);
  for (int row = 0; row < kRows; ++row) {
    lblElValue[row] = Named(new QLabel, "lblElValue", row);
    txtElValue[row] = Named(new QLineEdit, "txtElValue", row);
    lblElUnit[row] = Named(new QLabel, "lblElUnit", row);
    AddEntryRow(grid, row, lblElValue[row], txtElValue[row], lblElUnit[row]);
    for (QWidget* control :
         {static_cast<QWidget*>(lblElValue[row]), static_cast<QWidget*>(txtElValue[row]),
          static_cast<QWidget*>(lblElUnit[row])}) {
      KeepPlaceWhenHidden(control);
      control->hide();
    }
  }
  const QFontMetrics metrics = fontMetrics();
  lblElValue[0]->setMinimumWidth(
      metrics.horizontalAdvance(QStringLiteral("Series inductor L (1 of 2)")));
  lblElUnit[0]->setMinimumWidth(metrics.horizontalAdvance(QStringLiteral("dB/kilometer")));
  grid->setColumnStretch(1, 1);
  return frame;
}

void frmEnterElement::Form_Load() try {
  Centre();
  int code = 0;
  if (draft.ElAction == kChange) {
    for (int known = 1; known <= kLastElementCode; ++known) {
      code = draft.TmpElNet(draft.ElRow, 1) == known ? known : code;
    }
  }
  optElSelect[code]->setChecked(true);
} catch (...) {
  ReportFailure("Form_Load", "frmEnterElement");
}

void frmEnterElement::optElSelect_Click(int code) try {
  selected = static_cast<std::int16_t>(code);
  const std::span<const ElementField> fields = ElementOfCode(code).fields;
  const bool stored = draft.ElAction == kChange && draft.TmpElNet(draft.ElRow, 1) == code;
  for (std::size_t row = 0; row < kRows; ++row) {
    const bool used = row < fields.size();
    SetBoxText(txtElValue[row], "0");
    lblElValue[row]->setVisible(used);
    txtElValue[row]->setVisible(used);
    lblElUnit[row]->setVisible(used);
    if (!used) {
      continue;
    }
    const ElementField& field = fields[row];
    lblElValue[row]->setText(QString::fromLatin1(field.caption));
    lblElUnit[row]->setText(QString::fromLatin1(field.unit));
    txtElValue[row]->setAccessibleName(QString::fromLatin1(field.caption).trimmed());
    if (stored) {
      const double value = draft.TmpElNet(draft.ElRow, field.column);
      SetBoxText(txtElValue[row], NumberText(value / field.unitSize));
    }
  }
} catch (...) {
  ReportFailure("optElSelect_Click", "frmEnterElement");
}

void frmEnterElement::InsertRow() {
  for (long row = kNetworkRows - 1; row >= draft.ElRow; --row) {
    draft.TmpElNet.rows(row + 1) = draft.TmpElNet.rows(row);
  }
  draft.TmpElNet.rows(draft.ElRow) = {};
}

void frmEnterElement::StoreElement() const {
  auto& row = draft.TmpElNet.rows(draft.ElRow);
  row(1) = selected;
  if (selected == kPiezoLayers) {
    row(2) = 1;
  }
  const std::span<const ElementField> fields = ElementOfCode(selected).fields;
  for (std::size_t k = 0; k < fields.size(); ++k) {
    const double value = std::fabs(BoxValue(txtElValue[k])) * fields[k].unitSize;
    row(fields[k].column) = value == 0 ? fields[k].least : value;
  }
}

void frmEnterElement::cmdElSelectOK_Click() try {
  if (selected > 0) {
    if (draft.ElAction == kInsert) {
      InsertRow();
    }
    StoreElement();
  }
  Unload();
} catch (...) {
  ReportFailure("cmdElSelectOK_Click", "frmEnterElement");
}

void frmEnterElement::cmdElSelectCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdElSelectCancel_Click", "frmEnterElement");
}

}  // namespace halvorne
