#include "platform_qt/recording_device.h"

#include <QPainter>
#include <algorithm>
#include <iterator>

namespace halvorne::testing {
namespace {

class RecordingEngine final : public QPaintEngine {
 public:
  explicit RecordingEngine(std::vector<PaintCall>& calls)
      : QPaintEngine(AllFeatures), calls_(calls) {}

  bool begin(QPaintDevice* /*device*/) override { return true; }
  bool end() override { return true; }
  Type type() const override { return User; }
  void updateState(const QPaintEngineState& now) override {
    if ((now.state() & DirtyPen) != 0) {
      pen_ = now.pen();
    }
    if ((now.state() & DirtyBrush) != 0) {
      brush_ = now.brush();
    }
  }
  void drawLines(const QLineF* lines, int count) override {
    for (int k = 0; k < count; ++k) {
      Write(PaintCall::Kind::kLine, QPolygonF({lines[k].p1(), lines[k].p2()}));
    }
  }
  void drawRects(const QRectF* rectangles, int count) override {
    for (int k = 0; k < count; ++k) {
      const bool filled = pen_.style() == Qt::NoPen;
      Write(filled ? PaintCall::Kind::kFill : PaintCall::Kind::kRectangle,
            QPolygonF({rectangles[k].topLeft(), rectangles[k].bottomRight()}));
    }
  }
  void drawPolygon(const QPointF* points, int count, PolygonDrawMode /*mode*/) override {
    Write(PaintCall::Kind::kPolyline, QPolygonF(QList<QPointF>(points, points + count)));
  }
  void drawTextItem(const QPointF& start, const QTextItem& item) override {
    Write(PaintCall::Kind::kText, QPolygonF({start}), item.text());
  }
  void drawPixmap(const QRectF& /*where*/, const QPixmap& /*pixmap*/,
                  const QRectF& /*part*/) override {}

 private:
  void Write(PaintCall::Kind kind, const QPolygonF& points, const QString& text = {}) {
    const QColor colour = kind == PaintCall::Kind::kFill ? brush_.color() : pen_.color();
    calls_.push_back({kind, points, text, colour, pen_.widthF(), pen_.style() != Qt::SolidLine});
  }

  std::vector<PaintCall>& calls_;
  QPen pen_;
  QBrush brush_;
};

}  // namespace

RecordingDevice::RecordingDevice(QSize size, int dotsPerInch)
    : size_(size), dotsPerInch_(dotsPerInch), engine_(std::make_unique<RecordingEngine>(calls_)) {}

RecordingDevice::~RecordingDevice() = default;

std::vector<PaintCall> RecordingDevice::CallsOf(PaintCall::Kind kind) const {
  std::vector<PaintCall> found;
  std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(found),
               [kind](const PaintCall& call) { return call.kind == kind; });
  return found;
}

int RecordingDevice::metric(PaintDeviceMetric metric) const {
  switch (metric) {
    case PdmWidth:
      return size_.width();
    case PdmHeight:
      return size_.height();
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
      return dotsPerInch_;
    case PdmDevicePixelRatio:
      return 1;
    case PdmDevicePixelRatioScaled:
      return static_cast<int>(devicePixelRatioFScale());
    default:
      return QPaintDevice::metric(metric);
  }
}

}  // namespace halvorne::testing
