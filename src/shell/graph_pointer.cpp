#include "shell/graph_pointer.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/qt/message_boxes.h"
#include "platform/qt/text.h"
#include "plot/cursor.h"
#include "plot/graph_description.h"
#include "plot/graph_position.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

/// How far beside the box a drag may begin, box units.
constexpr double kBesideBox = 0.5;
/// By how much a key moves or resizes the rectangle, box units; with Ctrl held the second.
constexpr double kKeyStep = 0.5;
constexpr double kFineKeyStep = 0.1;

bool PlotOnShow() {
  return plot.DesignOpen && mainWindow().PlotTypeIndex() >= 0;
}

bool NearBox(const Point& place) {
  return std::abs(place.x - 5) <= 5 + kBesideBox && std::abs(place.y - 5) <= 5 + kBesideBox;
}

double InRange(double coordinate) {
  return std::clamp(coordinate, 0.0, 10.0);
}

/// Moves both ends of a side, the length kept.
void Shift(double& from, double& to, double by) {
  by = std::clamp(by, -from, 10 - to);
  from += by;
  to += by;
}

/// Moves both ends of a side outward, or inward as long as something is left.
void Stretch(double& from, double& to, double by) {
  if (to - from + 2 * by >= kFineKeyStep) {
    from = InRange(from - by);
    to = InRange(to + by);
  }
}

}  // namespace

GraphPointer::GraphPointer(PictureBox* picture)
    : QObject(picture),
      picture_(picture),
      band_(new QRubberBand(QRubberBand::Rectangle, picture)),
      words_(new QLabel(picture)) {
  band_->setObjectName(QStringLiteral("bandZoom"));
  words_->setObjectName(QStringLiteral("lblZoom"));
  words_->setForegroundRole(QPalette::ToolTipText);
  words_->setBackgroundRole(QPalette::ToolTipBase);
  words_->setAutoFillBackground(true);
  words_->setMargin(3);
  words_->setAlignment(Qt::AlignCenter);
  words_->setAttribute(Qt::WA_TransparentForMouseEvents);
  words_->hide();
  click_.setSingleShot(true);
  connect(&click_, &QTimer::timeout, this, [this] { PutCursor(); });
  picture->installEventFilter(this);
}

Point GraphPointer::PlaceOf(const QPointF& pixel) const {
  return GraphPlace(pixel.x() / picture_->width(), pixel.y() / picture_->height());
}

BoxRectangle GraphPointer::RectangleTo(const QPointF& pixel) const {
  const Point from = PlaceOf(pressed_);
  const Point to = PlaceOf(pixel);
  const QPointF way = pixel - pressed_;
  BoxRectangle rectangle;
  if (std::abs(way.x()) >= QApplication::startDragDistance()) {
    rectangle.left = InRange(std::min(from.x, to.x));
    rectangle.right = InRange(std::max(from.x, to.x));
  }
  if (std::abs(way.y()) >= QApplication::startDragDistance()) {
    rectangle.bottom = InRange(std::min(from.y, to.y));
    rectangle.top = InRange(std::max(from.y, to.y));
  }
  return rectangle;
}

bool GraphPointer::Press(const QMouseEvent& event) {
  const bool left = event.button() == Qt::LeftButton;
  if (click_.isActive() && !left) {
    PutCursor();  // no double click can come, and the menu works on where the cursor is
  }
  click_.stop();
  endedDrag_ = state_ != State::kIdle && !left;
  Drop();
  if (endedDrag_) {
    return true;
  }
  if (left && PlotOnShow() && NearBox(PlaceOf(event.position()))) {
    pressed_ = event.position();
    state_ = State::kPressed;
  }
  return false;
}

bool GraphPointer::Move(const QMouseEvent& event) {
  const bool held = (event.buttons() & Qt::LeftButton) != 0;
  const QPointF way = event.position() - pressed_;
  if (state_ == State::kPressed && held && PlotOnShow() &&
      std::max(std::abs(way.x()), std::abs(way.y())) >= QApplication::startDragDistance()) {
    state_ = State::kDragging;
    picture_->setFocus(Qt::MouseFocusReason);  // for Escape
  }
  if (state_ != State::kDragging) {
    return false;
  }
  ShowRectangle(RectangleTo(event.position()));
  return true;
}

bool GraphPointer::Release(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton) {
    return false;
  }
  if (state_ == State::kPressed) {
    state_ = State::kIdle;
    click_.start(QGuiApplication::styleHints()->mouseDoubleClickInterval());
  } else if (state_ == State::kDragging) {
    const QPointF way = event.position() - pressed_;
    if (std::max(std::abs(way.x()), std::abs(way.y())) < QApplication::startDragDistance()) {
      Drop();  // back where it began
    } else {
      rectangle_ = RectangleTo(event.position());
      TakeRectangle();
    }
    return true;
  }
  return false;
}

void GraphPointer::PutCursor() {
  const Command command;
  try {
    const Point place = PlaceOf(pressed_);
    if (measured.CursorOn && PlotOnShow() && InBox(place)) {
      PutCursorAt(PointAt(place.x));
    }
  } catch (...) {
    ReportFailure("Picture1_Click", "frmHalvorneMain");
  }
}

void GraphPointer::ZoomByKeys() {
  if (!PlotOnShow()) {
    return;
  }
  click_.stop();
  Drop();
  state_ = State::kKeys;
  picture_->setFocus(Qt::OtherFocusReason);
  ShowRectangle({.left = 2.5, .right = 7.5, .bottom = 2.5, .top = 7.5});
}

void GraphPointer::ShapeByKey(const QKeyEvent& event) {
  BoxRectangle next = rectangle_;
  const double step = (event.modifiers() & Qt::ControlModifier) != 0 ? kFineKeyStep : kKeyStep;
  const auto shape = (event.modifiers() & Qt::ShiftModifier) != 0 ? Stretch : Shift;
  switch (event.key()) {
    case Qt::Key_Left:
      shape(next.left, next.right, -step);
      break;
    case Qt::Key_Right:
      shape(next.left, next.right, step);
      break;
    case Qt::Key_Down:
      shape(next.bottom, next.top, -step);
      break;
    case Qt::Key_Up:
      shape(next.bottom, next.top, step);
      break;
    default:
      break;
  }
  ShowRectangle(next);
}

bool GraphPointer::KeyPress(const QKeyEvent& event) {
  if (state_ == State::kDragging && event.key() == Qt::Key_Escape) {
    Drop();
    return true;
  }
  if (state_ != State::kKeys) {
    return false;
  }
  switch (event.key()) {
    case Qt::Key_Escape:
      Drop();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      TakeRectangle();
      return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_Up:
      ShapeByKey(event);
      return true;
    default:
      return false;
  }
}

void GraphPointer::ShowRectangle(const BoxRectangle& rectangle) {
  rectangle_ = rectangle;
  const Point topLeft = PictureShares({rectangle.left, rectangle.top});
  const Point bottomRight = PictureShares({rectangle.right, rectangle.bottom});
  const auto pixel = [this](const Point& share) {
    return QPoint(qRound(share.x * picture_->width()), qRound(share.y * picture_->height()));
  };
  band_->setGeometry(QRect(pixel(topLeft), pixel(bottomRight)));
  band_->show();
  try {
    const QString told = ToQString(RectangleText(rectangle));
    words_->setText(state_ == State::kKeys
                        ? told + QStringLiteral("\nArrows move, Shift+Arrows resize, "
                                                "Return takes, Esc drops")
                        : told);
    picture_->setAccessibleDescription(QStringLiteral("Rectangle ") + told);
    QAccessibleEvent changed(picture_, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
  } catch (...) {
    words_->clear();  // a graph that was not scaled: the rectangle alone is shown
  }
  words_->adjustSize();
  words_->move((picture_->width() - words_->width()) / 2, 1);
  words_->setVisible(!words_->text().isEmpty());
}

void GraphPointer::TakeRectangle() {
  const BoxRectangle taken = rectangle_;
  Drop();
  const Command command;
  ZoomTo(taken);
}

void GraphPointer::Drop() {
  const bool shown = state_ == State::kDragging || state_ == State::kKeys;
  state_ = State::kIdle;
  if (shown) {
    band_->hide();
    words_->hide();
    mainWindow().DescribeGraph(GraphDescription());
  }
}

bool GraphPointer::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      return Press(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
      return Move(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
      return Release(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonDblClick:
      click_.stop();
      Drop();
      return false;
    case QEvent::KeyPress:
      return KeyPress(*static_cast<QKeyEvent*>(event));
    case QEvent::ContextMenu:
      // The button that ended a drag has done its work.
      return static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Mouse &&
             std::exchange(endedDrag_, false);
    case QEvent::FocusOut:
    case QEvent::Resize:
    case QEvent::Hide:
      Drop();
      return false;
    default:
      return QObject::eventFilter(watched, event);
  }
}

}  // namespace halvorne
