#include "report/windows/report_pdf.h"

#include <QFontInfo>
#include <QPdfWriter>

#include "engine/design_model.h"
#include "platform/qt/painter_surface.h"
#include "platform/qt/pdf_document.h"
#include "platform/qt/text.h"
#include "report/page_record.h"
#include "report/report_layout.h"

namespace halvorne {
namespace {

/// Opens a document as printer and lets `print` print on it.
QByteArray Printed(const QPageLayout& layout, const std::function<void(Surface&)>& print) {
  const PdfTitle title{.title = ReportTitle(), .author = QStringLiteral("Halvorne")};
  return MakePdf(layout, title, [&print](QPdfWriter& writer) {
    PainterSurface paper(writer, SurfaceKind::kPrinter);
    paper.Begin();
    print(paper);
    paper.EndDoc();
  });
}

}  // namespace

QString ReportTitle() {
  const QString title = ToQString(design.DesignTitle).trimmed();
  return title.isEmpty() ? QStringLiteral("Halvorne Transducer Design Report") : title;
}

QByteArray ReportPdf(const QPageLayout& layout) {
  return Printed(layout, PrintOn);
}

QByteArray ReportRecord(const QPageLayout& layout) {
  QByteArray text;
  Printed(layout, [&](Surface& paper) {
    PageRecord record(paper);
    PrintOn(record);
    const QSizeF page = layout.paintRect(QPageLayout::Point).size();
    const std::string font = FromQString(QFontInfo(PageFont()).family());
    text = QByteArray::fromStdString(record.Text(font, page.width(), page.height()));
  });
  return text;
}

}  // namespace halvorne
