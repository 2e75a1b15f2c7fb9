#include "plot/held_legend.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "plot/compared_designs.h"
#include "plot/graph.h"
#include "plot/graph_description.h"
#include "plot/held_drawing.h"
#include "plot/trace_colours.h"

namespace halvorne::testing {
namespace {

class HeldLegend : public ComparedDesigns {
 protected:
  /// The texts of the legend, which stand below the read-out's line.
  static std::vector<DrawnOperation> LegendOn(HeadlessSurface& surface) {
    PlotGraphOn(surface);
    const double top = ReadOutLine(surface) - std::abs(surface.TextHeight("X"));
    std::vector<DrawnOperation> texts = OfKind(surface, DrawnOperation::Kind::kText);
    std::erase_if(texts, [&](const DrawnOperation& text) {
      return text.points[0].y > top + 1e-9 || text.text.find_first_not_of(' ') == std::string::npos;
    });
    return texts;
  }
};

TEST_F(HeldLegend, TellsPresentAndHeldDesignsByTitleAndFile) {
  Make("Present");
  HoldAnother("Another");
  HoldAnother("Third");
  Choose(31, 0);
  HeadlessSurface surface;
  const auto texts = LegendOn(surface);
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_EQ(texts[0].text, "Present (Present.dat)");
  EXPECT_EQ(texts[1].text, "1: Another (Another.dat)");
  EXPECT_EQ(texts[2].text, "2: Third (Third.dat)");
  // Each behind a piece of line in its colour.
  for (const Colour colour : {kFirstTraceColour, kHeldColours[0], kHeldColours[1]}) {
    EXPECT_TRUE(std::ranges::any_of(surface.Operations(), [&](const DrawnOperation& drawn) {
      return drawn.kind == DrawnOperation::Kind::kLine && drawn.colour == colour &&
             drawn.points[0].y < 0;
    }));
  }
}

TEST_F(HeldLegend, IsNotThereWithoutHeldDesigns) {
  Make("Present");
  Choose(31, 0);
  HeadlessSurface surface;
  EXPECT_TRUE(LegendOn(surface).empty());
  EXPECT_TRUE(Legend().empty());
}

TEST_F(HeldLegend, TellsWhatHindersADesign) {
  Make("Present");
  HoldAnother("Bare", [] { design.NoFace = 0; });
  Choose(51, 0);
  EXPECT_EQ(Legend()[1].text, "1: Bare (Bare.dat) - not shown: no such faceplate");
}

TEST_F(HeldLegend, OfSevenLongTitlesStaysWithinThePictureOnSeveralSizes) {
  Make("Present");
  Choose(31, 0);
  for (int i = 0; i < 6; ++i) {
    HoldAnother(
        "A probe with quite a long title, such as engineers give, who have made many of them with "
        "plates of several thicknesses and materials, loads and networks, number " +
        std::to_string(i));
  }
  for (const auto& [width, height] : {std::pair{620.0, 330.0}, {800.0, 600.0}, {1400.0, 900.0}}) {
    for (const int number : {31, 34}) {
      Choose(number, 0);
      SCOPED_TRACE(std::to_string(height) + " plot " + std::to_string(number));
      HeadlessSurface surface(SurfaceKind::kMainPicture, width, height);
      const auto texts = LegendOn(surface);
      ASSERT_EQ(texts.size(), 7U);
      const double bottom = number == 34 ? -3.7 : -2;
      surface.SetFontSize(texts[0].fontSize);
      for (const DrawnOperation& text : texts) {
        EXPECT_GE(text.points[0].y - std::abs(surface.TextHeight("X")), bottom - 1e-9);
        EXPECT_LE(text.points[0].x + surface.TextWidth(text.text), 12);
        EXPECT_GE(text.points[0].x, -2);
      }
      EXPECT_TRUE(texts[6].text.ends_with("..."));
      EXPECT_TRUE(texts[6].text.starts_with("6: A")) << texts[6].text;
    }
  }
}

TEST_F(HeldLegend, CutsALongTitleBeforeItsFileAndWhatHindersIt) {
  const std::string title =
      "A probe with quite a long title, such as engineers give, who have made many of them with "
      "plates of several thicknesses and materials, loads and networks";
  Make("Present");
  HoldAnother(title, [] { design.DataFileName = "/data/one.dat"; });
  HoldAnother(title, [] {
    design.DataFileName = "/data/other.dat";
    design.NoFace = 0;
  });
  HeadlessSurface surface(SurfaceKind::kMainPicture, 1000, 620);
  Choose(31, 0);
  auto texts = LegendOn(surface);
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_TRUE(texts[1].text.ends_with("... (one.dat)")) << texts[1].text;
  EXPECT_TRUE(texts[2].text.ends_with("... (other.dat)")) << texts[2].text;
  surface.Forget();
  Choose(51, 0);
  texts = LegendOn(surface);
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_TRUE(texts[1].text.ends_with("... (one.dat)")) << texts[1].text;
  EXPECT_TRUE(texts[2].text.ends_with("... - not shown: no such faceplate")) << texts[2].text;
  EXPECT_TRUE(texts[2].text.starts_with("2: A probe")) << texts[2].text;
}

TEST_F(HeldLegend, CutsNoCharacterApart) {
  Make("Present");
  Choose(31, 0);
  std::string title;
  for (int i = 0; i < 200; ++i) {
    title += "\xC3\xA4";
  }
  HoldAnother(title);
  HeadlessSurface surface;
  const std::string text = LegendOn(surface).at(1).text;
  ASSERT_TRUE(text.ends_with("..."));
  EXPECT_EQ(text.size() % 2, 0U) << "3 bytes of \"1: \", whole pairs, 3 dots";
}

TEST_F(HeldLegend, IsToldToThoseWhoCannotSeeIt) {
  Make("Present");
  Choose(31, 0);
  const std::string alone = GraphDescription();
  HoldAnother("Another");
  HoldAnother("Third");
  EXPECT_EQ(GraphDescription(),
            alone + " Behind it: 1: Another (Another.dat), 2: Third (Third.dat).");
}

TEST_F(HeldLegend, CurvesAreCutOffAtTheFourSidesOfTheBox) {
  HeadlessSurface surface;
  const std::array<Point, 5> curve{{{-5, 5}, {5, 5}, {5, 15}, {8, 15}, {8, -5}}};
  DrawWithinBox(surface, curve);
  const auto pieces = OfKind(surface, DrawnOperation::Kind::kPolyline);
  ASSERT_EQ(pieces.size(), 2U);
  const std::vector<Point> first{{0, 5}, {5, 5}, {5, 10}};
  const std::vector<Point> second{{8, 10}, {8, 0}};
  for (const auto& [piece, expected] : {std::pair{pieces[0], first}, {pieces[1], second}}) {
    ASSERT_EQ(piece.points.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_DOUBLE_EQ(piece.points[i].x, expected[i].x);
      EXPECT_DOUBLE_EQ(piece.points[i].y, expected[i].y);
    }
  }
  surface.Forget();
  DrawWithinBox(surface, std::array<Point, 2>{{{-5, 5}, {5, 15.1}}});
  EXPECT_TRUE(OfKind(surface, DrawnOperation::Kind::kPolyline).empty()) << "it passes the corner";
}

// How a colour looks to people without one of the three kinds of cones: G. M. Machado, M. M.
// Oliveira, L. A. F. Fernandes, IEEE Trans. Visualization and Computer Graphics 15 (2009) 1291.
using Rgb = std::array<double, 3>;
using Sight = std::array<Rgb, 3>;
constexpr std::array<Sight, 4> kSights{{{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
                                        {{{0.152286, 1.052583, -0.204868},
                                          {0.114503, 0.786281, 0.099216},
                                          {-0.003882, -0.048116, 1.051998}}},
                                        {{{0.367322, 0.860646, -0.227968},
                                          {0.280085, 0.672501, 0.047413},
                                          {-0.011820, 0.042940, 0.968881}}},
                                        {{{1.255528, -0.076749, -0.178779},
                                          {-0.078411, 0.930809, 0.147602},
                                          {0.004733, 0.691367, 0.303900}}}}};

double Linear(std::uint8_t channel) {
  const double share = channel / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

/// CIE L*a*b* of what is seen.
Rgb Seen(Colour colour, const Sight& sight) {
  const Rgb linear{Linear(colour.red), Linear(colour.green), Linear(colour.blue)};
  Rgb seen{};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      seen[i] += sight[i][j] * linear[j];
    }
    seen[i] = std::clamp(seen[i], 0.0, 1.0);
  }
  const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
  const double x = f((0.4124 * seen[0] + 0.3576 * seen[1] + 0.1805 * seen[2]) / 0.9505);
  const double y = f(0.2126 * seen[0] + 0.7152 * seen[1] + 0.0722 * seen[2]);
  const double z = f((0.0193 * seen[0] + 0.1192 * seen[1] + 0.9505 * seen[2]) / 1.089);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double Distance(Colour a, Colour b) {
  double least = 1e9;
  for (const Sight& sight : kSights) {
    const Rgb p = Seen(a, sight);
    const Rgb q = Seen(b, sight);
    least = std::min(least, std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]));
  }
  return least;
}

TEST_F(HeldLegend, ColoursAreToldApartByEverybodyAndFromPaperAndPresentCurves) {
  for (int i = 0; i < kHeldSlots; ++i) {
    const Colour colour = kHeldColours.at(static_cast<std::size_t>(i));
    for (int j = i + 1; j < kHeldSlots; ++j) {
      EXPECT_GT(Distance(colour, kHeldColours.at(static_cast<std::size_t>(j))), 15)
          << i << " and " << j;
    }
    for (const Colour other : {kFirstTraceColour, kSecondTraceColour, Colour{255, 255, 255}}) {
      EXPECT_GT(Distance(colour, other), 25) << i;
    }
  }
}

}  // namespace
}  // namespace halvorne::testing
