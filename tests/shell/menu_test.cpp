#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

class Menus : public WindowTest {};

void Write(const QList<QAction*>& actions, const std::string& indent, std::string& text) {
  for (const QAction* action : actions) {
    text += indent + action->objectName().toStdString() + " " +
            (action->isSeparator() ? "-" : action->text().toStdString()) + "\n";
    if (action->menu() != nullptr) {
      Write(action->menu()->actions(), indent + "  ", text);
    }
  }
}

constexpr const char* kMenuBar = R"(mnuFile &File
  mnuFileItem(0) &New
  mnuFileItem(1) &Open...
  mnuFileItem(2) Save &As...
  mnuFileItem(3) &Close
  mnuFileItem(4) -
  mnuFileItem(5) &Print Preview
  mnuFileItem(6) Print &Report
  mnuFileItem(7) -
  mnuFileItem(8) E&xit
  mnuFileArray(0) -
mnuEdit &Edit
  mnuEditCopyGraph Copy &Graph
  mnuEditCopyGraphData Copy Graph &Data
  mnuEditCopyInputs Copy &Input Data
  mnuEditCopyStats Copy &Statistics
  mnuEditSaveGraphData Save Graph Data to &File
mnuInput &Input
  mnuInputPiezo &Piezo layers
  mnuInputSz &Size + shape
  mnuInputFP &Faceplates
  mnuInputBP &Backplates
  mnuInputLoad &Acoustic loads
  mnuInputElTerm &Electrical Terminations
  mnuInputElNet Electrical &Network
  mnuInputFreqPts Freq &Limits + Points
  mnuInputTimePts &Time Points
  mnuInputView &View Inputs
mnuView &View
  mnuViewTx &Transmit/Electric
    mnuViewTxZ Electrical &Input Impedance
    mnuViewTxRefl Electrical &Reflection Coef
    mnuViewTxEff Transmit &Efficiency
    mnuViewTxTF Transmit &Transfer Function
      mnuViewTxTFPress &Pressure Out/Voltage In
      mnuViewTxTFPower &Acoustic Power Out/Elec Power In
    mnuViewTxWfm Transmit &Impulse Response
    mnuViewTxExcite Transmit E&xcitation Response
  mnuViewRx &Receive/Acoustic
    mnuViewRxZ Acoustic &Input Impedance
    mnuViewRxRefl Acoustic &Reflection Coef
    mnuViewRxEff Receive &Efficiency
    mnuViewRxTF Receive &Transfer Function
      mnuViewRxTFPress &Voltage Out/Pressure In
      mnuViewRxTFPower &Elec Power Out/Acoustic Power In
    mnuViewRxWfm Receive &Impulse Response
    mnuViewRxExcite Receive E&xcitation Response
  mnuView2Way Two-&Way
    mnuView2WayItem(0) &Transfer Function
    mnuView2WayItem(1) &Insertion Loss
    mnuView2WayItem(2) &Pulse-Echo Impulse Response
    mnuView2WayItem(3) Pulse-Echo E&xcitation Response
  mnuViewAcLoads &Acoustic loads
    mnuViewAcFront &Front acoustic load
    mnuViewAcRear &Rear acoustic load
  mnuViewDisp &Velocity dispersion
    mnuViewDispFP Velocity dispersion in faceplates
    mnuViewDispPiezo Velocity dispersion in piezoelectric layer
    mnuViewDispBP Velocity dispersion in backplates
mnuOptions &Options
  mnuOptionsItem(0) &Excitation Waveforms
  mnuOptionsItem(1) &Plot Scales
  mnuOptionsItem(2) &Display Options
mnuHelp &Help
  mnuHelpItem(0) &Contents
  mnuHelpItem(1) &Search for Help on...
  mnuHelpItem(2) -
  mnuHelpItem(3) &About Halvorne...
)";

TEST_F(Menus, HoldEveryItemInItsOrderWithItsCaption) {
  StartProgram();
  std::string shown;
  Write(main->menuBar()->actions(), "", shown);
  EXPECT_EQ(shown, kMenuBar);
}

TEST_F(Menus, OfferTheUsualKeys) {
  StartProgram();
  for (const auto& [name, keys] : {std::pair{"mnuFileItem(1)", "Ctrl+O"},
                                   {"mnuFileItem(2)", "Ctrl+Shift+S"},
                                   {"mnuFileItem(6)", "Ctrl+P"},
                                   {"mnuEditCopyGraph", "Ctrl+C"}}) {
    EXPECT_EQ(Action(name)->shortcut().toString().toStdString(), keys) << name;
  }
}

TEST_F(Menus, EnableTheRestWhenADesignIsOpen) {
  StartWithDesign();
  for (const char* name :
       {"mnuEdit", "mnuInput", "mnuView", "mnuOptions", "cmdFileSave", "cmdViewInputs",
        "cmdPrintPreview", "cmdPrintReport", "cmdCopyToClipboard", "cmdCopyDataToClipboard",
        "txtEdit", "PlotType", "LblPlotType", "Cursor1", "FindMax", "FindMin"}) {
    EXPECT_TRUE(Enabled(name)) << name;
  }
  for (const char* name : {"mnuFileItem(2)", "mnuFileItem(3)", "mnuFileItem(5)", "mnuFileItem(6)",
                           "mnuEditCopyInputs", "mnuInputView", "mnuInputSz", "mnuInputElTerm",
                           "mnuOptionsItem(1)", "mnuViewDispFP", "mnuViewTxExcite"}) {
    EXPECT_TRUE(Action(name)->isEnabled()) << name;
  }
}

TEST_F(Menus, StandOverAToolbarOfEightPicturesOfWhichOneHasACaption) {
  StartProgram();
  const auto* const ground = Find<QWidget>("Picture2");
  int left = -1;
  for (const char* name :
       {"cmdFileNew", "cmdFileOpen", "cmdFileSave", "cmdViewInputs", "cmdCopyToClipboard",
        "cmdCopyDataToClipboard", "cmdPrintPreview", "cmdPrintReport"}) {
    const auto* const button = Find<QAbstractButton>(name);
    EXPECT_EQ(button->parentWidget(), ground) << name;
    EXPECT_GT(button->x(), left) << name;
    left = button->x();
    EXPECT_FALSE(button->icon().pixmap(28).toImage().isNull()) << name;
    EXPECT_FALSE(button->toolTip().isEmpty()) << name;
    EXPECT_EQ(button->text().toStdString(), std::string(name) == "cmdViewInputs" ? "Input" : "")
        << name;
  }
}

}  // namespace
}  // namespace halvorne::testing
