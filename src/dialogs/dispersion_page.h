#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <span>
#include <string>

#include "platform/qt/file_dialogs.h"

namespace halvorne {

/// The page "Dispersion" of both large dialogs: the file behind a layer's velocity dispersion.
///
/// Unlike everything else that these dialogs edit the tables are changed in place; what they were
/// is backed up when a dialog is loaded.
class DispersionPage {
 public:
  /// Makes the page, with `layers` (which may be null), the choice of the layer, at its top.
  void Make(QWidget* layers);

  QFrame* Frame() const { return FrameDispersion; }
  QPushButton* Button() const { return CmdLoadFile; }
  void SetLayerCaption(const std::string& caption);
  /// Shows name and comment of a slot; one without a comment as if it had no file.
  void ShowNames(int slot);
  /// Shows the file that a slot has just got, with or without a comment.
  void ShowFile(int slot);
  /// Shows that there is no file.
  void ShowEmpty();

  /// Lets the user choose a file; the empty name when none was chosen.
  std::string ChooseFile(QWidget* owner);

 private:
  CommonDialog CMDialog{"CMDialog"};
  QFrame* FrameDispersion = nullptr;
  QPushButton* CmdLoadFile = nullptr;
  QLabel *Label10 = nullptr, *LblFilename = nullptr, *LblComment = nullptr;
};

/// Copies tables and names of slots to the draft's backup.
void BackUpDispersion(std::span<const int> chainSlots);
/// Puts them back.
void RestoreDispersion(std::span<const int> chainSlots);

}  // namespace halvorne
