#include "platform/qt/file_dialog.h"

#include <QAbstractItemView>
#include <QChildEvent>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QMessageBox>
#include <filesystem>
#include <system_error>

#include "platform/qt/file_names.h"
#include "platform/qt/text.h"

namespace halvorne {

FileDialog::FileDialog(QWidget* owner, const QString& title, const QString& folder)
    : QFileDialog(owner, title, folder) {
  setOption(DontUseNativeDialog);
  box_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  // The toolkit leaves the box as it is while that has the focus.
  for (const char* view : {"listView", "treeView"}) {
    connect(findChild<QAbstractItemView*>(QLatin1String(view)), &QAbstractItemView::pressed, this,
            &FileDialog::TakeEntry);
  }
  AddOtherNames();
}

void FileDialog::TakeEntry(const QModelIndex& entry) {
  const QString name = entry.siblingAtColumn(0).data().toString();
  if (!QFileInfo(Folder() + name).isDir()) {
    box_->setText(name);
  }
}

void FileDialog::AddOtherNames() {
  lblOtherNames_ = new QLabel(QStringLiteral("Other na&mes:"), this);
  lblOtherNames_->setObjectName(QStringLiteral("lblOtherNames"));
  cboOtherNames_ = new QComboBox(this);
  cboOtherNames_->setObjectName(QStringLiteral("cboOtherNames"));
  cboOtherNames_->setToolTip(
      QStringLiteral("Files whose names are written in another character "
                     "set than UTF-8"));
  lblOtherNames_->setBuddy(cboOtherNames_);
  auto* const grid = static_cast<QGridLayout*>(layout());
  const int row = grid->rowCount();
  grid->addWidget(lblOtherNames_, row, 0);
  grid->addWidget(cboOtherNames_, row, 1);
  setTabOrder(findChild<QComboBox*>(QStringLiteral("fileTypeCombo")), cboOtherNames_);
  connect(cboOtherNames_, &QComboBox::activated, this, &FileDialog::TakeOtherName);
  connect(this, &QFileDialog::directoryEntered, this, &FileDialog::ListOtherNames);
  ListOtherNames();
}

void FileDialog::ListOtherNames() {
  cboOtherNames_->clear();
  for (const std::string& name : OtherNames(FromQString(Folder()))) {
    cboOtherNames_->addItem(ToQString(name), QByteArray::fromStdString(name));
  }
  cboOtherNames_->setCurrentIndex(-1);  // so that the first one can be chosen
  cboOtherNames_->setPlaceholderText(
      QStringLiteral("%1 in another character set").arg(cboOtherNames_->count()));
  lblOtherNames_->setVisible(cboOtherNames_->count() > 0);
  cboOtherNames_->setVisible(cboOtherNames_->count() > 0);
}

void FileDialog::TakeOtherName(int index) {
  box_->setText(cboOtherNames_->itemText(index));
  known_ = FromQString(Folder()) + cboOtherNames_->itemData(index).toByteArray().toStdString();
}

void FileDialog::OfferName(const std::string& name) {
  const QString path = ToQString(name);
  const bool isHere = path.startsWith(Folder()) && !path.mid(Folder().size()).contains(u'/');
  box_->setText(isHere ? path.mid(Folder().size()) : path);
  known_ = name;
}

/// The folder on show, with the slash behind it.
QString FileDialog::Folder() const {
  const QString folder = directory().absolutePath();
  return folder.endsWith(u'/') ? folder : folder + u'/';
}

QString FileDialog::PathInTheBox() const {
  const QString typed = box_->text();
  if (typed == u'~' || typed.startsWith(QStringLiteral("~/"))) {
    return QDir::homePath() + typed.mid(1);
  }
  return typed.startsWith(u'/') ? typed : Folder() + typed;
}

std::string FileDialog::BytesOf(const QString& path) const {
  return ToQString(known_) == path ? known_ : PathBytes(path);
}

void FileDialog::ShowAllFiles(const QString& filter) {
  auto* const model = findChild<QFileSystemModel*>();
  if (filter.contains(QStringLiteral("(*.*)"))) {
    model->setNameFilters({});
  }
}

void FileDialog::accept() {
  if (box_->text().isEmpty()) {
    return;
  }
  const QString path = PathInTheBox();
  if (QFileInfo(path).isDir()) {
    setDirectory(QDir::cleanPath(path));
    box_->clear();
    ListOtherNames();
    return;
  }
  const std::string name = BytesOf(path);
  if (MayReplace(name)) {
    chosen_ = name;
    done(Accepted);
  }
}

bool FileDialog::MayReplace(const std::string& name) {
  std::error_code none;
  if (acceptMode() == AcceptOpen || testOption(DontConfirmOverwrite) ||
      !std::filesystem::exists(name, none)) {
    return true;
  }
  const QString file = ToQString(name);
  return QMessageBox::warning(this, windowTitle(),
                              tr("%1 already exists.\nDo you want to replace it?")
                                  .arg(file.mid(file.lastIndexOf(u'/') + 1)),
                              QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) == QMessageBox::Yes;
}

void FileDialog::childEvent(QChildEvent* event) {
  if (event->polished() && qobject_cast<QMessageBox*>(event->child()) != nullptr) {
    event->child()->setObjectName(QStringLiteral("MsgBox"));
  }
  QFileDialog::childEvent(event);
}

}  // namespace halvorne
