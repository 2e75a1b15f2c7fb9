#include "shell/measurement_grid.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

namespace halvorne {
namespace {

constexpr int kHeadingRole = Qt::UserRole;

/// Draws a line of text in a rectangle, squeezed in width as far as it needs.
void DrawSqueezed(QPainter& painter, const QRect& place, int alignment, const QString& text) {
  const double width = painter.fontMetrics().horizontalAdvance(text);
  if (width <= place.width()) {
    painter.drawText(place, alignment | Qt::TextSingleLine, text);
    return;
  }
  const double factor = place.width() / width;
  painter.save();
  painter.translate(place.left(), 0);
  painter.scale(factor, 1);
  painter.drawText(QRectF(0, place.top(), width + 1, place.height()),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
  painter.restore();
}

class SqueezingDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const bool heading = index.data(kHeadingRole).toBool();
    const QPalette::ColorGroup group =
        option.state.testFlag(QStyle::State_Enabled) ? QPalette::Active : QPalette::Disabled;
    const auto background = heading ? QPalette::Button : QPalette::Base;
    const auto ink = heading ? QPalette::ButtonText : QPalette::Text;
    painter->fillRect(option.rect, option.palette.color(group, background));
    painter->setPen(option.palette.color(group, ink));
    painter->setFont(option.font);
    DrawSqueezed(*painter, option.rect.adjusted(1, 0, -1, 0), Qt::AlignCenter,
                 index.data().toString());
  }
};

}  // namespace

MeasurementGrid::MeasurementGrid(int rows, int columns, int headings, QWidget* parent)
    : QTableWidget(rows, columns, parent) {
  setItemDelegate(new SqueezingDelegate(this));
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::NoSelection);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
    header->hide();
    header->setMinimumSectionSize(1);
    header->setSectionResizeMode(QHeaderView::Fixed);
  }
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 3);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      auto* const cell = new QTableWidgetItem;
      cell->setTextAlignment(Qt::AlignCenter);
      cell->setData(kHeadingRole, row < headings);
      setItem(row, column, cell);
    }
  }
  FitToCells();
}

void MeasurementGrid::SetText(int row, int column, const QString& text) {
  item(row, column)->setText(text);
}

void MeasurementGrid::SetColWidth(int column, int width) {
  setColumnWidth(column, width);
  FitToCells();
}

void MeasurementGrid::FitToCells() {
  const int frame = 2 * frameWidth();
  setFixedSize(horizontalHeader()->length() + frame, verticalHeader()->length() + frame);
}

FittedLabel::FittedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize FittedLabel::minimumSizeHint() const {
  return {1, QLabel::minimumSizeHint().height()};
}

void FittedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  QRect line(0, 0, width(), fontMetrics().height());
  for (const QString& text : this->text().split(u'\n')) {
    DrawSqueezed(painter, line, Qt::AlignLeft | Qt::AlignVCenter, text);
    line.translate(0, fontMetrics().lineSpacing());
  }
}

}  // namespace halvorne
