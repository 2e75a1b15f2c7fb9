#include "engine/element_fields.h"

#include "platform/bounded.h"

namespace halvorne {
namespace {

constexpr double kMicro = 1e-6;
constexpr double kPico = 1e-12;

constexpr std::array kSeriesR = {ElementField{"Series resistor", "Ohms", 2, 1, 1e-6}};
constexpr std::array kShuntR = {ElementField{"Shunt resistor", "Ohms", 2, 1, 1e-6}};
constexpr std::array kSeriesL = {ElementField{"Series inductor", "uH", 2, kMicro, 1e-12}};
constexpr std::array kShuntL = {ElementField{"Shunt inductor", "uH", 2, kMicro, 1e-12}};
constexpr std::array kSeriesC = {ElementField{"Series capacitor", "pF", 2, kPico, 1e-14}};
constexpr std::array kShuntC = {ElementField{"Shunt capacitor", "pF", 2, kPico, 1e-14}};
constexpr std::array kCoax = {ElementField{"Cable impedance", "Ohms", 2, 1, 0.01},
                              ElementField{"Length", "Meters", 3, 1, 0},
                              ElementField{"Attenuation", "dB/kilometer", 4, 1, 0},
                              ElementField{" Loss frequency", "MHz", 5, 1, 1.0}};
constexpr std::array kTransformer = {ElementField{"Primary winding", "Turns", 2, 1, 0.001},
                                     ElementField{"Secondary winding", "Turns", 3, 1, 0.001}};
constexpr std::array kNonIdeal = {
    ElementField{"Series inductor L (1 of 2)", "uH", 2, kMicro, 1e-12},
    ElementField{"Shunt resistor R", "Ohms", 3, 1, 1.0},
    ElementField{"Shunt inductor L", "uH", 4, kMicro, 1e-12},
    ElementField{"Shunt capacitor C", "pF", 5, kPico, 1e-14}};
constexpr std::array kCircuit = {ElementField{"Resistor R", "Ohms", 2, 1, 1e-6},
                                 ElementField{"Inductor L", "uH", 3, kMicro, 1e-12},
                                 ElementField{"Capacitor Ca", "pF", 4, kPico, 1e-14}};
constexpr std::array kSeriesE = {kCircuit[0], kCircuit[1], kCircuit[2],
                                 ElementField{"Capacitor Cb", "pF", 5, kPico, 1e-14}};
constexpr std::array kLayers = {ElementField{"Piezoelectric material", "Layers", 3, 1, 1.0}};

/// The letters of the circuits are those of an impedance analyser; its gaps stay.
constexpr Bounded<ElementKind, 0, kLastElementCode> kElements = {{
    {"Blank", {}},
    {"Series R", kSeriesR},
    {"Shunt R", kShuntR},
    {"Series L", kSeriesL},
    {"Shunt L", kShuntL},
    {"Series C", kSeriesC},
    {"Shunt C", kShuntC},
    {"Coaxial cable", kCoax},
    {"Ideal transformer", kTransformer},
    {"Non-ideal transformer", kNonIdeal},
    {"Series Circuit A", kCircuit},
    {"Series Circuit B", kCircuit},
    {"Series Circuit C", kCircuit},
    {"Series Circuit E", kSeriesE},
    {"Shunt Circuit B", kCircuit},
    {"Shunt Circuit C", kCircuit},
    {"Shunt Circuit D", kCircuit},
    {"Multiple Identical Piezoelectric Layers", kLayers},
}};

}  // namespace

const ElementKind& ElementOfCode(int code) {
  return kElements(code);
}

}  // namespace halvorne
