#include "report/windows/print_command.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QSaveFile>

#include "platform/failure.h"
#include "platform/qt/painter_surface.h"
#include "platform/qt/text.h"
#include "report/report_layout.h"
#include "report/windows/report_pdf.h"

namespace halvorne {
namespace {

void AskHow(QPrinter& printer, CommonDialog& dialog, QWidget* owner) {
  dialog.Flags = kPrintFlags;
  dialog.CancelError = true;
  printer.setCopyCount(1);
  QPrintDialog question(&printer, owner);
  question.setObjectName(ToQString(dialog.Name()));
  question.setMinMax(1, 1);
  question.setFromTo(1, 1);
  for (const auto option :
       {QAbstractPrintDialog::PrintPageRange, QAbstractPrintDialog::PrintSelection,
        QAbstractPrintDialog::PrintCurrentPage}) {
    question.setOption(option, false);
  }
  if (question.exec() != QDialog::Accepted) {
    throw Failure(failure_number::kCancelled);
  }
}

void PrintToFile(const QString& name, const QByteArray& pdf) {
  QSaveFile file(name);
  const bool written =
      file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size() && file.commit();
  if (!written) {
    throw Failure(failure_number::kPathFileAccess,
                  std::string(FailureDescription(failure_number::kPathFileAccess)) + ": " +
                      FromQString(name));
  }
}

void PrintOnPaper(QPrinter& printer) {
  PainterSurface paper(printer, SurfaceKind::kPrinter);
  paper.Begin();
  PrintOn(paper);
  paper.EndDoc();
  if (printer.printerState() == QPrinter::Error || printer.printerState() == QPrinter::Aborted) {
    throw Failure(failure_number::kPrinter);
  }
}

}  // namespace

void PrintReport(CommonDialog& dialog, QWidget* owner) {
  QPrinter printer(QPrinter::HighResolution);  // follows the default printer
  printer.setPageMargins({kReportMargin, kReportMargin, kReportMargin, kReportMargin},
                         QPageLayout::Millimeter);
  printer.setDocName(ReportTitle());
  printer.setCreator(QStringLiteral("Halvorne"));
  AskHow(printer, dialog, owner);
  if (printer.outputFormat() == QPrinter::PdfFormat) {
    PrintToFile(printer.outputFileName(), ReportPdf(printer.pageLayout()));
  } else {
    PrintOnPaper(printer);
  }
}

}  // namespace halvorne
