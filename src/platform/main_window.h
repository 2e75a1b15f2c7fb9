#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/surface.h"

namespace halvorne {

/// Controls and commands of the main window that lower rooms enable and disable.
enum class Item {
  kFileSaveAs,
  kFileClose,
  kFilePrintPreview,
  kFilePrintReport,
  kEditMenu,
  kInputMenu,
  kViewMenu,
  kOptionsMenu,
  kViewDispFP,
  kViewDispBP,
  kViewTxExcite,
  kViewRxExcite,
  kView2WayExcite,
  kToolSave,
  kToolViewInputs,
  kToolCopyGraph,
  kToolCopyData,
  kToolPrintPreview,
  kToolPrintReport,
  kTitleBox,  ///< txtEdit
  kPlotType,  ///< LblPlotType and PlotType
  kCursor,    ///< Cursor1
  kFindMax,
  kFindMin,
  kCursorBar,       ///< HScroll1
  kCFBWGrid,        ///< fraCFBW and FlexgrdCFBW
  kPulseWidthGrid,  ///< fraPulseWidth and FlexgrdPulseWidth
  kAttenuation,     ///< fraAtten
};

/// The two measurement grids.
enum class Grid { kCFBW, kPulseWidth };

inline constexpr int kNormalPointer = 0;
inline constexpr int kBusyPointer = 11;

/// What lower rooms ask of the window above them.
///
/// Two implementations: the desktop program's window, and one without a window that batch, tests
/// and benchmarks use.
class MainWindow {
 public:
  virtual ~MainWindow() = default;

  virtual void SetMousePointer(int pointer) = 0;
  virtual std::string Caption() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;
  virtual void SetEnabled(Item item, bool enabled) = 0;
  /// Switches the whole window between no design and design open.
  virtual void EnableItems(bool open) = 0;
  /// Takes the current file into the recent entries.
  virtual void UpdateMenu() = 0;
  /// Redraws the window and its grids.
  virtual void RefreshWindow() = 0;
  /// False: settings are not kept from one start to the next, so nothing writes the setup file.
  virtual bool KeepsSession() const = 0;

  virtual void SetTitleBoxText(const std::string& text) = 0;
  virtual void SetTitleBoxFontSize(int points) = 0;

  // The list of data forms, PlotType. Setting the index fires its selection event,
  // PlotType_Click, only when the index changes; clearing leaves -1. An index that the list does
  // not hold raises 5.
  virtual void ClearPlotTypes() = 0;
  virtual void AddPlotType(const std::string& text) = 0;
  virtual int PlotTypeCount() const = 0;
  virtual std::string PlotTypeText(int index) const = 0;
  virtual int PlotTypeIndex() const = 0;
  virtual void SetPlotTypeIndex(int index) = 0;

  /// The graph, Picture1.
  virtual Surface& Picture1() = 0;
  /// Tells the graph in words, to those who can't see it.
  virtual void DescribeGraph(const std::string& description) = 0;

  virtual void SetGridCell(Grid grid, int row, int column, const std::string& text) = 0;
  /// lblPkAmpl. Its lines end in CR LF.
  virtual void SetPeakLabel(const std::string& caption) = 0;
  virtual void ShowPeakLabel(bool visible) = 0;
  /// lblAttenLength, lblAttenRate, lblAttenFreq, lblAttenExp.
  virtual void SetAttenuationLabels(const std::array<std::string, 4>& captions) = 0;
  virtual void ShowAttenuationLabels(bool visible) = 0;

  // The cursor's scroll bar, HScroll1. A change of its value fires HScroll1_Change.
  virtual std::int32_t CursorMin() const = 0;
  virtual std::int32_t CursorMax() const = 0;
  virtual std::int32_t CursorValue() const = 0;
  virtual void SetCursorMin(std::int32_t value) = 0;
  virtual void SetCursorMax(std::int32_t value) = 0;
  virtual void SetCursorValue(std::int32_t value) = 0;
  virtual void FocusCursorBar() = 0;
};

/// The window in force. Raises 5 when none was set.
MainWindow& mainWindow();

/// Puts `window` in force and returns what was in force before, null when none was.
MainWindow* SetMainWindow(MainWindow* window);

}  // namespace halvorne
