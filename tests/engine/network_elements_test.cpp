#include "engine/network_elements.h"

#include <cmath>
#include <string>
#include <vector>

#include "engine_fixture.h"

// Each element against its circuit, worked out from impedances and admittances.

namespace halvorne::testing {
namespace {

constexpr double kOmega = 2e7;
constexpr double kR = 75;
constexpr double kL = 2e-6;
constexpr double kC = 3e-10;
constexpr double kCb = 5e-10;
const Value kJ{0, 1};

Value Parallel(Value x, Value y) {
  return x * y / (x + y);
}
const Value kInductor = kJ * kOmega * kL;
const Value kCapacitor = 1.0 / (kJ * kOmega * kC);
const Value kCapacitorB = 1.0 / (kJ * kOmega * kCb);
const Value kLadder = kInductor + Parallel(kR, kCapacitor);

void SetRow(int row, const std::vector<double>& values) {
  int column = 1;
  for (const double value : values) {
    design.ElNet(row, column++) = value;
  }
}

class NetworkElements : public EngineTest {
 protected:
  NetworkElements() {
    sweep.Omega = kOmega;
    SetMatrix(sweep.SecRe, sweep.SecIm, {7, 7}, {7, 7}, {7, 7}, {7, 7});
    SetMatrix(sweep.MatRe, sweep.MatIm, 1, 0, 0, 1);
  }

  static Value Section(int row, int column) { return Entry(sweep.SecRe, sweep.SecIm, row, column); }
  static void ExpectSection(Value a, Value b, Value c, Value d) {
    EXPECT_TRUE(Near(Section(1, 1), a, 1e-13));
    EXPECT_TRUE(Near(Section(1, 2), b, 1e-13));
    EXPECT_TRUE(Near(Section(2, 1), c, 1e-13));
    EXPECT_TRUE(Near(Section(2, 2), d, 1e-13));
  }
};

struct ElementCase {
  const char* name;
  double code;
  double c2, c3, c4, c5;
  Value series;  ///< impedance, 0 for a shunt element
  Value shunt;   ///< admittance, 0 for a series element
};

class OneImmittance : public NetworkElements, public ::testing::WithParamInterface<ElementCase> {};

TEST_P(OneImmittance, StandsAloneInItsEntry) {
  const ElementCase& element = GetParam();
  SetRow(4, {element.code, element.c2, element.c3, element.c4, element.c5});
  ElementSection(4);
  ExpectSection(1, element.series, element.shunt, 1);
  EXPECT_EQ(shown.Lines(), Boxes{});
}

INSTANTIATE_TEST_SUITE_P(
    Catalogue, OneImmittance,
    ::testing::Values(
        ElementCase{"SeriesR", 1, kR, 0, 0, 0, kR, 0},
        ElementCase{"ShuntR", 2, kR, 0, 0, 0, 0, 1 / kR},
        ElementCase{"BetweenTheRsIsShunt", 1.5, kR, 0, 0, 0, 0, 1 / kR},
        ElementCase{"SeriesL", 3, kL, 0, 0, 0, kInductor, 0},
        ElementCase{"ShuntL", 4, kL, 0, 0, 0, 0, 1.0 / kInductor},
        ElementCase{"BetweenTheLsIsShunt", 3.25, kL, 0, 0, 0, 0, 1.0 / kInductor},
        ElementCase{"SeriesC", 5, kC, 0, 0, 0, kCapacitor, 0},
        ElementCase{"ShuntC", 6, kC, 0, 0, 0, 0, 1.0 / kCapacitor},
        ElementCase{"BetweenTheCsIsShunt", 5.75, kC, 0, 0, 0, 0, 1.0 / kCapacitor},
        ElementCase{"SeriesA", 10, kR, kL, kC, 0, Parallel(Parallel(kR, kInductor), kCapacitor), 0},
        ElementCase{"SeriesB", 11, kR, kL, kC, 0, Parallel(kR + kInductor, kCapacitor), 0},
        ElementCase{"SeriesC", 12, kR, kL, kC, 0, kLadder, 0},
        ElementCase{"SeriesE", 13, kR, kL, kC, kCb,
                    Parallel(kR + kInductor + kCapacitor, kCapacitorB), 0},
        ElementCase{"ShuntB", 14, kR, kL, kC, 0, 0, 1.0 / Parallel(kR + kInductor, kCapacitor)},
        ElementCase{"ShuntC", 15, kR, kL, kC, 0, 0, 1.0 / kLadder},
        ElementCase{"ShuntD", 16, kR, kL, kC, 0, 0, 1.0 / (kR + kInductor + kCapacitor)}),
    [](const auto& param) {
      return "Code" + std::to_string(static_cast<int>(param.param.code * 100)) + param.param.name;
    });

TEST_F(NetworkElements, SeventeenWithFourLayersIsATransformerOfOneToFour) {
  SetRow(1, {17, 1, 4});
  ElementSection(1);
  EXPECT_EQ(sweep.SecRe(1, 1), 0.25);
  EXPECT_EQ(sweep.SecRe(2, 2), 4);
  ExpectSection(0.25, 0, 0, 4);
}

TEST_F(NetworkElements, EightAndSeventeenAreTheSameTransformer) {
  for (const double code : {8.0, 17.0}) {
    SetRow(1, {code, 3, 2});
    ElementSection(1);
    ExpectSection(1.5, 0, 0, 1 / 1.5);
  }
}

TEST_F(NetworkElements, ACableWithoutAttenuationIsAnIdealLineOfItsImpedance) {
  const double phase = kOmega * 3 / 2.1e8;
  SetRow(1, {7, 50, 3, 0, 1});
  ElementSection(1);
  ExpectSection(std::cos(phase), kJ * 50.0 * std::sin(phase), kJ * std::sin(phase) / 50.0,
                std::cos(phase));
  EXPECT_EQ(Section(1, 1).imag(), 0);
}

TEST_F(NetworkElements, CableAttenuationIsInDecibelsPerKilometreInProportionToFrequency) {
  const double freq = kOmega / 6.283185307179586;
  // 200 dB/km at 2 MHz along 30 m.
  const double decibels = 200 * 0.03 * freq / 2e6;
  Coax(50, 30, 200, 2);
  const Value g{decibels * std::log(10) / 20, kOmega * 30 / 2.1e8};
  EXPECT_TRUE(Near(Section(1, 1), std::cosh(g), 1e-4)) << "0.003848 has four digits";
  EXPECT_TRUE(Near(Section(1, 2), 50.0 * std::sinh(g), 1e-4));
  EXPECT_TRUE(Near(Section(2, 1), std::sinh(g) / 50.0, 1e-4));
  const Value exact{g.imag() * 200 * 0.003848 / 2, g.imag()};
  ExpectSection(std::cosh(exact), 50.0 * std::sinh(exact), std::sinh(exact) / 50.0,
                std::cosh(exact));
}

TEST_F(NetworkElements, ANonIdealTransformerFoldsTwoOfItsThreeSectionsItself) {
  SetRow(1, {9, kL, kR, 4 * kL, kC});
  ElementSection(1);
  const Value shunt = 1 / kR + 1.0 / (4.0 * kInductor) + 1.0 / kCapacitor;
  // What is folded so far: shunt times series; what waits is the second series element.
  EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 1, 1), 1, 1e-13));
  EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 1, 2), kInductor, 1e-13));
  EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 2, 1), shunt, 1e-13));
  EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 2, 2), 1.0 + shunt * kInductor, 1e-13));
  ExpectSection(1, kInductor, 0, 1);
}

TEST_F(NetworkElements, AnUnknownCodeLeavesWhateverStandsInTheSection) {
  for (const double code : {18.0, -1.0, 0.5, 2.5, 4.5, 6.5, 10.5, 16.01, 1e9}) {
    SetRow(1, {code, 1, 1, 1, 1});
    ElementSection(1);
    for (int row = 1; row <= 2; ++row) {
      for (int column = 1; column <= 2; ++column) {
        EXPECT_EQ(Section(row, column), Value(7, 7)) << code;
      }
    }
  }
}

TEST_F(NetworkElements, OnlyTheExactCodeIsASeriesElement) {
  Rnet(std::nextafter(1.0, 2.0), kR);
  ExpectSection(1, 0, 1 / kR, 1);
}

struct ZeroValue {
  const char* procedure;
  std::vector<double> row;
};

class ZeroValues : public NetworkElements, public ::testing::WithParamInterface<ZeroValue> {};

TEST_P(ZeroValues, IsADivisionByZeroInTheNameOfTheElement) {
  SetRow(1, GetParam().row);
  ElementSection(1);
  EXPECT_EQ(shown.Lines(), Boxes{Box(GetParam().procedure, 11)});
  EXPECT_EQ(Section(2, 2), 1.0) << "the section had been made fresh";
}

INSTANTIATE_TEST_SUITE_P(
    Catalogue, ZeroValues,
    ::testing::Values(ZeroValue{"Rnet", {2, 0}}, ZeroValue{"Lnet", {4, 0}},
                      ZeroValue{"Cnet", {5, 0}}, ZeroValue{"Coax", {7, 50, 1, 1, 0}},
                      ZeroValue{"Coax", {7, 0, 1, 0, 1}}, ZeroValue{"Xfmr", {8, 1, 0}},
                      ZeroValue{"Xfmr", {17, 0, 1}}, ZeroValue{"NonIdeal", {9, kL, 0, kL, kC}},
                      ZeroValue{"SeriesA", {10, 0, kL, kC}}, ZeroValue{"SeriesB", {11, kR, 0, kC}},
                      ZeroValue{"SeriesC", {12, kR, kL, 0}},
                      ZeroValue{"SeriesE", {13, kR, kL, kC, 0}},
                      ZeroValue{"ShuntB", {14, kR, 0, kC}}, ZeroValue{"ShuntC", {15, 0, kL, kC}},
                      ZeroValue{"ShuntD", {16, kR, kL, 0}}));

TEST_F(NetworkElements, ZeroSeriesResistanceAndInductanceAreNoFailures) {
  Rnet(1, 0);
  ExpectSection(1, 0, 0, 1);
  Lnet(3, 0);
  ExpectSection(1, 0, 0, 1);
  Cnet(6, 0);
  ExpectSection(1, 0, 0, 1);
  EXPECT_EQ(shown.Lines(), Boxes{});
}

TEST_F(NetworkElements, ATransformerWithoutPrimaryTurnsKeepsTheEntryThatItReached) {
  Xfmr(0, 2);
  EXPECT_EQ(Section(1, 1), 0.0);
  EXPECT_EQ(Section(2, 2), 1.0);
}

}  // namespace
}  // namespace halvorne::testing
