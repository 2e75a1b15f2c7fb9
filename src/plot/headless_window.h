#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/headless_surface.h"
#include "platform/main_window.h"

namespace halvorne {

/// The main window of programs that have none: it keeps what it is told and fires the same events.
class HeadlessWindow : public MainWindow {
 public:
  HeadlessWindow() : picture_(&ownPicture_) {}

  /// Draws on another surface than its own, which writes down.
  void SetPicture(Surface& picture) { picture_ = &picture; }
  void SetKeepsSession(bool keeps) { keepsSession_ = keeps; }

  HeadlessSurface& OwnPicture() { return ownPicture_; }
  bool IsEnabled(Item item) const;
  const std::string& GridCell(Grid grid, int row, int column) const;
  const std::string& GraphDescription() const { return graphDescription_; }
  const std::string& PeakLabel() const { return peakLabel_; }
  bool PeakLabelVisible() const { return peakLabelVisible_; }
  const std::array<std::string, 4>& AttenuationLabels() const { return attenuationLabels_; }
  bool AttenuationLabelsVisible() const { return attenuationLabelsVisible_; }
  const std::string& TitleBoxText() const { return titleBoxText_; }
  int TitleBoxFontSize() const { return titleBoxFontSize_; }
  int MousePointer() const { return mousePointer_; }
  /// Every pointer that was set, in order.
  const std::vector<int>& Pointers() const { return pointers_; }
  /// Files taken into the recent entries, in order.
  const std::vector<std::string>& RecentFiles() const { return recentFiles_; }

  void SetMousePointer(int pointer) override;
  std::string Caption() const override { return caption_; }
  void SetCaption(const std::string& caption) override { caption_ = caption; }
  void SetEnabled(Item item, bool enabled) override { enabled_[item] = enabled; }
  void EnableItems(bool open) override;
  void UpdateMenu() override;
  void RefreshWindow() override {}
  bool KeepsSession() const override { return keepsSession_; }
  void SetTitleBoxText(const std::string& text) override { titleBoxText_ = text; }
  void SetTitleBoxFontSize(int size) override { titleBoxFontSize_ = size; }
  void ClearPlotTypes() override;
  void AddPlotType(const std::string& text) override { plotTypes_.push_back(text); }
  int PlotTypeCount() const override { return static_cast<int>(plotTypes_.size()); }
  std::string PlotTypeText(int index) const override;
  int PlotTypeIndex() const override { return plotTypeIndex_; }
  void SetPlotTypeIndex(int index) override;
  Surface& Picture1() override { return *picture_; }
  void DescribeGraph(const std::string& description) override { graphDescription_ = description; }
  void SetGridCell(Grid grid, int row, int column, const std::string& text) override;
  void SetPeakLabel(const std::string& caption) override { peakLabel_ = caption; }
  void ShowPeakLabel(bool visible) override { peakLabelVisible_ = visible; }
  void SetAttenuationLabels(const std::array<std::string, 4>& captions) override {
    attenuationLabels_ = captions;
  }
  void ShowAttenuationLabels(bool visible) override { attenuationLabelsVisible_ = visible; }
  std::int32_t CursorMin() const override { return cursorMin_; }
  std::int32_t CursorMax() const override { return cursorMax_; }
  std::int32_t CursorValue() const override { return cursorValue_; }
  void SetCursorMin(std::int32_t value) override { cursorMin_ = value; }
  void SetCursorMax(std::int32_t value) override { cursorMax_ = value; }
  void SetCursorValue(std::int32_t value) override;
  void FocusCursorBar() override {}

 private:
  HeadlessSurface ownPicture_;
  Surface* picture_;
  bool keepsSession_ = false;
  std::string caption_;
  std::map<Item, bool> enabled_;
  std::string titleBoxText_;
  int titleBoxFontSize_ = 8;
  int mousePointer_ = kNormalPointer;
  std::vector<int> pointers_;
  std::vector<std::string> recentFiles_;
  std::vector<std::string> plotTypes_;
  int plotTypeIndex_ = -1;
  std::array<std::array<std::string, 4>, 6> cfbwCells_;
  std::array<std::array<std::string, 2>, 5> pulseWidthCells_;
  std::string graphDescription_;
  std::string peakLabel_;
  bool peakLabelVisible_ = true;
  std::array<std::string, 4> attenuationLabels_;
  bool attenuationLabelsVisible_ = true;
  std::int32_t cursorMin_ = 0;
  std::int32_t cursorMax_ = 0;
  std::int32_t cursorValue_ = 0;
};

}  // namespace halvorne
