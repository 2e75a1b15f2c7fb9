#pragma once

#include <QLabel>
#include <QPushButton>

#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "About Halvorne": name, version and platform of the program.
class frmAbout final : public ModalDialog {
 public:
  explicit frmAbout(QWidget* parent = nullptr);

 private:
  void Form_Load();
  void cmdAbout_Click();

  QLabel *Label1, *Label2, *Label3;
  QPushButton* cmdAbout;
};

/// The words of the version label: "Version 4.01 for" for version 4.1.
QString VersionCaption(int major, int minor);

}  // namespace halvorne
