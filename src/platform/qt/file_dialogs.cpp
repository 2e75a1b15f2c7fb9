#include "platform/qt/file_dialogs.h"

#include <QChildEvent>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QStringList>

#include "platform/failure.h"
#include "platform/qt/help_viewer.h"
#include "platform/qt/text.h"

namespace halvorne {
namespace {

QString FromPath(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
}

/// The texts of "text|pattern|text|pattern", which hold their patterns in parentheses.
QStringList NameFilters(const std::string& filter) {
  QStringList texts;
  const QStringList parts = ToQString(filter).split(u'|');
  for (qsizetype i = 0; i < parts.size(); i += 2) {
    texts.append(parts[i]);
  }
  return texts;
}

/// The toolkit's dialog, whose own questions carry the name of all message boxes.
class FileDialog final : public QFileDialog {
 public:
  using QFileDialog::QFileDialog;

 protected:
  void childEvent(QChildEvent* event) override {
    if (event->polished() && qobject_cast<QMessageBox*>(event->child()) != nullptr) {
      event->child()->setObjectName(QStringLiteral("MsgBox"));
    }
    QFileDialog::childEvent(event);
  }
};

/// Lets "*.*" show names without a point as well.
void ShowAllFiles(QFileDialog& dialog, const QString& filter) {
  auto* const model = dialog.findChild<QFileSystemModel*>();  // none in a desktop's own dialog
  if (model != nullptr && filter.contains(QStringLiteral("(*.*)"))) {
    model->setNameFilters({});
  }
}

/// Makes the name in the box the one that is taken: an entry of the list that stayed selected
/// beside another name would win over it.
void TakeTheNameInTheBox(QFileDialog& dialog) {
  auto* const box = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  auto* const list = dialog.findChild<QListView*>(QStringLiteral("listView"));
  if (box == nullptr || list == nullptr) {
    return;  // a desktop's own dialog
  }
  QObject::connect(box, &QLineEdit::textChanged, &dialog, [box, list] {
    for (const QModelIndex& selected : list->selectionModel()->selectedRows()) {
      if (selected.data().toString() != box->text()) {
        list->selectionModel()->clearSelection();
        return;
      }
    }
  });
}

/// Offers a name. One of another folder stands there whole, so that the folder shown stays.
void OfferName(QFileDialog& dialog, const QString& name) {
  const QFileInfo file(name);
  auto* const box = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (box == nullptr) {
    dialog.selectFile(name);
    return;
  }
  const bool isHere = file.absolutePath() == dialog.directory().absolutePath();
  box->setText(isHere ? file.fileName() : name);
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
  FileDialog dialog(owner, ToQString(DialogTitle), FromPath(InitDir));
  dialog.setObjectName(ToQString(name_));
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);  // a name without a file is the reader's to tell
  dialog.setOption(QFileDialog::DontConfirmOverwrite, save && (Flags & kOverwritePrompt) == 0);
  const QStringList filters = NameFilters(Filter);
  dialog.setNameFilters(filters);
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                   [&dialog](const QString& filter) { ShowAllFiles(dialog, filter); });
  if (FilterIndex >= 1 && FilterIndex <= filters.size()) {
    dialog.selectNameFilter(filters[FilterIndex - 1]);
    ShowAllFiles(dialog, filters[FilterIndex - 1]);
  }
  TakeTheNameInTheBox(dialog);
  OfferName(dialog, FromPath(FileName));
  if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
    FileName = QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
  } else if (CancelError) {
    throw Failure(failure_number::kCancelled);
  } else {
    FileName.clear();
  }
}

}  // namespace halvorne
