#include "quantities/tunable_numbers.h"

#include <algorithm>
#include <cctype>
#include <limits>

#include "engine/design_model.h"
#include "engine/element_fields.h"
#include "engine/element_size.h"
#include "engine/material_numbers.h"
#include "quantities/settings.h"

namespace halvorne {
namespace {

constexpr double kNoBound = std::numeric_limits<double>::infinity();
constexpr double kPerMetre = 1000;  ///< mm
constexpr double kMega = 1e6;

/// "Face plate 1: loss, dB/cm".
std::string Words(const std::string& part, std::string caption, const std::string& unit) {
  caption = caption.substr(caption.find_first_not_of(' '));
  caption[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(caption[0])));
  return part + ": " + caption + (unit.empty() ? "" : ", " + unit);
}

std::string Indexed(const char* array, int index) {
  return std::string(array) + "(" + std::to_string(index) + ")";
}

TunableNumber OfMaterial(const std::string& part, const MaterialNumber& number,
                         const std::string& field) {
  return {Words(part, number.caption, number.unit), field, 1, number.lowest, number.highest};
}

void AddPiezo(std::vector<TunableNumber>& list) {
  constexpr double leastTangent = 0.00001;
  for (int layer = 1; layer <= design.NoPiezo; ++layer) {
    const std::string part = design.NoPiezo == 1 ? "Piezoelectric layer"
                             : layer == 1        ? "Rear piezoelectric layer"
                                                 : "Front piezoelectric layer";
    const std::string record = Indexed("PZMatl", layer);
    list.push_back({Words(part, "thickness", "mm"), Indexed("PZThick", layer), 1, -kNoBound,
                    kNoBound, 0, kPerMetre});
    list.push_back(OfMaterial(part, kVelocityNumber, record + ".Velocity"));
    list.push_back(OfMaterial(part, kDensityNumber, record + ".Density"));
    list.push_back(OfMaterial(part, kKsNumber, record + ".Ks"));
    list.push_back(OfMaterial(part, kKtNumber, record + ".Kt"));
    list.push_back(OfMaterial(part, kTanDeNumber, record + ".TanDe"));
    list.back().least = leastTangent;
    list.push_back(OfMaterial(part, kTanDmNumber, record + ".TanDm"));
  }
}

void AddElement(std::vector<TunableNumber>& list) {
  if (design.ElementShape < kDisk || design.ElementShape > kRectangle) {
    return;
  }
  const auto captions = DimensionCaptions(design.ElementShape);
  const char* const fields[] = {"ElementDim1", "ElementDim2"};
  for (std::size_t i = 0; i < captions.size() && *captions[i] != '\0'; ++i) {
    list.push_back({Words("Element", captions[i], "mm"), fields[i], 1, 0, kNoBound});
  }
}

/// The plates of a side.
void AddPlates(std::vector<TunableNumber>& list, const char* title, int count, const char* thick,
               const char* area, const char* materials) {
  for (int plate = 1; plate <= count; ++plate) {
    const std::string part = title + std::to_string(plate);
    const std::string record = Indexed(materials, plate);
    list.push_back(
        {Words(part, "thickness", "mm"), Indexed(thick, plate), 1, 0, kNoBound, 0, kPerMetre});
    list.push_back({Words(part, "relative area", ""), Indexed(area, plate), 1, 0, kNoBound});
    list.push_back(OfMaterial(part, kVelocityNumber, record + ".Velocity"));
    list.push_back(OfMaterial(part, kDensityNumber, record + ".Density"));
    list.push_back(OfMaterial(part, kLossNumber, record + ".Loss"));
    list.push_back(OfMaterial(part, kLossFreqNumber, record + ".LossFreq"));
    list.push_back(OfMaterial(part, kLossExpNumber, record + ".LossExp"));
  }
}

void AddNetwork(std::vector<TunableNumber>& list) {
  for (int row = 1; row <= kNetworkRows && design.ElNet(row, 1) != 0; ++row) {
    const double code = design.ElNet(row, 1);
    if (!(code >= 1 && code <= kLastElementCode)) {
      continue;
    }
    const ElementKind& kind = ElementOfCode(static_cast<int>(code));
    const std::string part = "Network " + std::to_string(row) + ", " + kind.caption;
    for (const ElementField& field : kind.fields) {
      list.push_back({Words(part, field.caption, field.unit),
                      "ElNet(" + std::to_string(row) + "," + std::to_string(field.column) + ")",
                      field.unitSize, 0, kNoBound, field.least});
    }
  }
}

}  // namespace

std::vector<TunableNumber> TunableNumbers() {
  std::vector<TunableNumber> list;
  AddPiezo(list);
  AddElement(list);
  AddPlates(list, "Face plate ", design.NoFace, "FrontThick", "FrontArea", "FaceMatl");
  AddPlates(list, "Back plate ", design.NoBack, "BackThick", "BackArea", "BackMatl");
  list.push_back({"Front load: impedance, MRayls", "ZFrontLoad", kMega, -kNoBound, kNoBound});
  list.push_back({"Rear load: impedance, MRayls", "ZBackLoad", kMega, -kNoBound, kNoBound});
  list.push_back({"Transmitter: output impedance, Ohms", "TermTx", 1, -kNoBound, kNoBound});
  list.push_back({"Receiver: input impedance, Ohms", "TermRx", 1, -kNoBound, kNoBound});
  AddNetwork(list);
  return list;
}

double TunedValue(const TunableNumber& number) {
  const double stored = NumberOf(StoredFieldValue(FindNamedField(number.field).place));
  return stored * number.divisor / number.unitSize;
}

double WithinBounds(const TunableNumber& number, double value) {
  return std::max(number.lowest, std::min(value, number.highest));
}

}  // namespace halvorne
