#include "shell/measurement_grid.h"

#include <QCoreApplication>
#include <QFontInfo>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

constexpr int kTold = 39;

/// A grid of the band's measurements in a column of a given width.
class Grid : public ::testing::Test {
 protected:
  Grid() {
    QFont small = column_.font();
    small.setPointSizeF(8);
    column_.setFont(small);
    auto* const layout = new QVBoxLayout(&column_);
    layout->setContentsMargins(0, 0, 0, 0);
    grid = new MeasurementGrid(6, 4, 3, &column_);
    layout->addWidget(grid);
    for (int i = 0; i < 4; ++i) {
      grid->SetColWidth(i, kTold);
    }
    column_.resize(400, 200);
    column_.show();
    Settle();
  }

  void Settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
  }
  void Narrow(int width) {
    column_.setFixedWidth(width);
    Settle();
  }
  int Letters(const char* text) const { return grid->fontMetrics().horizontalAdvance(text); }

  MeasurementGrid* grid;

 private:
  QWidget column_;
};

TEST_F(Grid, ColumnsAreAsWideAsToldWhileTheirValuesFit) {
  grid->SetText(0, 1, "A heading of any length");
  grid->SetText(3, 1, "1.2");
  Settle();
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(grid->columnWidth(i), kTold);
  }
}

TEST_F(Grid, ColumnOfAWideValueLeavesAirBesideIt) {
  for (const char* value : {"148.79", "1234.56", "-198.02", "12345.67"}) {
    grid->SetText(4, 2, value);
    Settle();
    EXPECT_GE(grid->columnWidth(2), Letters(value) + 5) << value << " touches its lines";
    EXPECT_GE(grid->columnWidth(2), kTold);
    EXPECT_EQ(grid->columnWidth(1), kTold);
  }
  EXPECT_EQ(grid->width(), 3 * kTold + grid->columnWidth(2) + 2 * grid->frameWidth());
  grid->SetText(4, 2, "");
  Settle();
  EXPECT_EQ(grid->columnWidth(2), kTold) << "the value is gone";
}

TEST_F(Grid, ColumnsShareTheRoomWhenNotAllFitsAndNoneGetsLessThanTold) {
  for (int i = 1; i < 4; ++i) {
    grid->SetText(3, i, "123456789.12");
  }
  Narrow(4 * kTold + 30);
  int sum = 0;
  for (int i = 0; i < 4; ++i) {
    EXPECT_GE(grid->columnWidth(i), kTold);
    sum += grid->columnWidth(i);
  }
  EXPECT_EQ(grid->columnWidth(0), kTold);
  EXPECT_EQ(grid->columnWidth(1), grid->columnWidth(3));
  EXPECT_LE(sum, grid->viewport()->width());
  EXPECT_GT(sum, grid->viewport()->width() - 4);
}

class GridsInWindow : public WindowTest {};

TEST_F(GridsInWindow, HoldTheWidestValuesOfTheirFormats) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(0)");
  auto* const grid = Find<QTableWidget>("FlexgrdCFBW");
  // Three digits and two decimals, four and two, and the widest width that a band can have.
  for (int row = 3; row < 6; ++row) {
    main->SetGridCell(halvorne::Grid::kCFBW, row, 0, "-40");
    main->SetGridCell(halvorne::Grid::kCFBW, row, 1, "1234.56");
    main->SetGridCell(halvorne::Grid::kCFBW, row, 2, "1148.79");
    main->SetGridCell(halvorne::Grid::kCFBW, row, 3, "200.00");
  }
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
  int sum = 0;
  for (int column = 0; column < 4; ++column) {
    const int letters = grid->fontMetrics().horizontalAdvance(grid->item(3, column)->text());
    EXPECT_GE(grid->columnWidth(column), letters + 5) << column;
    sum += grid->columnWidth(column);
  }
  EXPECT_LE(sum, grid->viewport()->width()) << "the grid is cut off";
  auto* const frame = Find<QGroupBox>("fraCFBW");
  EXPECT_TRUE(frame->rect().contains(grid->geometry()));
}

}  // namespace
}  // namespace halvorne::testing
