#include <QAction>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <fstream>

#include "dialogs/entry_state.h"
#include "engine/design_model.h"
#include "platform/numbers.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

/// The two large dialogs from the menu bar, with the plot behind them.
class LayersAndPlates : public WindowTest {
 protected:
  LayersAndPlates() { Reset(entry); }

  /// Chooses a command and works the dialog that it opens.
  void Work(const char* command, const char* form, const std::function<void(QWidget&)>& act) {
    script.ExpectForm(form, act);
    ClickMenu(command);
  }
  static void Press(QWidget& dialog, const char* button) {
    QTest::mouseClick(dialog.findChild<QWidget*>(QString::fromLatin1(button)), Qt::LeftButton);
  }
  static void Type(QWidget& dialog, const char* name, const char* text) {
    auto* const box = dialog.findChild<QLineEdit*>(QString::fromLatin1(name));
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QString::fromLatin1(text));
  }
};

TEST_F(LayersAndPlates, AChangeIsSeenAtOnceInThePlot) {
  StartWithDesign();
  ClickMenu("mnuViewTxZ");
  const QImage before = Screen();
  Work("mnuInputPiezo", "frmPiezoEntry", [&](QWidget& dialog) {
    EXPECT_EQ(main->cursor().shape(), Qt::WaitCursor) << "while the dialog is open";
    EXPECT_EQ(dialog.cursor().shape(), Qt::ArrowCursor);
    Type(dialog, "txtPZmm(0)", "0.5");
    EXPECT_EQ(Screen(), before) << "nothing is drawn before OK";
    Press(dialog, "cmdPiezoOK");
  });
  EXPECT_EQ(main->cursor().shape(), Qt::ArrowCursor);
  EXPECT_DOUBLE_EQ(design.PZThick(1), 0.0005);
  EXPECT_NE(Screen(), before);
  EXPECT_EQ(Screen(), CorePicture());
}

TEST_F(LayersAndPlates, CancelLeavesThePlot) {
  StartWithDesign();
  ClickMenu("mnuViewTxZ");
  const QImage before = Screen();
  Work("mnuInputFP", "frmFaceEntry", [](QWidget& dialog) {
    Type(dialog, "txtFaceMM(0)", "0.5");
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(Screen(), before);
  EXPECT_EQ(design.DesignNew, 0);
}

// What the dialog commits gives the curves of the same numbers stored directly.
TEST_F(LayersAndPlates, TypedPlatesCountAsStoredOnes) {
  StartWithDesign();
  Work("mnuInputBP", "frmFaceEntry", [](QWidget& dialog) {
    Press(dialog, "CmdFaceNumberUP");
    Type(dialog, "txtFaceMM(1)", "0.25");
    Type(dialog, "txtFaceArea(1)", "0.5");
    Press(dialog, "cmdFaceOK");
  });
  const FreqCurve typed = curves.ZinElecRe;
  design.NoBack = 1;
  Recalc();
  EXPECT_FALSE(std::ranges::equal(curves.ZinElecRe, typed)) << "a second plate changes the curves";
  design.NoBack = 2;
  design.BackMatl(2) = design.BackMatl(1);
  design.BackMatl(2).Velocity = 2000;
  design.BackMatl(2).Density = 1000;
  design.BackMatl(2).Loss = 0;
  design.BackMatl(2).LossFreq = design.BackMatl(2).LossExp = 1;
  design.BackThick(2) = 0.00025;
  design.BackArea(2) = 0.5;
  Recalc();
  EXPECT_TRUE(std::ranges::equal(curves.ZinElecRe, typed));
}

TEST_F(LayersAndPlates, ASideWithoutPlatesLosesItsDispersionPlot) {
  StartWithDesign();
  ClickMenu("mnuViewDispBP");
  EXPECT_EQ(view.CurrentPlot, 53);
  Work("mnuInputBP", "frmFaceEntry", [](QWidget& dialog) {
    Press(dialog, "CmdFaceNumberDown");
    Press(dialog, "cmdFaceOK");
  });
  EXPECT_EQ(view.CurrentPlot, 52);
  EXPECT_FALSE(Action("mnuViewDispBP")->isEnabled());
  EXPECT_TRUE(Action("mnuViewDispFP")->isEnabled());
  Work("mnuInputBP", "frmFaceEntry", [](QWidget& dialog) {
    Press(dialog, "CmdFaceNumberUP");
    Press(dialog, "cmdFaceOK");
  });
  EXPECT_TRUE(Action("mnuViewDispBP")->isEnabled());
}

TEST_F(LayersAndPlates, ABadDispersionFileIsToldInFrontOfTheDialog) {
  StartWithDesign();
  const std::string path = (Folder() / "bad.csv").string();
  std::ofstream(path) << "words\n0.9\nno number\n";
  Work("mnuInputFP", "frmFaceEntry", [&](QWidget& dialog) {
    Press(dialog, "CmdView(0)");
    QTest::mouseClick(dialog.findChild<QWidget*>("chkAcVelDisp"), Qt::LeftButton, {}, QPoint(8, 8));
    Press(dialog, "CmdView(2)");
    script.ExpectFileDialog("File Open", path);
    script.Expect(FileBox("open velocity dispersion file", 13, "Type mismatch"));
    Press(dialog, "CmdLoadFile");
    EXPECT_TRUE(dialog.isVisible());
    Press(dialog, "cmdFaceCancel");
  });
  EXPECT_EQ(design.VelDisp(1, 0), 1) << "Cancel brings the table back";
}

TEST_F(LayersAndPlates, AFailingRecalculationLeavesAUsableWindow) {
  StartWithDesign();
  Work("mnuInputPiezo", "frmPiezoEntry", [this](QWidget& dialog) {
    Type(dialog, "txtPZmm(0)", "0");
    script.Expect(FailureBox("ERROR in PiezoConstants of CALCS", "Error: 11. Division by zero"));
    Press(dialog, "cmdPiezoOK");
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(main->cursor().shape(), Qt::ArrowCursor);
  Work("mnuInputPiezo", "frmPiezoEntry", [](QWidget& dialog) {
    Type(dialog, "txtPZmm(0)", "0.4");
    Press(dialog, "cmdPiezoOK");
  });
  EXPECT_DOUBLE_EQ(design.PZThick(1), 0.0004);
}

}  // namespace
}  // namespace halvorne::testing
