#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "platform/qt/file_dialogs.h"
#include "platform/qt/modal_dialog.h"
#include "report/windows/preview_picture.h"

namespace halvorne {

/// "Halvorne Report:  Print Preview": the report as it will be printed. Its size follows the
/// screen's; maximised, the page grows with it.
class frmHalvorneReport final : public ModalDialog {
 public:
  /// @param printDialog  the program's common dialog, which its print button uses
  explicit frmHalvorneReport(CommonDialog& printDialog, QWidget* parent = nullptr);

 protected:
  void Centre() override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QToolButton* PageButton(const char* name, Qt::ArrowType arrow, const char* tip);
  QSize SizeOnScreen() const;
  void PlaceControls();
  void ShowPageButtons();

  void Form_Load();
  void Form_Resize();
  void optDetails_Click(int index);
  void cmdPreviewPrint_Click();
  void cmdPreviewCancel_Click();

  CommonDialog& printDialog_;
  /// How often a window manager is still asked for the size of the normal state; one that insists
  /// on another has its way in the end.
  int asksLeft_ = 20;
  PreviewPicture* Picture1;
  QPushButton *cmdPreviewPrint, *cmdPreviewCancel;
  QGroupBox* fraDetails;
  QRadioButton* optDetails[2];
  QToolButton *cmdPreviewPrevious, *cmdPreviewNext;
  QLabel* lblPreviewPage;
};

}  // namespace halvorne
