#pragma once

#include <QPushButton>
#include <QRadioButton>
#include <cstdint>

#include "engine/element_fields.h"
#include "platform/qt/modal_dialog.h"

class QGroupBox;
class QLabel;

namespace halvorne {

/// "Enter Element": chooses the element and values of row draft.ElRow of the draft's network, which
/// it inserts or changes as draft.ElAction says.
class frmEnterElement final : public ModalDialog {
 public:
  explicit frmEnterElement(QWidget* parent = nullptr);

 private:
  static constexpr int kRows = 4;

  QGroupBox* MakeChooser();
  QGroupBox* MakeValues();

  void Form_Load();
  void optElSelect_Click(int code);
  void cmdElSelectOK_Click();
  void cmdElSelectCancel_Click();

  /// Makes room in the row for an element that is inserted.
  static void InsertRow();
  void StoreElement() const;

  std::int16_t selected = 0;  ///< code, 0 none
  QRadioButton* optElSelect[kLastElementCode + 1];
  QLabel *lblElValue[kRows], *lblElUnit[kRows];
  QLineEdit* txtElValue[kRows];
  QPushButton *cmdElSelectOK, *cmdElSelectCancel;
};

}  // namespace halvorne
