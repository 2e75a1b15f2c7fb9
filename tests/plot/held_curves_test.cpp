#include "plot/held_curves.h"

#include <algorithm>
#include <cstring>

#include "plot/catalogue.h"
#include "plot/compared_designs.h"
#include "plot/cursor.h"
#include "plot/plot_select.h"
#include "plot/trace_colours.h"
#include "timedomain/sample_rate.h"

namespace halvorne::testing {
namespace {

class HeldCurvesTest : public ComparedDesigns {
 protected:
  template <class State>
  static bool SameBytes(const State& a, const State& b) {
    return std::memcmp(&a, &b, sizeof(State)) == 0;
  }
};

bool Same(const Point& a, const Point& b) {
  return a.x == b.x && a.y == b.y;
}

bool Same(const DrawnOperation& a, const DrawnOperation& b) {
  return a.kind == b.kind &&
         std::ranges::equal(a.points, b.points, [](auto& p, auto& q) { return Same(p, q); }) &&
         a.text == b.text && a.colour == b.colour && a.drawStyle == b.drawStyle &&
         a.drawMode == b.drawMode && a.drawWidth == b.drawWidth && a.fontSize == b.fontSize &&
         a.fontTransparent == b.fontTransparent && a.fontUnderline == b.fontUnderline;
}

/// How many operations of `more` are none of `fewer`; -1 when some of `fewer` are missing or stand
/// in another order.
int Added(const std::vector<DrawnOperation>& fewer, const std::vector<DrawnOperation>& more) {
  std::size_t found = 0;
  for (const DrawnOperation& each : more) {
    found += found < fewer.size() && Same(each, fewer[found]) ? 1 : 0;
  }
  return found == fewer.size() ? static_cast<int>(more.size() - fewer.size()) : -1;
}

TEST_F(HeldCurvesTest, LieOnEveryPlotAndFormWithoutChangingAnythingElse) {
  Make("Present");
  const auto present = TakeDesign();
  Make("Another", [] { design.PZThick(1) = 5e-4; });
  const auto another = TakeDesign();
  int forms = 0;
  for (const CataloguePlot& row : Catalogue()) {
    DropAll();
    PutBack(*present);
    Choose(row.number, 0);
    for (int form = 0; form < window.PlotTypeCount(); ++form) {
      SCOPED_TRACE(std::to_string(row.number) + " form " + std::to_string(form));
      DropAll();
      PutBack(*present);
      Choose(row.number, form);
      const std::vector<DrawnOperation> alone = Drawn();
      const auto before = TakeState();

      PutBack(*another);
      Hold();
      PutBack(*present);
      Choose(row.number, form);
      const int added = Added(alone, Drawn());
      // A line or two for each pane and two entries of the legend at least.
      EXPECT_GE(added, 5);
      const auto after = TakeState();
      EXPECT_TRUE(SameBytes(before->points, after->points));
      EXPECT_EQ(before->measured.CFBWText, after->measured.CFBWText);
      EXPECT_EQ(before->measured.PulseWidthText, after->measured.PulseWidthText);
      EXPECT_EQ(before->measured.PkAmplCaption, after->measured.PkAmplCaption);
      EXPECT_EQ(before->scale.LeftMax, after->scale.LeftMax);
      EXPECT_EQ(before->scale.RightMin, after->scale.RightMin);
      EXPECT_TRUE(Held(0)->curves->shown);
      ++forms;
    }
  }
  EXPECT_EQ(forms, 4 * 6 + 10 * 2 + 6 * 9 + 3) << "every form of every plot was looked at";
  EXPECT_EQ(shownMessages.Lines(), std::vector<std::string>{});
}

TEST_F(HeldCurvesTest, LeaveTheWholeStateAsItWas) {
  Make("Present");
  HoldAnother("Another", [] { design.PZThick(1) = 5e-4; });
  Choose(34, 7);
  Held(0)->curves.reset();
  const auto before = TakeState();
  MakeHeldCurves();
  const auto after = TakeState();
  ASSERT_TRUE(Held(0)->curves->shown);
  EXPECT_TRUE(SameBytes(before->points, after->points));
  EXPECT_TRUE(SameBytes(before->design.curves, after->design.curves));
  EXPECT_TRUE(SameBytes(before->design.ExciteRe, after->design.ExciteRe));
  EXPECT_TRUE(SameBytes(before->wave.ResponseRe, after->wave.ResponseRe));
  EXPECT_TRUE(SameBytes(before->wave.ImpulseSpec, after->wave.ImpulseSpec));
  EXPECT_TRUE(SameBytes(before->draft.TmpExciteWfm, after->draft.TmpExciteWfm));
  EXPECT_TRUE(SameBytes(before->plot.MeasBuf, after->plot.MeasBuf));
  EXPECT_EQ(before->design.design.DesignTitle, after->design.design.DesignTitle);
  EXPECT_EQ(before->measured.PulseWidthText, after->measured.PulseWidthText);
  EXPECT_EQ(before->measured.ImpulsePeak, after->measured.ImpulsePeak);
}

TEST_F(HeldCurvesTest, AreTheValuesThatTheDesignShowsItself) {
  for (const auto& [number, form] : {std::pair{11, 4}, {31, 1}, {15, 0}, {33, 2}, {34, 7}}) {
    Make("Another", [] { design.PZThick(1) = 5e-4; });
    Choose(number, form);
    const TimePoints alone = points.PlotData;
    const Measured own = measured;
    DropAll();
    Hold();
    Make("Present");
    Choose(number, form);
    const HeldCurves& held = *Held(0)->curves;
    ASSERT_EQ(held.values.size(), IsTimePlot(number) ? 1024U : 65U);
    for (std::size_t i = 0; i < held.values.size(); ++i) {
      ASSERT_EQ(held.values[i].Y1, alone(static_cast<long>(i)).Y1) << number << " point " << i;
      ASSERT_EQ(held.values[i].Y2, alone(static_cast<long>(i)).Y2) << number << " point " << i;
    }
    EXPECT_EQ(held.measured.CFBWText, own.CFBWText);
    EXPECT_EQ(held.measured.CFBWValid, own.CFBWValid);
    EXPECT_EQ(held.measured.PulseWidthText, own.PulseWidthText);
  }
}

TEST_F(HeldCurvesTest, OfTheSameDesignLieUnderItsOwn) {
  Make("Present");
  Hold();
  Choose(31, 0);
  const auto held = LinesIn(kHeldColours[0]);
  const auto own = LinesIn(kFirstTraceColour);
  ASSERT_EQ(held.size(), 2U) << "magnitude and phase";
  ASSERT_EQ(own.size(), 1U);
  ASSERT_EQ(held[0].points.size(), own[0].points.size());
  for (std::size_t i = 0; i < own[0].points.size(); ++i) {
    EXPECT_NEAR(held[0].points[i].x, own[0].points[i].x, 1e-6);
    EXPECT_NEAR(held[0].points[i].y, own[0].points[i].y, 1e-6);
  }
  EXPECT_EQ(held[0].drawStyle, kSolid);
  EXPECT_EQ(held[1].drawStyle, kDots) << "the second trace of a held design is told from its first";
}

TEST_F(HeldCurvesTest, OfAnotherSweepStandAtTheirFrequencies) {
  Make("Present");  // 1 to 9 MHz
  HoldAnother("Narrow", [] {
    design.FreqStart = 3e6;
    design.FreqStop = 5e6;
  });
  Choose(31, 0);
  const auto held = LinesIn(kHeldColours[0]);
  ASSERT_FALSE(held.empty());
  // 3 MHz is a quarter of the way from 1 to 9, 5 MHz the half.
  EXPECT_NEAR(held[0].points.front().x, 2.5, 1e-9);
  EXPECT_NEAR(held[0].points.back().x, 5, 1e-9);
}

TEST_F(HeldCurvesTest, OfAWiderSweepEndAtTheEdgesOfTheBox) {
  Make("Present");
  HoldAnother("Wide", [] {
    design.FreqStart = 0.95e6;
    design.FreqStop = 11e6;
  });
  Choose(31, 0);
  const auto held = LinesIn(kHeldColours[0]);
  ASSERT_FALSE(held.empty());
  EXPECT_NEAR(held[0].points.front().x, 0, 1e-9);
  EXPECT_NEAR(held[0].points.back().x, 10, 1e-9);
}

TEST_F(HeldCurvesTest, OfTimePlotsKeepTheirOwnSampleRate) {
  Make("Present");  // 8 MHz, 64 intervals, 1024 samples: 128 MHz
  HoldAnother("Coarse", [] {
    design.NoTimePts = 512;  // 64 MHz
    SampleRate();
  });
  Choose(33, 1);
  scale.LeftMax = 1e6;  // so that nothing is cut off at the top
  view.AmplAuto = false;
  ASSERT_TRUE(Held(0)->curves->shown);
  const auto held = LinesIn(kHeldColours[0]);
  ASSERT_EQ(held.size(), 1U);
  // The window shown is half the record, 512 samples of 1/128 us.
  EXPECT_NEAR(held[0].points[1].x - held[0].points[0].x, 10.0 / 512 * 2, 1e-9);
}

TEST_F(HeldCurvesTest, AreNotDrawnWhereTheDesignCannotShowThePlot) {
  Make("Present");
  HoldAnother("Bare", [] { design.NoFace = design.NoBack = 0; });
  HoldAnother("Silent", [] { design.ExciteType = 0; });
  HoldAnother("Alias", [] {
    design.FreqStart = 8e6;
    design.FreqStop = 9e6;
    design.NoTimePts = 256;
    SampleRate();
  });
  HoldAnother("Broken", [] { design.FreqScale = 0; });
  shownMessages.Forget();
  Choose(51, 0);
  EXPECT_EQ(Held(0)->curves->why, "no such faceplate");
  EXPECT_TRUE(LinesIn(kHeldColours[0]).empty());
  EXPECT_FALSE(LinesIn(kHeldColours[1]).empty());
  Choose(53, 0);
  EXPECT_EQ(Held(0)->curves->why, "no such backplate");
  Choose(17, 0);
  EXPECT_EQ(Held(1)->curves->why, "no excitation");
  Choose(33, 0);
  EXPECT_TRUE(Held(1)->curves->shown);
  EXPECT_EQ(Held(2)->curves->why, "undersampled");
  EXPECT_TRUE(LinesIn(kHeldColours[2]).empty());
  Choose(31, 0);
  EXPECT_TRUE(Held(2)->curves->shown);
  EXPECT_EQ(Held(3)->curves->why, "cannot be calculated");
  EXPECT_TRUE(LinesIn(kHeldColours[3]).empty());
  EXPECT_EQ(shownMessages.Lines(), std::vector<std::string>{})
      << "no box of a held design comes up";
}

TEST_F(HeldCurvesTest, AreNoneOfAPlotThatThereIsNot) {
  Make("Present");
  Hold();
  view.CurrentPlot = 99;
  Drawn();
  EXPECT_FALSE(Held(0)->curves->shown);
  EXPECT_EQ(Held(0)->curves->why, "no such plot");
}

TEST_F(HeldCurvesTest, ShowAnUndersampledWaveformThatWasAcceptedBefore) {
  Make("Present");
  HoldAnother("Alias", [] {
    design.FreqStart = 8e6;
    design.FreqStop = 9e6;
    design.NoTimePts = 256;
    SampleRate();
  });
  Held(0)->aliasingAccepted = true;
  Choose(33, 0);
  EXPECT_TRUE(Held(0)->curves->shown);
}

TEST_F(HeldCurvesTest, AreMadeOnceForAPlotAndForm) {
  Make("Present");
  HoldAnother("Another");
  Choose(31, 0);
  const HeldCurves* const made = Held(0)->curves.get();
  Drawn();
  view.AmplAuto = false;
  scale.LeftMax = 3;
  PlotRepaint();
  Hold();
  PlotRepaint();
  EXPECT_EQ(Held(0)->curves.get(), made) << "nothing is calculated for a redraw";
  Choose(31, 1);
  EXPECT_EQ(Held(0)->curves->form, 1);
  setup.PhaseDisplayOption = 1;
  Choose(31, 1);
  EXPECT_EQ(Held(0)->curves->phaseOption, 1);
}

TEST_F(HeldCurvesTest, WidenTheAutomaticScaleOnlyWhenTheyAreAskedTo) {
  Make("Present");
  HoldAnother("Loud", [] { design.TermRx = 5e3; });
  Choose(31, 0);
  const float alone = scale.LeftMax;
  ASSERT_LT(alone, Held(0)->curves->values[32].Y1) << "the held curve is the higher one";
  comparison.ScaleToAll = true;
  PlotRepaint();
  EXPECT_GT(scale.LeftMax, Held(0)->curves->values[32].Y1);
  EXPECT_EQ(scale.LeftMin, 0);
  const float widened = scale.LeftMax;

  Drawn(SurfaceKind::kPreview);
  EXPECT_EQ(scale.LeftMax, widened) << "the cursor on the main picture still reads its scale";

  view.AmplAuto = false;
  scale.LeftMax = 0.5;
  PlotRepaint();
  EXPECT_EQ(scale.LeftMax, 0.5F);
  view.AmplAuto = true;
  comparison.ScaleToAll = false;
  PlotRepaint();
  EXPECT_EQ(scale.LeftMax, alone);
}

TEST_F(HeldCurvesTest, WidenTheScaleOfASpectrumTooWithoutTouchingTheOthers) {
  Make("Present", [] { design.TermRx = 5; });
  HoldAnother("Loud", [] { design.TermRx = 5e3; });
  Choose(33, 6);
  const PlotScale alone = scale;
  comparison.ScaleToAll = true;
  PlotRepaint();
  EXPECT_EQ(Held(0)->curves->why, "");
  EXPECT_GT(scale.RightMax, alone.RightMax);
  EXPECT_GT(scale.LeftMax, alone.LeftMax);
  EXPECT_EQ(scale.LastPlotPt, alone.LastPlotPt) << "the window of time is the present design's";
}

TEST_F(HeldCurvesTest, AreNoMatterOfPaper) {
  Make("Present");
  Choose(31, 0);
  std::vector<std::size_t> alone;
  for (const SurfaceKind kind : {SurfaceKind::kPreview, SurfaceKind::kPrinter}) {
    alone.push_back(Drawn(kind).size());
  }
  HoldAnother("Loud", [] { design.TermRx = 5e3; });
  comparison.ScaleToAll = true;
  std::size_t k = 0;
  for (const SurfaceKind kind : {SurfaceKind::kPreview, SurfaceKind::kPrinter}) {
    EXPECT_EQ(Drawn(kind).size(), alone[k++]);
  }
  EXPECT_TRUE(comparison.ScaleToAll);
}

TEST_F(HeldCurvesTest, LeaveTheCursorWhereItStands) {
  Make("Present");
  Choose(31, 0);
  Cursor1_Click();
  window.SetCursorValue(20);
  const std::string read = measured.ReadOut;
  ASSERT_FALSE(read.empty());
  HoldAnother("Another", [] { design.PZThick(1) = 5e-4; });
  PlotRepaint();
  EXPECT_TRUE(measured.CursorOn);
  EXPECT_EQ(window.CursorValue(), 20);
  EXPECT_EQ(measured.ReadOut, read);
  DropAll();
  PlotRepaint();
  EXPECT_EQ(measured.ReadOut, read);
}

}  // namespace
}  // namespace halvorne::testing
