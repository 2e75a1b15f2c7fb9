#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QSvgRenderer>
#include <filesystem>

#include "persistence/touchstone_file.h"
#include "plot/curve_csv.h"
#include "plot/plot_state.h"
#include "shell/graph_menu_input.h"

namespace halvorne::testing {
namespace {

class TakeAlong : public GraphMenuInput {
 protected:
  /// Chooses the entry and answers its file dialog.
  void SaveAs(const char* entry, const std::string& title, const std::filesystem::path& file) {
    script.ExpectFileDialog(title, file.string());
    ChooseFromGraphMenu(entry);
    EXPECT_TRUE(script.Finished());
  }
};

TEST_F(TakeAlong, SavesThePictureAsItIsOnTheScreen) {
  StartWithDesign();
  Click("Cursor1");
  const auto* const bar = Find<QScrollBar>("HScroll1");
  const QImage screen = Screen();
  const std::string read = measured.ReadOut;
  SaveAs("mnuGraphSavePicture", "Save Picture As", Data("shown.png"));
  QImage saved(QString::fromStdString(Data("shown.png").string()));
  EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), screen) << "the cursor included";
  EXPECT_TRUE(measured.CursorOn);
  EXPECT_EQ(bar->value(), bar->minimum() + (bar->maximum() - bar->minimum()) / 2);
  EXPECT_EQ(measured.ReadOut, read);
}

TEST_F(TakeAlong, SavesThePictureAsLinesAndLetters) {
  StartWithDesign();
  ChooseFromGraphMenu("mnuGraphHold");
  Click("Cursor1");
  const QImage screen = Screen();
  SaveAs("mnuGraphSavePicture", "Save Picture As", Data("shown.svg"));
  const std::string svg = ReadFile(Data("shown.svg"));
  EXPECT_TRUE(QSvgRenderer(QByteArray::fromStdString(svg)).isValid());
  EXPECT_NE(svg.find("Electrical Input Impedance"), std::string::npos);
  EXPECT_NE(svg.find("1: A probe (probe.dat)"), std::string::npos) << "held designs included";
  EXPECT_NE(svg.find("#008080"), std::string::npos) << "and the cursor";
  EXPECT_EQ(Screen(), screen) << "the window's own picture is not touched";
  SaveAs("mnuGraphSavePicture", "Save Picture As", Data("shown.pdf"));
  EXPECT_TRUE(ReadFile(Data("shown.pdf")).starts_with("%PDF"));
  EXPECT_EQ(Screen(), screen);
}

TEST_F(TakeAlong, PutsTheEndingBehindANameWithoutOneAndRefusesAForeignOne) {
  StartWithDesign();
  SaveAs("mnuGraphSavePicture", "Save Picture As", Data("bare"));
  EXPECT_TRUE(ReadFile(Data("bare.png")).substr(1).starts_with("PNG"));
  script.ExpectFileDialog("Save Picture As", Data("picture.bmp").string());
  script.Expect(FileBox("Save Picture As", 5, "A picture's name ends in .png, .svg or .pdf"));
  ChooseFromGraphMenu("mnuGraphSavePicture");
  EXPECT_FALSE(std::filesystem::exists(Data("picture.bmp")));
}

TEST_F(TakeAlong, SavesTheValuesAsCsv) {
  StartWithDesign();
  ChooseFromGraphMenu("mnuGraphHold");
  SaveAs("mnuGraphSaveCsv", "Save Data as CSV", Data("values.csv"));
  EXPECT_EQ(ReadFile(Data("values.csv")), CurvesAsCsv());
  EXPECT_NE(CurvesAsCsv().find("x,y1,y2,x 1,y1 1,y2 1\n"), std::string::npos);
}

TEST_F(TakeAlong, AsksBeforeItOverwritesAndSaysNothingWhenCancelled) {
  StartWithDesign();
  SaveAs("mnuGraphSaveCsv", "Save Data as CSV", Data("values.csv"));
  const std::string before = ReadFile(Data("values.csv"));
  ChooseForm(1);
  script.ExpectFileDialog("Save Data as CSV", Data("values.csv").string());
  script.Expect(Question("Halvorne Save Data", "Overwrite existing file?", QMessageBox::No));
  ChooseFromGraphMenu("mnuGraphSaveCsv");
  EXPECT_EQ(ReadFile(Data("values.csv")), before);
  for (const auto& [entry, title] : {std::pair{"mnuGraphSaveCsv", "Save Data as CSV"},
                                     {"mnuGraphSavePicture", "Save Picture As"}}) {
    script.ExpectCancelledFileDialog(title);
    ChooseFromGraphMenu(entry);
  }
}

TEST_F(TakeAlong, TellsAFolderThatIsNotThere) {
  StartWithDesign();
  script.ExpectFileDialog("Save Data as CSV", (Folder() / "none" / "values.csv").string());
  script.Expect(FileBox("Save Data as CSV", 76, "Path not found"));
  ChooseFromGraphMenu("mnuGraphSaveCsv");
}

TEST_F(TakeAlong, HasNoPictureOrValuesToSaveWhenTheWaveformWasRefusedAtOpening) {
  StartWithDesign();
  ClickMenu("mnuViewTxWfm");
  design.NoTimePts = 100;  // 12.5 MHz for a sweep up to 9 MHz
  script.ExpectFileDialog("Save As", Data("slow.dat").string());
  ClickMenu("mnuFileItem(2)");
  ClickMenu("mnuFileItem(0)");
  script.ExpectFileDialog("File Open", Data("slow.dat").string());
  script.ExpectForm(
      "MsgBox", [](QWidget& box) { Press(static_cast<QMessageBox&>(box), QMessageBox::Cancel); });
  ClickMenu("mnuFileItem(1)");
  ASSERT_TRUE(plot.DesignOpen);
  OpenMenu();
  EXPECT_FALSE(Action("mnuGraphSavePicture")->isEnabled());
  EXPECT_FALSE(Action("mnuGraphSaveCsv")->isEnabled());
  EXPECT_TRUE(Action("mnuGraphSaveTouchstone")->isEnabled()) << "the impedance is there";
  CloseMenu();
}

TEST_F(TakeAlong, SavesTheImpedanceAgainstTheReferenceThatIsTyped) {
  StartWithDesign();
  script.ExpectForm("frmTouchstone", [](QWidget& window) {
    auto* const box = window.findChild<QLineEdit*>("txtReference");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text().toStdString(), "50");
    EXPECT_TRUE(box->hasFocus());
    QTest::keyClicks(box, "75");
    QTest::keyClick(box, Qt::Key_Return);
  });
  SaveAs("mnuGraphSaveTouchstone", "Save Impedance as Touchstone", Data("probe.s1p"));
  EXPECT_EQ(ReadFile(Data("probe.s1p")), TouchstoneText(75));
  // It is offered again; Escape saves nothing.
  script.ExpectForm("frmTouchstone", [](QWidget& window) {
    EXPECT_EQ(window.findChild<QLineEdit*>("txtReference")->text().toStdString(), "75");
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  ChooseFromGraphMenu("mnuGraphSaveTouchstone");
  EXPECT_TRUE(script.Finished());
}

TEST_F(TakeAlong, StaysAtAReferenceThatIsNone) {
  StartWithDesign();
  script.ExpectForm("frmTouchstone", [this](QWidget& window) {
    auto* const box = window.findChild<QLineEdit*>("txtReference");
    script.Expect({.title = "Save Impedance",
                   .text = "The reference must be above 0 Ohms.",
                   .icon = QMessageBox::Warning});
    QTest::keyClicks(box, "0");
    QTest::mouseClick(window.findChild<QPushButton*>("cmdTouchstoneOK"), Qt::LeftButton);
    EXPECT_TRUE(window.isVisible());
    script.Expect({.title = "Save Impedance",
                   .text = "The reference must be 1000 MOhms at most.",
                   .icon = QMessageBox::Warning});
    QTest::keyClicks(box, "2e9");
    QTest::mouseClick(window.findChild<QPushButton*>("cmdTouchstoneOK"), Qt::LeftButton);
    EXPECT_TRUE(window.isVisible());
    QTest::mouseClick(window.findChild<QPushButton*>("cmdTouchstoneCancel"), Qt::LeftButton);
  });
  ChooseFromGraphMenu("mnuGraphSaveTouchstone");
}

TEST_F(TakeAlong, CopyGraphPutsBitmapAndVectorsOnTheClipboard) {
  StartWithDesign();
  ClickMenu("mnuEditCopyGraph");
  const QMimeData* const copied = QGuiApplication::clipboard()->mimeData();
  ASSERT_TRUE(copied->hasImage());
  EXPECT_EQ(qvariant_cast<QImage>(copied->imageData()).convertToFormat(QImage::Format_RGB32),
            Screen());
  const QByteArray svg = copied->data("image/svg+xml");
  EXPECT_TRUE(QSvgRenderer(svg).isValid());
  EXPECT_TRUE(svg.contains("Electrical Input Impedance"));
}

}  // namespace
}  // namespace halvorne::testing
