#include <QGroupBox>
#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/dialog_driver.h"
#include "dialogs/entry_state.h"
#include "dialogs/frm_acoust_load.h"
#include "dialogs/frm_el_net_entry.h"
#include "dialogs/frm_elec_term_entry.h"
#include "dialogs/frm_enter_element.h"
#include "dialogs/frm_excite.h"
#include "dialogs/frm_face_entry.h"
#include "dialogs/frm_freq_entry.h"
#include "dialogs/frm_piezo_entry.h"
#include "dialogs/frm_size_entry.h"
#include "dialogs/frm_time_entry.h"
#include "engine/design_model.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "plot/windows/frm_display_opt.h"
#include "plot/windows/frm_plot_scale_entry.h"

namespace halvorne::testing {
namespace {

struct Words {
  const char* form;
  std::function<std::unique_ptr<QDialog>()> make;
  std::vector<std::string> buttons;  ///< "name: caption"
  std::vector<std::string> frames;   ///< titles
  std::vector<std::string> labels;   ///< fixed texts
};

template <class Dialog>
std::unique_ptr<QDialog> Make() {
  return std::make_unique<Dialog>();
}

/// The loaded instance of the plates, which goes with the pointer.
std::unique_ptr<QDialog> MakePlates() {
  entry.PlateSide = "Back";
  return std::unique_ptr<QDialog>(&frmFaceEntry::Loaded(nullptr));
}

const std::vector<Words> kWords{
    {"frmSizeEntry",
     Make<frmSizeEntry>,
     {"optCircle: Circular Disk", "optAnnulus: Annular Ring", "optRect: Rectangle", "cmdSizeOK: OK",
      "cmdSizeCancel: Cancel"},
     {"Element Shape:"},
     {"mm"}},
    {"frmElecTermEntry",
     Make<frmElecTermEntry>,
     {"cmdElecOK: OK", "cmdElecCancel: Cancel"},
     {},
     {"Transmitter Output Impedance", "Receiver Input Impedance", "Ohms"}},
    {"frmPiezoEntry",
     Make<frmPiezoEntry>,
     {"CmdView(0): Thickness", "CmdView(1): Material", "CmdView(2): Dispersion",
      "chkPZVelDisp: Velocity dispersion", "optPiezoNum(0): One", "optPiezoNum(1): Two",
      "optPZConnect(0): Series", "optPZConnect(1): Parallel", "optPZLayer(0): Rear",
      "optPZLayer(1): Front", "cmdOpenPiezoDB: Open Database", "CmdLoadFile: Select File",
      "cmdPiezoOK: OK", "cmdPiezoCancel: Cancel"},
     {"Thickness", "Frequencies", "Number of piezoelectric layers:", "Electrical connection:",
      "Material", "Piezoelectric layer", "Derived parameters", "Dispersion"},
     {"Layer", "Rear", "Front", "Thickness in Lambdas at Fd", "Thickness in mm", "Polarity +/-",
      "Material name", "Longitudinal velocity", "Shear velocity", "Density",
      "Clamped dielectric constant", "Coupling coefficient kt", "Electrical loss tangent",
      "Mechanical loss tangent", "Vendor", "Data source", "m/sec", "kg/m^3", "Current PZT Layer"}},
    {"frmFaceEntry",
     MakePlates,
     {"CmdView(0): Thickness", "CmdView(1): Material", "CmdView(2): Dispersion",
      "chkAcVelDisp: Velocity dispersion",
      "CmdFaceNumberUP: ", "CmdFaceNumberDown: ", "CmdMatlLayerUp: ", "CmdMatlLayerDown: ",
      "CmdLayerUp: ", "CmdLayerDown: ", "cmdOpenAcousticDB: Open Database",
      "CmdLoadFile: Select File", "cmdFaceOK: OK", "cmdFaceCancel: Cancel"},
     {"Thickness", "Material", "Derived parameters", "Dispersion"},
     {"Number of Backplates",
      "Material",
      "Longit. Z MRayls",
      "Rel. Area",
      "Thickness in Lambdas at Fd",
      "Thickness in mm",
      "Material name",
      "Longitudinal velocity",
      "Shear velocity",
      "Density",
      "Loss",
      "Loss frequency",
      "Loss exponent",
      "Vendor",
      "Formula",
      "Comments",
      "Data source",
      "m/sec",
      "kg/m^3",
      "dB/cm",
      "MHz",
      "Current layer",
      "Current Backplate"}},
    {"frmFreqEntry",
     Make<frmFreqEntry>,
     {"optKHz: kHz", "optMHz: MHz", "optGHz: GHz", "cmdFreqOK: OK", "cmdFreqCancel: Cancel"},
     {"Frequency units:"},
     {"Start frequency: ", "Stop frequency:", "Number of calculated points:",
      "Design center frequency Fd:"}},
    {"frmTimeEntry",
     Make<frmTimeEntry>,
     {"optPoints(0): 256", "optPoints(1): 512", "optPoints(2): 1024", "optPoints(3): 2048",
      "optPoints(4): 4096", "optPoints(5): 8192", "optPoints(6): 16384", "optPoints(7): 32768",
      "optPoints(8): 65536", "CmdTimeOK: OK", "CmdTimeCancel: Cancel"},
     {"Size of Inverse Fast Fourier Transform", "Related parameters"},
     {}},
    {"frmAcoustLoad",
     Make<frmAcoustLoad>,
     {"OptBackLoad(0): Real", "OptBackLoad(1): Complex", "CmdLoadBackComplex: Select File",
      "OptFrontLoad(0): Real", "OptFrontLoad(1): Complex", "CmdLoadFrontComplex: Select File",
      "cmdAcoustTermOK: OK", "cmdAcoustTermCancel: Cancel"},
     {"Rear Medium (Acoustic Backing)", "Front Medium (Acoustic Load)"},
     {"MRayls"}},
    {"frmExcite",
     Make<frmExcite>,
     {"optXwfmSource(0): None - Use impulse", "optXwfmSource(1): Calculated tone burst",
      "optXwfmSource(2): Data file", "optSineSquare(0): Sine wave", "optSineSquare(1): Square wave",
      "cmdOpenExciteFile: Select File", "cmdExciteOK: OK", "cmdExciteCancel: Cancel"},
     {},
     {"degrees"}},
    {"frmElNetEntry",
     Make<frmElNetEntry>,
     {"cmdInsert: Insert Element", "cmdChangeValue: Change Value", "cmdDelete: Delete Element",
      "cmdDeleteAll: Delete All", "cmdElnetOK: OK", "cmdElnetCancel: Cancel"},
     {},
     {}},
    {"frmEnterElement",
     Make<frmEnterElement>,
     {"optElSelect(0): Blank",
      "optElSelect(1): Series R",
      "optElSelect(2): Shunt R",
      "optElSelect(3): Series L",
      "optElSelect(4): Shunt L",
      "optElSelect(5): Series C",
      "optElSelect(6): Shunt C",
      "optElSelect(7): Coaxial cable",
      "optElSelect(8): Ideal transformer",
      "optElSelect(9): Non-ideal transformer",
      "optElSelect(10): Series Circuit A",
      "optElSelect(11): Series Circuit B",
      "optElSelect(12): Series Circuit C",
      "optElSelect(13): Series Circuit E",
      "optElSelect(14): Shunt Circuit B",
      "optElSelect(15): Shunt Circuit C",
      "optElSelect(16): Shunt Circuit D",
      "optElSelect(17): Multiple Identical Piezoelectric Layers",
      "cmdElSelectOK: OK",
      "cmdElSelectCancel: Cancel"},
     {},
     {"HP 4194A Circuits:"}},
    {"frmPlotScaleEntry",
     Make<frmPlotScaleEntry>,
     {"CmdShow(0): Amplitude", "CmdShow(1): Frequency", "CmdShow(2): Time", "optAmplAuto: Auto",
      "optAmplManual: Manual", "optFreqAuto: Auto", "optFreqManual: Manual", "optTimeAuto: Auto",
      "optTimeManual: Manual", "cmdPlotScaleOK: OK"},
     {"Amplitude scale", "Frequency window", "Time window"},
     {"Max", "Min", "Units", "Log range:", "dB", "Autoscale on:", "% of span", "Start", "Stop",
      "Limits", "0.000", "0 to", "Auto window width:", "% of Tmax"}},
    {"frmDisplayOpt",
     Make<frmDisplayOpt>,
     {"CmdView(0): Phase", "CmdView(1): Attenuation", "CmdView(2): Fonts",
      "optPhase(0): Phase ( +/- 180 degree window)", "optPhase(1): Unwrapped phase",
      "optPhase(2): Delay ( -phase slope)", "optFontSize(0): 8 point", "optFontSize(1): 10 point",
      "optFontSize(2): 12 point", "chkAttenEnable: Enable attenuation in load medium",
      "cmdDisplayOptOK: OK"},
     {"Transfer function phase or delay plots", "Text window font size", "Attenuation parameters:"},
     {"Attenuation  =  L * A * (F/Fo)^n   dB (one way)", "One-way path length L", "cm",
      "Attenuation rate A", "dB/cm", "Frequency Fo", "Exponent n"}},
};

/// Titles of the windows, where no other test reads them.
const std::map<std::string, std::string> kTitles{{"frmFreqEntry", "Frequency Scale"},
                                                 {"frmTimeEntry", "Time Window Points"},
                                                 {"frmAcoustLoad", "Acoustic Terminations"},
                                                 {"frmExcite", "Excitation Waveforms"},
                                                 {"frmElNetEntry", "Electrical Matching Network"},
                                                 {"frmEnterElement", "Enter Element"}};

class Captions : public FreshProgram, public ::testing::WithParamInterface<Words> {
 protected:
  Captions() {
    MakeSimpleDesign();
    design.ElementShape = 1;
    view.CurrentPlot = 14;
    PlotSelect(14);
  }
};

/// True when the dialog holds a control of that kind whose text is `text`.
template <class Control, class Text>
bool Holds(const QDialog& dialog, const std::string& text, Text textOf) {
  for (const Control* control : dialog.findChildren<Control*>()) {
    if (textOf(*control).toStdString() == text) {
      return true;
    }
  }
  return false;
}

TEST_P(Captions, StandLetterByLetter) {
  const std::unique_ptr<QDialog> dialog = GetParam().make();
  EXPECT_EQ(dialog->objectName().toStdString(), GetParam().form);
  if (const auto title = kTitles.find(GetParam().form); title != kTitles.end()) {
    EXPECT_EQ(dialog->windowTitle().toStdString(), title->second);
  }
  std::vector<std::string> buttons;
  for (const auto* button : dialog->findChildren<QAbstractButton*>()) {
    buttons.push_back((button->objectName() + ": " + button->text()).toStdString());
  }
  std::vector<std::string> expected = GetParam().buttons;
  std::sort(buttons.begin(), buttons.end());
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(buttons, expected);
  for (const std::string& title : GetParam().frames) {
    EXPECT_TRUE(Holds<QGroupBox>(*dialog, title, [](const QGroupBox& box) { return box.title(); }))
        << title;
  }
  for (const std::string& text : GetParam().labels) {
    EXPECT_TRUE(Holds<QLabel>(*dialog, text, [](const QLabel& label) { return label.text(); }))
        << text;
  }
}

INSTANTIATE_TEST_SUITE_P(Dialogs, Captions, ::testing::ValuesIn(kWords),
                         [](const auto& each) { return std::string(each.param.form); });

}  // namespace
}  // namespace halvorne::testing
