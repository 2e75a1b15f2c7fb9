#include "plot/plot_select.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

#include "platform/numbers.h"
#include "platform/paths.h"
#include "plot/catalogue.h"
#include "plot/cursor.h"
#include "plot/curves_by_formula.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

using Lines = std::vector<std::string>;

class PlotSelectTest : public testing::FreshProgram {
 protected:
  PlotSelectTest() {
    testing::MakeSimpleDesign(kIntervals, 64);
    testing::SetAllCurves();
    design.NoFace = 3;
    design.NoBack = 4;
    design.FrontArea(3) = 1;
    setup.DispFaceLayer = 1;
    setup.DispBackLayer = 12;
  }

  /// As a command of the View menu does.
  void Select(int plotNumber) {
    view.CurrentPlot = static_cast<std::int16_t>(plotNumber);
    window.OwnPicture().Forget();
    PlotSelect(view.CurrentPlot);
  }

  bool Drawn() { return !window.OwnPicture().Operations().empty(); }

  static constexpr int kIntervals = 8;
};

TEST_F(PlotSelectTest, EveryPlotShowsItsTitleAndTheListOfItsForms) {
  for (const CataloguePlot& row : Catalogue()) {
    SCOPED_TRACE(row.number);
    Select(row.number);
    EXPECT_TRUE(plot.PlotTitle.starts_with(row.title));
    EXPECT_EQ(window.PlotTypeIndex(), 0);
    EXPECT_TRUE(Drawn());
    EXPECT_EQ(shownMessages.Lines(), Lines{});
  }
}

TEST_F(PlotSelectTest, EveryPlotOpensInTheFormThatWasLastChosenOnIt) {
  for (const CataloguePlot& row : Catalogue()) {
    if (row.number > 34) {
      continue;
    }
    setup.PlotFormMemory(row.number) = 1;
    Select(row.number);
    EXPECT_EQ(window.PlotTypeIndex(), 1) << row.number;
  }
}

TEST_F(PlotSelectTest, AcousticLoadsOpenInTheFormOfTheAcousticImpedance) {
  Select(21);
  window.SetPlotTypeIndex(3);
  for (const int load : {41, 42}) {
    setup.PlotFormMemory(load) = 1;
    Select(load);
    EXPECT_EQ(window.PlotTypeText(window.PlotTypeIndex()), "G + jB");
    EXPECT_EQ(setup.PlotFormMemory(load), 3) << "a load's own memory is written";
    window.SetPlotTypeIndex(2);
    EXPECT_EQ(setup.PlotFormMemory(load), 2);
    EXPECT_EQ(setup.PlotFormMemory(21), 3) << "but never read, nor is that of plot 21 changed";
  }
}

TEST_F(PlotSelectTest, AcousticImpedanceInLogFormKeepsTheAxisNamesOfThePlotBefore) {
  Select(24);
  setup.PlotFormMemory(21) = 4;
  Select(21);
  EXPECT_EQ(scale.LeftLabel, "Vo/Pi");
  EXPECT_EQ(scale.LeftUnit, "V/MPa");
}

TEST_F(PlotSelectTest, FormsOfADispersionPlotAreItsLayers) {
  setup.DispFaceLayer = 2;
  Select(51);
  EXPECT_EQ(window.PlotTypeIndex(), 1);
  EXPECT_EQ(plot.PlotTitle, "Velocity dispersion in face layer 2");
  EXPECT_NEAR(points.PlotData(5).Y1, testing::DispersionValue(2, 5), 1e-12);
  window.SetPlotTypeIndex(2);
  EXPECT_EQ(setup.DispFaceLayer, 3);
  EXPECT_EQ(plot.PlotTitle, "Velocity dispersion in face layer 3");
  EXPECT_NEAR(points.PlotData(5).Y1, testing::DispersionValue(3, 5), 1e-12);
  EXPECT_NEAR(points.PlotData(0).Y1, testing::DispersionValue(3, 0), 1e-12);
  EXPECT_EQ(points.PlotData(5).Y2, 0);

  setup.DispBackLayer = 13;
  Select(53);
  EXPECT_EQ(window.PlotTypeIndex(), 1);
  EXPECT_EQ(plot.PlotTitle, "Velocity dispersion in back layer 2");
  window.SetPlotTypeIndex(3);
  EXPECT_EQ(setup.DispBackLayer, 15);
  EXPECT_EQ(plot.PlotTitle, "Velocity dispersion in back layer 4");
  EXPECT_NEAR(points.PlotData(5).Y1, testing::DispersionValue(15, 5), 1e-12);

  Select(52);
  EXPECT_EQ(window.PlotTypeIndex(), 0);
  EXPECT_EQ(plot.PlotTitle, "Velocity dispersion in piezoelectric layer");
  EXPECT_NEAR(points.PlotData(5).Y1, testing::DispersionValue(0, 5), 1e-12);
}

TEST_F(PlotSelectTest, ALayerThatIsGoneBecomesTheLastOne) {
  setup.DispFaceLayer = 9;
  Select(51);
  EXPECT_EQ(setup.DispFaceLayer, 3);
  EXPECT_EQ(window.PlotTypeIndex(), 2);
  setup.DispBackLayer = 21;
  Select(53);
  EXPECT_EQ(setup.DispBackLayer, 15);
  EXPECT_EQ(window.PlotTypeIndex(), 3);
}

TEST_F(PlotSelectTest, FaceLayerZeroIsTakenAsTheFirst) {
  setup.DispFaceLayer = 0;
  Select(51);
  EXPECT_EQ(setup.DispFaceLayer, 1);
  EXPECT_EQ(window.PlotTypeIndex(), 0);
  EXPECT_EQ(plot.PlotTitle, "Velocity dispersion in face layer 1");
}

TEST_F(PlotSelectTest, WithoutFaceLayersTheirPlotFailsOnItsEmptyList) {
  design.NoFace = 0;
  setup.DispFaceLayer = 4;
  Select(51);
  EXPECT_NEAR(points.RawData(5).Y1, testing::DispersionValue(0, 5), 1e-12);
  EXPECT_EQ(setup.DispFaceLayer, 1);
  EXPECT_EQ(window.PlotTypeIndex(), -1);
  EXPECT_FALSE(Drawn());
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in PlotSelect of PLOTIT|Error: 5. Invalid procedure call or argument"});
}

TEST_F(PlotSelectTest, WithoutBackLayersTheirPlotFailsOnItsEmptyList) {
  design.NoBack = 0;
  Select(53);
  EXPECT_EQ(setup.DispBackLayer, 11);
  EXPECT_NEAR(points.RawData(5).Y1, testing::DispersionValue(11, 5), 1e-12);
  EXPECT_FALSE(Drawn());
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in PlotSelect of PLOTIT|Error: 5. Invalid procedure call or argument"});
}

TEST_F(PlotSelectTest, BackLayersRaiseTheFaceEntryAndTheFacePlotRepairsIt) {
  setup.DispFaceLayer = 2;
  setup.DispBackLayer = 13;
  Select(53);
  EXPECT_EQ(setup.DispFaceLayer, 12);
  EXPECT_EQ(setup.DispBackLayer, 13);
  Select(51);
  EXPECT_EQ(setup.DispFaceLayer, 3);
}

TEST_F(PlotSelectTest, NumbersOutsideTheCatalogueSelectNothing) {
  Select(14);
  for (const int number : {-5, 0, 10, 18, 20, 28, 35, 43, 50, 54, 99}) {
    SCOPED_TRACE(number);
    view.AmplAuto = false;
    plot.DualTrace = false;
    plot.SpectrumShown = true;
    Select(number);
    EXPECT_TRUE(view.AmplAuto);
    EXPECT_EQ(setup.PreviousPlot, number);
    EXPECT_TRUE(plot.DualTrace);
    EXPECT_FALSE(plot.SpectrumShown);
    EXPECT_EQ(plot.PlotTitle, "Transmit Transfer Function - P(Pascals)/V(Tx)");
    EXPECT_EQ(window.PlotTypeCount(), 2);
    EXPECT_EQ(window.PlotTypeIndex(), 0);
    EXPECT_FALSE(Drawn());
  }
  EXPECT_EQ(shownMessages.Lines(), Lines{});
}

TEST_F(PlotSelectTest, AFormChosenForANumberOutsideTheCatalogueIsNotRemembered) {
  PlotTypeLoad(2);
  view.CurrentPlot = 60;
  window.SetPlotTypeIndex(1);
  EXPECT_EQ(shownMessages.Lines(), Lines{});
}

TEST_F(PlotSelectTest, AFormThatTheListDoesNotHaveFails) {
  setup.PlotFormMemory(14) = 2;
  Select(14);
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in PlotSelect of PLOTIT|Error: 5. Invalid procedure call or argument"});
  EXPECT_EQ(plot.PlotTitle, "Transmit Transfer Function - P(Pascals)/V(Tx)");
}

TEST_F(PlotSelectTest, ManualAmplitudesLastWhilePlotAndFormStay) {
  Select(14);
  view.AmplAuto = false;
  Select(14);
  EXPECT_FALSE(view.AmplAuto);
  window.SetPlotTypeIndex(1);
  EXPECT_TRUE(view.AmplAuto) << "another form";
  view.AmplAuto = false;
  setup.PlotFormMemory(24) = 1;
  Select(24);
  EXPECT_TRUE(view.AmplAuto) << "another plot";
}

TEST_F(PlotSelectTest, TheFirstSelectionOfASessionScalesByItself) {
  view.CurrentPlot = 14;
  StartSession();
  view.AmplAuto = false;
  Select(14);
  EXPECT_TRUE(view.AmplAuto);
  EXPECT_EQ(setup.LastPlotListIndex, 0);
}

TEST_F(PlotSelectTest, TheSamePlotInTheSameFormGoesThroughTheWholeChain) {
  Select(14);
  points.RawData(3) = points.PlotData(3) = {77, 78};
  Select(14);
  EXPECT_NE(points.RawData(3).Y1, 77);
  EXPECT_NE(points.PlotData(3).Y1, 77);
  EXPECT_TRUE(Drawn());
}

TEST_F(PlotSelectTest, AnotherFormRepeatsNoPhysics) {
  Select(16);
  curves.TxTFRe(3) += 1;
  const double gathered = points.RawData(3).Y1;
  wave.ImpulseRe(5) = 77;
  window.SetPlotTypeIndex(3);
  EXPECT_EQ(points.RawData(3).Y1, gathered);
  EXPECT_EQ(points.PlotData(5).Y1, 77);
}

TEST_F(PlotSelectTest, ACancelledWaveformLeavesGraphTitleAndForms) {
  Select(14);
  window.SetPlotTypeIndex(1);
  view.AmplAuto = false;
  const double gathered = points.RawData(3).Y1;
  design.SampleRateHz = 2 * design.FreqStop * 0.99;
  Select(26);  // the box about aliasing takes Cancel by default
  ASSERT_EQ(shownMessages.Shown().size(), 1U);
  EXPECT_EQ(shownMessages.Shown()[0].title, "WARNING:  ALIASING ERROR");
  EXPECT_TRUE(wave.WaveformInvalid);
  EXPECT_EQ(plot.PlotTitle, "Transmit Transfer Function - P(Pascals)/V(Tx)");
  EXPECT_EQ(window.PlotTypeIndex(), 1);
  EXPECT_EQ(window.PlotTypeCount(), 2);
  EXPECT_EQ(view.CurrentPlot, 14);
  EXPECT_EQ(points.RawData(3).Y1, gathered) << "its other form would be made of another plot";
  EXPECT_FALSE(view.AmplAuto);
  EXPECT_FALSE(Drawn());
}

TEST_F(PlotSelectTest, ACancelledWaveformLeavesAPlotInItsFirstForm) {
  Select(14);
  design.SampleRateHz = 2 * design.FreqStop * 0.99;
  Select(26);
  EXPECT_EQ(window.PlotTypeIndex(), 0);
  EXPECT_EQ(view.CurrentPlot, 14);
}

TEST_F(PlotSelectTest, ACancelledWaveformWithNothingOnShowStaysChosen) {
  setup.PreviousPlot = 0;
  design.SampleRateHz = 2 * design.FreqStop * 0.99;
  Select(26);
  EXPECT_EQ(shownMessages.Shown().size(), 1U);
  EXPECT_EQ(view.CurrentPlot, 26);
  EXPECT_EQ(window.PlotTypeIndex(), -1);
  EXPECT_FALSE(Drawn());
}

TEST_F(PlotSelectTest, ACancelledWaveformOverAnEmptyListStaysChosen) {
  design.NoFace = 0;
  Select(51);
  ASSERT_EQ(window.PlotTypeIndex(), -1);
  shownMessages.Forget();
  design.SampleRateHz = 2 * design.FreqStop * 0.99;
  Select(26);
  EXPECT_EQ(shownMessages.Shown().size(), 1U);
  EXPECT_EQ(view.CurrentPlot, 26);
}

TEST_F(PlotSelectTest, AnotherFormOfAnOutdatedWaveformAsksForThePresentOne) {
  Select(16);
  design.SampleRateHz = 2 * design.FreqStop * 0.99;
  Select(16);
  EXPECT_TRUE(plot.Outdated);
  wave.ImpulseRe(5) = 77;
  window.SetPlotTypeIndex(1);
  EXPECT_EQ(shownMessages.Shown().size(), 2U);
  EXPECT_EQ(window.PlotTypeIndex(), 0) << "refused once more";
  EXPECT_TRUE(plot.Outdated);
  EXPECT_EQ(wave.ImpulseRe(5), 77);
  shownMessages.AnswerNext(MessageAnswer::kOk);
  window.SetPlotTypeIndex(2);
  EXPECT_EQ(shownMessages.Shown().size(), 3U);
  EXPECT_EQ(window.PlotTypeIndex(), 2);
  EXPECT_EQ(setup.PlotFormMemory(16), 2);
  EXPECT_FALSE(plot.Outdated);
  EXPECT_NE(wave.ImpulseRe(5), 77);
}

TEST_F(PlotSelectTest, AWaveformThatIsSelectedAgainAsksAgain) {
  Select(14);
  design.SampleRateHz = 2 * design.FreqStop * 0.99;
  Select(16);
  Select(16);
  EXPECT_EQ(shownMessages.Shown().size(), 2U);
}

TEST_F(PlotSelectTest, ARedrawAsksNothingAndMakesNoWaveform) {
  Select(16);
  design.SampleRateHz = 2 * design.FreqStop * 0.99;
  wave.ImpulseRe(5) = 77;
  window.OwnPicture().Forget();
  PlotRedraw();
  EXPECT_EQ(shownMessages.Lines(), Lines{});
  EXPECT_EQ(wave.ImpulseRe(5), 77);
  EXPECT_TRUE(Drawn());
}

TEST_F(PlotSelectTest, ARedrawOfATimePlotDrawsItsTraceAndTurnsTheCursorOff) {
  Select(16);
  ASSERT_EQ(window.PlotTypeIndex(), 0);
  Cursor1_Click();
  ASSERT_TRUE(measured.CursorOn);
  window.OwnPicture().Forget();
  PlotRedraw();
  EXPECT_FALSE(measured.CursorOn);
  EXPECT_TRUE(std::ranges::any_of(window.OwnPicture().Operations(), [](const auto& operation) {
    return operation.kind == DrawnOperation::Kind::kPolyline && operation.points.size() > 10;
  }));
  EXPECT_NE(window.GraphDescription(), "No plot");
}

TEST_F(PlotSelectTest, ARedrawOfATimePlotWithoutFormsDrawsEmptyAxes) {
  Select(16);
  Cursor1_Click();
  window.ClearPlotTypes();
  window.OwnPicture().Forget();
  PlotRedraw();
  EXPECT_FALSE(measured.CursorOn);
  EXPECT_TRUE(Drawn());
  EXPECT_TRUE(std::ranges::none_of(window.OwnPicture().Operations(), [](const auto& operation) {
    return operation.kind == DrawnOperation::Kind::kPolyline;
  }));
  EXPECT_EQ(window.GraphDescription(), "No plot");
}

TEST_F(PlotSelectTest, ARedrawOfAFrequencyPlotSelectsIt) {
  Select(14);
  points.RawData(3) = points.PlotData(3) = {77, 78};
  PlotRedraw();
  EXPECT_NE(points.RawData(3).Y1, 77);
  EXPECT_NE(points.PlotData(3).Y1, 77);
}

TEST_F(PlotSelectTest, DispersionStoresNoFormMemory) {
  const struct Setup before = setup;
  Select(52);
  EXPECT_TRUE(std::ranges::equal(setup.PlotFormMemory, before.PlotFormMemory));
  EXPECT_EQ(setup.DispFaceLayer, before.DispFaceLayer);
  EXPECT_EQ(setup.DispBackLayer, before.DispBackLayer);
}

TEST_F(PlotSelectTest, EveryChoiceOfAFormIsOnDiskAtOnceIfTheSessionIsKept) {
  const std::filesystem::path folder =
      std::filesystem::path(::testing::TempDir()) / "halvorne_plot_select";
  std::filesystem::create_directories(folder);
  const std::filesystem::path before = ProgramFolder();
  SetProgramFolder(folder);
  const std::filesystem::path file = folder / "HALVORNESETUP";

  std::filesystem::remove(file);
  Select(14);
  EXPECT_FALSE(std::filesystem::exists(file)) << "a program without a session writes none";
  window.SetKeepsSession(true);
  Select(14);
  EXPECT_TRUE(std::filesystem::exists(file)) << "also for the form that it had";

  SetProgramFolder(before);
  std::filesystem::remove_all(folder);
}

TEST_F(PlotSelectTest, ChoosingAFormTurnsTheCursorOff) {
  Select(14);
  measured.CursorOn = true;
  window.SetCursorMax(kIntervals);
  HeadlessSurface& picture = window.OwnPicture();
  picture.SetDrawMode(kXorPen);
  picture.Forget();
  window.SetPlotTypeIndex(1);
  EXPECT_FALSE(measured.CursorOn);
  ASSERT_FALSE(picture.Operations().empty());
  EXPECT_EQ(picture.Operations()[0].drawMode, kXorPen) << "removed before the new picture";
  const auto cleared =
      std::ranges::find(picture.Operations(), DrawnOperation::Kind::kCls, &DrawnOperation::kind);
  EXPECT_TRUE(std::none_of(cleared, picture.Operations().end(), [](const DrawnOperation& drawn) {
    return drawn.kind == DrawnOperation::Kind::kLine && drawn.colour == kCyan;
  })) << "a line of the cursor stays in the new picture";
}

/// A window that counts how often it is redrawn.
class CountingWindow : public HeadlessWindow {
 public:
  void RefreshWindow() override { ++refreshes; }
  int refreshes = 0;
};

TEST_F(PlotSelectTest, EveryChoiceOfAFormRefreshesTheWindow) {
  CountingWindow counting;
  MainWindow* const before = SetMainWindow(&counting);
  Select(14);
  EXPECT_EQ(counting.refreshes, 1);
  counting.SetPlotTypeIndex(1);
  EXPECT_EQ(counting.refreshes, 2);
  SetMainWindow(before);
}

TEST_F(PlotSelectTest, DecibelsOfPowersAndOfAmplitudes) {
  for (const CataloguePlot& row : Catalogue()) {
    if (row.forms != FormList::kLinearLog) {
      continue;
    }
    setup.PlotFormMemory(row.number) = 0;
    Select(row.number);
    const double linear = points.PlotData(3).Y1;
    EXPECT_FALSE(plot.AmplLog);
    window.SetPlotTypeIndex(1);
    const bool power = row.number % 10 == 3 || row.number % 10 == 5;
    EXPECT_NEAR(points.PlotData(3).Y1, (power ? 10 : 20) * std::log10(linear), 1e-10) << row.number;
    EXPECT_TRUE(plot.AmplLog);
  }
}

TEST_F(PlotSelectTest, MeasurementsThatHoldByPlot) {
  struct Valid {
    int plot;
    int index;
    bool band;
    bool pulse;
    bool attenuation;
  };
  for (const Valid& expected :
       {Valid{11, 0, false, false, false}, Valid{12, 0, false, false, false},
        Valid{13, 0, true, false, true}, Valid{14, 1, true, false, true},
        Valid{16, 0, false, true, true}, Valid{17, 6, true, true, true},
        Valid{22, 1, false, false, false}, Valid{32, 0, true, false, true},
        Valid{33, 8, true, true, true}, Valid{41, 0, false, false, false}}) {
    SCOPED_TRACE(expected.plot);
    setup.PlotFormMemory(expected.plot) = static_cast<std::int16_t>(expected.index);
    measured.CFBWValid = measured.PulseWidthValid = measured.AttenValid = true;
    Select(expected.plot);
    EXPECT_EQ(measured.CFBWValid, expected.band);
    EXPECT_EQ(measured.PulseWidthValid, expected.pulse);
    EXPECT_EQ(measured.AttenValid, expected.attenuation);
  }
  measured.CFBWValid = measured.PulseWidthValid = measured.AttenValid = true;
  Select(52);
  EXPECT_FALSE(measured.CFBWValid || measured.PulseWidthValid || measured.AttenValid);
}

TEST_F(PlotSelectTest, ExcitationPlotsKeepTheImpulsesPeakBesideTheResponses) {
  for (int i = 0; i < 8; ++i) {
    wave.ExciteRe(i) = 3;
  }
  setup.PlotFormMemory(17) = 1;
  Select(17);
  double impulse = 0;
  double response = 0;
  for (int i = 0; i < design.NoTimePts; ++i) {
    EXPECT_NEAR(points.PlotDataImpulse(i).Y1, std::hypot(wave.ImpulseRe(i), wave.ImpulseIm(i)),
                1e-12);
    EXPECT_NEAR(points.PlotDataExcite(i).Y1, std::hypot(wave.ExciteRe(i), wave.ExciteIm(i)), 1e-12);
    EXPECT_NEAR(points.PlotData(i).Y1, std::hypot(wave.ResponseRe(i), wave.ResponseIm(i)), 1e-12);
    impulse = std::max(impulse, std::hypot(wave.ImpulseRe(i), wave.ImpulseIm(i)));
    response = std::max(response, std::hypot(wave.ResponseRe(i), wave.ResponseIm(i)));
  }
  EXPECT_NEAR(measured.ImpulsePeak / impulse, 1, 1e-6);
  EXPECT_NEAR(measured.PeakAmpl / response, 1, 1e-6);
}

TEST_F(PlotSelectTest, ATitleStaysWhenOnlyTheFormChanges) {
  Select(14);
  plot.PlotTitle = "kept";
  window.SetPlotTypeIndex(1);
  EXPECT_EQ(plot.PlotTitle, "kept");
}

}  // namespace
}  // namespace halvorne
