#include "platform/qt/painter_surface.h"

#include <QPdfWriter>
#include <cmath>
#include <gtest/gtest.h>

#include "engine/frequency_sweep.h"
#include "platform/failure.h"
#include "platform/headless_surface.h"
#include "platform_qt/recording_device.h"
#include "plot/graph.h"
#include "plot/plot_select.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

using Drawn = DrawnOperation::Kind;
using Painted = PaintCall::Kind;

// Twice the screen's resolution: no grid of pixels moves a line there.
constexpr QSize kSize(2000, 1200);
constexpr int kFineResolution = 192;
constexpr double kPrecision = 1e-6;

/// Follows the scale of written-down operations to device coordinates.
class Mapping {
 public:
  void Follow(const DrawnOperation& operation) {
    if (operation.kind == Drawn::kScale) {
      corner1_ = operation.points[0];
      corner2_ = operation.points[1];
    }
  }
  QPointF operator()(Point point) const {
    return {(point.x - corner1_.x) / (corner2_.x - corner1_.x) * kSize.width(),
            (point.y - corner1_.y) / (corner2_.y - corner1_.y) * kSize.height()};
  }

 private:
  Point corner1_{0, 0};
  Point corner2_{1, 1};
};

void ExpectAt(QPointF actual, QPointF expected) {
  EXPECT_NEAR(actual.x(), expected.x(), kPrecision);
  EXPECT_NEAR(actual.y(), expected.y(), kPrecision);
}

void ExpectSameColour(const QColor& actual, Colour expected) {
  EXPECT_EQ(actual, QColor(expected.red, expected.green, expected.blue));
}

/// Every line, box and trace that was written down must have been painted in its place and order.
void ExpectPainted(const std::vector<DrawnOperation>& operations,
                   const std::vector<PaintCall>& calls) {
  Mapping map;
  auto call = calls.begin();
  const auto next = [&] {
    while (call != calls.end() && (call->kind == Painted::kFill || call->kind == Painted::kText)) {
      ++call;
    }
    return call == calls.end() ? nullptr : &*call++;
  };
  for (const DrawnOperation& operation : operations) {
    map.Follow(operation);
    if (operation.kind != Drawn::kLine && operation.kind != Drawn::kBox &&
        operation.kind != Drawn::kPolyline) {
      continue;
    }
    const PaintCall* painted = next();
    ASSERT_NE(painted, nullptr) << "an operation was not painted";
    ExpectSameColour(painted->colour, operation.colour);
    EXPECT_EQ(painted->dotted, operation.drawStyle == kDots);
    if (operation.kind == Drawn::kBox) {
      const QRectF box = QRectF(map(operation.points[0]), map(operation.points[1])).normalized();
      ASSERT_EQ(painted->kind, Painted::kRectangle);
      ExpectAt(painted->points[0], box.topLeft());
      ExpectAt(painted->points[1], box.bottomRight());
      continue;
    }
    EXPECT_EQ(painted->kind, operation.kind == Drawn::kLine ? Painted::kLine : Painted::kPolyline);
    ExpectAt(painted->points.first(), map(operation.points.front()));
    ExpectAt(painted->points.last(), map(operation.points.back()));
  }
  EXPECT_EQ(next(), nullptr) << "something was painted that nobody asked for";
}

void DrawSomeOfAll(Surface& surface) {
  surface.Cls();
  surface.Scale(-2, 11, 12, -2);
  surface.Box(0, 0, 10, 10);
  surface.SetForeColor(kBlue);
  surface.Line(1, 2, 3, 4);
  surface.Line(5, 6, 7, 8.5, kCyan);
  surface.SetDrawStyle(kDots);
  const std::vector<Point> trace{{0, 0}, {2, 9}, {4, 1}, {10, 5}};
  surface.Polyline(trace);
  surface.SetDrawStyle(kSolid);
  surface.Scale(-15, 12.5, 14.17, -20);
  surface.SetForeColor(kBlack);
  surface.Box(10, 10, 0, 0);
  surface.Line(0, 5, 10, 5);
}

TEST(PainterSurface, PaintsWhatTheHeadlessSurfaceWritesDown) {
  HeadlessSurface written;
  RecordingDevice device(kSize, kFineResolution);
  PainterSurface painted(device, SurfaceKind::kMainPicture);
  DrawSomeOfAll(written);
  DrawSomeOfAll(painted);
  painted.EndDoc();
  ExpectPainted(written.Operations(), device.Calls());
  EXPECT_EQ(painted.CurrentX(), written.CurrentX());
  EXPECT_EQ(painted.CurrentY(), written.CurrentY());
}

TEST(PainterSurface, ATraceOf65536PointsIsOneCall) {
  RecordingDevice device(kSize, kFineResolution);
  PainterSurface surface(device, SurfaceKind::kMainPicture);
  surface.Scale(0, 10, 10, 0);
  std::vector<Point> trace(65536);
  for (std::size_t i = 0; i < trace.size(); ++i) {
    const auto t = static_cast<double>(i);
    trace[i] = {t / 6553.5, 5 + 5 * std::sin(t * t)};
  }
  surface.Polyline(trace);
  surface.EndDoc();
  ASSERT_EQ(device.Calls().size(), 1U);
  EXPECT_EQ(device.Calls()[0].kind, Painted::kPolyline);
  // Four columns in a pixel of the screen, of which the device has half as many as units.
  EXPECT_LE(device.Calls()[0].points.size(), 4 * 4 * kSize.width() / 2 + 4);
}

TEST(PainterSurface, APenIsAPixelOfTheScreenAndFinerOnThePrinter) {
  const auto widthOn = [](SurfaceKind kind) {
    RecordingDevice device(kSize, kFineResolution);
    PainterSurface surface(device, kind);
    surface.Line(0.1, 0.2, 0.3, 0.7);
    surface.EndDoc();
    return device.Calls().at(0).penWidth;
  };
  EXPECT_DOUBLE_EQ(widthOn(SurfaceKind::kMainPicture), 2);
  EXPECT_DOUBLE_EQ(widthOn(SurfaceKind::kPrinter), 2 * 2 / 3.0) << "half a point";
}

TEST(PainterSurface, ATextThatIsNotTransparentPaintsItsBackgroundFirst) {
  RecordingDevice device(kSize, kFineResolution);
  PainterSurface surface(device, SurfaceKind::kMainPicture);
  surface.Scale(0, 0, 2000, 1200);
  surface.SetFontTransparent(false);
  surface.MoveTo(100, 50);
  surface.Print("Ohms");
  surface.EndDoc();
  ASSERT_EQ(device.Calls().size(), 2U);
  const PaintCall& ground = device.Calls()[0];
  EXPECT_EQ(ground.kind, Painted::kFill);
  EXPECT_EQ(ground.colour, QColor(Qt::white));
  ExpectAt(ground.points[0], {100, 50});
  EXPECT_NEAR(ground.points[1].x(), 100 + surface.TextWidth("Ohms"), kPrecision);
  EXPECT_NEAR(ground.points[1].y(), 50 + surface.TextHeight("Ohms"), kPrecision);
  EXPECT_EQ(device.Calls()[1].text, "Ohms");
  EXPECT_NEAR(surface.CurrentX(), 100 + surface.TextWidth("Ohms"), kPrecision);
  EXPECT_EQ(surface.CurrentY(), 50);
}

TEST(PainterSurface, ExtentsOfTextsFollowScaleFontAndResolution) {
  RecordingDevice device(kSize, kFineResolution);
  PainterSurface surface(device, SurfaceKind::kMainPicture);
  surface.Scale(0, 0, kSize.width(), kSize.height());
  const double width = surface.TextWidth("Frequency");
  const double height = surface.TextHeight("Frequency");
  EXPECT_NEAR(height, 8 * 192 / 72.0 * 1.16, 3) << "eight points high, and the line's leading";
  EXPECT_NEAR(surface.TextWidth("FrequencyFrequency"), 2 * width, 0.02 * width);
  surface.SetFontSize(16);
  EXPECT_NEAR(surface.TextWidth("Frequency"), 2 * width, 0.05 * width);
  surface.SetFontSize(8);
  surface.Scale(0, 10, 10, 0);
  EXPECT_NEAR(surface.TextWidth("Frequency"), width * 10 / kSize.width(), 1e-9);
  EXPECT_NEAR(surface.TextHeight("Frequency"), -height * 10 / kSize.height(), 1e-9)
      << "negative where y grows upward";
  EXPECT_THROW(surface.SetFontSize(0), Failure);
}

TEST(PainterSurface, LinesOfATextStandBelowEachOther) {
  RecordingDevice device(kSize, kFineResolution);
  PainterSurface surface(device, SurfaceKind::kMainPicture);
  surface.Scale(0, 0, kSize.width(), kSize.height());
  surface.MoveTo(30, 10);
  surface.Print("one\r\ntwo");
  surface.EndDoc();
  const auto texts = device.CallsOf(Painted::kText);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_NEAR(texts[1].points[0].x(), 0, kPrecision) << "a new line starts at x = 0";
  EXPECT_NEAR(texts[1].points[0].y() - texts[0].points[0].y(), surface.TextHeight("one"),
              kPrecision);
}

TEST(PainterSurface, TextsThatAreNoUtf8AreLatin1) {
  RecordingDevice device(kSize, kFineResolution);
  PainterSurface surface(device, SurfaceKind::kMainPicture);
  surface.Print("\xB5m");
  surface.Print("\xC2\xB5m");
  surface.EndDoc();
  const auto texts = device.CallsOf(Painted::kText);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].text, QStringLiteral("\u00B5m"));
  EXPECT_EQ(texts[1].text, QStringLiteral("\u00B5m"));
}

TEST(PainterSurface, ADeviceThatCannotBeOpenedIsAFailure) {
  QPdfWriter writer(QStringLiteral("/no/such/folder/file.pdf"));
  PainterSurface surface(writer, SurfaceKind::kPrinter);
  EXPECT_THROW(surface.Line(0, 0, 1, 1), Failure);
}

/// Whole plots of a swept design.
class PaintedPlot : public FreshProgram {
 protected:
  PaintedPlot() {
    MakeSimpleDesign(200, 1024);
    PrelimCalc();
    MainCalc();
  }
  void Select(std::int16_t number, int form) {
    view.CurrentPlot = number;
    PlotSelect(number);
    window.SetPlotTypeIndex(form);
  }
};

TEST_F(PaintedPlot, IsWhatTheHeadlessSurfaceWritesDown) {
  for (const auto& [number, form] :
       {std::pair<std::int16_t, int>{11, 0}, {31, 1}, {33, 5}, {17, 6}}) {
    SCOPED_TRACE(number);
    Select(number, form);
    HeadlessSurface written(SurfaceKind::kPrinter);
    RecordingDevice device(kSize, kFineResolution);
    PainterSurface painted(device, SurfaceKind::kPrinter);
    PlotGraphOn(written);
    PlotGraphOn(painted);
    painted.EndDoc();
    ExpectPainted(written.Operations(), device.Calls());
    QStringList expected;
    for (const DrawnOperation& operation : written.Operations()) {
      if (operation.kind == Drawn::kText &&
          operation.text.find_first_not_of(' ') != std::string::npos) {
        expected += QString::fromStdString(operation.text).trimmed();
      }
    }
    QStringList texts;
    for (const PaintCall& call : device.CallsOf(Painted::kText)) {
      if (!call.text.trimmed().isEmpty()) {
        texts += call.text.trimmed();
      }
    }
    EXPECT_EQ(texts, expected);
  }
  EXPECT_EQ(shownMessages.Lines(), std::vector<std::string>{});
}

TEST_F(PaintedPlot, HandsATraceThatStaysInTheBoxOverAtOnce) {
  Select(16, 0);
  for (std::int32_t i = 0; i <= kLastTimePoint; ++i) {
    points.PlotData(i) = {std::sin(i * 0.37), 0};
  }
  RecordingDevice device(kSize, kFineResolution);
  PainterSurface painted(device, SurfaceKind::kPreview);
  painted.Scale(-2, 11, 12, -2);
  PlotItOn(painted, 0, kLastTimePoint, 1, points.PlotData);
  painted.EndDoc();
  EXPECT_EQ(device.CallsOf(Painted::kPolyline).size(), 1U);
}

}  // namespace
}  // namespace halvorne::testing
