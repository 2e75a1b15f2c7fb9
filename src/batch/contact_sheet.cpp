#include "batch/contact_sheet.h"

#include <QFont>
#include <QPainter>
#include <vector>

#include "batch/design_session.h"
#include "batch/plot_pictures.h"
#include "batch/stops.h"
#include "engine/design_model.h"
#include "platform/qt/text.h"
#include "plot/catalogue.h"
#include "timedomain/view.h"

namespace halvorne::batch {
namespace {

constexpr QSize kDefaultCell(640, 440);
constexpr int kColumns = 4;
constexpr int kGap = 8;
constexpr int kHeadHeight = 40;

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

void DrawHead(QPainter& painter, int width) {
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
  const int rows = (static_cast<int>(plots.size()) + kColumns - 1) / kColumns;
  QImage sheet(kColumns * (cell.width() + kGap) + kGap,
               kHeadHeight + rows * (cell.height() + kGap) + kGap, QImage::Format_RGB32);
  if (sheet.isNull()) {
    throw CommandFailed("there is not enough memory for the sheet");
  }
  sheet.fill(QColor(224, 224, 224));
  QPainter painter(&sheet);
  DrawHead(painter, sheet.width());
  for (int k = 0; k < static_cast<int>(plots.size()); ++k) {
    const QPoint corner(kGap + k % kColumns * (cell.width() + kGap),
                        kHeadHeight + k / kColumns * (cell.height() + kGap));
    const int number = plots[static_cast<std::size_t>(k)];
    try {
      ShowPlot(session, number);
      painter.drawImage(corner, PlotImage(cell));
    } catch (const CommandFailed&) {
      missing += (missing.empty() ? "" : ", ") + std::to_string(number);
    }
  }
  return sheet;
}

}  // namespace halvorne::batch
