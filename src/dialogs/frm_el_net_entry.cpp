#include "dialogs/frm_el_net_entry.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "dialogs/entry_layout.h"
#include "dialogs/frm_enter_element.h"
#include "engine/design_model.h"
#include "platform/messages.h"
#include "plot/plot_select.h"
#include "report/element_text.h"

namespace halvorne {
namespace {

constexpr int kInsert = 1;
constexpr int kChange = 2;

}  // namespace

frmElNetEntry::frmElNetEntry(QWidget* parent)
    : ModalDialog("frmElNetEntry", QStringLiteral("Electrical Matching Network"), parent) {
  auto* const outer = new QVBoxLayout(this);
  auto* const row = new QHBoxLayout;
  lstElNet = Named(new QListWidget, "lstElNet");
  lstElNet->setAccessibleName(windowTitle());
  constexpr int characters = 66;  // of the longest usual line
  constexpr int lines = 12;
  lstElNet->setMinimumSize(fontMetrics().averageCharWidth() * characters,
                           fontMetrics().height() * lines);
  lstElNet->installEventFilter(this);
  row->addWidget(lstElNet, 1);
  auto* const column = new QVBoxLayout;
  cmdInsert = Named(new QPushButton(QStringLiteral("Insert Element")), "cmdInsert");
  cmdChangeValue = Named(new QPushButton(QStringLiteral("Change Value")), "cmdChangeValue");
  cmdDelete = Named(new QPushButton(QStringLiteral("Delete Element")), "cmdDelete");
  cmdDeleteAll = Named(new QPushButton(QStringLiteral("Delete All")), "cmdDeleteAll");
  for (QPushButton* button : {cmdInsert, cmdChangeValue, cmdDelete, cmdDeleteAll}) {
    column->addWidget(button);
  }
  column->addStretch();
  row->addLayout(column);
  outer->addLayout(row);
  cmdElnetOK = Named(new QPushButton(QStringLiteral("OK")), "cmdElnetOK");
  cmdElnetCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdElnetCancel");
  outer->addLayout(ClosingRow(cmdElnetOK, cmdElnetCancel));

  connect(lstElNet, &QListWidget::itemSelectionChanged, this, &frmElNetEntry::lstElNet_Click);
  connect(lstElNet, &QListWidget::itemDoubleClicked, this,
          [this] { (cmdChangeValue->isEnabled() ? cmdChangeValue : cmdInsert)->click(); });
  OnClick(cmdInsert, &frmElNetEntry::cmdInsert_Click);
  OnClick(cmdChangeValue, &frmElNetEntry::cmdChangeValue_Click);
  OnClick(cmdDelete, &frmElNetEntry::cmdDelete_Click);
  OnClick(cmdDeleteAll, &frmElNetEntry::cmdDeleteAll_Click);
  OnClick(cmdElnetOK, &frmElNetEntry::cmdElnetOK_Click);
  OnClick(cmdElnetCancel, &frmElNetEntry::cmdElnetCancel_Click);
  SetCancelButton(cmdElnetCancel);
  Form_Load();
  lstElNet->setFocus();
}

void frmElNetEntry::Form_Load() try {
  Centre();
  PrintElNet();
  DisableButtons();
} catch (...) {
  ReportFailure("Form_Load", "frmElNetEntry");
}

void frmElNetEntry::ShowRow(int row) {
  lstElNet->setCurrentRow(std::clamp(row, 1, lstElNet->count()) - 1);
}

int frmElNetEntry::ListIndex() const {
  const QList<QListWidgetItem*> selected = lstElNet->selectedItems();
  return selected.isEmpty() ? -1 : lstElNet->row(selected.constFirst());
}

void frmElNetEntry::PrintElNet() try {
  lstElNet->clear();
  for (int row = 1; row <= kNetworkRows && draft.TmpElNet(row, 1) != 0; ++row) {
    lstElNet->addItem(ToQString(GetElNetString(draft.TmpElNet, row)));
  }
  // One line more than there are elements: the place to insert behind the last one.
  lstElNet->addItem(lstElNet->count() == 0 ? QStringLiteral("No matching network")
                                           : QStringLiteral(" "));
} catch (...) {
  ReportFailure("PrintElNet", "frmElNetEntry");
}

void frmElNetEntry::DisableButtons() try {
  for (QPushButton* button : {cmdInsert, cmdChangeValue, cmdDelete}) {
    button->setEnabled(ListIndex() != -1);
  }
} catch (...) {
  ReportFailure("DisableButtons", "frmElNetEntry");
}

void frmElNetEntry::lstElNet_Click() try {
  const int index = ListIndex();
  const bool onElement = index != -1 && index < lstElNet->count() - 1;
  cmdInsert->setEnabled(index != -1);
  cmdChangeValue->setEnabled(onElement);
  cmdDelete->setEnabled(onElement);
} catch (...) {
  ReportFailure("lstElNet_Click", "frmElNetEntry");
}

void frmElNetEntry::EnterElement(int action) {
  draft.ElAction = static_cast<std::int16_t>(action);
  draft.ElRow = static_cast<std::int16_t>(ListIndex() + 1);
  frmEnterElement(this).exec();
  PrintElNet();
  DisableButtons();
  lstElNet->setFocus();
}

void frmElNetEntry::cmdInsert_Click() try { EnterElement(kInsert); } catch (...) {
  ReportFailure("cmdInsert_Click", "frmElNetEntry");
}

void frmElNetEntry::cmdChangeValue_Click() try { EnterElement(kChange); } catch (...) {
  ReportFailure("cmdChangeValue_Click", "frmElNetEntry");
}

void frmElNetEntry::DeleteElNet() try {
  const int selected = ListIndex() + 1;
  for (int row = selected; row < kNetworkRows; ++row) {
    draft.TmpElNet.rows(row) = draft.TmpElNet.rows(row + 1);
  }
  // Kept: row 20 of a full network stays, a copy of the row above it, unless it was selected.
  if (selected == kNetworkRows) {
    draft.TmpElNet.rows(kNetworkRows) = {};
  }
} catch (...) {
  ReportFailure("DeleteElNet", "frmElNetEntry");
}

void frmElNetEntry::cmdDelete_Click() try {
  if (ListIndex() < 0) {
    QApplication::beep();
    return;
  }
  DeleteElNet();
  PrintElNet();
  DisableButtons();
  lstElNet->setFocus();
} catch (...) {
  ReportFailure("cmdDelete_Click", "frmElNetEntry");
}

void frmElNetEntry::cmdDeleteAll_Click() try {
  const MessageAnswer answer = messages().Show({.title = windowTitle().toStdString(),
                                                .text = "Delete all elements?",
                                                .icon = MessageIcon::kQuestion,
                                                .buttons = MessageButtons::kYesNo,
                                                .defaultAnswer = MessageAnswer::kNo});
  if (answer == MessageAnswer::kYes) {
    draft.TmpElNet = {};
  }
  PrintElNet();
  DisableButtons();
  lstElNet->setFocus();
} catch (...) {
  ReportFailure("cmdDeleteAll_Click", "frmElNetEntry");
}

void frmElNetEntry::cmdElnetOK_Click() try {
  design.ElNet = draft.TmpElNet;
  Recalc();
  Unload();
} catch (...) {
  ReportFailure("cmdElnetOK_Click", "frmElNetEntry");
}

void frmElNetEntry::cmdElnetCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdElnetCancel_Click", "frmElNetEntry");
}

bool frmElNetEntry::TakeListKey(int key) {
  switch (key) {
    case Qt::Key_Insert:
      cmdInsert->click();
      return true;
    case Qt::Key_Delete:
      if (ListIndex() < 0 || cmdDelete->isEnabled()) {
        cmdDelete_Click();
      }
      return true;
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_Home:
      if (ListIndex() < 0) {  // the first key selects a line, it does not lead on from one
        lstElNet->setCurrentRow(0);
        return true;
      }
      return false;
    default:
      return false;
  }
}

bool frmElNetEntry::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lstElNet && event->type() == QEvent::KeyPress &&
      TakeListKey(static_cast<QKeyEvent*>(event)->key())) {
    return true;
  }
  return ModalDialog::eventFilter(watched, event);
}

}  // namespace halvorne
