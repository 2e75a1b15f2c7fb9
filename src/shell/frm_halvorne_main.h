#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "platform/main_window.h"
#include "platform/qt/file_dialogs.h"
#include "platform/qt/help_viewer.h"
#include "platform/qt/picture_box.h"
#include "shell/cursor_bar.h"
#include "shell/graph_menu.h"
#include "shell/graph_pointer.h"
#include "shell/measurement_grid.h"
#include "shell/menu_table.h"
#include "shell/stack_box.h"

namespace halvorne {

/// The application window: one plot, its measurements and cursor, and all commands.
///
/// It is thin: what a command does stands in the lower rooms, which speak to the window through
/// MainWindow. Its event procedures carry the names of their controls; each reports its own
/// failures, so that none reaches the event loop.
class frmHalvorneMain final : public QMainWindow, public MainWindow {
 public:
  frmHalvorneMain();
  ~frmHalvorneMain() override;
  frmHalvorneMain(const frmHalvorneMain&) = delete;
  frmHalvorneMain& operator=(const frmHalvorneMain&) = delete;

  // Start and stop.
  void Form_Load();
  void Form_Resize();
  /// @param unloadMode  0 closed by the user, 1 by the program, 2 the system ends, 3 task manager
  void Form_QueryUnload(int unloadMode);

  // Document commands.
  void FileNew();
  void FileOpen();
  void FileSaveAs();
  void FileClose();
  void mnuFileArray_Click(int index);
  /// Opens a design as the Open command does once its file is chosen.
  void OpenDesign(const std::string& fileName);

  // MainWindow.
  void SetMousePointer(int pointer) override;
  std::string Caption() const override { return caption_; }
  void SetCaption(const std::string& caption) override;
  void SetEnabled(Item item, bool enabled) override;
  void EnableItems(bool open) override;
  void UpdateMenu() override;
  void RefreshWindow() override;
  bool KeepsSession() const override { return true; }
  void SetTitleBoxText(const std::string& text) override;
  void SetTitleBoxFontSize(int size) override;
  void ClearPlotTypes() override;
  void AddPlotType(const std::string& text) override;
  int PlotTypeCount() const override { return PlotType->count(); }
  std::string PlotTypeText(int index) const override;
  int PlotTypeIndex() const override { return PlotType->currentIndex(); }
  void SetPlotTypeIndex(int index) override;
  Surface& Picture1() override { return Picture->Picture(); }
  void DescribeGraph(const std::string& description) override;
  void SetGridCell(Grid grid, int row, int column, const std::string& text) override;
  void SetPeakLabel(const std::string& caption) override;
  void ShowPeakLabel(bool visible) override;
  void SetAttenuationLabels(const std::array<std::string, 4>& captions) override;
  void ShowAttenuationLabels(bool visible) override;
  std::int32_t CursorMin() const override { return HScroll1->minimum(); }
  std::int32_t CursorMax() const override { return HScroll1->maximum(); }
  std::int32_t CursorValue() const override { return HScroll1->value(); }
  void SetCursorMin(std::int32_t value) override;
  void SetCursorMax(std::int32_t value) override;
  void SetCursorValue(std::int32_t value) override;
  void FocusCursorBar() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  using Procedure = std::function<void()>;

  // Layout.
  void MakeMenus();
  void MakeGraphMenu();
  void AddReadOffEntries();
  void AddScaleEntries();
  QAction* MakeMenuItem(const MenuRow& row);
  void MakeToolbar();
  void MakeGraphControls();
  void MakeMeasurements();
  void MakeStack();
  void ConnectControls();
  /// Keeps the window from becoming smaller than half the screen or than its contents.
  void LimitSize();
  void PlaceControls(const QRect& picture, int scrollTop, int titleTop);
  /// Shows the stack below the measurements while a design is open and there is room for it.
  void PlaceStack();
  /// Lays the window out for the size that it has, and draws the plot anew.
  void TakeSize();
  int CursorButtonWidth() const;

  /// Gives a control its name and makes it known to SetEnabled.
  template <class Control>
  Control* Named(Control* control, const QString& name);
  /// What a command of the menus does; empty for a menu, a separator and what has no window yet.
  Procedure ProcedureOf(const MenuRow& row);

  // Commands.
  void View_Click(const MenuRow& row);
  void mnuFileItem_Click(int index);
  void mnuEditCopyGraph_Click();
  void mnuEditCopyGraphData_Click();
  void mnuEditCopyInputs_Click();
  void mnuEditCopyStats_Click();
  void mnuEditSaveGraphData_Click();
  void mnuInputPiezo_Click();
  void mnuInputSz_Click();
  void mnuInputFP_Click();
  void mnuInputBP_Click();
  void mnuInputLoad_Click();
  void mnuInputElTerm_Click();
  void mnuInputElNet_Click();
  void mnuInputFreqPts_Click();
  void mnuInputTimePts_Click();
  void mnuInputView_Click() { ViewInputs("mnuInputView_Click"); }
  void mnuOptionsItem_Click(int index);
  void mnuHelpItem_Click(int index);
  void ViewInputs(const char* procedure);
  void PreviewReport(const char* procedure);
  void PrintReport(const char* procedure);
  void mnuGraphGrid_Click();
  void mnuGraphBand_Click();
  void mnuGraphGoTo_Click();
  void Picture1_DblClick();
  void Picture2_Click();
  void picStack_DblClick(const StackPart& part);
  void fraAtten_DblClick(const std::string& control);
  void txtEdit_LostFocus();
  /// Takes a title that is being typed: a key or a tool button starts a command with the focus
  /// still in its box.
  void LeaveTitleBox();

  void DoUnLoadPreCheck(int unloadMode);
  void EndProgram();
  void PrepareFileDialog(const char* title);
  void mnuGraphTune_Click();
  /// Puts the design back that numbers are being tried on. Precedes what opens a dialog or another
  /// design.
  static void EndTuning();
  /// Opens the graph's menu where the keyboard asks for it: in the middle of the graph.
  void OpenGraphMenu();

  QHash<QString, QObject*> controls_;  ///< everything that lower rooms enable, by objectName
  std::string caption_;
  std::vector<std::string> fileArray_{"-"};  ///< captions of mnuFileArray
  bool resizing_ = false;
  bool sizeWaits_ = false;  ///< a size from the mouse is still to be taken
  bool screenWatched_ = false;

  HelpKey helpKey_;
  CommonDialog CMDialog1{"CMDialog1"};
  QWidget* Picture2 = nullptr;
  std::vector<QWidget*> toolbar_;
  PictureBox* Picture = nullptr;
  GraphPointer* pointer_ = nullptr;
  GraphMenu* mnuGraph = nullptr;
  QLabel* LblPlotType = nullptr;
  QComboBox* PlotType = nullptr;
  QPushButton *Cursor1 = nullptr, *FindMax = nullptr, *FindMin = nullptr;
  CursorBar* HScroll1 = nullptr;
  QLineEdit* txtEdit = nullptr;
  QWidget* measurements_ = nullptr;
  QGroupBox *fraCFBW = nullptr, *fraPulseWidth = nullptr, *fraAtten = nullptr;
  MeasurementGrid *FlexgrdCFBW = nullptr, *FlexgrdPulseWidth = nullptr;
  QLabel* lblPkAmpl = nullptr;
  std::array<QLabel*, 4> attenuation_{};
  StackBox* picStack = nullptr;
};

}  // namespace halvorne
