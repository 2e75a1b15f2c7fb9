#include "report/windows/preview_picture.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "platform/failure.h"
#include "report/report_layout.h"

namespace halvorne {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kInchesPerMetre = 1 / 0.0254;
/// Page units of the picture's height and of a page; the picture shows a margin around the page.
constexpr double kPictureUnits = 10.88;
constexpr double kPageUnits = 10;
constexpr double kMarginUnits = 0.44;
/// Pages for which there is room from the start: a report of more is rare.
constexpr int kUsualPages = 2;
constexpr double kLargest = 3;
constexpr double kStep = 1.25;

}  // namespace

void PreviewSurface::SetSize(QSize picture, double devicePixelRatio, int pages) {
  const QSizeF canvas = QSizeF(picture.expandedTo({1, 1})) * devicePixelRatio;
  const double height = canvas.height() * (1 + (pages - 1) * kPageUnits / kPictureUnits);
  image_ = QImage(static_cast<int>(std::ceil(canvas.width())), static_cast<int>(std::ceil(height)),
                  QImage::Format_RGB32);
  if (image_.isNull()) {
    throw Failure(failure_number::kOutOfMemory);
  }
  const int dotsPerMetre =
      static_cast<int>(std::lround(kPixelsPerInch * kInchesPerMetre * devicePixelRatio));
  image_.setDotsPerMeterX(dotsPerMetre);
  image_.setDotsPerMeterY(dotsPerMetre);
  SetCanvas({.size = canvas, .unitsPerPixel = devicePixelRatio});
  Cls();
}

int PreviewSurface::Pages() const {
  const double below = -kMarginUnits - CurrentY();
  return below > 0 ? 1 + static_cast<int>(std::ceil(below / kPageUnits)) : 1;
}

QRect PreviewSurface::PageOf(int page) const {
  const QSizeF picture = GetCanvas().size;
  const double top = (page - 1) * picture.height() * kPageUnits / kPictureUnits;
  return {QPoint(0, static_cast<int>(std::lround(top))), picture.toSize()};
}

void PreviewSurface::Cls() {
  DrawingSurface::Cls();
  image_.fill(Qt::white);
}

void PreviewSurface::Paint(const QRectF& /*touched*/, const std::function<void(QPainter&)>& draw) {
  QPainter painter(&image_);
  draw(painter);
}

PreviewPicture::PreviewPicture(QWidget* parent) : QAbstractScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(QStringLiteral("Page of the report"));
}

void PreviewPicture::Draw() {
  const double ratio = devicePixelRatioF() * enlargement_;
  surface_.SetSize(size(), ratio, kUsualPages);
  PrintOn(surface_);
  pages_ = surface_.Pages();
  if (pages_ > kUsualPages) {
    surface_.SetSize(size(), ratio, pages_);
    PrintOn(surface_);
  }
  SetBars();
  ShowPage(page_);
}

QSize PreviewPicture::PageSize() const {
  return (QSizeF(size()) * enlargement_).toSize();
}

void PreviewPicture::SetBars() {
  const bool enlarged = enlargement_ > 1;
  const Qt::ScrollBarPolicy policy = enlarged ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
  setHorizontalScrollBarPolicy(policy);
  setVerticalScrollBarPolicy(policy);
  const QSize hidden = (PageSize() - viewport()->size()).expandedTo({0, 0});
  horizontalScrollBar()->setRange(0, enlarged ? hidden.width() : 0);
  verticalScrollBar()->setRange(0, enlarged ? hidden.height() : 0);
  horizontalScrollBar()->setPageStep(viewport()->width());
  verticalScrollBar()->setPageStep(viewport()->height());
  horizontalScrollBar()->setSingleStep(20);
  verticalScrollBar()->setSingleStep(20);
}

void PreviewPicture::ShowPage(int page) {
  page_ = std::clamp(page, 1, pages_);
  viewport()->update();
  if (listener_) {
    listener_();
  }
}

void PreviewPicture::Enlarge(double factor, QPoint fixed) {
  const double before = enlargement_;
  enlargement_ = std::clamp(enlargement_ * factor, 1.0, kLargest);
  if (enlargement_ == before) {
    return;
  }
  const QPointF point = QPointF(fixed.x() + horizontalScrollBar()->value(),
                                fixed.y() + verticalScrollBar()->value()) /
                        before;
  Draw();
  horizontalScrollBar()->setValue(qRound(point.x() * enlargement_ - fixed.x()));
  verticalScrollBar()->setValue(qRound(point.y() * enlargement_ - fixed.y()));
}

void PreviewPicture::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_PageDown || event->key() == Qt::Key_PageUp) {
    event->ignore();  // the window's
    return;
  }
  QAbstractScrollArea::keyPressEvent(event);
}

void PreviewPicture::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  const double ratio = devicePixelRatioF();
  const QPointF corner(horizontalScrollBar()->value(), verticalScrollBar()->value());
  const QRect page = surface_.PageOf(page_);
  painter.drawImage(
      QRectF(viewport()->rect()), surface_.Image(),
      QRectF(QPointF(page.topLeft()) + corner * ratio, QSizeF(viewport()->size()) * ratio));
}

void PreviewPicture::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  SetBars();
}

void PreviewPicture::wheelEvent(QWheelEvent* event) {
  const int turn = event->angleDelta().y();
  if (turn == 0) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  event->accept();
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    Enlarge(turn > 0 ? kStep : 1 / kStep, event->position().toPoint());
    return;
  }
  const QScrollBar* const bar = verticalScrollBar();
  const bool atEnd = turn > 0 ? bar->value() == bar->minimum() : bar->value() == bar->maximum();
  if (!atEnd) {
    QAbstractScrollArea::wheelEvent(event);
  } else if (turn < 0 ? page_ < pages_ : page_ > 1) {
    verticalScrollBar()->setValue(turn < 0 ? bar->minimum() : bar->maximum());
    ShowPage(turn < 0 ? page_ + 1 : page_ - 1);
  }
}

}  // namespace halvorne
