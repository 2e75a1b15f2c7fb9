#pragma once

#include <QLabel>
#include <QTableWidget>

namespace halvorne {

/// A grid of short texts, all columns centred, whose first rows are headings. A text that is wider
/// than its column is drawn narrower, so that no digit is lost.
class MeasurementGrid final : public QTableWidget {
 public:
  MeasurementGrid(int rows, int columns, int headings, QWidget* parent);

  void SetText(int row, int column, const QString& text);
  /// Width of a column in pixels.
  void SetColWidth(int column, int width);

 private:
  void FitToCells();
};

/// A label of plain lines that are drawn narrower where they would not fit.
class FittedLabel final : public QLabel {
 public:
  explicit FittedLabel(QWidget* parent);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace halvorne
