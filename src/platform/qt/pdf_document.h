#pragma once

#include <QByteArray>
#include <QPageLayout>
#include <QString>
#include <functional>

class QPdfWriter;

namespace halvorne {

/// What a PDF document says of itself.
struct PdfTitle {
  QString title;
  QString author;
};

/// Makes a PDF document and returns the bytes of its file. Texts keep their fonts, lines stay
/// lines. The same drawing gives the same bytes at the same time of the program's clock.
/// @param draw  draws on the document, from its first page on
QByteArray MakePdf(const QPageLayout& layout, const PdfTitle& title,
                   const std::function<void(QPdfWriter&)>& draw);

}  // namespace halvorne
