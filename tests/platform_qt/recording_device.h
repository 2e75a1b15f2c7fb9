#pragma once

#include <QColor>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPolygonF>
#include <QString>
#include <memory>
#include <vector>

namespace halvorne::testing {

/// One call that the toolkit's painter made.
struct PaintCall {
  enum class Kind { kLine, kRectangle, kFill, kPolyline, kText };

  Kind kind;
  QPolygonF points;  ///< ends, opposite corners, vertices, or a text's start on its base line
  QString text;
  QColor colour;
  double penWidth;
  bool dotted;
};

/// A paint device of a given size and resolution that writes down every call.
class RecordingDevice final : public QPaintDevice {
 public:
  RecordingDevice(QSize size, int dotsPerInch);
  ~RecordingDevice() override;

  const std::vector<PaintCall>& Calls() const { return calls_; }
  std::vector<PaintCall> CallsOf(PaintCall::Kind kind) const;

  QPaintEngine* paintEngine() const override { return engine_.get(); }

 protected:
  int metric(PaintDeviceMetric metric) const override;

 private:
  QSize size_;
  int dotsPerInch_;
  std::vector<PaintCall> calls_;
  std::unique_ptr<QPaintEngine> engine_;
};

}  // namespace halvorne::testing
