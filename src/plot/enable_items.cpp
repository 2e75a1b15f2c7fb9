#include "plot/enable_items.h"

#include "engine/design_model.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "plot/cursor.h"
#include "plot/measures.h"
#include "plot/plot_after_open.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

/// Blanks all measurements.
void ClearMeasurements() {
  measured.CFBWValid = false;
  DisplayCFBW();
  measured.PulseWidthValid = false;
  DisplayPulseWidth();
  measured.AttenValid = false;
  DisplayAtten();
}

}  // namespace

void EnableItems(bool open) try {
  MainWindow& window = mainWindow();
  plot.DesignOpen = open;
  if (open) {
    window.SetCaption("Halvorne: " + design.DataFileName);
    window.SetTitleBoxText(design.DesignTitle);
  } else {
    window.SetCaption("Halvorne: Untitled");
    window.SetTitleBoxText("");
    ClearMeasurements();
  }
  for (const Item item :
       {Item::kFileSaveAs, Item::kFileClose, Item::kFilePrintPreview, Item::kFilePrintReport,
        Item::kEditMenu, Item::kInputMenu, Item::kViewMenu}) {
    window.SetEnabled(item, open);
  }
  UpdateFaceDispersionView();
  UpdateBackDispersionView();
  for (const Item item :
       {Item::kOptionsMenu, Item::kToolSave, Item::kToolViewInputs, Item::kToolCopyGraph,
        Item::kToolCopyData, Item::kToolPrintPreview, Item::kToolPrintReport, Item::kTitleBox}) {
    window.SetEnabled(item, open);
  }
  window.SetTitleBoxFontSize(8 + 2 * setup.DisplayFontSize);
  window.SetEnabled(Item::kPlotType, open);
  if (!open) {
    window.ClearPlotTypes();
    window.SetTitleBoxText("");
  }
  window.SetEnabled(Item::kCursor, open);
  if (measured.CursorOn) {
    Cursor1_Click();
  }
  window.SetEnabled(Item::kFindMax, open);
  window.SetEnabled(Item::kFindMin, open);
} catch (...) {
  ReportFailure("EnableItems", "frmHalvorneMain");
}

}  // namespace halvorne
