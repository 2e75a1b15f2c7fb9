#include "plot/catalogue.h"

#include <algorithm>
#include <gmock/gmock.h>

#include "platform/failure.h"
#include "plot/headless_window.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CatalogueTest : public testing::FreshProgram {
 protected:
  std::vector<std::string> LoadedForms(int list) {
    PlotTypeLoad(static_cast<std::int16_t>(list));
    std::vector<std::string> forms;
    for (int i = 0; i < window.PlotTypeCount(); ++i) {
      forms.push_back(window.PlotTypeText(i));
    }
    return forms;
  }
};

struct ExpectedPlot {
  int number;
  const char* title;
  int list;
  int decibelFactor;
  int passes;
  bool dualTrace;
};

constexpr ExpectedPlot kExpectedPlots[] = {
    {11, "Electrical Input Impedance", 1, 0, 0, true},
    {12, "Voltage Reflection Coefficient - V(refl)/V(inc)", 2, 0, 0, true},
    {13, "Transmit Efficiency - Po(acoustic)/Pi(electric)", 2, 10, 1, false},
    {14, "Transmit Transfer Function - P(Pascals)/V(Tx)", 2, 20, 1, true},
    {15, "Transmit Power Transfer Function - Pout(acoust)/Pavail(elec)", 2, 20, 1, false},
    {16, "Transmit Impulse Response - P(Pascals)/V(Tx)", 3, 20, 1, true},
    {17, "Transmit Excitation Response - P(Pascals)/V(Tx)", 3, 20, 1, true},
    {21, "Acoustical Input Impedance", 1, 0, 0, true},
    {22, "Pressure Reflection Coefficient - P(refl)/P(inc)", 2, 0, 0, true},
    {23, "Receive Efficiency - Po(electric)/Pi(acoustic)", 2, 10, 1, false},
    {24, "Receive Transfer Function - V(Rx)/P(Pascals)", 2, 20, 1, true},
    {25, "Receive Power Transfer Function - Pout(elec)/Pavail(acoust)", 2, 20, 1, false},
    {26, "Receive Impulse Response - V(Rx)/P(Pascals)", 3, 20, 1, true},
    {27, "Receive Excitation Response - V(Rx)/P(Pascals)", 3, 20, 1, true},
    {31, "Two-way Transfer Function - V(Rx)/V(Tx)", 2, 20, 2, true},
    {32, "Two-way Insertion Loss - V(Rx)/V(Tx)", 2, 20, 2, true},
    {33, "Pulse-Echo (Two-way) Impulse Response - V(Rx)/V(Tx)", 3, 20, 2, true},
    {34, "Pulse-Echo (Two-way) Excitation Response - V(Rx)/V(Tx)", 3, 20, 2, true},
    {41, "Front Port Acoustic Load Impedance", 1, 0, 0, true},
    {42, "Rear Port Acoustic Load Impedance", 1, 0, 0, true},
    {51, "Velocity dispersion in face layer", 4, 0, 0, false},
    {52, "Velocity dispersion in piezoelectric layer", 5, 0, 0, false},
    {53, "Velocity dispersion in back layer", 6, 0, 0, false},
};

TEST(Catalogue, HoldsThe23PlotsInTheOrderOfTheirNumbers) {
  ASSERT_EQ(Catalogue().size(), std::size(kExpectedPlots));
  for (std::size_t i = 0; i < std::size(kExpectedPlots); ++i) {
    const ExpectedPlot& expected = kExpectedPlots[i];
    const CataloguePlot& row = Catalogue()[i];
    SCOPED_TRACE(expected.number);
    EXPECT_EQ(row.number, expected.number);
    EXPECT_EQ(row.title, expected.title);
    EXPECT_EQ(static_cast<int>(row.forms), expected.list);
    EXPECT_EQ(row.decibelFactor, expected.decibelFactor);
    EXPECT_EQ(row.passes, expected.passes);
    EXPECT_EQ(row.dualTrace, expected.dualTrace);
  }
}

TEST(Catalogue, FindsItsPlotsAndNoOthers) {
  for (int number = -1; number <= 60; ++number) {
    const CataloguePlot* const row = FindPlot(number);
    const bool known = std::ranges::any_of(
        kExpectedPlots, [number](const ExpectedPlot& plotRow) { return plotRow.number == number; });
    ASSERT_EQ(row != nullptr, known) << number;
    if (row != nullptr) {
      EXPECT_EQ(row->number, number);
    }
  }
}

TEST_F(CatalogueTest, ListsOfFixedForms) {
  EXPECT_THAT(LoadedForms(1), ElementsAre("Z, Theta", "Y, Theta", "R + jX", "G + jB",
                                          "Log Z, Theta", "Log Y, Theta"));
  EXPECT_THAT(LoadedForms(2), ElementsAre("Linear", "Log"));
  EXPECT_THAT(LoadedForms(3),
              ElementsAre("Waveform", "Envelope", "Log Envelope", "Re & Im Waveform",
                          "Envelope & |Waveform|", "Log Envelope & |Wfm|", "Waveform & Spectrum",
                          "Envelope & Spectrum", "Log Envel & Spectrum"));
  EXPECT_THAT(LoadedForms(5), ElementsAre("Piezo Layer"));
}

TEST_F(CatalogueTest, LayerListsHaveTwoBlanksBeforeTheNumber) {
  design.NoFace = 10;
  design.NoBack = 2;
  const std::vector<std::string> faces = LoadedForms(4);
  ASSERT_EQ(faces.size(), 10U);
  EXPECT_EQ(faces.front(), "Face Layer  1");
  EXPECT_EQ(faces.back(), "Face Layer  10");
  EXPECT_THAT(LoadedForms(6), ElementsAre("Back Layer  1", "Back Layer  2"));
}

TEST_F(CatalogueTest, LayerListsOfADesignWithoutPlatesAreEmpty) {
  EXPECT_THAT(LoadedForms(4), IsEmpty());
  EXPECT_THAT(LoadedForms(6), IsEmpty());
}

TEST_F(CatalogueTest, AnyOtherListIsEmpty) {
  for (const int list : {-1, 0, 7, 32767}) {
    LoadedForms(2);
    EXPECT_THAT(LoadedForms(list), IsEmpty()) << list;
  }
}

TEST_F(CatalogueTest, AListThatTakesNoFormIsTold) {
  class FullList : public HeadlessWindow {
    void AddPlotType(const std::string& /*text*/) override { RaiseOverflow(); }
  } full;
  SetMainWindow(&full);
  PlotTypeLoad(2);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in PlotTypeLoad of PLOTIT|Error: 6. Overflow"});
}

TEST_F(CatalogueTest, LoadingAListClearsTheSelection) {
  design.NoFace = 1;
  PlotTypeLoad(5);
  view.CurrentPlot = 60;  // its selection event has nothing to convert
  window.SetPlotTypeIndex(0);
  PlotTypeLoad(5);
  EXPECT_EQ(window.PlotTypeIndex(), -1);
}

}  // namespace
}  // namespace halvorne
