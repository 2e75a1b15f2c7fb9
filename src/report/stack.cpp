#include "report/stack.h"

#include <cmath>

#include "engine/design_model.h"
#include "platform/number_text.h"
#include "report/element_text.h"

namespace halvorne {
namespace {

constexpr double kMegaRayl = 1e6;
constexpr const char* kOhms = " Ohms";

/// A number to four digits, which is what a picture can use of it.
std::string ShortText(double value) {
  if (value == 0 || !std::isfinite(value)) {
    return value == 0 ? "0" : "?";
  }
  constexpr int digits = 4;
  const double unit = std::pow(10, std::floor(std::log10(std::fabs(value))) + 1 - digits);
  const double rounded =
      unit < 1 ? std::round(value / unit) / (1 / unit) : std::round(value / unit) * unit;
  return std::isfinite(rounded) && rounded != 0 ? NumberText(rounded) : NumberText(value);
}

std::string MegaraylText(double impedance) {
  return ShortText(impedance / kMegaRayl) + " MRayls";
}

std::string MillimetreWords(double thickness) {
  return ShortText(thickness * 1000) + " mm";
}

/// The frequency at which thicknesses are told in wavelengths, and the words for it.
struct Reference {
  double frequency;  ///< Hz
  std::string words;
};

Reference ReferenceFrequency() {
  const bool designed = design.DesignFreq > 0;
  const double frequency = designed ? design.DesignFreq : (design.FreqStart + design.FreqStop) / 2;
  const bool hasUnit = design.FreqScale > 0;
  return {frequency, (designed ? " at Fd = " : " at mid band, ") +
                         ShortText(hasUnit ? frequency / design.FreqScale : frequency) + " " +
                         (hasUnit ? design.FreqUnit : "Hz")};
}

/// ", 0.25 wavelengths" at a frequency; nothing where none fits into the layer.
std::string WavelengthWords(double thickness, double velocity, double frequency) {
  return velocity > 0 && frequency > 0
             ? ", " + ShortText(thickness * frequency / velocity) + " wavelengths"
             : "";
}

/// A plate or a piezoelectric layer.
StackPart Layer(StackKind kind, int number, const std::string& title, const std::string& material,
                double thickness, double velocity, double density, const std::string& loss) {
  StackPart part{.kind = kind,
                 .number = number,
                 .thickness = thickness,
                 .impedance = density * velocity,
                 .labels = {},
                 .words = {}};
  const Reference reference = ReferenceFrequency();
  const std::string lambdas = WavelengthWords(thickness, velocity, reference.frequency);
  const std::string size = MillimetreWords(thickness);
  const std::string z = MegaraylText(part.impedance);
  part.labels = {title + ": " + material + ", " + size + lambdas + ", " + z,
                 title + ": " + material + ", " + size + ", " + z,
                 material + ", " + size + ", " + z, material + ", " + size, material};
  part.words = title + ": " + material + "\nThickness " + size + lambdas +
               (lambdas.empty() ? "" : reference.words) + "\nImpedance " + z + "\n" + loss;
  return part;
}

StackPart Plate(StackKind kind, int number, const AcousticMaterial& matl, double thickness) {
  const std::string title =
      (kind == StackKind::kFacePlate ? "Face plate " : "Back plate ") + std::to_string(number);
  return Layer(kind, number, title, matl.Name, thickness, matl.Velocity, matl.Density,
               "Loss " + ShortText(matl.Loss) + " dB/cm at " + ShortText(matl.LossFreq) +
                   " MHz, exponent " + ShortText(matl.LossExp));
}

StackPart Piezo(int number) {
  const PiezoMaterial& matl = design.PZMatl(number);
  std::string title = "Piezoelectric layer";
  if (design.NoPiezo == 2) {
    title = (number == 1 ? "Rear piezoelectric layer" : "Front piezoelectric layer");
    title += design.PZConnect == 1 ? ", in series" : ", in parallel";
  }
  StackPart part = Layer(
      StackKind::kPiezo, number, title, matl.Name, design.PZThick(number), matl.Velocity,
      matl.Density,
      "Loss tangent electrical " + ShortText(matl.TanDe) + ", mechanical " + ShortText(matl.TanDm));
  part.polarity = design.PZPolarity(number);
  return part;
}

StackPart Load(StackKind kind, const char* title, double impedance, bool isComplex) {
  StackPart part{.kind = kind, .impedance = impedance, .labels = {}, .words = {}};
  const std::string z = MegaraylText(impedance);
  part.labels = {std::string(title) + ": " + z, z, ShortText(impedance / kMegaRayl)};
  part.words =
      std::string(title) + "\nImpedance " + z + (isComplex ? ", times a complex file" : "");
  return part;
}

void AddNetwork(std::vector<StackPart>& parts) {
  int row = 1;
  for (; row <= kNetworkRows && design.ElNet(row, 1) != 0; ++row) {
    const double code = design.ElNet(row, 1);
    parts.push_back({.kind = StackKind::kElement,
                     .number = row,
                     .code = code > 0 && code < 100 ? static_cast<int>(code) : 0,
                     .labels = {},
                     .words = "Network element " + GetElNetString(design.ElNet, row)});
  }
  if (row == 1) {
    parts.push_back({.kind = StackKind::kElement, .labels = {}, .words = "No matching network"});
  }
  parts.push_back({.kind = StackKind::kPort,
                   .labels = {},
                   .words = "Electrical port\nTransmitter " + ShortText(design.TermTx) + kOhms +
                            "\nReceiver " + ShortText(design.TermRx) + kOhms});
}

}  // namespace

bool IsAcoustic(StackKind kind) {
  return kind < StackKind::kElement;
}

Stack StackOfDesign() {
  Stack stack;
  stack.parallel = design.NoPiezo == 2 && design.PZConnect != 1;
  std::vector<StackPart>& parts = stack.parts;
  parts.push_back(Load(StackKind::kRearLoad, "Rear load", design.ZBackLoad, design.ZBackComplex));
  for (int plate = design.NoBack; plate >= 1; --plate) {
    parts.push_back(
        Plate(StackKind::kBackPlate, plate, design.BackMatl(plate), design.BackThick(plate)));
  }
  for (int layer = 1; layer <= design.NoPiezo; ++layer) {
    parts.push_back(Piezo(layer));
  }
  for (int plate = 1; plate <= design.NoFace; ++plate) {
    parts.push_back(
        Plate(StackKind::kFacePlate, plate, design.FaceMatl(plate), design.FrontThick(plate)));
  }
  parts.push_back(
      Load(StackKind::kFrontLoad, "Front load", design.ZFrontLoad, design.ZFrontComplex));
  AddNetwork(parts);
  return stack;
}

}  // namespace halvorne
