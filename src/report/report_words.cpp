#include "report/report_words.h"

#include "platform/failure.h"
#include "platform/number_text.h"
#include "plot/plot_state.h"
#include "report/element_text.h"

namespace halvorne {
namespace {

constexpr double kLargestInRayls = 10000;

/// A frequency in the display unit.
std::string Frequency(double frequency, const char* format) {
  return Format(Quotient(frequency, design.FreqScale), format);
}

std::string LoadText(double impedance) {
  if (impedance <= kLargestInRayls) {
    return Format(impedance, "0.0  ") + " Rayls";
  }
  return Format(impedance / 1e6, "0.000  ") + " MRayls";
}

std::string BurstText() {
  constexpr const char* format = "0.#### ";
  const std::string wave = design.ExciteWave == 1 ? "Sine wave burst " : "Square wave burst ";
  // Kept: frequency and points are the design's own, the others those that the dialog worked on.
  const double delay = Quotient(draft.TmpExciteDelay, view.TimeScale);
  return wave + Frequency(design.ExciteFreq, format) + design.FreqUnit + ", " +
         Format(draft.TmpExciteCycles, format) + "cycles, delay: " + Format(delay, format) +
         view.TimeUnit + ", phase: " + Format(draft.TmpExcitePhase, format) + "degrees, " +
         std::to_string(design.ExcitePoints) + " points";
}

}  // namespace

std::string PrintedNumber(double value) {
  return SpacedNumberText(value) + " ";
}

std::string DataFileText() {
  return design.DesignNew != 0 ? "NEW - Not saved" : design.DataFileName;
}

std::string FileVersionWords() {
  return "Program version: " + design.FileVersionText;
}

std::string CalculatedText() {
  return "Date and time calculated: " + design.CalcDateTime;
}

bool ExcitationPrinted() {
  return IsExcitationPlot(view.CurrentPlot);
}

std::string ExcitationText() {
  if (design.ExciteType == 1) {
    return BurstText();
  }
  if (design.ExciteType == 2) {
    return "File name: " + design.ExciteFileName +
           " Length: " + std::to_string(design.ExciteLength) + " Comment: " + design.ExciteComment;
  }
  return "";
}

std::string DesignFreqText() {
  return "Design center frequency Fd = " + Frequency(design.DesignFreq, "0.000 ") + design.FreqUnit;
}

std::string FreqRangeText() {
  return "Frequency range of calculation: " + Frequency(design.FreqStart, "0.000 ") + " to " +
         Frequency(design.FreqStop, "0.000 ") + design.FreqUnit;
}

std::string ConnectionText() {
  return "Connection = " + design.PZConnectName;
}

std::string ElementSizeWords() {
  return "Element size: " + design.ElementSizeText;
}

std::string ElementAreaText() {
  return "Element area: " + Format(design.ElementArea * 1e6, "0.0000") + " mm^2";
}

std::string RearLoadText() {
  return "Rear: " + LoadText(design.ZBackLoad);
}

std::string FrontLoadText() {
  return "Front: " + LoadText(design.ZFrontLoad);
}

std::string TransmitterText() {
  return "Transmitter output = " + Format(design.TermTx, "0.0  ") + "Ohms";
}

std::string ReceiverText() {
  return "Receiver input = " + Format(design.TermRx, "0.0") + " Ohms";
}

std::vector<std::string> NetworkTexts() {
  std::vector<std::string> texts;
  for (int row = 1; row <= kNetworkRows && design.ElNet(row, 1) != 0; ++row) {
    texts.push_back(GetElNetString(design.ElNet, row));
  }
  return texts;
}

std::array<TwelveTexts, 3> PlateHeadings(const char* side) {
  return {{{side, "MATL", "SHEAR", "LONG.", "LONG", "LOSS", "LOSS", "LOSS", "REL.", "THICK",
            "THICK", ""},
           {"PLATE", "NAME", "VEL.", "VEL.", "IMPED.", "ALPHA", "AT F", "   N", "AREA", "Lambdas",
            "  ", ""},
           {"No.", "", "m/sec", "m/sec", "MRayls", "dB/cm", "MHz", "", "", "At Fd", "  mm", ""}}};
}

PlateSide FaceSide() {
  return {design.FaceMatl, design.FrontThick, design.FrontArea};
}

PlateSide BackSide() {
  return {design.BackMatl, design.BackThick, design.BackArea};
}

PlateLine LineOfPlate(const PlateSide& side, std::int16_t i) {
  const AcousticMaterial& material = side.materials(i);
  return {.number = i,
          .name = material.Name,
          .values = {material.ShearVelocity, material.Velocity,
                     material.Density * material.Velocity / 1e6, material.Loss, material.LossFreq,
                     material.LossExp, side.area(i),
                     Quotient(design.DesignFreq * side.thick(i), material.Velocity),
                     side.thick(i) * 1000},
          .lastText = ""};
}

}  // namespace halvorne
