#include <QAction>
#include <QApplication>
#include <QMenu>

#include "platform/failure.h"
#include "platform/qt/text.h"
#include "plot/enable_items.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "shell/frm_halvorne_main.h"

namespace halvorne {
namespace {

struct ItemControls {
  Item item;
  const char* control;
  const char* second = nullptr;
};

constexpr std::array kItems = std::to_array<ItemControls>({
    {Item::kFileSaveAs, "mnuFileItem(2)"},
    {Item::kFileClose, "mnuFileItem(3)"},
    {Item::kFilePrintPreview, "mnuFileItem(5)"},
    {Item::kFilePrintReport, "mnuFileItem(6)"},
    {Item::kEditMenu, "mnuEdit"},
    {Item::kInputMenu, "mnuInput"},
    {Item::kViewMenu, "mnuView"},
    {Item::kOptionsMenu, "mnuOptions"},
    {Item::kViewDispFP, "mnuViewDispFP"},
    {Item::kViewDispBP, "mnuViewDispBP"},
    {Item::kViewTxExcite, "mnuViewTxExcite"},
    {Item::kViewRxExcite, "mnuViewRxExcite"},
    {Item::kView2WayExcite, "mnuView2WayItem(3)"},
    {Item::kToolSave, "cmdFileSave"},
    {Item::kToolViewInputs, "cmdViewInputs"},
    {Item::kToolCopyGraph, "cmdCopyToClipboard"},
    {Item::kToolCopyData, "cmdCopyDataToClipboard"},
    {Item::kToolPrintPreview, "cmdPrintPreview"},
    {Item::kToolPrintReport, "cmdPrintReport"},
    {Item::kTitleBox, "txtEdit"},
    {Item::kPlotType, "LblPlotType", "PlotType"},
    {Item::kCursor, "Cursor1"},
    {Item::kFindMax, "FindMax"},
    {Item::kFindMin, "FindMin"},
    {Item::kCursorBar, "HScroll1"},
    {Item::kCFBWGrid, "fraCFBW", "FlexgrdCFBW"},
    {Item::kPulseWidthGrid, "fraPulseWidth", "FlexgrdPulseWidth"},
    {Item::kAttenuation, "fraAtten"},
});

constexpr bool EachItemAtItsPlace() {
  for (std::size_t i = 0; i < kItems.size(); ++i) {
    if (static_cast<std::size_t>(kItems[i].item) != i) {
      return false;
    }
  }
  return true;
}
static_assert(EachItemAtItsPlace());

void SetControlEnabled(QObject* control, bool enabled) {
  if (auto* const action = qobject_cast<QAction*>(control)) {
    action->setEnabled(enabled);
  } else if (auto* const widget = qobject_cast<QWidget*>(control)) {
    widget->setEnabled(enabled);  // of a menu also its entry in the bar
  }
}

}  // namespace

void frmHalvorneMain::SetEnabled(Item item, bool enabled) {
  const ItemControls& row = kItems.at(static_cast<std::size_t>(item));
  for (const char* name : {row.control, row.second}) {
    if (name != nullptr) {
      SetControlEnabled(controls_.value(QLatin1String(name)), enabled);
    }
  }
}

/// A dialog that is open shows the pointer too: the calculation of its OK runs before it closes.
void frmHalvorneMain::SetMousePointer(int pointer) {
  for (QWidget* window : {static_cast<QWidget*>(this), QApplication::activeModalWidget()}) {
    if (window == nullptr) {
      continue;
    }
    if (pointer == kBusyPointer) {
      window->setCursor(Qt::WaitCursor);
    } else {
      window->unsetCursor();
    }
  }
}

void frmHalvorneMain::SetCaption(const std::string& caption) {
  caption_ = caption;
  setWindowTitle(ToQString(caption));
}

void frmHalvorneMain::EnableItems(bool open) {
  pointer_->Drop();
  halvorne::EnableItems(open);
  PlaceStack();
  picStack->Follow();
}

void frmHalvorneMain::RefreshWindow() {
  update();
  FlexgrdCFBW->viewport()->update();
  FlexgrdPulseWidth->viewport()->update();
}

void frmHalvorneMain::SetTitleBoxText(const std::string& text) {
  txtEdit->setText(ToQString(text));
  txtEdit->setCursorPosition(0);
}

void frmHalvorneMain::SetTitleBoxFontSize(int size) {
  QFont sized = txtEdit->font();
  sized.setPointSize(size);
  txtEdit->setFont(sized);
  txtEdit->resize(txtEdit->width(), txtEdit->sizeHint().height());
}

void frmHalvorneMain::ClearPlotTypes() {
  PlotType->clear();
}

void frmHalvorneMain::AddPlotType(const std::string& text) {
  PlotType->addItem(ToQString(text));
}

std::string frmHalvorneMain::PlotTypeText(int index) const {
  if (index < 0 || index >= PlotType->count()) {
    throw Failure(failure_number::kInvalidCall);
  }
  return FromQString(PlotType->itemText(index));
}

void frmHalvorneMain::SetPlotTypeIndex(int index) {
  if (index < 0 || index >= PlotType->count()) {
    throw Failure(failure_number::kInvalidCall);
  }
  if (index != PlotType->currentIndex()) {
    PlotType->setCurrentIndex(index);
    PlotType_Click();
  }
}

void frmHalvorneMain::SetGridCell(Grid grid, int row, int column, const std::string& text) {
  (grid == Grid::kCFBW ? FlexgrdCFBW : FlexgrdPulseWidth)->SetText(row, column, ToQString(text));
}

void frmHalvorneMain::DescribeGraph(const std::string& description) {
  Picture->setAccessibleDescription(ToQString(description));
  // Who moves the cursor has the focus on its bar.
  HScroll1->setAccessibleDescription(ToQString(measured.ReadOut));
  picStack->Follow();
}

void frmHalvorneMain::SetPeakLabel(const std::string& caption) {
  lblPkAmpl->setText(ToQString(caption).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

void frmHalvorneMain::ShowPeakLabel(bool visible) {
  lblPkAmpl->setVisible(visible);
}

void frmHalvorneMain::SetAttenuationLabels(const std::array<std::string, 4>& captions) {
  for (std::size_t i = 0; i < captions.size(); ++i) {
    attenuation_[i]->setText(ToQString(captions[i]));
  }
}

void frmHalvorneMain::ShowAttenuationLabels(bool visible) {
  for (QLabel* label : attenuation_) {
    label->setVisible(visible);
  }
}

void frmHalvorneMain::SetCursorMin(std::int32_t value) {
  HScroll1->setMinimum(value);
}

void frmHalvorneMain::SetCursorMax(std::int32_t value) {
  HScroll1->setMaximum(value);
  HScroll1->setPageStep(std::max(1, (HScroll1->maximum() - HScroll1->minimum()) / 20));
}

void frmHalvorneMain::SetCursorValue(std::int32_t value) {
  HScroll1->setValue(value);
}

void frmHalvorneMain::FocusCursorBar() {
  HScroll1->setFocus();
}

}  // namespace halvorne
