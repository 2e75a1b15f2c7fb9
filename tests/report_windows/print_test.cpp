#include <QDialogButtonBox>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPrintDialog>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "report/windows/print_command.h"
#include "report/windows/report_pdf.h"
#include "report_windows/report_design.h"
#include "shell/modal_script.h"
#include "support/full_disk.h"

namespace halvorne::testing {
namespace {

class PrintCommand : public ReportDesign {
 protected:
  /// Prints to a file through the desktop's print dialog.
  void PrintTo(const std::string& name) {
    script.ExpectForm("CMDialog1", [name](QWidget& shown) {
      auto& question = dynamic_cast<QPrintDialog&>(shown);
      EXPECT_FALSE(question.testOption(QAbstractPrintDialog::PrintPageRange));
      EXPECT_FALSE(question.testOption(QAbstractPrintDialog::PrintSelection));
      auto* const box = question.findChild<QLineEdit*>(QStringLiteral("filename"));
      ASSERT_NE(box, nullptr);
      box->setText(QString::fromStdString(name));
      auto* const buttons = question.findChild<QDialogButtonBox*>();
      ASSERT_NE(buttons, nullptr);
      QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    PrintReport(dialog, nullptr);
  }
  std::string Path(const std::string& name) const {
    return folder.filePath(QString::fromStdString(name)).toStdString();
  }
  static std::string Pdftotext(const std::string& file) {
    QProcess process;
    process.start(QStringLiteral("pdftotext"),
                  {QStringLiteral("-layout"), QString::fromStdString(file), QStringLiteral("-")});
    EXPECT_TRUE(process.waitForFinished());
    return process.readAllStandardOutput().toStdString();
  }

  QTemporaryDir folder;
  CommonDialog dialog{"CMDialog1"};
  ModalScript script;
};

TEST_F(PrintCommand, PrintsToAFile) {
  PrintTo(Path("report.pdf"));
  EXPECT_EQ(shownMessages.Lines(), std::vector<std::string>{});
  const std::string text = Pdftotext(Path("report.pdf"));
  EXPECT_NE(text.find("TITLE: A probe"), std::string::npos) << text;
  EXPECT_EQ(dialog.Flags, kPrintFlags) << "they stay for the dialog that comes next";
  EXPECT_TRUE(dialog.CancelError);
}

TEST_F(PrintCommand, ACancelledDialogRaisesAndPrintsNothing) {
  script.ExpectForm("CMDialog1", [](QWidget& shown) { shown.close(); });
  try {
    PrintReport(dialog, nullptr);
    ADD_FAILURE() << "it went on";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), 32755);
  }
  EXPECT_EQ(dialog.Flags, 12);
  EXPECT_TRUE(folder.isValid() && QDir(folder.path()).isEmpty());
}

TEST_F(PrintCommand, AFullDiskRaisesAndLeavesNothing) {
  const FullDisk full(4096);
  try {
    PrintTo(Path("report.pdf"));
    ADD_FAILURE() << "it went on";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), 75);
    EXPECT_NE(failure.Description().find(Path("report.pdf")), std::string::npos);
  }
  EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(PrintCommand, LandscapePagesHoldAllLines) {
  MakeLong();
  for (const auto paper : {QPageSize::A4, QPageSize::Letter}) {
    const QPageLayout layout(QPageSize(paper), QPageLayout::Landscape, {10, 10, 10, 10},
                             QPageLayout::Millimeter);
    int page = 0;
    double lowest = 10;
    for (const QByteArray& line : ReportRecord(layout).trimmed().split('\n')) {
      const QJsonObject object = QJsonDocument::fromJson(line).object();
      ASSERT_FALSE(object.isEmpty()) << line.toStdString();
      if (object["op"] == "text") {
        page = object["page"].toInt();
        lowest = std::min(lowest, object["y"].toDouble() + object["h"].toDouble());
        EXPECT_LE(object["x"].toDouble() + object["w"].toDouble(), 10 + 1e-5);
      }
    }
    EXPECT_GE(page, 2);
    EXPECT_GT(lowest, 0) << "a line runs over the lower edge";
    EXPECT_TRUE(ReportPdf(layout).startsWith("%PDF"));
  }
}

TEST_F(PrintCommand, ADocumentWithoutATitleIsCalledWhatItIs) {
  design.DesignTitle = "  ";
  EXPECT_EQ(ReportTitle().toStdString(), "Halvorne Transducer Design Report");
  design.DesignTitle = "A probe";
  EXPECT_EQ(ReportTitle().toStdString(), "A probe");
}

}  // namespace
}  // namespace halvorne::testing
