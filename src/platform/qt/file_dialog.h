#pragma once

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <string>

namespace halvorne {

/// The toolkit's file dialog, in which the name in the box, as it stands there, is the one that is
/// taken: no quotes that part it into several, no entry of the list that stayed selected beside it.
/// Names of another character set than UTF-8 stand in a list of their own.
///
/// Never a desktop's own dialog, which would not know such names.
class FileDialog final : public QFileDialog {
 public:
  FileDialog(QWidget* owner, const QString& title, const QString& folder);

  /// Offers a name. One of another folder stands there whole, so that the folder shown stays.
  void OfferName(const std::string& name);
  /// Lets a filter of "*.*" show names without a point as well.
  void ShowAllFiles(const QString& filter);

  /// The accepted name: bytes of an absolute path.
  const std::string& Chosen() const { return chosen_; }

 protected:
  void accept() override;
  /// Names the toolkit's own questions as all message boxes are named.
  void childEvent(QChildEvent* event) override;

 private:
  void TakeEntry(const QModelIndex& entry);
  void AddOtherNames();
  void ListOtherNames();
  void TakeOtherName(int index);
  QString Folder() const;
  QString PathInTheBox() const;
  std::string BytesOf(const QString& path) const;
  bool MayReplace(const std::string& name);

  QLineEdit* box_;
  std::string known_;  ///< the path that was offered or taken from the list, as long as it stands
  QLabel* lblOtherNames_;
  QComboBox* cboOtherNames_;
  std::string chosen_;
};

}  // namespace halvorne
