#pragma once

#include <QTableView>
#include <functional>

namespace halvorne {

/// What a person does in a grid of materials beyond moving and editing.
struct GridEvents {
  std::function<void()> touched;  ///< a key or click went into the grid, where it stands now
  std::function<void()> entered;  ///< Return or Enter on a row
  std::function<void()> add, remove, copy, paste, takeBack;
};

/// The grid of a material browser. The Tab key leaves it; F2 or a double click edits a cell.
class MaterialGrid final : public QTableView {
 public:
  explicit MaterialGrid(GridEvents events);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  /// True when the key is one of the grid's own commands, which has then run.
  bool RunCommand(QKeyEvent* event);
  void AddCommand(const char* name, const QString& text, const std::function<void()>& run);

  GridEvents events_;
};

}  // namespace halvorne
