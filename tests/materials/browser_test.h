#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QTableView>
#include <QTemporaryDir>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "materials/frm_acoustic_db.h"
#include "materials/frm_piezo_db.h"
#include "platform/qt/message_boxes.h"
#include "plot/headless_window.h"
#include "shell/modal_script.h"

namespace halvorne::testing {

/// Another program on a store: a connection of its own.
class OtherProgram {
 public:
  explicit OtherProgram(const std::filesystem::path& file);
  ~OtherProgram();
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  /// Runs a statement and expects that it succeeds.
  void Run(const QString& statement);
  /// First cell of the first row that a statement yields.
  QVariant Value(const QString& statement);

 private:
  QString name_;
};

/// The browsers in a program folder of their own with two small stores, worked as a person would.
///
/// The piezoelectric store has the tables "First" (Alpha, beta, Gamma) and "Second" (Delta, None),
/// the acoustic one "Plates" (Glass, Sand, Foam) and "Liquids" (Water), each beside tables of the
/// system.
class BrowserTest : public ::testing::Test {
 protected:
  BrowserTest();
  ~BrowserTest() override;

  void OpenPiezo();
  void OpenAcoustic();

  std::filesystem::path Folder() const { return folder_.path().toStdString(); }
  std::filesystem::path PiezoFile() const { return Folder() / "Database" / "pzmatls.mdb"; }
  std::filesystem::path AcousticFile() const { return Folder() / "Database" / "Acoustic.mdb"; }

  template <class Control>
  Control* Find(const char* name) const {
    auto* const control = browser->findChild<Control*>(QString::fromLatin1(name));
    EXPECT_NE(control, nullptr) << "no control is named " << name;
    return control;
  }
  QTableView* Grid() const { return browser->findChild<QTableView*>(); }
  QSqlTableModel* Data() const { return browser->findChild<QSqlTableModel*>(); }
  QComboBox* Tables() const { return browser->findChild<QComboBox*>(); }

  /// The control that has the browser's focus.
  QWidget* Focus() const;

  /// What the grid shows in a cell.
  std::string Cell(int row, int column) const;
  /// The names that the grid shows, from top to bottom.
  std::vector<std::string> Names() const;
  int CurrentRow() const { return Grid()->currentIndex().row(); }
  std::string Marked() const { return Find<QLineEdit>("txtCopyMaterial")->text().toStdString(); }

  void ClickCell(int row, int column);
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void ClickButton(const char* name);
  /// The next window is the dialog that the browser goes back to; it is closed at once.
  void ExpectTheWayBack();
  /// OK of the browser on show, which goes back to its dialog.
  void ClickOK();
  /// Puts a text into a cell of the current row with F2 and Return, or leaves the editor open.
  void TypeIntoCell(int column, const char* text, bool finish = true);
  void ChooseTable(const char* name);
  void SearchFor(const char* text);

  ModalScript script;
  std::unique_ptr<QDialog> browser;

 private:
  void Show(std::unique_ptr<QDialog> window);

  QTemporaryDir folder_;
  MessageBoxes boxes_;
  HeadlessWindow window_;
};

/// Makes the two stores below a program folder.
void MakeStores(const std::filesystem::path& folder);

}  // namespace halvorne::testing
