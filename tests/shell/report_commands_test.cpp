#include <QClipboard>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QTest>

#include "engine/design_model.h"
#include "persistence/setup_state.h"
#include "report/text_exports.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

class ReportCommands : public WindowTest {
 protected:
  void ExpectCancelledPrint(const std::string& procedure) {
    script.ExpectForm("CMDialog1", [](QWidget& dialog) { dialog.close(); });
    script.Expect(FailureBox("ERROR in " + procedure + " of frmHalvorneMain",
                             "Error: 32755. Cancel was selected."));
  }
};

TEST_F(ReportCommands, CopyAllInputsWhateverDetailIsChosen) {
  StartWithDesign();
  setup.ReportDetails = 2;
  ClickMenu("mnuEditCopyInputs");
  std::string full;
  ParasToClipboard(full, 1);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), full);
  EXPECT_NE(full.find("Density"), std::string::npos);
}

TEST_F(ReportCommands, ShowTheInputsFromMenuAndToolbar) {
  StartWithDesign();
  std::string full;
  ParasToClipboard(full, 1);
  const auto close = [](QWidget& dialog) {
    const auto* const text = dialog.findChild<QPlainTextEdit*>(QStringLiteral("txtInputList"));
    EXPECT_TRUE(text->toPlainText().startsWith(QStringLiteral("HALVORNE INPUT PARAMETERS")));
    QTest::keyClick(&dialog, Qt::Key_Return);
  };
  script.ExpectForm("frmInputList", close);
  ClickMenu("mnuInputView");
  script.ExpectForm("frmInputList", close);
  Click("cmdViewInputs");
  EXPECT_TRUE(script.Finished());
}

TEST_F(ReportCommands, ShowThePreviewFromMenuAndToolbar) {
  StartWithDesign();
  const auto cancel = [](QWidget& dialog) {
    auto* const button = dialog.findChild<QPushButton*>(QStringLiteral("cmdPreviewCancel"));
    QTest::mouseClick(button, Qt::LeftButton);
  };
  script.ExpectForm("frmHalvorneReport", cancel);
  ClickMenu("mnuFileItem(5)");
  script.ExpectForm("frmHalvorneReport", cancel);
  Click("cmdPrintPreview");
  EXPECT_TRUE(script.Finished());
}

TEST_F(ReportCommands, PrintTheReportOrTellThatItWasCancelled) {
  StartWithDesign();
  ExpectCancelledPrint("mnuFileItem_Click");
  ClickMenu("mnuFileItem(6)");
  ExpectCancelledPrint("cmdPrintReport_Click");
  Click("cmdPrintReport");
  const std::string file = Data("report.pdf").string();
  script.ExpectForm("CMDialog1", [&](QWidget& dialog) {
    auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
    ASSERT_NE(name, nullptr);
    name->setText(QString::fromStdString(file));
    const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
  });
  ClickMenu("mnuFileItem(6)");
  EXPECT_TRUE(script.Finished());
  EXPECT_TRUE(ReadFile(file).starts_with("%PDF"));
}

TEST_F(ReportCommands, ADesignJustOpenedPrintsItsOwnBurst) {
  const std::string path = MakeDesignFile();  // three cycles
  StartProgram();
  ASSERT_EQ(draft.TmpExciteCycles, 0);
  OpenFile(path);
  ClickMenu("mnuView2WayItem(3)");
  ClickMenu("mnuEditCopyInputs");
  EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(
      QStringLiteral("Sine wave burst 5. MHz, 3. cycles, ")));
}

}  // namespace
}  // namespace halvorne::testing
