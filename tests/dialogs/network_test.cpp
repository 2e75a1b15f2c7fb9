#include <QListWidget>
#include <algorithm>

#include "dialogs/dialog_driver.h"
#include "dialogs/frm_el_net_entry.h"
#include "dialogs/frm_enter_element.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "shell/modal_script.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;
using Row = std::vector<double>;

void PutRow(NetworkRows& network, int row, const Row& values) {
  std::ranges::fill(network.rows(row), 0.0);
  std::ranges::copy(values, network.rows(row).begin());
}

Row RowOf(const NetworkRows& network, int row) {
  return {network.rows(row).begin(), network.rows(row).end()};
}

std::string Option(int code) {
  return "optElSelect(" + std::to_string(code) + ")";
}

class NetworkDialog : public FreshProgram {
 protected:
  NetworkDialog() { MakeSimpleDesign(); }
  ~NetworkDialog() override { EXPECT_TRUE(script.Finished()) << "a window did not come"; }

  static Lines LinesOf(const DialogDriver& driver) {
    Lines lines;
    const auto* const list = driver.Find<QListWidget>("lstElNet");
    for (int i = 0; i < list->count(); ++i) {
      lines.push_back(list->item(i)->text().toStdString());
    }
    return lines;
  }
  /// Clicks a line of the list.
  static void ClickLine(const DialogDriver& driver, int index) {
    auto* const list = driver.Find<QListWidget>("lstElNet");
    list->scrollToItem(list->item(index));
    const QPoint at = list->visualItemRect(list->item(index)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, at);
  }
  /// Which of Insert, Change and Delete are enabled, "icd".
  static std::string Buttons(const DialogDriver& driver) {
    std::string enabled;
    for (const auto& [name, letter] :
         {std::pair{"cmdInsert", 'i'}, {"cmdChangeValue", 'c'}, {"cmdDelete", 'd'}}) {
      if (driver.Enabled(name)) {
        enabled += letter;
      }
    }
    return enabled;
  }
  /// Fills rows 1 to `count` with resistors of 1, 2, 3 ohms and so on.
  static void MakeResistors(int count) {
    for (int row = 1; row <= count; ++row) {
      PutRow(draft.TmpElNet, row, {1, static_cast<double>(row)});
    }
  }
  /// The next frmEnterElement gets this element.
  void ExpectElement(int code, const Lines& texts) {
    script.ExpectForm("frmEnterElement", [code, texts](QWidget& opened) {
      const DialogDriver driver(static_cast<QDialog&>(opened));
      driver.Click(Option(code).c_str());
      for (std::size_t k = 0; k < texts.size(); ++k) {
        driver.Type(("txtElValue(" + std::to_string(k) + ")").c_str(), texts[k].c_str());
      }
      driver.Click("cmdElSelectOK");
    });
  }

  ModalScript script;
};

TEST_F(NetworkDialog, ListsItsElementsAndAPlaceBehindThem) {
  PutRow(draft.TmpElNet, 1, {1, 50});
  PutRow(draft.TmpElNet, 2, {3, 4.7e-6});
  PutRow(draft.TmpElNet, 4, {1, 9});  // behind the end of the network
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(LinesOf(driver), (Lines{"1. Series R 50 Ohms", "2. Series L 4.7 uH", " "}));
  EXPECT_TRUE(driver.Find<QListWidget>("lstElNet")->selectedItems().isEmpty());
  EXPECT_EQ(Buttons(driver), "");
  ClickLine(driver, 1);
  EXPECT_EQ(Buttons(driver), "icd");
  ClickLine(driver, 2);
  EXPECT_EQ(Buttons(driver), "i") << "the last line holds no element";
}

TEST_F(NetworkDialog, OfNoElementsOffersToInsertOnly) {
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(LinesOf(driver), Lines{"No matching network"});
  ClickLine(driver, 0);
  EXPECT_EQ(Buttons(driver), "i");
  ExpectElement(2, {"75"});
  driver.Click("cmdInsert");
  EXPECT_EQ(LinesOf(driver), (Lines{"1. Shunt R 75 Ohms", " "}));
  EXPECT_EQ(Buttons(driver), "") << "after a command no line is selected";
  EXPECT_EQ(design.ElNet(1, 1), 0);
  driver.Click("cmdElnetOK");
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_EQ(RowOf(design.ElNet, 1), (Row{2, 75, 0, 0, 0, 0}));
  EXPECT_EQ(design.DesignNew, 65535);
}

TEST_F(NetworkDialog, RowThatIsEnteredEqualsTheSameRowThatIsSet) {
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  ClickLine(driver, 0);
  ExpectElement(7, {"50", "1.5", "20", "5"});
  driver.Click("cmdInsert");
  driver.Click("cmdElnetOK");
  const FreqCurve entered = curves.TwoWayTFRe;
  design.ElNet = {};
  Recalc();
  EXPECT_NE(curves.TwoWayTFRe(8), entered(8));
  PutRow(design.ElNet, 1, {7, 50, 1.5, 20, 5});
  Recalc();
  for (int i = 0; i <= 16; ++i) {
    EXPECT_EQ(curves.TwoWayTFRe(i), entered(i)) << i;
  }
}

TEST_F(NetworkDialog, InsertionPushesTheSelectedRowDown) {
  MakeResistors(2);
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  ClickLine(driver, 1);
  ExpectElement(5, {"100"});
  driver.Click("cmdInsert");
  EXPECT_EQ(LinesOf(driver),
            (Lines{"1. Series R 1 Ohms", "2. Series C 100 pF", "3. Series R 2 Ohms", " "}));
}

TEST_F(NetworkDialog, InsertionIntoAFullListDropsRowTwenty) {
  MakeResistors(20);
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(LinesOf(driver).size(), 21U);
  ClickLine(driver, 0);
  ExpectElement(1, {"99"});
  driver.Click("cmdInsert");
  EXPECT_EQ(draft.TmpElNet(1, 2), 99);
  EXPECT_EQ(draft.TmpElNet(20, 2), 19);
}

// There is no row 21: the element can't be taken, and its dialog says so and stays.
TEST_F(NetworkDialog, InsertionBehindAFullListFails) {
  MakeResistors(20);
  const NetworkRows before = draft.TmpElNet;
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  ClickLine(driver, 20);
  EXPECT_EQ(Buttons(driver), "i");
  script.ExpectForm("frmEnterElement", [](QWidget& opened) {
    const DialogDriver element(static_cast<QDialog&>(opened));
    element.Click("optElSelect(1)");
    element.Click("cmdElSelectOK");
    EXPECT_TRUE(element.IsOpen());
    element.Click("cmdElSelectCancel");
  });
  driver.Click("cmdInsert");
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in cmdElSelectOK_Click of frmEnterElement|Error: 9. Subscript out of "
                  "range"});
  for (int row = 1; row <= 20; ++row) {
    EXPECT_EQ(RowOf(draft.TmpElNet, row), RowOf(before, row));
  }
}

TEST_F(NetworkDialog, ChangeShowsTheValuesOfTheRow) {
  PutRow(draft.TmpElNet, 1, {7, 50, 1.5, 20, 5});
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  ClickLine(driver, 0);
  script.ExpectForm("frmEnterElement", [](QWidget& opened) {
    const DialogDriver element(static_cast<QDialog&>(opened));
    EXPECT_TRUE(element.Chosen("optElSelect(7)"));
    EXPECT_EQ(element.Text("txtElValue(0)"), "50");
    EXPECT_EQ(element.Text("txtElValue(1)"), "1.5");
    EXPECT_EQ(element.Text("txtElValue(2)"), "20");
    EXPECT_EQ(element.Text("txtElValue(3)"), "5");
    element.Click("optElSelect(3)");
    EXPECT_EQ(element.Text("txtElValue(0)"), "0") << "another element starts at zero";
    element.Click("optElSelect(7)");
    EXPECT_EQ(element.Text("txtElValue(1)"), "1.5") << "the row's own has its values again";
    element.Type("txtElValue(1)", "3");
    element.Press(Qt::Key_Return);
  });
  driver.Click("cmdChangeValue");
  EXPECT_EQ(RowOf(draft.TmpElNet, 1), (Row{7, 50, 3, 20, 5, 0}));
  EXPECT_EQ(LinesOf(driver).size(), 2U) << "nothing was inserted";
}

TEST_F(NetworkDialog, CancelledElementChangesNothing) {
  MakeResistors(1);
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  ClickLine(driver, 0);
  script.ExpectForm("frmEnterElement", [](QWidget& opened) {
    const DialogDriver element(static_cast<QDialog&>(opened));
    element.Click("optElSelect(2)");
    element.Press(Qt::Key_Escape);
  });
  driver.Click("cmdInsert");
  EXPECT_EQ(LinesOf(driver), (Lines{"1. Series R 1 Ohms", " "}));
}

TEST_F(NetworkDialog, BlankElementChangesNothing) {
  MakeResistors(1);
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  for (const char* command : {"cmdInsert", "cmdChangeValue"}) {
    ClickLine(driver, 0);
    ExpectElement(0, {});
    driver.Click(command);
    EXPECT_EQ(LinesOf(driver), (Lines{"1. Series R 1 Ohms", " "})) << command;
  }
}

TEST_F(NetworkDialog, DeletionMovesTheRowsBehindUp) {
  MakeResistors(3);
  draft.TmpElNet(3, 6) = 5;
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  ClickLine(driver, 1);
  driver.Click("cmdDelete");
  EXPECT_EQ(LinesOf(driver), (Lines{"1. Series R 1 Ohms", "2. Series R 3 Ohms", " "}));
  EXPECT_EQ(draft.TmpElNet(2, 6), 5) << "all columns move";
  EXPECT_EQ(Buttons(driver), "");
}

// Kept: only a deletion of row 20 itself empties it.
TEST_F(NetworkDialog, DeletionInAFullListRepeatsRowTwenty) {
  MakeResistors(20);
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  ClickLine(driver, 4);
  driver.Click("cmdDelete");
  EXPECT_EQ(draft.TmpElNet(5, 2), 6);
  EXPECT_EQ(draft.TmpElNet(19, 2), 20);
  EXPECT_EQ(draft.TmpElNet(20, 2), 20);
  ClickLine(driver, 19);
  driver.Click("cmdDelete");
  EXPECT_EQ(draft.TmpElNet(20, 1), 0);
  EXPECT_EQ(LinesOf(driver).size(), 20U);
}

TEST_F(NetworkDialog, DeleteAllAsksFirst) {
  MakeResistors(3);
  design.ElNet = draft.TmpElNet;
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("cmdDeleteAll");
  EXPECT_EQ(shownMessages.Lines(), Lines{"Electrical Matching Network|Delete all elements?"});
  EXPECT_EQ(shownMessages.Shown().at(0).buttons, MessageButtons::kYesNo);
  EXPECT_EQ(shownMessages.Shown().at(0).defaultAnswer, MessageAnswer::kNo);
  EXPECT_EQ(LinesOf(driver).size(), 4U);
  shownMessages.AnswerNext(MessageAnswer::kYes);
  driver.Click("cmdDeleteAll");
  EXPECT_EQ(LinesOf(driver), Lines{"No matching network"});
  EXPECT_EQ(design.ElNet(1, 1), 1);
  driver.Click("cmdElnetOK");
  for (int row = 1; row <= 20; ++row) {
    EXPECT_EQ(RowOf(design.ElNet, row), Row(6, 0.0)) << row;
  }
}

TEST_F(NetworkDialog, CancelLeavesTheDesign) {
  MakeResistors(3);
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  ClickLine(driver, 0);
  driver.Click("cmdDelete");
  driver.Click("cmdElnetCancel");
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_EQ(design.ElNet(1, 1), 0);
  EXPECT_EQ(design.DesignNew, 0);
}

TEST_F(NetworkDialog, UnchangedNetworkIsStillRecalculated) {
  frmElNetEntry dialog;
  DialogDriver(dialog).Press(Qt::Key_Return);
  EXPECT_EQ(design.DesignNew, 65535);
}

TEST_F(NetworkDialog, IsWorkedByTheKeyboardAlone) {
  MakeResistors(2);
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  auto* const list = driver.Find<QListWidget>("lstElNet");
  EXPECT_TRUE(list->hasFocus());
  QTest::keyClick(list, Qt::Key_Delete);  // a beep
  EXPECT_EQ(LinesOf(driver).size(), 3U);
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_EQ(list->currentRow(), 0) << "the first key selects the first line";
  EXPECT_EQ(Buttons(driver), "icd");
  QTest::keyClick(list, Qt::Key_Down);
  ExpectElement(4, {"2"});
  QTest::keyClick(list, Qt::Key_Insert);
  EXPECT_EQ(LinesOf(driver),
            (Lines{"1. Series R 1 Ohms", "2. Shunt L 2 uH", "3. Series R 2 Ohms", " "}));
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Delete);
  EXPECT_EQ(LinesOf(driver), (Lines{"1. Shunt L 2 uH", "2. Series R 2 Ohms", " "}));
  QTest::keyClick(list, Qt::Key_Home);
  QTest::keyClick(list, Qt::Key_End);
  QTest::keyClick(list, Qt::Key_Delete);
  EXPECT_EQ(LinesOf(driver).size(), 3U) << "the last line holds nothing to delete";
}

TEST_F(NetworkDialog, DoubleClickChangesAnElement) {
  MakeResistors(1);
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  auto* const list = driver.Find<QListWidget>("lstElNet");
  ExpectElement(1, {"8"});
  const QPoint at = list->visualItemRect(list->item(0)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, at);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, at);
  EXPECT_EQ(LinesOf(driver), (Lines{"1. Series R 8 Ohms", " "}));
}

/// An element as the chooser shows it and as it is stored.
struct Element {
  int code;
  const char* caption;
  Lines rows;    ///< "caption unit" of each value
  Row fromTwos;  ///< columns 2 to 5 when every box holds -2
  Row fromZero;  ///< the same when every box holds 0
};

const Lines kCircuitRows{"Resistor R|Ohms", "Inductor L|uH", "Capacitor Ca|pF"};
const Row kCircuitFromTwos{2, 2e-6, 2e-12, 0};
const Row kCircuitFromZero{1e-6, 1e-12, 1e-14, 0};

const std::vector<Element> kElements{
    {1, "Series R", {"Series resistor|Ohms"}, {2, 0, 0, 0}, {1e-6, 0, 0, 0}},
    {2, "Shunt R", {"Shunt resistor|Ohms"}, {2, 0, 0, 0}, {1e-6, 0, 0, 0}},
    {3, "Series L", {"Series inductor|uH"}, {2e-6, 0, 0, 0}, {1e-12, 0, 0, 0}},
    {4, "Shunt L", {"Shunt inductor|uH"}, {2e-6, 0, 0, 0}, {1e-12, 0, 0, 0}},
    {5, "Series C", {"Series capacitor|pF"}, {2e-12, 0, 0, 0}, {1e-14, 0, 0, 0}},
    {6, "Shunt C", {"Shunt capacitor|pF"}, {2e-12, 0, 0, 0}, {1e-14, 0, 0, 0}},
    {7,
     "Coaxial cable",
     {"Cable impedance|Ohms", "Length|Meters", "Attenuation|dB/kilometer", " Loss frequency|MHz"},
     {2, 2, 2, 2},
     {0.01, 0, 0, 1}},
    {8,
     "Ideal transformer",
     {"Primary winding|Turns", "Secondary winding|Turns"},
     {2, 2, 0, 0},
     {0.001, 0.001, 0, 0}},
    {9,
     "Non-ideal transformer",
     {"Series inductor L (1 of 2)|uH", "Shunt resistor R|Ohms", "Shunt inductor L|uH",
      "Shunt capacitor C|pF"},
     {2e-6, 2, 2e-6, 2e-12},
     {1e-12, 1, 1e-12, 1e-14}},
    {10, "Series Circuit A", kCircuitRows, kCircuitFromTwos, kCircuitFromZero},
    {11, "Series Circuit B", kCircuitRows, kCircuitFromTwos, kCircuitFromZero},
    {12, "Series Circuit C", kCircuitRows, kCircuitFromTwos, kCircuitFromZero},
    {13,
     "Series Circuit E",
     {"Resistor R|Ohms", "Inductor L|uH", "Capacitor Ca|pF", "Capacitor Cb|pF"},
     {2, 2e-6, 2e-12, 2e-12},
     {1e-6, 1e-12, 1e-14, 1e-14}},
    {14, "Shunt Circuit B", kCircuitRows, kCircuitFromTwos, kCircuitFromZero},
    {15, "Shunt Circuit C", kCircuitRows, kCircuitFromTwos, kCircuitFromZero},
    {16, "Shunt Circuit D", kCircuitRows, kCircuitFromTwos, kCircuitFromZero},
    {17,
     "Multiple Identical Piezoelectric Layers",
     {"Piezoelectric material|Layers"},
     {1, 2, 0, 0},
     {1, 1, 0, 0}},
};

class ElementDialog : public FreshProgram, public ::testing::WithParamInterface<Element> {
 protected:
  ElementDialog() {
    MakeSimpleDesign();
    draft.ElAction = 1;
    draft.ElRow = 1;
  }

  static std::string Box(std::size_t row) { return "txtElValue(" + std::to_string(row) + ")"; }
  /// Enters the element with the same text in each box and returns columns 1 to 6.
  static Row Enter(const Element& element, const char* text) {
    draft.TmpElNet = {};
    frmEnterElement dialog;
    const DialogDriver driver(dialog);
    driver.Click(Option(element.code).c_str());
    for (std::size_t k = 0; k < element.rows.size(); ++k) {
      driver.Type(Box(k).c_str(), text);
    }
    driver.Click("cmdElSelectOK");
    return RowOf(draft.TmpElNet, 1);
  }
  static Row Stored(const Element& element, const Row& values) {
    Row row{static_cast<double>(element.code)};
    row.insert(row.end(), values.begin(), values.end());
    row.push_back(0);
    return row;
  }
};

INSTANTIATE_TEST_SUITE_P(OfCode, ElementDialog, ::testing::ValuesIn(kElements),
                         [](const auto& each) { return std::to_string(each.param.code); });

TEST_P(ElementDialog, HasItsCaptionsAndUnits) {
  frmEnterElement dialog;
  const DialogDriver driver(dialog);
  EXPECT_TRUE(driver.Chosen("optElSelect(0)"));
  EXPECT_FALSE(driver.Visible("txtElValue(0)"));
  const std::string option = Option(GetParam().code);
  EXPECT_EQ(driver.Find<QAbstractButton>(option.c_str())->text().toStdString(), GetParam().caption);
  driver.Click(option.c_str());
  for (std::size_t k = 0; k < 4; ++k) {
    const std::string index = "(" + std::to_string(k) + ")";
    const bool used = k < GetParam().rows.size();
    EXPECT_EQ(driver.Visible(Box(k).c_str()), used);
    EXPECT_EQ(driver.Visible(("lblElValue" + index).c_str()), used);
    EXPECT_EQ(driver.Visible(("lblElUnit" + index).c_str()), used);
    EXPECT_EQ(driver.Text(Box(k).c_str()), "0");
    if (used) {
      EXPECT_EQ(driver.Caption(("lblElValue" + index).c_str()) + "|" +
                    driver.Caption(("lblElUnit" + index).c_str()),
                GetParam().rows[k]);
    }
  }
}

TEST_P(ElementDialog, StoresMagnitudesInUnitsOfTheNetwork) {
  const Row row = Enter(GetParam(), "-2");
  const Row expected = Stored(GetParam(), GetParam().fromTwos);
  for (std::size_t k = 0; k < 6; ++k) {
    EXPECT_DOUBLE_EQ(row[k], expected[k]) << "column " << k + 1;
  }
}

TEST_P(ElementDialog, ReplacesZeroWhereAFormulaWouldDivideByIt) {
  EXPECT_EQ(Enter(GetParam(), "0"), Stored(GetParam(), GetParam().fromZero));
  EXPECT_EQ(Enter(GetParam(), "no number"), Stored(GetParam(), GetParam().fromZero));
}

TEST_P(ElementDialog, ShowsWhatItStored) {
  Enter(GetParam(), "4.7");
  draft.ElAction = 2;
  frmEnterElement dialog;
  const DialogDriver driver(dialog);
  EXPECT_TRUE(driver.Chosen(Option(GetParam().code).c_str()));
  for (std::size_t k = 0; k < GetParam().rows.size(); ++k) {
    EXPECT_EQ(driver.Text(Box(k).c_str()), "4.7");
  }
  const Row before = RowOf(draft.TmpElNet, 1);
  driver.Click("cmdElSelectOK");
  const Row after = RowOf(draft.TmpElNet, 1);
  for (std::size_t k = 0; k < 6; ++k) {
    EXPECT_DOUBLE_EQ(after[k], before[k]);
  }
}

TEST_F(NetworkDialog, ArrowsLeadThroughTheChooser) {
  draft.ElAction = 1;
  draft.ElRow = 1;
  frmEnterElement dialog;
  const DialogDriver driver(dialog);
  auto* const blank = driver.Find<QWidget>("optElSelect(0)");
  EXPECT_TRUE(blank->hasFocus());
  QTest::keyClick(blank, Qt::Key_Down);
  EXPECT_TRUE(driver.Chosen("optElSelect(1)")) << "an arrow leads on to the next element";
  EXPECT_EQ(driver.TabOrder(),
            (Lines{"optElSelect(1)", "txtElValue(0)", "cmdElSelectOK", "cmdElSelectCancel"}));
}

TEST_F(NetworkDialog, RowOfAnUnknownCodeIsChangedFromBlank) {
  PutRow(draft.TmpElNet, 1, {42, 1});
  draft.ElAction = 2;
  draft.ElRow = 1;
  frmEnterElement dialog;
  EXPECT_TRUE(DialogDriver(dialog).Chosen("optElSelect(0)"));
}

}  // namespace
}  // namespace halvorne::testing
