#include "plot/catalogue.h"

#include <algorithm>
#include <array>
#include <string>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/number_text.h"

namespace halvorne {
namespace {

using enum FormList;
using enum PlotSteps;

constexpr std::array<CataloguePlot, 23> kCatalogue{{
    {11, "Electrical Input Impedance", kImpedance, 0, 0, kNoSteps, true},
    {12, "Voltage Reflection Coefficient - V(refl)/V(inc)", kLinearLog, 0, 0, kPolar, true},
    {13, "Transmit Efficiency - Po(acoustic)/Pi(electric)", kLinearLog, 10, 1, kPolar, false},
    {14, "Transmit Transfer Function - P(Pascals)/V(Tx)", kLinearLog, 20, 1, kPolarPhase, true},
    {15, "Transmit Power Transfer Function - Pout(acoust)/Pavail(elec)", kLinearLog, 20, 1, kPower,
     false},
    {16, "Transmit Impulse Response - P(Pascals)/V(Tx)", kWaveform, 20, 1, kImpulse, true},
    {17, "Transmit Excitation Response - P(Pascals)/V(Tx)", kWaveform, 20, 1, kExcitation, true},
    {21, "Acoustical Input Impedance", kImpedance, 0, 0, kNoSteps, true},
    {22, "Pressure Reflection Coefficient - P(refl)/P(inc)", kLinearLog, 0, 0, kPolar, true},
    {23, "Receive Efficiency - Po(electric)/Pi(acoustic)", kLinearLog, 10, 1, kPolar, false},
    {24, "Receive Transfer Function - V(Rx)/P(Pascals)", kLinearLog, 20, 1, kPolarPhase, true},
    {25, "Receive Power Transfer Function - Pout(elec)/Pavail(acoust)", kLinearLog, 20, 1, kPower,
     false},
    {26, "Receive Impulse Response - V(Rx)/P(Pascals)", kWaveform, 20, 1, kImpulse, true},
    {27, "Receive Excitation Response - V(Rx)/P(Pascals)", kWaveform, 20, 1, kExcitation, true},
    {31, "Two-way Transfer Function - V(Rx)/V(Tx)", kLinearLog, 20, 2, kPolarPhase, true},
    {32, "Two-way Insertion Loss - V(Rx)/V(Tx)", kLinearLog, 20, 2, kPolarPhaseLoss, true},
    {33, "Pulse-Echo (Two-way) Impulse Response - V(Rx)/V(Tx)", kWaveform, 20, 2, kImpulse, true},
    {34, "Pulse-Echo (Two-way) Excitation Response - V(Rx)/V(Tx)", kWaveform, 20, 2, kExcitation,
     true},
    {41, "Front Port Acoustic Load Impedance", kImpedance, 0, 0, kNoSteps, true},
    {42, "Rear Port Acoustic Load Impedance", kImpedance, 0, 0, kNoSteps, true},
    {51, "Velocity dispersion in face layer", kFaceLayers, 0, 0, kPolar, false},
    {52, "Velocity dispersion in piezoelectric layer", kPiezoLayer, 0, 0, kPolar, false},
    {53, "Velocity dispersion in back layer", kBackLayers, 0, 0, kPolar, false},
}};

constexpr std::array kImpedanceForms{"Z, Theta", "Y, Theta",     "R + jX",
                                     "G + jB",   "Log Z, Theta", "Log Y, Theta"};
constexpr std::array kLinearLogForms{"Linear", "Log"};
constexpr std::array kWaveformForms{"Waveform",
                                    "Envelope",
                                    "Log Envelope",
                                    "Re & Im Waveform",
                                    "Envelope & |Waveform|",
                                    "Log Envelope & |Wfm|",
                                    "Waveform & Spectrum",
                                    "Envelope & Spectrum",
                                    "Log Envel & Spectrum"};

void AddForms(std::span<const char* const> forms) {
  for (const char* form : forms) {
    mainWindow().AddPlotType(form);
  }
}

/// "Face Layer  1": the number brings a blank of its own.
void AddLayers(const std::string& name, int count) {
  for (int layer = 1; layer <= count; ++layer) {
    mainWindow().AddPlotType(name + SpacedNumberText(layer));
  }
}

}  // namespace

std::span<const CataloguePlot> Catalogue() {
  return kCatalogue;
}

const CataloguePlot* FindPlot(int number) {
  const auto* const found = std::ranges::find(kCatalogue, number, &CataloguePlot::number);
  return found != kCatalogue.end() ? found : nullptr;
}

void PlotTypeLoad(std::int16_t listNumber) try {
  mainWindow().ClearPlotTypes();
  switch (static_cast<FormList>(listNumber)) {
    case kImpedance:
      return AddForms(kImpedanceForms);
    case kLinearLog:
      return AddForms(kLinearLogForms);
    case kWaveform:
      return AddForms(kWaveformForms);
    case kFaceLayers:
      return AddLayers("Face Layer ", design.NoFace);
    case kPiezoLayer:
      return mainWindow().AddPlotType("Piezo Layer");
    case kBackLayers:
      return AddLayers("Back Layer ", design.NoBack);
    default:
      return;
  }
} catch (...) {
  ReportFailure("PlotTypeLoad", "PLOTIT");
}

}  // namespace halvorne
