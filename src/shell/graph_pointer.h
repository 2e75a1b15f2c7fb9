#pragma once

#include <QLabel>
#include <QObject>
#include <QRubberBand>
#include <QTimer>

#include "platform/qt/picture_box.h"
#include "plot/manual_scales.h"

class QKeyEvent;
class QMouseEvent;

namespace halvorne {

/// The left button in the graph, and the keys that do the same.
///
/// A click puts the cursor, if it is on, to that point: once it is sure that no double click comes,
/// at the latest when the other button goes down.
/// A rectangle drawn with the button held becomes the scale; one that is flat or narrow leaves that
/// side's scale as it is. ZoomByKeys shows a rectangle that the arrow keys move (with Shift held:
/// resize), Return takes and Escape drops. Escape and the other button also end a drag.
class GraphPointer final : public QObject {
 public:
  explicit GraphPointer(PictureBox* picture);

  /// Shows the rectangle that is drawn with keys, at first the middle of the box.
  void ZoomByKeys();
  /// Ends what is being drawn, without effect.
  void Drop();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class State { kIdle, kPressed, kDragging, kKeys };

  bool Press(const QMouseEvent& event);
  bool Move(const QMouseEvent& event);
  bool Release(const QMouseEvent& event);
  bool KeyPress(const QKeyEvent& event);
  void ShapeByKey(const QKeyEvent& event);
  void PutCursor();
  void ShowRectangle(const BoxRectangle& rectangle);
  void TakeRectangle();

  Point PlaceOf(const QPointF& pixel) const;
  /// The part of the box between where the button went down and a pixel.
  BoxRectangle RectangleTo(const QPointF& pixel) const;

  PictureBox* picture_;
  QRubberBand* band_;
  QLabel* words_;  ///< tells the rectangle
  QTimer click_;
  State state_ = State::kIdle;
  bool endedDrag_ = false;  ///< the other button went down last, and ended a drag
  QPointF pressed_;         ///< where the button went down, or the last click was
  BoxRectangle rectangle_;
};

}  // namespace halvorne
