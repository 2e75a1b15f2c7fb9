#include "materials/browser_opening.h"

#include "dialogs/material_browsers.h"
#include "materials/frm_acoustic_db.h"
#include "materials/frm_piezo_db.h"

namespace halvorne {

void OfferMaterialBrowsers() {
  materialBrowsers().ShowPiezoDB = [](QWidget* owner) { frmPiezoDB(owner).exec(); };
  materialBrowsers().ShowAcousticDB = [](QWidget* owner) { frmAcousticDB(owner).exec(); };
}

}  // namespace halvorne
