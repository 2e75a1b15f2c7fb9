#include "batch/contact_sheet.h"

#include <QFont>
#include <QPainter>
#include <vector>

#include "batch/design_session.h"
#include "batch/stops.h"
#include "engine/design_model.h"
#include "platform/qt/text.h"
#include "plot/catalogue.h"
#include "plot/graph.h"
#include "plot/windows/plot_pictures.h"
#include "timedomain/view.h"

namespace halvorne::batch {
namespace {

constexpr QSize kDefaultCell(640, 440);
constexpr int kColumns = 4;
constexpr int kGap = 8;
constexpr int kHeadHeight = 40;
/// Four bytes each, all of them in memory at once.
constexpr qint64 kMostPixels = 100'000'000;

/// True where the window has the plot's command enabled.
bool IsOffered(int plotNumber) {
  if (plotNumber == 51) {
    return design.NoFace >= 1;
  }
  if (plotNumber == 53) {
    return design.NoBack >= 1;
  }
  return !IsExcitationPlot(plotNumber) || design.ExciteType >= 1;
}

std::vector<int> OfferedPlots() {
  std::vector<int> numbers;
  for (const CataloguePlot& row : Catalogue()) {
    if (IsOffered(row.number)) {
      numbers.push_back(row.number);
    }
  }
  return numbers;
}

/// The empty sheet. Raises WrongCommandLine when it would be too large, before it is made.
QImage EmptySheet(QSize cell, int plots) {
  const int rows = (plots + kColumns - 1) / kColumns;
  const QSize size(kColumns * (cell.width() + kGap) + kGap,
                   kHeadHeight + rows * (cell.height() + kGap) + kGap);
  const qint64 pixels = qint64{size.width()} * size.height();
  if (pixels > kMostPixels) {
    throw WrongCommandLine("--size: a sheet of " + std::to_string(plots) + " plots would have " +
                           std::to_string(pixels / 1'000'000) +
                           " million pixels, of which there may be " +
                           std::to_string(kMostPixels / 1'000'000));
  }
  QImage sheet(size, QImage::Format_RGB32);
  if (sheet.isNull()) {
    throw CommandFailed("there is not enough memory for the sheet");
  }
  sheet.fill(QColor(224, 224, 224));
  return sheet;
}

/// A part of an image as an image of its own over the same pixels.
QImage PartOf(QImage& image, QRect part) {
  constexpr int bytesPerPixel = 4;
  return {image.scanLine(part.top()) + qsizetype{part.left()} * bytesPerPixel, part.width(),
          part.height(), image.bytesPerLine(), image.format()};
}

void DrawHead(QImage& sheet) {
  const int width = sheet.width();
  QPainter painter(&sheet);
  QFont font = painter.font();
  font.setPixelSize(kHeadHeight / 2);
  painter.setFont(font);
  painter.setPen(Qt::black);
  painter.drawText(QRect(2 * kGap, 0, width - 4 * kGap, kHeadHeight), Qt::AlignVCenter,
                   ToQString(design.DesignTitle));
}

}  // namespace

QImage ContactSheet(Session& session, std::string& missing) {
  const std::vector<int> plots = OfferedPlots();
  const QSize cell = session.request.size.isValid() ? session.request.size : kDefaultCell;
  QImage sheet = EmptySheet(cell, static_cast<int>(plots.size()));
  DrawHead(sheet);
  for (int k = 0; k < static_cast<int>(plots.size()); ++k) {
    const QPoint corner(kGap + k % kColumns * (cell.width() + kGap),
                        kHeadHeight + k / kColumns * (cell.height() + kGap));
    const int number = plots[static_cast<std::size_t>(k)];
    try {
      ShowPlot(session, number);
      QImage place = PartOf(sheet, QRect(corner, cell));
      DrawOnImage(place, PlotGraphOn);
    } catch (const CommandFailed&) {
      missing += (missing.empty() ? "" : ", ") + std::to_string(number);
    }
  }
  return sheet;
}

}  // namespace halvorne::batch
