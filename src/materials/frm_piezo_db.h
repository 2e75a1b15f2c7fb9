#pragma once

#include "materials/material_browser.h"

namespace halvorne {

/// "Piezoelectric Material Database": the materials for the layers of frmPiezoEntry.
class frmPiezoDB final : public MaterialBrowser {
 public:
  explicit frmPiezoDB(QWidget* parent = nullptr);

 private:
  void OK() override { cmdPiezoDBOK_Click(); }
  void Cancel() override { cmdPiezoDBCancel_Click(); }
  void WillMove(int row) override { Data1_WillMove(row); }
  void Data1_WillMove(int row);
  void cmdPiezoDBOK_Click();
  void cmdPiezoDBCancel_Click();
};

}  // namespace halvorne
