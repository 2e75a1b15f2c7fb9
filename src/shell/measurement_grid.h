#pragma once

#include <QLabel>
#include <QTableWidget>
#include <vector>

namespace halvorne {

/// A grid of short texts, all columns centred, whose first rows are headings. A column is as wide
/// as was told, or as its widest value needs while there is room. A text that is wider than its
/// column is drawn narrower, so that no digit is lost.
class MeasurementGrid final : public QTableWidget {
 public:
  MeasurementGrid(int rows, int columns, int headings, QWidget* parent);

  void SetText(int row, int column, const QString& text);
  /// Least width of a column in pixels.
  void SetColWidth(int column, int width);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// Widths of a column in pixels.
  struct Column {
    int least = 0;            ///< as told
    std::vector<int> needed;  ///< by each of its cells
    int Wanted() const;
  };

  int HeightOfRows() const;
  void FitColumns();

  std::vector<Column> columns_;
  int headings_;
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
