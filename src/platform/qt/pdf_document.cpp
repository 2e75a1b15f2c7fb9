#include "platform/qt/pdf_document.h"

#include <QBuffer>
#include <QDateTime>
#include <QPdfWriter>

#include "platform/clock.h"

namespace halvorne {
namespace {

constexpr int kDotsPerInch = 1200;
constexpr const char* kProgram = "Halvorne";

QByteArray DateOf(std::time_t time) {
  const QDateTime utc = QDateTime::fromSecsSinceEpoch(time, Qt::UTC);
  return "(D:" + utc.toString(QStringLiteral("yyyyMMddHHmmss")).toLatin1() + "Z)";
}

/// A text as a PDF string, whatever its characters.
QByteArray StringOf(const QString& text) {
  QByteArray bytes("\xFE\xFF");
  for (const QChar unit : text) {
    bytes += static_cast<char>(unit.unicode() >> 8U);
    bytes += static_cast<char>(unit.unicode() & 0xFFU);
  }
  return '<' + bytes.toHex() + '>';
}

/// Puts the program's time in the place of the writer's, which has the same length or more.
void SetCreationDate(QByteArray& pdf) {
  const qsizetype start = pdf.indexOf("(D:", pdf.indexOf("/CreationDate "));
  const qsizetype end = pdf.indexOf(')', start) + 1;
  if (start >= 0 && end > start) {
    pdf.replace(start, end - start, DateOf(Now()).leftJustified(end - start, ' ', true));
  }
}

/// The number behind a word of the file's end.
QByteArray NumberBehind(const QByteArray& pdf, const QByteArray& word) {
  constexpr qsizetype most = 20;
  const QByteArray behind = pdf.mid(pdf.lastIndexOf(word) + word.size(), most).simplified();
  return behind.split(' ')[0];
}

/// Appends an update of the document's information, in which the toolkit has no author.
void AppendInformation(QByteArray& pdf, const PdfTitle& title) {
  const QByteArray number = NumberBehind(pdf, "/Info");
  const QByteArray trailer = "trailer\n<<\n/Size " + NumberBehind(pdf, "/Size") + "\n/Info " +
                             number + " 0 R\n/Root " + NumberBehind(pdf, "/Root") + " 0 R\n/Prev " +
                             NumberBehind(pdf, "startxref") + "\n>>\n";
  const QByteArray object = QByteArray::number(pdf.size());
  const QByteArray date = DateOf(Now());
  pdf += number + " 0 obj\n<<\n/Title " + StringOf(title.title) + "\n/Author " +
         StringOf(title.author) + "\n/Creator (" + kProgram + ")\n/Producer (Qt " + qVersion() +
         ")\n/CreationDate " + date + "\n/ModDate " + date + "\n>>\nendobj\n";
  const QByteArray table = QByteArray::number(pdf.size());
  pdf += "xref\n" + number + " 1\n" + object.rightJustified(10, '0') + " 00000 n \n" + trailer +
         "startxref\n" + table + "\n%%EOF\n";
}

}  // namespace

QByteArray MakePdf(const QPageLayout& layout, const PdfTitle& title,
                   const std::function<void(QPdfWriter&)>& draw) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setPageLayout(layout);
    writer.setResolution(kDotsPerInch);
    writer.setTitle(title.title);
    writer.setCreator(QString::fromLatin1(kProgram));
    draw(writer);
  }
  QByteArray pdf = buffer.data();
  SetCreationDate(pdf);
  AppendInformation(pdf, title);
  return pdf;
}

}  // namespace halvorne
