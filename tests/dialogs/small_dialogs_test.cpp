#include <cmath>

#include "dialogs/dialog_driver.h"
#include "dialogs/frm_elec_term_entry.h"
#include "dialogs/frm_size_entry.h"
#include "engine/frequency_sweep.h"
#include "plot/plot_state.h"
#include "shell/frm_about.h"

namespace halvorne::testing {
namespace {

constexpr double kPiAsWritten = 3.14159265358979;

class SizeDialog : public FreshProgram {
 protected:
  SizeDialog() {
    MakeSimpleDesign();
    design.ElementShape = 1;
    design.ElementDim1 = 6;
    design.ElementDim2 = 4;
  }
};

TEST_F(SizeDialog, LoadsTheShapeWithItsCaptions) {
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(dialog.windowTitle().toStdString(), "Element Size and Shape");
  EXPECT_TRUE(driver.Chosen("optCircle"));
  EXPECT_EQ(driver.Caption("lblPiezoDim1"), "Diameter");
  EXPECT_EQ(driver.Caption("lblPiezoDim2"), "");
  EXPECT_EQ(driver.Text("txtPiezoDim1"), "6");
  EXPECT_FALSE(driver.Visible("txtPiezoDim2"));
  EXPECT_EQ(driver.Text("txtPiezoDim2"), "4") << "a disk's hidden box keeps the value";
}

TEST_F(SizeDialog, ShapesChangeCaptionsButNotTheDesign) {
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optAnnulus");
  EXPECT_EQ(driver.Caption("lblPiezoDim1"), "Outer Diameter");
  EXPECT_EQ(driver.Caption("lblPiezoDim2"), "Inner Diameter");
  EXPECT_TRUE(driver.Visible("txtPiezoDim2"));
  EXPECT_EQ(driver.Text("txtPiezoDim2"), "4") << "only the disk empties the second box";
  driver.Click("optRect");
  EXPECT_EQ(driver.Caption("lblPiezoDim1"), "Length");
  EXPECT_EQ(driver.Caption("lblPiezoDim2"), "Width");
  driver.Click("optCircle");
  EXPECT_EQ(driver.Text("txtPiezoDim2"), "");
  driver.Click("cmdSizeCancel");
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_EQ(design.ElementShape, 1);
  EXPECT_EQ(design.ElementDim2, 4);
  EXPECT_EQ(design.DesignNew, 0) << "Cancel never recalculates";
}

TEST_F(SizeDialog, AnnulusEnteredTheWrongWayRoundIsSwapped) {
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optAnnulus");
  driver.Type("txtPiezoDim1", "5");
  driver.Type("txtPiezoDim2", "10");
  driver.Click("cmdSizeOK");
  EXPECT_EQ(design.ElementDim1, 10);
  EXPECT_EQ(design.ElementDim2, 5);
  EXPECT_EQ(design.ElementSizeText, "5 x 10 mm annulus");
  EXPECT_NEAR(design.ElementArea, kPiAsWritten * (25e-6 - 6.25e-6), 1e-20);
  EXPECT_EQ(design.DesignNew, 65535) << "OK always recalculates";
  EXPECT_FALSE(driver.IsOpen());
  frmSizeEntry again;
  const DialogDriver next(again);
  EXPECT_TRUE(next.Chosen("optAnnulus"));
  EXPECT_EQ(next.Text("txtPiezoDim1"), "10");
  EXPECT_EQ(next.Text("txtPiezoDim2"), "5");
}

TEST_F(SizeDialog, UnchangedDiskIsStillRecalculatedAndKeepsItsHiddenDimension) {
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Press(Qt::Key_Return);
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_EQ(design.ElementDim2, 4);
  EXPECT_EQ(design.ElementSizeText, "6 mm disk");
}

TEST_F(SizeDialog, LettersCountAsNothingAndStayComputable) {
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Type("txtPiezoDim1", "12abc");
  EXPECT_EQ(driver.Text("txtPiezoDim1"), "12abc") << "a size is not corrected while it is typed";
  driver.Press(Qt::Key_Return);
  EXPECT_EQ(design.ElementDim1, 0);
  EXPECT_EQ(design.ElementArea, 1E-20);
  EXPECT_EQ(design.ElementSizeText, "0 mm disk");
}

TEST_F(SizeDialog, RingNamesInnerThenOuterDiameter) {
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optAnnulus");
  driver.Type("txtPiezoDim1", "-1.50");
  driver.Type("txtPiezoDim2", ".25");
  driver.Press(Qt::Key_Return);
  EXPECT_EQ(design.ElementDim1, 1.5);
  EXPECT_EQ(design.ElementDim2, 0.25);
  EXPECT_EQ(design.ElementSizeText, "0.25 x 1.5 mm annulus");
  EXPECT_NEAR(design.ElementArea, kPiAsWritten * (0.75e-3 * 0.75e-3 - 0.125e-3 * 0.125e-3), 1e-20);
}

TEST_F(SizeDialog, EqualDiametersStayComputable) {
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optAnnulus");
  driver.Type("txtPiezoDim1", "7");
  driver.Type("txtPiezoDim2", "7");
  driver.Click("cmdSizeOK");
  EXPECT_EQ(design.ElementArea, 1E-20);
}

TEST_F(SizeDialog, NegativeDiameterCountsAsPositive) {
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Type("txtPiezoDim1", "-12");
  driver.Press(Qt::Key_Return);
  EXPECT_EQ(design.ElementDim1, 12);
  EXPECT_EQ(design.ElementSizeText, "12 mm disk");
  EXPECT_NEAR(design.ElementArea, kPiAsWritten * 36e-6, 1e-20);
}

TEST_F(SizeDialog, DiskAfterAnnulusHasNoSecondDimension) {
  design.ElementShape = 2;
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optCircle");
  driver.Click("cmdSizeOK");
  EXPECT_EQ(design.ElementDim2, 0);
}

TEST_F(SizeDialog, RectangleNamesLengthThenWidth) {
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optRect");
  driver.Type("txtPiezoDim1", "13");
  driver.Type("txtPiezoDim2", "0.25");
  driver.Click("cmdSizeOK");
  EXPECT_EQ(design.ElementSizeText, "13 x 0.25 mm rect. bar");
  EXPECT_DOUBLE_EQ(design.ElementArea, 3.25e-6);
  EXPECT_DOUBLE_EQ(design.PZCo(1), 3.25e-6 * 800 * 8.85e-12 / 0.0004)
      << "the layer's constants follow the area";
}

TEST_F(SizeDialog, KeyboardAloneReachesEveryControl) {
  design.ElementShape = 2;
  frmSizeEntry dialog;
  const DialogDriver driver(dialog);
  using Way = std::vector<std::string>;
  EXPECT_EQ(driver.TabOrder(),
            (Way{"txtPiezoDim1", "txtPiezoDim2", "cmdSizeOK", "cmdSizeCancel", "optAnnulus"}));
  driver.Find<QWidget>("optAnnulus")->setFocus();
  QTest::keyClick(driver.Find<QWidget>("optAnnulus"), Qt::Key_Down);
  EXPECT_EQ(driver.Caption("lblPiezoDim1"), "Length") << "an arrow leads on to the rectangle";
}

class TerminationsDialog : public FreshProgram {
 protected:
  TerminationsDialog() { MakeSimpleDesign(); }
};

TEST_F(TerminationsDialog, TakesBothAndRecalculates) {
  design.TermRx = 1000000;
  frmElecTermEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(dialog.windowTitle().toStdString(), "Electrical Terminatons");
  EXPECT_EQ(driver.Text("txtXmtrZ"), "50");
  EXPECT_EQ(driver.Text("txtRcvrZ"), "1000000");
  driver.Type("txtXmtrZ", "75");
  driver.Type("txtRcvrZ", "-2.5E3");
  driver.Press(Qt::Key_Return);
  EXPECT_EQ(design.TermTx, 75);
  EXPECT_EQ(design.TermRx, -2500) << "there are no bounds";
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_FALSE(driver.IsOpen());
}

TEST_F(TerminationsDialog, UnchangedAreStillRecalculated) {
  frmElecTermEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("cmdElecOK");
  EXPECT_EQ(design.TermTx, 50);
  EXPECT_EQ(design.DesignNew, 65535);
}

TEST_F(TerminationsDialog, WhatIsNoNumberCountsAsZeroOhms) {
  frmElecTermEntry dialog;
  const DialogDriver driver(dialog);
  driver.Type("txtXmtrZ", "fifty");
  driver.Click("cmdElecOK");
  EXPECT_EQ(design.TermTx, 0);
}

TEST_F(TerminationsDialog, CancelAndEscapeLeaveTheDesign) {
  frmElecTermEntry first;
  const DialogDriver cancelled(first);
  cancelled.Type("txtXmtrZ", "75");
  cancelled.Click("cmdElecCancel");
  EXPECT_FALSE(cancelled.IsOpen());
  frmElecTermEntry second;
  const DialogDriver escaped(second);
  escaped.Type("txtXmtrZ", "75");
  escaped.Press(Qt::Key_Escape);
  EXPECT_FALSE(escaped.IsOpen());
  EXPECT_EQ(design.TermTx, 50);
  EXPECT_EQ(design.DesignNew, 0);
}

TEST(AboutWindow, NamesTheVersionWithTwoMinorDigits) {
  EXPECT_EQ(VersionCaption(4, 1).toStdString(), "Version 4.01 for");
  EXPECT_EQ(VersionCaption(4, 12).toStdString(), "Version 4.12 for");
  frmAbout about;
  const DialogDriver driver(about);
  EXPECT_EQ(about.windowTitle().toStdString(), "About Halvorne");
  EXPECT_EQ(driver.Caption("Label1"), "Halvorne");
  EXPECT_EQ(driver.Caption("Label2"), "Version 4.01 for");
  EXPECT_EQ(driver.Caption("Label3"), "Windows XP, VISTA and Windows 7");
  driver.Click("cmdAbout");
  EXPECT_FALSE(driver.IsOpen());
}

}  // namespace
}  // namespace halvorne::testing
