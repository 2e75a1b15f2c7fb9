#include "batch/design_summary.h"

#include <array>
#include <string_view>

#include "engine/design_model.h"
#include "platform/number_text.h"

namespace halvorne::batch {
namespace {

constexpr std::size_t kColumn = 22;

constexpr std::array<std::string_view, 18> kElementNames{"",
                                                         "series resistor",
                                                         "shunt resistor",
                                                         "series inductor",
                                                         "shunt inductor",
                                                         "series capacitor",
                                                         "shunt capacitor",
                                                         "coaxial cable",
                                                         "ideal transformer",
                                                         "non-ideal transformer",
                                                         "series circuit A",
                                                         "series circuit B",
                                                         "series circuit C",
                                                         "series circuit E",
                                                         "shunt circuit B",
                                                         "shunt circuit C",
                                                         "shunt circuit D",
                                                         "multiple identical piezoelectric layers"};

/// A number to four significant digits, for reading.
std::string Short(double value) {
  char digits[32];
  std::snprintf(digits, sizeof digits, "%.4g", value);
  return NumberText(SafeVal(digits));
}

std::string Line(std::string name, const std::string& text) {
  name.resize(kColumn, ' ');
  return name + text + "\n";
}

std::string Indented(const std::string& text) {
  return std::string(kColumn, ' ') + text + "\n";
}

std::string InUnit(double hertz) {
  return design.FreqScale == 0 ? Short(hertz) + " Hz"
                               : Short(hertz / design.FreqScale) + " " + design.FreqUnit;
}

std::string Thickness(double metres) {
  return Short(metres * 1e3) + " mm";
}
std::string MegaRayl(double rayl) {
  return Short(rayl * 1e-6) + " MRayl";
}

std::string PiezoLayers() {
  std::string text = Line(
      "Piezoelectric layers",
      std::to_string(design.NoPiezo) +
          (design.NoPiezo > 1 ? ", the rear one first, connected: " + design.PZConnectName : ""));
  for (int k = 1; k <= design.NoPiezo; ++k) {
    const PiezoMaterial& matl = design.PZMatl(k);
    text +=
        Indented(std::to_string(k) + ". " + matl.Name + ", " + Thickness(design.PZThick(k)) + ", " +
                 Short(matl.Velocity) + " m/s, " + MegaRayl(matl.Velocity * matl.Density) +
                 ", kt " + Short(matl.Kt) + ", E33s " + Short(matl.Ks) + ", half wave at " +
                 InUnit(design.PZFa(k)) + (design.PZPolarity(k) < 0 ? ", polarity -" : ""));
  }
  return text;
}

std::string Plates(const char* name, int count, const PlateMaterials& matls,
                   const ChainValues& thick, const ChainValues& area) {
  if (count == 0) {
    return Line(name, "none");
  }
  std::string text = Line(name, std::to_string(count) + ", the one next to the layers first");
  for (int k = 1; k <= count; ++k) {
    const AcousticMaterial& matl = matls(k);
    text += Indented(std::to_string(k) + ". " + matl.Name + ", " + Thickness(thick(k)) + ", " +
                     Short(matl.Velocity) + " m/s, " + MegaRayl(matl.Velocity * matl.Density) +
                     ", loss " + Short(matl.Loss) + " dB/cm at " + Short(matl.LossFreq) + " MHz" +
                     (area(k) != 1 ? ", relative area " + Short(area(k)) : ""));
  }
  return text;
}

std::string Load(double nominal, bool complex, const std::string& file) {
  return MegaRayl(nominal) + (complex ? ", frequency dependent from " + file : "");
}

std::string Network() {
  std::string text;
  int row = 1;
  for (; row <= kNetworkRows && design.ElNet(row, 1) != 0; ++row) {
    const double code = design.ElNet(row, 1);
    const auto known = code >= 1 && code < static_cast<double>(kElementNames.size());
    std::string element = std::to_string(row) + ". " +
                          (known ? std::string(kElementNames[static_cast<std::size_t>(code)])
                                 : "element of code " + Short(code));
    for (int column = 2; column < kNetworkColumns; ++column) {
      if (design.ElNet(row, column) != 0) {
        element += (column == 2 ? ": " : ", ") + Short(design.ElNet(row, column));
      }
    }
    text += Indented(element);
  }
  return row == 1
             ? Line("Network", "none")
             : Line("Network", std::to_string(row - 1) +
                                   " elements in SI units, from the transducer to the source") +
                   text;
}

std::string Excitation() {
  switch (design.ExciteType) {
    case 1:
      return std::string(design.ExciteWave == 2 ? "square" : "sine") + " burst of " +
             Short(design.ExciteCycles) + " cycles at " + InUnit(design.ExciteFreq) + ", delay " +
             Short(design.ExciteDelay * 1e6) + " usec, phase " + Short(design.ExcitePhase) +
             " degrees";
    case 2:
      return "file " + design.ExciteFileName + ", " + std::to_string(design.ExciteLength + 1) +
             " points";
    default:
      return "none";
  }
}

std::string Attenuation() {
  if (!design.AttenOn) {
    return "off";
  }
  return Short(design.AttenRate) + " dB/cm at " + InUnit(design.AttenFreq) + ", exponent " +
         Short(design.AttenExp) + ", over " + Short(design.AttenLength) + " cm";
}

std::string Dispersion() {
  std::string text;
  for (const auto& [on, name] :
       {std::pair{design.PZVelDispOn, "piezoelectric"}, std::pair{design.FaceVelDispOn, "face"},
        std::pair{design.BackVelDispOn, "back"}}) {
    if (on) {
      text += (text.empty() ? "" : ", ") + std::string(name);
    }
  }
  return text.empty() ? "off" : "on in layers: " + text;
}

}  // namespace

std::string DesignSummary() {
  return Line("Title", design.DesignTitle) +
         Line("File", design.DataFileName + ", format " + NumberText(design.FileFormat) + ", by " +
                          design.FileVersionText) +
         Line("Calculated", design.CalcDateTime) +
         Line("Element", design.ElementSizeText + ", " + Short(design.ElementArea * 1e6) + " mm2") +
         PiezoLayers() +
         Plates("Face plates", design.NoFace, design.FaceMatl, design.FrontThick,
                design.FrontArea) +
         Plates("Back plates", design.NoBack, design.BackMatl, design.BackThick, design.BackArea) +
         Line("Velocity dispersion", Dispersion()) +
         Line("Front load", Load(design.ZFrontLoad, design.ZFrontComplex, design.ZFrontFile)) +
         Line("Rear load", Load(design.ZBackLoad, design.ZBackComplex, design.ZBackFile)) +
         Line("Terminations", "transmitter " + Short(design.TermTx) + " ohms, receiver " +
                                  Short(design.TermRx) + " ohms") +
         Network() +
         Line("Frequencies", InUnit(design.FreqStart) + " to " + InUnit(design.FreqStop) + " in " +
                                 std::to_string(design.NoFreqPts) + " steps; design frequency " +
                                 InUnit(design.DesignFreq)) +
         Line("Time record", std::to_string(design.NoTimePts) + " points at " +
                                 InUnit(design.SampleRateHz) + ", " +
                                 Short(design.TimeWindow * 1e6) + " usec") +
         Line("Excitation", Excitation()) + Line("Attenuation in load", Attenuation());
}

}  // namespace halvorne::batch
