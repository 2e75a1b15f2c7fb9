#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <filesystem>
#include <fstream>

#include "engine/design_model.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;

/// Names of design files that a file dialog does not take as a matter of course.
class DocumentNames : public WindowTest {
 protected:
  /// A design under that name, of any bytes, in the data folder.
  std::string MakeDesignNamed(const std::string& name) {
    const std::string made = MakeDesignFile("made.dat");
    fs::rename(made, Data(name));
    return Data(name).string();
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Folder() / "DATA")) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  void ExpectOverwrite(const std::string& shownName) {
    script.ExpectForm("MsgBox", [shownName](QWidget& own) {
      auto& box = static_cast<QMessageBox&>(own);
      EXPECT_EQ(box.text().toStdString(),
                shownName + " already exists.\nDo you want to replace it?");
      EXPECT_EQ(box.standardButton(box.defaultButton()), QMessageBox::No);
      Press(box, QMessageBox::Yes);
    });
    script.Expect(Question("Halvorne Save File", "Overwrite existing file?", QMessageBox::Yes));
  }
  static QLineEdit& NameBox(QFileDialog& dialog) {
    return *dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  }
  static QComboBox& OtherNames(QFileDialog& dialog) {
    return *dialog.findChild<QComboBox*>(QStringLiteral("cboOtherNames"));
  }
};

TEST_F(DocumentNames, DoubleQuotesArePartOfATypedName) {
  StartWithDesign();
  for (const std::string name : {"5\" disc \"B\".dat", "\"quoted.dat\"", "\"", "a\" \"b"}) {
    script.ExpectFileDialog("Save As", name);
    ClickMenu("mnuFileItem(2)");
    EXPECT_EQ(design.DataFileName, Data(name).string());
    EXPECT_TRUE(fs::exists(Data(name))) << name;
    script.ExpectFileDialog("File Open", name);
    script.Expect(Question("File Open", "Revert to the saved file ?", QMessageBox::No));
    ClickMenu("mnuFileItem(1)");
    EXPECT_EQ(design.DataFileName, Data(name).string());
  }
  EXPECT_EQ(Names().size(), 5U) << "a file of another name was written";
}

TEST_F(DocumentNames, AnExistingNameWithDoubleQuotesIsAskedForAsAnyOther) {
  StartWithDesign();
  const std::string name = "5\" disc.dat";
  std::ofstream(Data(name)) << "mine";
  script.ExpectFileDialog("Save As", name);
  ExpectOverwrite(name);
  ClickMenu("mnuFileItem(2)");
  EXPECT_EQ(ReadFile(Data(name)), ReadFile(Data("probe.dat")));
}

TEST_F(DocumentNames, TheOfferedNameIsTakenWhateverItHolds) {
  const std::string name = "5\" disc \"B\".dat";
  const std::string path = MakeDesignNamed(name);
  StartProgram();
  OpenFile(path);
  script.ExpectFileDialog("Save As", [&](QFileDialog& dialog) {
    EXPECT_EQ(NameBox(dialog).text().toStdString(), name);
    QTest::keyClick(&NameBox(dialog), Qt::Key_Return);
  });
  ExpectOverwrite(name);
  ClickMenu("mnuFileItem(2)");
  EXPECT_EQ(Names(), std::vector<std::string>{name});
}

TEST_F(DocumentNames, AnEntryOfTheListIsTakenByADoubleClick) {
  const std::string path = MakeDesignNamed("5\" disc \"B\".dat");
  StartProgram();
  script.ExpectFileDialog("File Open", [](QFileDialog& dialog) {
    auto* const list = dialog.findChild<QListView*>(QStringLiteral("listView"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
    const QModelIndex entry = list->model()->index(0, 0, list->rootIndex());
    const QPoint place = list->visualRect(entry).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
  });
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(design.DataFileName, path);
}

TEST_F(DocumentNames, ANameOfAnotherCharacterSetStandsInAListOfItsOwn) {
  const std::string path = MakeDesignNamed(
      "Pr\xfc"
      "fkopf.dat");
  StartProgram();
  script.ExpectFileDialog("File Open", [](QFileDialog& dialog) {
    QComboBox& names = OtherNames(dialog);
    EXPECT_TRUE(names.isVisible());
    ASSERT_EQ(names.count(), 1);
    EXPECT_EQ(names.itemText(0), QString::fromLatin1("Pr\xfc"
                                                     "fkopf.dat"));
    names.setFocus();
    QTest::keyClick(&names, Qt::Key_Down);
    EXPECT_EQ(NameBox(dialog).text(), names.itemText(0));
    QTest::keyClick(&NameBox(dialog), Qt::Key_Return);
  });
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(design.DataFileName, path);
  EXPECT_EQ(design.DesignTitle, "A probe");
  EXPECT_EQ(main->windowTitle(), QString::fromLatin1(("Halvorne: " + path).c_str()));

  script.ExpectFileDialog(
      "Save As", [](QFileDialog& dialog) { QTest::keyClick(&NameBox(dialog), Qt::Key_Return); });
  ExpectOverwrite(
      "Pr\xc3\xbc"
      "fkopf.dat");
  design.DesignTitle = "Again";
  ClickMenu("mnuFileItem(2)");
  EXPECT_EQ(Names(), std::vector<std::string>{"Pr\xfc"
                                              "fkopf.dat"});
  EXPECT_NE(ReadFile(path).find("\"Again\""), std::string::npos);

  script.ExpectFileDialog(
      "File Open", [](QFileDialog& dialog) { QTest::keyClick(&NameBox(dialog), Qt::Key_Return); });
  script.Expect(Question("File Open", "Revert to the saved file ?", QMessageBox::No));
  ClickMenu("mnuFileItem(1)");
}

TEST_F(DocumentNames, ATypedNameFindsTheFileOfAnotherCharacterSet) {
  const std::string folder = Data("Ger\xe4te").string();
  const std::string made = MakeDesignFile();
  fs::create_directory(folder);
  fs::rename(made, folder +
                       "/Pr\xfc"
                       "fkopf.dat");
  StartProgram();
  script.ExpectFileDialog("File Open",
                          "Ger\xc3\xa4te/Pr\xc3\xbc"
                          "fkopf.dat");
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(design.DataFileName, folder +
                                     "/Pr\xfc"
                                     "fkopf.dat");
  EXPECT_EQ(design.DesignTitle, "A probe");
}

TEST_F(DocumentNames, OfTwoFilesThatAreShownAlikeTheMeantOneIsTaken) {
  const std::string old = MakeDesignNamed("\xfc.dat");
  const std::string young = MakeDesignNamed("\xc3\xbc.dat");
  StartProgram();
  script.ExpectFileDialog("File Open", "\xc3\xbc.dat");
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(design.DataFileName, young) << "typed letters are UTF-8";
  script.ExpectFileDialog("File Open", [](QFileDialog& dialog) {
    OtherNames(dialog).setFocus();
    QTest::keyClick(&OtherNames(dialog), Qt::Key_Down);
    QTest::keyClick(&NameBox(dialog), Qt::Key_Return);
  });
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(design.DataFileName, old);
  script.ExpectFileDialog(
      "Save As", [](QFileDialog& dialog) { QTest::keyClick(&NameBox(dialog), Qt::Key_Return); });
  ExpectOverwrite("\xc3\xbc.dat");
  ClickMenu("mnuFileItem(2)");
  EXPECT_EQ(design.DataFileName, old);
}

TEST_F(DocumentNames, WithoutSuchNamesTheirListIsNotShown) {
  MakeDesignFile();
  StartProgram();
  fs::create_directory(Data("below"));
  std::ofstream(Data("below/\xe4")) << "x";
  script.ExpectFileDialog("File Open", [](QFileDialog& dialog) {
    EXPECT_FALSE(OtherNames(dialog).isVisible());
    EXPECT_FALSE(dialog.findChild<QLabel*>(QStringLiteral("lblOtherNames"))->isVisible());
    EnterName(dialog, "below");
    EXPECT_TRUE(dialog.isVisible()) << "a folder is entered";
    EXPECT_TRUE(OtherNames(dialog).isVisible());
    EXPECT_EQ(NameBox(dialog).text(), QString());
    EnterName(dialog, "..");
    EXPECT_FALSE(OtherNames(dialog).isVisible());
    EnterName(dialog, "probe.dat");
  });
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(design.DataFileName, Data("probe.dat").string());
}

TEST_F(DocumentNames, ADroppedFileMayHaveANameOfAnotherCharacterSet) {
  const std::string path = MakeDesignNamed("100%20 \xfc.dat");
  StartProgram();
  QMimeData data;
  data.setData(QStringLiteral("text/uri-list"),
               "file://" + QByteArray::fromStdString(path).toPercentEncoding("/") + "\r\n");
  QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(main.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(main.get(), &drop);
  EXPECT_EQ(design.DataFileName, path);
  EXPECT_EQ(design.DesignTitle, "A probe");
}

}  // namespace
}  // namespace halvorne::testing
