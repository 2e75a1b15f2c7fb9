#include "shell/measurement_grid.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

namespace halvorne {
namespace {

constexpr int kHeadingRole = Qt::UserRole;
constexpr int kAir = 2;   ///< between a value and the lines of its cell
constexpr int kLine = 1;  ///< between two columns

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
    : QTableWidget(rows, columns, parent),
      columns_(static_cast<std::size_t>(columns)),
      headings_(headings) {
  setItemDelegate(new SqueezingDelegate(this));
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::NoSelection);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
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
  for (Column& column : columns_) {
    column.needed.resize(static_cast<std::size_t>(rows));
  }
}

void MeasurementGrid::SetText(int row, int column, const QString& text) {
  QTableWidgetItem* const cell = item(row, column);
  if (cell->text() == text) {
    return;
  }
  cell->setText(text);
  if (row >= headings_) {
    Column& widths = columns_[static_cast<std::size_t>(column)];
    const int before = widths.Wanted();
    widths.needed[static_cast<std::size_t>(row)] =
        text.isEmpty() ? 0 : fontMetrics().horizontalAdvance(text) + 2 * kAir + kLine;
    if (widths.Wanted() != before) {
      FitColumns();
    }
  }
}

void MeasurementGrid::SetColWidth(int column, int width) {
  columns_[static_cast<std::size_t>(column)].least = width;
  FitColumns();
}

int MeasurementGrid::Column::Wanted() const {
  return std::max(least, *std::ranges::max_element(needed));
}

int MeasurementGrid::HeightOfRows() const {
  return verticalHeader()->length() + 2 * frameWidth();
}

QSize MeasurementGrid::sizeHint() const {
  int width = 2 * frameWidth();
  for (const Column& column : columns_) {
    width += column.Wanted();
  }
  return {width, HeightOfRows()};
}

QSize MeasurementGrid::minimumSizeHint() const {
  int width = 2 * frameWidth();
  for (const Column& column : columns_) {
    width += column.least;
  }
  return {width, HeightOfRows()};
}

void MeasurementGrid::FitColumns() {
  updateGeometry();
  // Where not all fits, the columns share the room in proportion to what they need.
  const int wanted = sizeHint().width() - minimumSizeHint().width();
  const int room = std::clamp(width() - minimumSizeHint().width(), 0, wanted);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const int more = columns_[i].Wanted() - columns_[i].least;
    setColumnWidth(static_cast<int>(i),
                   columns_[i].least + (wanted == 0 ? 0 : more * room / wanted));
  }
}

void MeasurementGrid::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  FitColumns();
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
