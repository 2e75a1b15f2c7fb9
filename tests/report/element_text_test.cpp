#include "report/element_text.h"

#include <algorithm>
#include <string>
#include <vector>

#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

class ElementText : public FreshProgram {
 protected:
  /// The words of a row that holds these values from column 1 on.
  static std::string Of(const std::vector<double>& values, int row = 1) {
    std::ranges::copy(values, draft.TmpElNet.rows(row).begin());
    return GetElNetString(draft.TmpElNet, row);
  }
};

TEST_F(ElementText, NamesEachElementWithItsValuesInDisplayUnits) {
  EXPECT_EQ(Of({1, 50}), "1. Series R 50 Ohms");
  EXPECT_EQ(Of({2, 0.5}), "1. Shunt R 0.5 Ohms");
  EXPECT_EQ(Of({3, 4.7e-6}), "1. Series L 4.7 uH");
  EXPECT_EQ(Of({4, 1e-3}), "1. Shunt L 1000 uH");
  EXPECT_EQ(Of({5, 330e-12}), "1. Series C 330 pF");
  EXPECT_EQ(Of({6, 1e-14}), "1. Shunt C 0.01 pF");
  EXPECT_EQ(Of({7, 50, 1.5, 12.345, 10}), "1. Coaxial cable 50 Ohms 1.5 m 12.35 dB/km at 10 MHz");
  EXPECT_EQ(Of({8, 3, 10}), "1. Xfmr 3:10 turns");
  EXPECT_EQ(Of({9, 1e-6, 2, 3e-6, 4e-12}), "1. Xfmr Lse 1 uH R 2 Ohms Lsh 3 uH C 4 pF");
  EXPECT_EQ(Of({17, 1, 4}), "1. Piezo 4 layers");
}

TEST_F(ElementText, NamesTheCircuitsByTheirLetters) {
  const std::string values = "R 1 Ohms L 2 uH Ca 3 pF";
  for (const auto& [code, name] : {std::pair{10, "Series A "},
                                   {11, "Series B "},
                                   {12, "Series C "},
                                   {14, "Shunt B "},
                                   {15, "Shunt C "},
                                   {16, "Shunt D "}}) {
    EXPECT_EQ(Of({static_cast<double>(code), 1, 2e-6, 3e-12, 4e-12}), "1. " + (name + values));
  }
  EXPECT_EQ(Of({13, 1, 2e-6, 3e-12, 4e-12}), "1. Series E " + values + " Cb 4 pF");
}

TEST_F(ElementText, BeginsWithTheRow) {
  EXPECT_EQ(Of({1, 7}, 20), "20. Series R 7 Ohms");
}

TEST_F(ElementText, HasNoWordsForAnUnknownCode) {
  EXPECT_EQ(Of({18, 1}), "1. ");
  EXPECT_EQ(Of({-1, 1}), "1. ");
  EXPECT_EQ(Of({1.5, 1}), "1. ");
  EXPECT_EQ(Of({1e300, 1}), "1. ");
}

TEST_F(ElementText, ARowThatNoNetworkHasIsReported) {
  EXPECT_EQ(GetElNetString(draft.TmpElNet, kNetworkRows + 1), "");
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{
                "ERROR in GetElNetString of PRINTIT|Error: 9. Subscript out of range"});
}

}  // namespace
}  // namespace halvorne::testing
