#include <QLayout>
#include <algorithm>

#include "dialogs/enter_layers.h"
#include "dialogs/frm_acoust_load.h"
#include "dialogs/frm_el_net_entry.h"
#include "dialogs/frm_elec_term_entry.h"
#include "engine/design_model.h"
#include "platform/failure.h"
#include "plot/plot_state.h"
#include "shell/frm_halvorne_main.h"

// The picture of the stack: where it stands, and the dialogs that its parts open.

namespace halvorne {

void frmHalvorneMain::MakeStack() {
  // In the column of the measurements, but no part of its layout: it takes what that leaves.
  picStack =
      new StackBox(measurements_, [this](const StackPart& part) { picStack_DblClick(part); });
  picStack->setObjectName(QStringLiteral("picStack"));
  picStack->hide();
}

void frmHalvorneMain::PlaceStack() {
  constexpr int gap = 6;
  constexpr int highest = 420;  // beyond it the slabs only become lumps
  measurements_->layout()->activate();
  const int top = fraAtten->geometry().bottom() + 1 + gap;
  const QRect place(0, top, measurements_->width(),
                    std::min(measurements_->height() - top, highest));
  const bool fits = place.width() >= kSmallestStackWidth && place.height() >= kSmallestStackHeight;
  if (fits && plot.DesignOpen) {
    picStack->setGeometry(place);
    picStack->show();
  } else {
    picStack->hide();
  }
}

void frmHalvorneMain::picStack_DblClick(const StackPart& part) try {
  LeaveTitleBox();
  EndTuning();
  switch (part.kind) {
    case StackKind::kPiezo:
      EnterPiezoLayers(this, part.number);
      break;
    case StackKind::kFacePlate:
      EnterPlates("Face", this, part.number);
      break;
    case StackKind::kBackPlate:
      EnterPlates("Back", this, part.number);
      break;
    case StackKind::kRearLoad:
    case StackKind::kFrontLoad: {
      frmAcoustLoad dialog(this);
      if (part.kind == StackKind::kFrontLoad) {
        dialog.ShowFront();
      }
      dialog.exec();
      break;
    }
    case StackKind::kElement: {
      draft.TmpElNet = design.ElNet;
      frmElNetEntry dialog(this);
      dialog.ShowRow(part.number);
      dialog.exec();
      break;
    }
    case StackKind::kPort:
      frmElecTermEntry(this).exec();
      break;
  }
} catch (...) {
  ReportFailure("picStack_DblClick", "frmHalvorneMain");
}

}  // namespace halvorne
