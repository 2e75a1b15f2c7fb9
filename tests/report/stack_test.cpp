#include "report/stack.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "engine/design_model.h"
#include "platform/headless_surface.h"
#include "report/stack_drawing.h"
#include "report/stack_layout.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

using Kind = DrawnOperation::Kind;

constexpr double kWidth = 190;
constexpr double kHeight = 260;

class StackTest : public FreshProgram {
 protected:
  StackTest() { MakeSimpleDesign(); }

  static void AddPlates(int face, int back) {
    AcousticMaterial plate;
    plate.Name = "Epoxy";
    plate.Velocity = 2500;
    plate.Density = 1200;
    plate.Loss = 4;
    plate.LossFreq = 1;
    plate.LossExp = 1.5;
    design.NoFace = static_cast<std::int16_t>(face);
    design.NoBack = static_cast<std::int16_t>(back);
    for (int i = 1; i <= kMaxPlates; ++i) {
      design.FaceMatl(i) = design.BackMatl(i) = plate;
      design.FrontThick(i) = design.BackThick(i) = 0.000125;
    }
  }

  StackLayout Draw(double width = kWidth, double height = kHeight) {
    paper.Forget();
    return DrawStack(paper, StackOfDesign(), width, height);
  }

  static double HeightOf(const Area& area) { return area.bottom - area.top; }

  HeadlessSurface paper{SurfaceKind::kMainPicture, kWidth, kHeight};
};

std::vector<StackKind> Kinds(const Stack& stack) {
  std::vector<StackKind> kinds;
  for (const StackPart& part : stack.parts) {
    kinds.push_back(part.kind);
  }
  return kinds;
}

TEST_F(StackTest, PartsStandFromTheRearLoadToTheFrontLoad) {
  AddPlates(2, 3);
  using enum StackKind;
  const Stack stack = StackOfDesign();
  EXPECT_EQ(Kinds(stack), (std::vector{kRearLoad, kBackPlate, kBackPlate, kBackPlate, kPiezo,
                                       kFacePlate, kFacePlate, kFrontLoad, kElement, kPort}));
  EXPECT_EQ(stack.parts[1].number, 3) << "plate 1 lies next to the layers";
  EXPECT_EQ(stack.parts[3].number, 1);
  EXPECT_EQ(stack.parts[5].number, 1);
  EXPECT_EQ(stack.parts[6].number, 2);
}

TEST_F(StackTest, APlateTellsWhatItsDialogsShow) {
  AddPlates(1, 0);
  // 5 MHz x 0.125 mm / 2500 m/s = 0.25; 1200 kg/m^3 x 2500 m/s = 3 MRayls.
  EXPECT_EQ(StackOfDesign().parts[2].words,
            "Face plate 1: Epoxy\n"
            "Thickness 0.125 mm, 0.25 wavelengths at Fd = 5 MHz\n"
            "Impedance 3 MRayls\n"
            "Loss 4 dB/cm at 1 MHz, exponent 1.5");
  EXPECT_EQ(StackOfDesign().parts[2].impedance, 3e6) << "without the area";
}

TEST_F(StackTest, WavelengthsAreThoseOfTheMiddleOfTheBandWithoutADesignFrequency) {
  AddPlates(1, 0);
  design.DesignFreq = 0;
  design.FreqStart = 1e6;
  design.FreqStop = 3e6;
  EXPECT_NE(StackOfDesign().parts[2].words.find("0.1 wavelengths at mid band, 2 MHz"),
            std::string::npos);
  design.FaceMatl(1).Velocity = 0;
  EXPECT_EQ(StackOfDesign().parts[2].words.find("wavelengths"), std::string::npos);
}

TEST_F(StackTest, LoadsTellWhetherTheyAreComplex) {
  EXPECT_EQ(StackOfDesign().parts[0].words, "Rear load\nImpedance 3 MRayls");
  design.ZBackComplex = true;
  EXPECT_EQ(StackOfDesign().parts[0].words, "Rear load\nImpedance 3 MRayls, times a complex file");
}

TEST_F(StackTest, TwoLayersTellTheirConnection) {
  design.NoPiezo = 2;
  design.PZConnect = 2;
  design.PZMatl(2) = design.PZMatl(1);
  const Stack stack = StackOfDesign();
  EXPECT_TRUE(stack.parallel);
  EXPECT_TRUE(
      stack.parts[1].words.starts_with("Rear piezoelectric layer, in parallel: Test ceramic\n"));
  EXPECT_TRUE(stack.parts[2].words.starts_with("Front piezoelectric layer, in parallel"));
  design.PZConnect = 1;
  EXPECT_FALSE(StackOfDesign().parallel);
}

TEST_F(StackTest, TheNetworkEndsAtTheFirstEmptyRow) {
  design.ElNet(1, 1) = 3;
  design.ElNet(1, 2) = 2e-6;
  design.ElNet(3, 1) = 1;
  const Stack stack = StackOfDesign();
  ASSERT_EQ(stack.parts.size(), 5U);
  EXPECT_EQ(stack.parts[3].words, "Network element 1. Series L 2 uH");
  EXPECT_EQ(stack.parts[3].code, 3);
  EXPECT_EQ(stack.parts[4].words, "Electrical port\nTransmitter 50 Ohms\nReceiver 50 Ohms");
}

TEST_F(StackTest, SlabsLieOnOneAnotherWithTheFrontOnTop) {
  AddPlates(1, 1);
  const StackLayout layout = Draw();
  EXPECT_EQ(layout.parts[0].bottom, layout.slabs.bottom);
  for (int i = 1; i <= 4; ++i) {
    EXPECT_EQ(layout.parts[i].bottom, layout.parts[i - 1].top) << i;
  }
  EXPECT_NEAR(layout.parts[4].top, layout.slabs.top, 1e-9);
}

TEST_F(StackTest, ThicknessesAreToScale) {
  AddPlates(1, 1);
  design.FrontThick(1) = 0.0002;
  design.BackThick(1) = 0.0008;
  const StackLayout layout = Draw(400, 800);
  const double layer = HeightOf(layout.parts[2]);  // 0.4 mm
  EXPECT_NEAR(HeightOf(layout.parts[1]) / layer, 2, 1e-9);
  EXPECT_NEAR(HeightOf(layout.parts[3]) / layer, 0.5, 1e-9);
}

TEST_F(StackTest, ThinPlatesStayVisibleAndTheOthersKeepTheirProportion) {
  AddPlates(2, 1);
  design.FrontThick(1) = 1e-9;
  design.FrontThick(2) = 0.0002;
  const StackLayout layout = Draw();
  EXPECT_GE(HeightOf(layout.parts[3]), 4);
  EXPECT_LT(HeightOf(layout.parts[3]), 8);
  EXPECT_NEAR(HeightOf(layout.parts[4]) / HeightOf(layout.parts[2]), 0.5, 1e-9);
}

TEST_F(StackTest, NoThicknessAtAllSharesTheRoomEvenly) {
  AddPlates(3, 0);
  for (const double thickness : {0.0, -0.001, std::nan("")}) {
    design.PZThick(1) = thickness;
    for (int i = 1; i <= 3; ++i) {
      design.FrontThick(i) = thickness;
    }
    const StackLayout layout = Draw();
    EXPECT_GT(HeightOf(layout.parts[1]), 10);
    for (int i = 2; i <= 4; ++i) {
      EXPECT_NEAR(HeightOf(layout.parts[i]), HeightOf(layout.parts[1]), 1e-9) << thickness;
    }
  }
}

TEST_F(StackTest, EveryPartOfTheFullestDesignCanBePointedAtInTheSmallestPicture) {
  AddPlates(10, 10);
  design.NoPiezo = 2;
  for (int row = 1; row <= kNetworkRows; ++row) {
    design.ElNet(row, 1) = 1 + (row - 1) % 17;
  }
  const StackLayout layout = Draw(kSmallestStackWidth, kSmallestStackHeight);
  ASSERT_EQ(layout.parts.size(), 45U);
  for (std::size_t i = 0; i < layout.parts.size(); ++i) {
    const Area& area = layout.parts[i];
    EXPECT_EQ(StackPartAt(layout, area.MiddleX(), area.MiddleY()), static_cast<int>(i)) << i;
    EXPECT_GE(area.left, 0) << i;
    EXPECT_LE(area.right, kSmallestStackWidth) << i;
    EXPECT_GE(area.top, 0) << i;
    EXPECT_LE(area.bottom, layout.key.top) << i;
  }
  EXPECT_EQ(StackPartAt(layout, 1, 1), -1);
}

TEST_F(StackTest, LabelsStayInThePictureAndApart) {
  AddPlates(10, 10);
  for (const double height : {300.0, 620.0}) {
    HeadlessSurface large(SurfaceKind::kMainPicture, 500, height);
    const StackLayout layout = DrawStack(large, StackOfDesign(), 500, height);
    ASSERT_FALSE(layout.labels.empty());
    EXPECT_EQ(layout.labels.size() == 23U, height == 620) << "all of them or those with room";
    const double line = large.TextHeight("X");
    for (std::size_t i = 0; i < layout.labels.size(); ++i) {
      const StackLabel& label = layout.labels[i];
      EXPECT_LE(label.x + large.TextWidth(label.text), 500);
      EXPECT_GE(label.y, layout.slabs.top - 1e-9);
      EXPECT_LE(label.y + line, layout.slabs.bottom + 1e-9);
      EXPECT_TRUE(i == 0 || label.y >= layout.labels[i - 1].y + line - 1e-9) << i;
    }
  }
}

TEST_F(StackTest, ALongNameIsCutBetweenItsCharacters) {
  AddPlates(1, 0);
  design.FaceMatl(1).Name =
      "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"
      "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9";
  const StackLayout layout = Draw();
  const std::string& text = layout.labels.at(1).text;
  ASSERT_TRUE(text.ends_with("..."));
  EXPECT_EQ((text.size() - 3) % 2, 0U) << "whole characters of two bytes";
}

double Lightness(Colour colour) {
  return 0.2126 * colour.red + 0.7152 * colour.green + 0.0722 * colour.blue;
}

TEST_F(StackTest, ColoursGrowDarkerWithTheImpedance) {
  double before = 256;
  for (double z = 0.3e6; z < 100e6; z *= 1.2) {
    EXPECT_LT(Lightness(ImpedanceColour(z)), before) << z;
    before = Lightness(ImpedanceColour(z));
  }
  const double nan = std::nan("");
  for (const double low : {0.0, -5e6, nan, 415.0}) {
    EXPECT_EQ(ImpedanceColour(low), ImpedanceColour(0.3e6)) << low;
  }
  EXPECT_EQ(ImpedanceColour(std::numeric_limits<double>::infinity()), ImpedanceColour(100e6));
}

TEST_F(StackTest, EachSlabIsFilledWithTheColourOfItsImpedance) {
  AddPlates(1, 0);
  const StackLayout layout = Draw();
  const Area& plate = layout.parts[2];
  const auto found = std::ranges::find_if(paper.Operations(), [&](const DrawnOperation& each) {
    return each.kind == Kind::kFill && each.points[0].y == plate.top;
  });
  ASSERT_NE(found, paper.Operations().end());
  EXPECT_EQ(found->points[1].y, plate.bottom);
  EXPECT_EQ(found->colour, ImpedanceColour(3e6));
}

TEST_F(StackTest, TheSelectedPartIsFramed) {
  const StackLayout layout = DrawStack(paper, StackOfDesign(), kWidth, kHeight, 1);
  const DrawnOperation& last = paper.Operations().back();
  EXPECT_EQ(last.kind, Kind::kBox);
  EXPECT_EQ(last.drawWidth, 2);
  EXPECT_EQ(last.points[0].y, layout.parts[1].top);
  EXPECT_NE(last.colour, kBlack);
}

/// Wires that end at the network's rails, as "electrode > rail".
std::vector<std::pair<double, double>> Wires(const HeadlessSurface& paper, double left) {
  std::vector<std::pair<double, double>> wires;
  for (const DrawnOperation& each : paper.Operations()) {
    if (each.kind == Kind::kPolyline && each.points.size() == 4 && each.points[0].x == left) {
      wires.emplace_back(each.points[0].y, each.points[3].y);
    }
  }
  return wires;
}

TEST_F(StackTest, LayersInParallelHaveTheirMiddleElectrodeOnARailOfItsOwn) {
  design.NoPiezo = 2;
  design.PZMatl(2) = design.PZMatl(1);
  design.PZThick(2) = design.PZThick(1);
  design.PZConnect = 2;
  StackLayout layout = Draw();
  const double rear = layout.parts[1].bottom;
  const double middle = layout.parts[1].top;
  const double front = layout.parts[2].top;
  const Area row = layout.rows[0];
  EXPECT_EQ(Wires(paper, layout.slabs.left),
            (std::vector<std::pair<double, double>>{
                {front, row.bottom}, {rear, row.bottom}, {middle, row.top}}));
  design.PZConnect = 1;
  layout = Draw();
  EXPECT_EQ(Wires(paper, layout.slabs.left),
            (std::vector<std::pair<double, double>>{{front, row.bottom}, {rear, row.top}}))
      << "in series nothing leads to the middle";
}

TEST_F(StackTest, ADesignWithoutLayersIsDrawn) {
  design.NoPiezo = 0;
  const StackLayout layout = Draw();
  EXPECT_EQ(layout.parts.size(), 4U) << "two loads, wires and port";
  EXPECT_NEAR(HeightOf(layout.parts[0]), HeightOf(layout.parts[1]), 1e-9);
  EXPECT_TRUE(shownMessages.Lines().empty());
}

}  // namespace
}  // namespace halvorne::testing
