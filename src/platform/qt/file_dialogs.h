#pragma once

#include <string>

class QWidget;

namespace halvorne {

/// Flag of CommonDialog: saving asks before it overwrites.
inline constexpr int kOverwritePrompt = 2;
/// Values of HelpCommand.
inline constexpr int kHelpContents = 3;
inline constexpr int kHelpSearch = 261;

/// The file dialogs and the door to the help, with the properties that their callers set. What was
/// set stays set for the next time.
class CommonDialog {
 public:
  /// @param name  objectName of the dialogs it shows
  explicit CommonDialog(std::string name) : name_(std::move(name)) {}

  const std::string& Name() const { return name_; }

  std::string InitDir;  ///< folder that the dialog shows
  std::string Filter;   ///< "text|pattern|text|pattern"
  int FilterIndex = 1;  ///< chosen pair of it, from 1
  int Flags = 0;        ///< kOverwritePrompt or 0
  std::string DialogTitle;
  std::string FileName;      ///< before: the name offered; after: the one chosen
  bool CancelError = false;  ///< Cancel raises 32755 instead of emptying FileName

  std::string HelpFile;
  int HelpCommand = 0;
  std::string HelpKey;  ///< words to search for

  void ShowOpen(QWidget* owner);
  void ShowSave(QWidget* owner);
  /// Opens the help beside the program.
  void ShowHelp() const;

 private:
  void Show(QWidget* owner, bool save);

  std::string name_;
};

}  // namespace halvorne
