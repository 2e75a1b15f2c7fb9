#include <QAction>
#include <QClipboard>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <fstream>

#include "engine/design_model.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

class Document : public WindowTest {
 protected:
  const ExpectedBox openFailure{
      .title = "Halvorne",
      .text = "Error encountered while trying to open file, please retry.",
      .icon = QMessageBox::Warning};
};

const ExpectedBox kOverwriteNo =
    Question("Halvorne Save File", "Overwrite existing file?", QMessageBox::No);
const ExpectedBox kOverwriteYes =
    Question("Halvorne Save File", "Overwrite existing file?", QMessageBox::Yes);

TEST_F(Document, OpensThroughTheFileDialog) {
  const std::string path = MakeDesignFile();
  StartProgram();
  script.ExpectFileDialog("File Open", [&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), (Folder() / "DATA").string());
    EXPECT_EQ(dialog.nameFilters(), QStringList({"All Files (*.*)", "Data Files (*.dat)"}));
    EXPECT_EQ(dialog.selectedNameFilter(), QStringLiteral("All Files (*.*)"));
    EnterName(dialog, path);
  });
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: " + path);
  EXPECT_EQ(Find<QLineEdit>("txtEdit")->text().toStdString(), "A probe");
  EXPECT_EQ(design.DataFileName, path);
  EXPECT_EQ(design.DesignNew, 0);
  EXPECT_EQ(Screen(), CorePicture());
}

TEST_F(Document, ShowsAllFilesEvenWithoutAPoint) {
  std::ofstream(Data("pointless")) << "x";
  StartProgram();
  script.ExpectFileDialog("File Open", [](QFileDialog& dialog) {
    auto* const view = dialog.findChild<QAbstractItemView*>(QStringLiteral("listView"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->model()->rowCount(view->rootIndex()) == 1; }))
        << "the folder's only file has no point in its name and is hidden";
    dialog.reject();
  });
  script.Expect(FileBox("File Open", 32755, "Cancel was selected."));
  Click("cmdFileOpen");
}

TEST_F(Document, CancelledOpenShowsTheDialogsOwnFailureAndKeepsTheName) {
  StartWithDesign();
  const std::string before = design.DataFileName;
  script.ExpectCancelledFileDialog("File Open");
  script.Expect(FileBox("File Open", 32755, "Cancel was selected."));
  Click("cmdFileOpen");
  EXPECT_EQ(design.DataFileName, before);
  EXPECT_TRUE(plot.DesignOpen);
}

TEST_F(Document, FailedOpenStillShowsAnOpenDesign) {
  StartWithDesign();
  std::string cut = ReadFile(design.DataFileName);
  cut.resize(cut.find("A probe") + 60);
  cut.replace(cut.find("A probe"), 7, "Cut off");
  std::ofstream(Data("cut.dat"), std::ios::binary) << cut;
  script.ExpectFileDialog("File Open", Data("cut.dat").string());
  script.Expect(openFailure);
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: " + Data("cut.dat").string());
  EXPECT_EQ(Find<QLineEdit>("txtEdit")->text().toStdString(), "Cut off");
  EXPECT_TRUE(plot.DesignOpen);
  EXPECT_EQ(main->findChild<QAction*>(QStringLiteral("mnuFileArray(2)")), nullptr)
      << "a file that could not be read is no recent entry";
}

TEST_F(Document, AsksBeforeItRevertsToTheFileOnShow) {
  StartWithDesign();
  const std::string path = design.DataFileName;
  design.TermTx = 75;
  script.ExpectFileDialog("File Open", path);
  script.Expect(Question("File Open", "Revert to the saved file ?", QMessageBox::No));
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(design.TermTx, 75);
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: " + path);
  EXPECT_EQ(Screen(), CorePicture()) << "the plot is not drawn again after No";

  script.ExpectFileDialog("File Open", path);
  script.Expect(Question("File Open", "Revert to the saved file ?", QMessageBox::Yes));
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(design.TermTx, 50);
}

TEST_F(Document, SavesUnderANewName) {
  StartWithDesign();
  design.DesignNew = 65535;
  const std::string copy = Data("copy.dat").string();
  script.ExpectFileDialog("Save As", [&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
    const auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    EXPECT_EQ(name->text().toStdString(), "probe.dat") << "the file's name is not offered";
    EnterName(dialog, copy);
  });
  ClickMenu("mnuFileItem(2)");
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: " + copy);
  EXPECT_EQ(ReadFile(copy), ReadFile(Data("probe.dat")));
  EXPECT_EQ(design.DesignNew, 0);
}

TEST_F(Document, SaveAsAsksTwiceAndANoToTheSecondLeavesTheNewName) {
  StartWithDesign();
  std::ofstream(Data("other.dat")) << "mine";
  design.DesignNew = 65535;
  script.ExpectFileDialog("Save As", Data("other.dat").string());
  script.ExpectForm("MsgBox",
                    [](QWidget& own) { Press(static_cast<QMessageBox&>(own), QMessageBox::Yes); });
  script.Expect(kOverwriteNo);
  ClickMenu("mnuFileItem(2)");
  EXPECT_EQ(ReadFile(Data("other.dat")), "mine");
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: " + Data("other.dat").string());
  EXPECT_EQ(design.DesignNew, 65535);
}

TEST_F(Document, CancelledSaveAsShowsTheDialogsOwnFailureAndKeepsTheName) {
  StartWithDesign();
  const std::string before = design.DataFileName;
  script.ExpectCancelledFileDialog("Save As");
  script.Expect(FileBox("File Save", 32755, "Cancel was selected."));
  Click("cmdFileSave");
  EXPECT_EQ(design.DataFileName, before);
}

TEST_F(Document, SaveAsOffersAFileOfAnotherFolderWithoutLeavingTheDataFolder) {
  MakeDesignFile();
  std::filesystem::rename(Data("probe.dat"), Folder() / "elsewhere.dat");
  StartProgram();
  OpenFile((Folder() / "elsewhere.dat").string());
  script.ExpectFileDialog("Save As", [&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), (Folder() / "DATA").string());
    const auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    EXPECT_EQ(name->text().toStdString(), (Folder() / "elsewhere.dat").string());
    dialog.reject();
  });
  script.Expect(FileBox("File Save", 32755, "Cancel was selected."));
  ClickMenu("mnuFileItem(2)");
}

TEST_F(Document, NewEmptiesTheWindowAndAsksNothing) {
  StartWithDesign();
  design.DesignNew = 65535;
  ClickMenu("mnuFileItem(0)");
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: Untitled");
  EXPECT_EQ(design.DataFileName, "Untitled");
  EXPECT_FALSE(plot.DesignOpen);
  EXPECT_EQ(Find<QLineEdit>("txtEdit")->text().toStdString(), "");
  EXPECT_EQ(Find<QComboBox>("PlotType")->count(), 0);
  EXPECT_FALSE(Enabled("mnuInput"));
  EXPECT_EQ(design.NoFreqPts, 64) << "the design's values stay in memory";
  EXPECT_EQ(design.DesignTitle, "A probe");
}

TEST_F(Document, CloseSavesAndEmptiesTheWindow) {
  StartWithDesign();
  const std::string path = design.DataFileName;
  design.DesignTitle = "Changed";
  script.Expect(kOverwriteYes);
  ClickMenu("mnuFileItem(3)");
  EXPECT_NE(ReadFile(path).find("\"Changed\""), std::string::npos);
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: Untitled");
  EXPECT_EQ(design.DataFileName, path) << "the name stays as it was";
  EXPECT_EQ(std::filesystem::current_path(), Folder() / "DATA");
}

TEST_F(Document, CloseAnsweredNoClosesWithoutSaving) {
  StartWithDesign();
  const std::string before = ReadFile(design.DataFileName);
  design.DesignTitle = "Changed";
  script.Expect(kOverwriteNo);
  ClickMenu("mnuFileItem(3)");
  EXPECT_EQ(ReadFile(design.DataFileName), before);
  EXPECT_FALSE(plot.DesignOpen);
}

TEST_F(Document, CloseWritesABareNameIntoTheDataFolder) {
  StartWithDesign();
  design.DataFileName = "bare.dat";
  ClickMenu("mnuFileItem(3)");
  EXPECT_TRUE(std::filesystem::exists(Data("bare.dat")));
}

TEST_F(Document, CloseMakesADataFolderThatIsMissing) {
  StartWithDesign();
  const std::string path = design.DataFileName;
  std::filesystem::rename(Folder() / "DATA", Folder() / "gone");
  ClickMenu("mnuFileItem(3)");
  EXPECT_FALSE(plot.DesignOpen);
  EXPECT_EQ(ReadFile(path), ReadFile(Folder() / "gone" / "probe.dat"));
}

TEST_F(Document, CloseWhereNoDataFolderCanBeMadeFailsAndStaysOpen) {
  StartWithDesign();
  std::filesystem::rename(Folder() / "DATA", Folder() / "gone");
  std::ofstream(Folder() / "DATA") << "a file of that name";
  script.Expect(FileBox("File Close", 76, "Path not found"));
  ClickMenu("mnuFileItem(3)");
  EXPECT_TRUE(plot.DesignOpen);
}

TEST_F(Document, OpenedFilesStandInTheMenuOnceEach) {
  StartWithDesign();
  const std::string first = design.DataFileName;
  EXPECT_TRUE(Action("mnuFileArray(0)")->isVisible());
  EXPECT_EQ(Action("mnuFileArray(1)")->text().toStdString(), first);
  const std::string second = Data("PROBE.dat").string();
  std::filesystem::copy(first, second);
  OpenFile(second);
  OpenFile(first);
  EXPECT_EQ(Action("mnuFileArray(2)")->text().toStdString(), second)
      << "names that differ in case only are two entries";
  EXPECT_EQ(main->findChild<QAction*>(QStringLiteral("mnuFileArray(3)")), nullptr);
}

TEST_F(Document, RecentEntryWithAPathIsNotFound) {
  StartWithDesign();
  const std::string name = design.DataFileName;
  ClickMenu("mnuFileItem(0)");
  script.Expect(openFailure);
  ClickMenu("mnuFileArray(1)");
  EXPECT_EQ(design.DataFileName, name);
  EXPECT_TRUE(plot.DesignOpen) << "the window shows an open design whatever the reader did";
}

TEST_F(Document, RecentEntryWithABareNameOpensFromTheDataFolder) {
  MakeDesignFile();
  StartProgram();
  design.DataFileName = "probe.dat";
  main->UpdateMenu();
  ClickMenu("mnuFileArray(1)");
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: probe.dat");
  EXPECT_EQ(design.DesignTitle, "A probe");
}

TEST_F(Document, DroppedFileOpensAsTheCommandWouldOpenIt) {
  const std::string path = MakeDesignFile();
  StartProgram();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
  QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(main.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(main.get(), &drop);
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: " + path);
  EXPECT_TRUE(plot.DesignOpen);
}

TEST_F(Document, DraggedTextOrFolderIsNotTaken) {
  StartProgram();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(Folder().string()))});
  QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(main.get(), &enter);
  EXPECT_FALSE(enter.isAccepted());
}

TEST_F(Document, TakesTheTitleWhenItsBoxIsLeft) {
  StartWithDesign();
  auto* const box = Find<QLineEdit>("txtEdit");
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, QStringLiteral("Another"));
  EXPECT_EQ(design.DesignTitle, "A probe");
  Find<QComboBox>("PlotType")->setFocus();
  EXPECT_EQ(design.DesignTitle, "Another");
}

TEST_F(Document, TakesTheTitleWhenACommandStartsOutOfItsBox) {
  StartWithDesign();
  auto* const box = Find<QLineEdit>("txtEdit");
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, QStringLiteral("By key"));
  script.Expect(kOverwriteYes);
  QTest::keyClick(box, Qt::Key_W, Qt::ControlModifier);
  EXPECT_NE(ReadFile(Data("probe.dat")).find("\"By key\""), std::string::npos);

  OpenFile(Data("probe.dat").string());
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, QStringLiteral("By button"));
  Click("cmdCopyDataToClipboard");
  EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QStringLiteral("By button")));
}

TEST_F(Document, TakesATypedTitleThoughAnotherWindowIsTheActiveOne) {
  StartWithDesign();
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  auto* const box = Find<QLineEdit>("txtEdit");
  box->selectAll();
  QTest::keyClicks(box, QStringLiteral("From afar"));
  Action("mnuEditCopyGraphData")->trigger();
  EXPECT_EQ(design.DesignTitle, "From afar");
}

TEST_F(Document, LeavesTheBytesOfATitleThatNobodyChanged) {
  StartWithDesign();
  design.DesignTitle = "Caf\xe9 5 MHz";  // not UTF-8
  main->EnableItems(true);
  auto* const box = Find<QLineEdit>("txtEdit");
  EXPECT_EQ(box->text(), QString::fromLatin1("Caf\xe9 5 MHz"));
  box->setFocus();
  Find<QComboBox>("PlotType")->setFocus();
  EXPECT_EQ(design.DesignTitle, "Caf\xe9 5 MHz");
}

}  // namespace
}  // namespace halvorne::testing
