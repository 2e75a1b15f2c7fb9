#include <functional>
#include <memory>

#include "dialogs/dialog_driver.h"
#include "dialogs/frm_acoust_load.h"
#include "dialogs/frm_el_net_entry.h"
#include "dialogs/frm_enter_element.h"
#include "dialogs/frm_excite.h"
#include "dialogs/frm_freq_entry.h"
#include "dialogs/frm_time_entry.h"
#include "engine/design_model.h"
#include "shell/modal_script.h"

namespace halvorne::testing {
namespace {

/// A dialog, something to enter there and how its commitment is seen.
struct Entry {
  const char* words;
  std::function<std::unique_ptr<QDialog>()> open;
  std::function<void(const DialogDriver&)> enter;
  std::function<bool()> isCommitted;
  const char* cancel;
};

template <class Dialog>
std::unique_ptr<QDialog> Open() {
  return std::make_unique<Dialog>();
}

const Entry kEntries[] = {
    {"Frequency", Open<frmFreqEntry>,
     [](const DialogDriver& driver) { driver.Type("txtStopFreq", "8"); },
     [] { return design.FreqStop == 8e6; }, "cmdFreqCancel"},
    {"Time", Open<frmTimeEntry>, [](const DialogDriver& driver) { driver.Click("optPoints(6)"); },
     [] { return design.NoTimePts == 16384; }, "CmdTimeCancel"},
    {"Loads", Open<frmAcoustLoad>,
     [](const DialogDriver& driver) { driver.Type("txtAcoustBackZ", "7"); },
     [] { return design.ZBackLoad == 7e6; }, "cmdAcoustTermCancel"},
    {"Excitation", Open<frmExcite>,
     [](const DialogDriver& driver) { driver.Click("optXwfmSource(1)"); },
     [] { return design.ExciteType == 1; }, "cmdExciteCancel"},
    {"Network", Open<frmElNetEntry>,
     [](const DialogDriver&) { draft.TmpElNet.rows(1) = {1, 75, 0, 0, 0, 0}; },
     [] { return design.ElNet(1, 1) == 1; }, "cmdElnetCancel"},
    {"Element", Open<frmEnterElement>,
     [](const DialogDriver& driver) { driver.Click("optElSelect(1)"); },
     [] { return draft.TmpElNet(1, 1) == 1; }, "cmdElSelectCancel"},
};

class ReturnKey : public FreshProgram {
 protected:
  ReturnKey() {
    MakeSimpleDesign();
    draft.ElAction = draft.ElRow = 1;
  }
  /// Moves on with the Tab key until a control of this name has the focus.
  static void TabTo(const QDialog& dialog, const std::string& name) {
    for (int i = 0; i < 30 && dialog.focusWidget()->objectName().toStdString() != name; ++i) {
      QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    }
    ASSERT_EQ(dialog.focusWidget()->objectName().toStdString(), name);
  }
};

class ReturnKeyClosing : public ReturnKey, public ::testing::WithParamInterface<Entry> {};

INSTANTIATE_TEST_SUITE_P(Of, ReturnKeyClosing, ::testing::ValuesIn(kEntries),
                         [](const auto& entry) { return std::string(entry.param.words); });

TEST_P(ReturnKeyClosing, OnCancelIsCancel) {
  const std::unique_ptr<QDialog> dialog = GetParam().open();
  const DialogDriver driver(*dialog);
  GetParam().enter(driver);
  TabTo(*dialog, GetParam().cancel);
  QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_FALSE(GetParam().isCommitted());
}

TEST_P(ReturnKeyClosing, IsOkAgainOnceCancelIsLeft) {
  const std::unique_ptr<QDialog> dialog = GetParam().open();
  const DialogDriver driver(*dialog);
  GetParam().enter(driver);
  TabTo(*dialog, GetParam().cancel);
  QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
  QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_TRUE(GetParam().isCommitted());
}

TEST_F(ReturnKey, OnACommandOfTheNetworkIsThatCommand) {
  ModalScript script;
  frmElNetEntry dialog;
  const DialogDriver driver(dialog);
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
  TabTo(dialog, "cmdInsert");
  script.ExpectForm("frmEnterElement",
                    [](QWidget& element) { QTest::keyClick(&element, Qt::Key_Escape); });
  QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(script.Finished()) << "the element's window did not come";
  EXPECT_TRUE(driver.IsOpen());
  EXPECT_EQ(design.DesignNew, 0);
}

TEST_F(ReturnKey, OnSelectFileAsksForAFile) {
  design.ZBackComplex = design.ZFrontComplex = true;
  design.ExciteType = 2;
  design.ExciteLength = 1;
  for (const auto& [open, button] : {std::pair{&Open<frmAcoustLoad>, "CmdLoadBackComplex"},
                                     {&Open<frmAcoustLoad>, "CmdLoadFrontComplex"},
                                     {&Open<frmExcite>, "cmdOpenExciteFile"}}) {
    ModalScript script;
    const std::unique_ptr<QDialog> dialog = open();
    const DialogDriver driver(*dialog);
    TabTo(*dialog, button);
    script.ExpectCancelledFileDialog("File Open");
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(script.Finished()) << button << ": no file was asked for";
    EXPECT_TRUE(driver.IsOpen());
    EXPECT_EQ(design.DesignNew, 0);
  }
}

}  // namespace
}  // namespace halvorne::testing
