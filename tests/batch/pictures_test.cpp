#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

constexpr const char* kBurst = "burst_3mhz_dispersive";

class BatchPictures : public BatchTest {
 protected:
  /// Draws a plot into a file of that name and returns its bytes.
  QByteArray Draw(const std::string& name, Words words) const {
    words.insert(words.begin(), {"plot", file});
    words.insert(words.end(), {"-o", Path(name)});
    EXPECT_EQ(Output(words), "");
    return QByteArray::fromStdString(ReadFile(Path(name)));
  }
  QImage DrawPng(const Words& words) const {
    return QImage::fromData(Draw("plot.png", words)).convertToFormat(QImage::Format_RGB32);
  }

  const std::string file = Shipped(kBurst);
};

int CountOf(const QImage& image, const QRect& where, bool (*matches)(QRgb)) {
  int count = 0;
  for (int y = where.top(); y <= where.bottom(); ++y) {
    for (int x = where.left(); x <= where.right(); ++x) {
      count += matches(image.pixel(x, y)) ? 1 : 0;
    }
  }
  return count;
}

bool IsBlue(QRgb pixel) {
  return qBlue(pixel) > 200 && qRed(pixel) < 100 && qGreen(pixel) < 100;
}
bool IsDark(QRgb pixel) {
  return qRed(pixel) < 90 && qGreen(pixel) < 90 && qBlue(pixel) < 90;
}

/// The pixels of a single graph's box, from the scale (-2, 11)-(12, -2) of the whole picture.
QRect BoxOf(QSize size) {
  const double perX = size.width() / 14.0;
  const double perY = size.height() / 13.0;
  return {QPoint(qRound(2 * perX), qRound(perY)), QPoint(qRound(12 * perX), qRound(11 * perY))};
}

TEST_F(BatchPictures, APngHasTheSizeThatWasAskedForAndAWhitePage) {
  EXPECT_EQ(DrawPng({"--plot", "11"}).size(), QSize(1000, 620)) << "the default";
  const QImage image = DrawPng({"--plot", "11", "--size", "333x222"});
  ASSERT_EQ(image.size(), QSize(333, 222));
  EXPECT_EQ(image.pixel(0, 0), qRgb(255, 255, 255));
  EXPECT_EQ(image.pixel(332, 221), qRgb(255, 255, 255));
}

TEST_F(BatchPictures, TheBoxStandsWhereTheScaleSays) {
  const QImage image = DrawPng({"--plot", "13", "--size", "1400x1300"});
  const QRect box = BoxOf(image.size());
  for (const QPoint corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}) {
    EXPECT_GT(CountOf(image, QRect(corner - QPoint(1, 1), QSize(3, 3)), IsDark), 0)
        << corner.x() << " " << corner.y();
  }
  const QPoint tick(box.left() + 100, box.bottom() - 10);
  EXPECT_TRUE(IsDark(image.pixel(tick))) << "a tick points inward, 0.13 of a division";
  EXPECT_FALSE(IsDark(image.pixel(tick - QPoint(0, 20)))) << "there are no grid lines";
}

TEST_F(BatchPictures, TheSecondTraceAloneIsBlueAndStaysInTheBox) {
  const QImage two = DrawPng({"--plot", "11"});
  const QRect box = BoxOf(two.size());
  const int blue = CountOf(two, box, IsBlue);
  EXPECT_GT(blue, box.width() / 2);
  EXPECT_EQ(CountOf(two, two.rect(), IsBlue), blue) << "a trace left the box";
  const QImage one = DrawPng({"--plot", "13"});
  EXPECT_EQ(CountOf(one, one.rect(), IsBlue), 0);
}

TEST_F(BatchPictures, ATraceRunsWhereItsDataLie) {
  const QImage image = DrawPng({"--plot", "31", "--form", "1", "--size", "1400x1300"});
  const QRect box = BoxOf(image.size());
  const Table data =
      TablesOf(Output({"data", file, "--plot", "31", "--form", "1", "--recalc"})).at(0);
  // The scale spans 60 dB below the next 5 dB above the peak.
  double peak = -1000;
  for (std::size_t i = 0; i < data.rows.size(); ++i) {
    peak = std::max(peak, data.Number(i, 1));
  }
  const double top = (std::floor(peak / 5) + 1) * 5;
  const std::size_t last = data.rows.size() - 1;
  for (const std::size_t i : {60U, 110U, 150U, 180U}) {
    const double x = box.left() + 1000.0 * static_cast<double>(i) / static_cast<double>(last);
    const double y = box.top() + 1000 * (top - data.Number(i, 1)) / 60;
    EXPECT_GT(CountOf(image, QRect(qRound(x) - 2, qRound(y) - 2, 5, 5), IsDark), 0) << i;
  }
}

TEST_F(BatchPictures, AnSvgShowsTheSamePictureAsThePng) {
  const QByteArray bytes = Draw("plot.svg", {"--plot", "34", "--form", "6"});
  QSvgRenderer svg(bytes);
  ASSERT_TRUE(svg.isValid());
  EXPECT_EQ(svg.viewBox().size(), QSize(1000, 620));
  QImage drawn(1000, 620, QImage::Format_RGB32);
  drawn.fill(Qt::white);
  {
    QPainter painter(&drawn);
    svg.render(&painter, QRectF(0, 0, 1000, 620));
  }
  const QImage png = DrawPng({"--plot", "34", "--form", "6"});
  // Blocks of 20 pixels: what is drawn in one picture is drawn in the other.
  int differing = 0;
  for (int y = 0; y < 620; y += 20) {
    for (int x = 0; x < 1000; x += 20) {
      const QRect block = QRect(x, y, 20, 20) & png.rect();
      const QRect around = block.adjusted(-4, -4, 4, 4) & png.rect();
      const bool here = CountOf(png, block, IsBlue) > 12;
      differing += here && CountOf(drawn, around, IsBlue) == 0 ? 1 : 0;
    }
  }
  EXPECT_EQ(differing, 0) << "blocks of blue trace that the SVG lacks";
  EXPECT_TRUE(bytes.contains("Pulse-Echo (Two-way) Excitation Response - V(Rx)/V(Tx)"));
}

TEST_F(BatchPictures, APdfPageHasTheSizeInPoints) {
  const QByteArray bytes = Draw("plot.pdf", {"--plot", "11", "--size", "800x400"});
  EXPECT_TRUE(bytes.startsWith("%PDF-"));
  const QRegularExpression box(R"(/MediaBox \[0 0 (\S+) (\S+)\])");
  const auto match = box.match(QString::fromLatin1(bytes));
  ASSERT_TRUE(match.hasMatch());
  EXPECT_NEAR(match.captured(1).toDouble(), 600, 0.01);
  EXPECT_NEAR(match.captured(2).toDouble(), 300, 0.01);
  EXPECT_EQ(bytes.count("/Type /Page\n"), 1) << "one picture, one page";
  EXPECT_GT(bytes.size(), 5000) << "a blank page";
}

TEST_F(BatchPictures, WithoutAFileThePngGoesToStandardOutput) {
  const std::string bytes = Output({"plot", file, "--plot", "11"});
  EXPECT_EQ(QByteArray::fromStdString(bytes), Draw("same.png", {"--plot", "11"}));
}

TEST_F(BatchPictures, AnEndingMayBeInCapitals) {
  EXPECT_TRUE(Draw("PLOT.PDF", {"--plot", "11"}).startsWith("%PDF-"));
}

TEST_F(BatchPictures, EveryPlotAndFormLeavesMoreThanItsAxes) {
  // All waveform forms, both traces of each, on a small picture.
  for (int form = 0; form <= 8; ++form) {
    const QImage image =
        DrawPng({"--plot", "33", "--form", std::to_string(form), "--size", "420x390"});
    const QRect inside = BoxOf(image.size()).adjusted(12, 12, -12, -12);
    EXPECT_GT(CountOf(image, inside, [](QRgb p) { return p != qRgb(255, 255, 255); }), 60) << form;
    EXPECT_EQ(CountOf(image, inside, IsBlue) > 0, form >= 3) << form;
  }
}

TEST_F(BatchPictures, TheStackIsDrawnInEachFormat) {
  const auto draw = [&](const std::string& name, Words words) {
    words.insert(words.begin(), {"stack", file});
    words.insert(words.end(), {"-o", Path(name)});
    EXPECT_EQ(Output(words), "");
    return QByteArray::fromStdString(ReadFile(Path(name)));
  };
  const QImage image = QImage::fromData(draw("stack.png", {}));
  EXPECT_EQ(image.size(), QSize(640, 480)) << "the default";
  // The middle of the layers' left third is filled, the right edge is paper.
  EXPECT_NE(image.pixel(130, 250), qRgb(255, 255, 255));
  EXPECT_EQ(image.pixel(638, 250), qRgb(255, 255, 255));
  EXPECT_EQ(QImage::fromData(draw("small.png", {"--size", "100x100"})).size(), QSize(100, 100));
  const QByteArray svg = draw("stack.svg", {});
  EXPECT_TRUE(QSvgRenderer(svg).isValid());
  EXPECT_TRUE(svg.contains("Face plate 1: "));
  EXPECT_TRUE(draw("stack.pdf", {}).startsWith("%PDF-"));
}

TEST_F(BatchPictures, TheStackFollowsTheFieldsThatAreSet) {
  const auto stack = [&](const std::string& setting) {
    return Output({"stack", file, "--set", setting});
  };
  EXPECT_NE(stack("FrontThick(1)=0.002"), stack("FrontThick(1)=0.0001"));
}

TEST_F(BatchPictures, AContactSheetHoldsThePlotsThatTheWindowOffers) {
  const auto sheet = [&](const std::string& name) {
    Output({"contact", Shipped(name), "-o", Path("sheet.png"), "--size", "200x150"});
    return QImage(QString::fromStdString(Path("sheet.png")));
  };
  const QImage all = sheet(kBurst);
  ASSERT_FALSE(all.isNull());
  EXPECT_EQ(all.width(), 4 * 208 + 8);
  // 23 plots in six rows; without plates behind and excitation 19 in five.
  EXPECT_EQ(all.height() - sheet("imaging_5mhz_two_layer").height(), 158);
}

TEST_F(BatchPictures, AContactSheetHoldsEachPlotAsItsOwnPicture) {
  Output({"contact", file, "-o", Path("sheet.png"), "--size", "200x150"});
  const QImage sheet =
      QImage(QString::fromStdString(Path("sheet.png"))).convertToFormat(QImage::Format_RGB32);
  const auto place = [&](int row, int column) {
    return sheet.copy(QRect(QPoint(8 + 208 * column, 40 + 158 * row), QSize(200, 150)));
  };
  EXPECT_EQ(place(0, 0), DrawPng({"--plot", "11", "--size", "200x150"}));
  EXPECT_EQ(place(0, 3), DrawPng({"--plot", "14", "--size", "200x150"}));
  EXPECT_EQ(place(1, 0), DrawPng({"--plot", "15", "--size", "200x150"}));
  EXPECT_EQ(place(1, 2), DrawPng({"--plot", "17", "--size", "200x150"})) << "one of three panes";
}

TEST_F(BatchPictures, AContactSheetThatWouldFillTheMemoryIsRefused) {
  const Outcome run = Run({"contact", file, "-o", Path("sheet.png"), "--size", "10000x10000"});
  EXPECT_EQ(run.status, 2);
  // 4 columns of 10008 and 8 beside them, 6 rows of 10008 and 48 beside them.
  EXPECT_NE(run.err.find("--size: a sheet of 23 plots would have 2406 million pixels"),
            std::string::npos)
      << run.err;
  EXPECT_LT(run.peakKib, 300L * 1024);
  EXPECT_EQ(Names(), std::vector<std::string>{});
}

}  // namespace
}  // namespace halvorne::testing
