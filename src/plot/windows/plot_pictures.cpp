#include "plot/windows/plot_pictures.h"

#include <QBuffer>
#include <QFileInfo>
#include <QFont>
#include <QFontInfo>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <functional>

#include "platform/failure.h"
#include "platform/qt/painter_surface.h"
#include "platform/qt/pdf_document.h"
#include "platform/qt/text.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

constexpr int kDotsPerInch = 96;
constexpr int kDotsPerMetre = 3780;
constexpr double kPointsPerPixel = 72.0 / kDotsPerInch;

void PaintOn(QPaintDevice& device, const Drawing& draw) {
  PainterSurface surface(device, SurfaceKind::kMainPicture);
  draw(surface);
}

/// Names the font that the texts were measured with first and then likely ones; the toolkit names
/// the wanted one alone, and where that is missing a viewer would take any.
QByteArray WithFontChoices(QByteArray svg) {
  const QFont font = PictureFont();
  const QByteArray wanted = "font-family=\"" + font.family().toUtf8() + '"';
  QByteArray choices = "font-family=\"'" + QFontInfo(font).family().toUtf8() + '\'';
  for (const QString& family : font.families()) {
    choices += ", '" + family.toUtf8() + '\'';
  }
  return svg.replace(wanted, choices + ", sans-serif\"");
}

QByteArray SvgPicture(QSize size, const QString& title, const Drawing& draw) {
  QBuffer buffer;
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setSize(size);
  generator.setViewBox(QRect({0, 0}, size));
  generator.setResolution(kDotsPerInch);
  generator.setTitle(title);
  generator.setDescription(ToQString(design.DesignTitle));
  PaintOn(generator, draw);
  return WithFontChoices(buffer.data());
}

QByteArray PdfPicture(QSize size, const QString& title, const Drawing& draw) {
  const QPageSize page(QSizeF(size) * kPointsPerPixel, QPageSize::Point, QString(),
                       QPageSize::ExactMatch);
  return MakePdf(QPageLayout(page, QPageLayout::Portrait, QMarginsF()),
                 {.title = title, .author = QStringLiteral("Halvorne")},
                 [&draw](QPdfWriter& writer) { PaintOn(writer, draw); });
}

QImage ImageOf(QSize size, const Drawing& draw) {
  QImage image(size, QImage::Format_RGB32);
  if (image.isNull()) {
    throw Failure(failure_number::kOutOfMemory, "there is not enough memory for the picture");
  }
  DrawOnImage(image, draw);
  return image;
}

}  // namespace

std::optional<PictureFormat> PictureFormatOf(const std::string& fileName) {
  const QString ending = QFileInfo(ToQString(fileName)).suffix().toLower();
  if (ending == "png") {
    return PictureFormat::kPng;
  }
  if (ending == "svg") {
    return PictureFormat::kSvg;
  }
  if (ending == "pdf") {
    return PictureFormat::kPdf;
  }
  return std::nullopt;
}

void DrawOnImage(QImage& image, const Drawing& draw) {
  image.setDotsPerMeterX(kDotsPerMetre);
  image.setDotsPerMeterY(kDotsPerMetre);
  image.fill(Qt::white);
  PaintOn(image, draw);
}

QByteArray PngOf(const QImage& image) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) {
    throw Failure(failure_number::kInvalidCall, "the picture could not be encoded");
  }
  return buffer.data();
}

QByteArray PictureOf(PictureFormat format, QSize size, const QString& title, const Drawing& draw) {
  switch (format) {
    case PictureFormat::kSvg:
      return SvgPicture(size, title, draw);
    case PictureFormat::kPdf:
      return PdfPicture(size, title, draw);
    default:
      return PngOf(ImageOf(size, draw));
  }
}

}  // namespace halvorne
