#pragma once

#include <QListWidget>
#include <QPushButton>

#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "Electrical Matching Network": the list of the draft's network, element by element from the
/// transducer to the source. OK commits it and recalculates.
class frmElNetEntry final : public ModalDialog {
 public:
  explicit frmElNetEntry(QWidget* parent = nullptr);

  /// Selects the element of a row, from 1; the line behind them where there is none.
  void ShowRow(int row);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Form_Load();
  void lstElNet_Click();
  void cmdInsert_Click();
  void cmdChangeValue_Click();
  void cmdDelete_Click();
  void cmdDeleteAll_Click();
  void cmdElnetOK_Click();
  void cmdElnetCancel_Click();

  /// Index of the selected line, -1 when none is.
  int ListIndex() const;
  void PrintElNet();
  void DisableButtons();
  void DeleteElNet();
  void EnterElement(int action);
  /// Keys of the list beside the toolkit's own; true when one was taken.
  bool TakeListKey(int key);

  QListWidget* lstElNet;
  QPushButton *cmdInsert, *cmdChangeValue, *cmdDelete, *cmdDeleteAll;
  QPushButton *cmdElnetOK, *cmdElnetCancel;
};

}  // namespace halvorne
