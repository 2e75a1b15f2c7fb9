#pragma once

#include "materials/material_browser.h"

namespace halvorne {

/// "Acoustic Materials Database": the materials for the plates of frmFaceEntry.
class frmAcousticDB final : public MaterialBrowser {
 public:
  explicit frmAcousticDB(QWidget* parent = nullptr);

 private:
  void OK() override { cmdAcousticDBOK_Click(); }
  void Cancel() override { cmdAcousticDBCancel_Click(); }
  void cmdAcousticDBOK_Click();
  void cmdAcousticDBCancel_Click();
};

}  // namespace halvorne
