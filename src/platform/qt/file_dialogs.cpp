#include "platform/qt/file_dialogs.h"

#include <QStringList>

#include "platform/failure.h"
#include "platform/qt/file_dialog.h"
#include "platform/qt/help_viewer.h"
#include "platform/qt/text.h"

namespace halvorne {
namespace {

/// The texts of "text|pattern|text|pattern", which hold their patterns in parentheses.
QStringList NameFilters(const std::string& filter) {
  QStringList texts;
  const QStringList parts = ToQString(filter).split(u'|');
  for (qsizetype i = 0; i < parts.size(); i += 2) {
    texts.append(parts[i]);
  }
  return texts;
}

}  // namespace

void CommonDialog::ShowOpen(QWidget* owner) {
  Show(owner, false);
}

void CommonDialog::ShowSave(QWidget* owner) {
  Show(owner, true);
}

void CommonDialog::ShowHelp() const {
  ShowHelpWindow(HelpFile, HelpCommand == kHelpSearch, HelpKey);
}

void CommonDialog::Show(QWidget* owner, bool save) {
  FileDialog dialog(owner, ToQString(DialogTitle), ToQString(InitDir));
  dialog.setObjectName(ToQString(name_));
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);  // a name without a file is the reader's to tell
  dialog.setOption(QFileDialog::DontConfirmOverwrite, save && (Flags & kOverwritePrompt) == 0);
  const QStringList filters = NameFilters(Filter);
  dialog.setNameFilters(filters);
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                   [&dialog](const QString& filter) { dialog.ShowAllFiles(filter); });
  if (FilterIndex >= 1 && FilterIndex <= filters.size()) {
    dialog.selectNameFilter(filters[FilterIndex - 1]);
    dialog.ShowAllFiles(filters[FilterIndex - 1]);
  }
  dialog.OfferName(FileName);
  if (dialog.exec() == QDialog::Accepted) {
    FileName = dialog.Chosen();
  } else if (CancelError) {
    throw Failure(failure_number::kCancelled);
  } else {
    FileName.clear();
  }
}

}  // namespace halvorne
