#include "shell/menu_table.h"

#include <array>
#include <charconv>

namespace halvorne {
namespace {

constexpr std::array kMenuTable = std::to_array<MenuRow>({
    {0, "mnuFile", "&File"},
    {1, "mnuFileItem(0)", "&New", "Ctrl+N"},
    {1, "mnuFileItem(1)", "&Open...", "Ctrl+O"},
    {1, "mnuFileItem(2)", "Save &As...", "Ctrl+Shift+S"},
    {1, "mnuFileItem(3)", "&Close", "Ctrl+W"},
    {1, "mnuFileItem(4)", "-"},
    {1, "mnuFileItem(5)", "&Print Preview", "Ctrl+Shift+P"},
    {1, "mnuFileItem(6)", "Print &Report", "Ctrl+P"},
    {1, "mnuFileItem(7)", "-"},
    {1, "mnuFileItem(8)", "E&xit", "Ctrl+Q"},
    {1, "mnuFileArray(0)", "-"},

    {0, "mnuEdit", "&Edit"},
    {1, "mnuEditCopyGraph", "Copy &Graph", "Ctrl+C"},
    {1, "mnuEditCopyGraphData", "Copy Graph &Data", "Ctrl+Shift+C"},
    {1, "mnuEditCopyInputs", "Copy &Input Data"},
    {1, "mnuEditCopyStats", "Copy &Statistics"},
    {1, "mnuEditSaveGraphData", "Save Graph Data to &File"},

    {0, "mnuInput", "&Input"},
    {1, "mnuInputPiezo", "&Piezo layers"},
    {1, "mnuInputSz", "&Size + shape"},
    {1, "mnuInputFP", "&Faceplates"},
    {1, "mnuInputBP", "&Backplates"},
    {1, "mnuInputLoad", "&Acoustic loads"},
    {1, "mnuInputElTerm", "&Electrical Terminations"},
    {1, "mnuInputElNet", "Electrical &Network"},
    {1, "mnuInputFreqPts", "Freq &Limits + Points"},
    {1, "mnuInputTimePts", "&Time Points"},
    {1, "mnuInputView", "&View Inputs"},

    {0, "mnuView", "&View"},
    {1, "mnuViewTx", "&Transmit/Electric"},
    {2, "mnuViewTxZ", "Electrical &Input Impedance", "", 11},
    {2, "mnuViewTxRefl", "Electrical &Reflection Coef", "", 12},
    {2, "mnuViewTxEff", "Transmit &Efficiency", "", 13},
    {2, "mnuViewTxTF", "Transmit &Transfer Function"},
    {3, "mnuViewTxTFPress", "&Pressure Out/Voltage In", "", 14},
    {3, "mnuViewTxTFPower", "&Acoustic Power Out/Elec Power In", "", 15},
    {2, "mnuViewTxWfm", "Transmit &Impulse Response", "", 16},
    {2, "mnuViewTxExcite", "Transmit E&xcitation Response", "", 17},
    {1, "mnuViewRx", "&Receive/Acoustic"},
    {2, "mnuViewRxZ", "Acoustic &Input Impedance", "", 21},
    {2, "mnuViewRxRefl", "Acoustic &Reflection Coef", "", 22},
    {2, "mnuViewRxEff", "Receive &Efficiency", "", 23},
    {2, "mnuViewRxTF", "Receive &Transfer Function"},
    {3, "mnuViewRxTFPress", "&Voltage Out/Pressure In", "", 24},
    {3, "mnuViewRxTFPower", "&Elec Power Out/Acoustic Power In", "", 25},
    {2, "mnuViewRxWfm", "Receive &Impulse Response", "", 26},
    {2, "mnuViewRxExcite", "Receive E&xcitation Response", "", 27},
    {1, "mnuView2Way", "Two-&Way"},
    {2, "mnuView2WayItem(0)", "&Transfer Function", "", 31},
    {2, "mnuView2WayItem(1)", "&Insertion Loss", "", 32},
    {2, "mnuView2WayItem(2)", "&Pulse-Echo Impulse Response", "", 33},
    {2, "mnuView2WayItem(3)", "Pulse-Echo E&xcitation Response", "", 34},
    {1, "mnuViewAcLoads", "&Acoustic loads"},
    {2, "mnuViewAcFront", "&Front acoustic load", "", 41},
    {2, "mnuViewAcRear", "&Rear acoustic load", "", 42},
    {1, "mnuViewDisp", "&Velocity dispersion"},
    {2, "mnuViewDispFP", "Velocity dispersion in faceplates", "", 51},
    {2, "mnuViewDispPiezo", "Velocity dispersion in piezoelectric layer", "", 52},
    {2, "mnuViewDispBP", "Velocity dispersion in backplates", "", 53},

    {0, "mnuOptions", "&Options"},
    {1, "mnuOptionsItem(0)", "&Excitation Waveforms"},
    {1, "mnuOptionsItem(1)", "&Plot Scales"},
    {1, "mnuOptionsItem(2)", "&Display Options"},

    {0, "mnuHelp", "&Help"},
    {1, "mnuHelpItem(0)", "&Contents"},
    {1, "mnuHelpItem(1)", "&Search for Help on..."},
    {1, "mnuHelpItem(2)", "-"},
    {1, "mnuHelpItem(3)", "&About Halvorne..."},
});

}  // namespace

std::span<const MenuRow> MenuTable() {
  return kMenuTable;
}

std::string_view ControlName(std::string_view objectName) {
  return objectName.substr(0, objectName.find('('));
}

int ControlIndex(std::string_view objectName) {
  int index = 0;
  const std::size_t open = objectName.find('(');
  if (open != std::string_view::npos) {
    std::from_chars(objectName.data() + open + 1, objectName.data() + objectName.size(), index);
  }
  return index;
}

}  // namespace halvorne
