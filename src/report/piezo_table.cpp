#include "platform/failure.h"
#include "report/report_words.h"

namespace halvorne {
namespace {

PiezoRow Texts(const char* label, const std::string& text1, const std::string& text2,
               const std::string& units = "") {
  PiezoRow row;
  row.label = row.clipboardLabel = label;
  row.text1 = text1;
  row.text2 = text2;
  row.units = units;
  return row;
}

PiezoRow Numbers(const char* label, const char* format, double number1, double number2,
                 const std::string& units) {
  PiezoRow row;
  row.label = row.clipboardLabel = label;
  row.format = format;
  row.number1 = number1;
  row.number2 = number2;
  row.units = units;
  return row;
}

PiezoRow Field(const char* label, const char* format, double PiezoMaterial::*field,
               const char* units) {
  return Numbers(label, format, design.PZMatl(1).*field, design.PZMatl(2).*field, units);
}

PiezoRow WithLabel(PiezoRow row, const char* clipboardLabel) {
  row.clipboardLabel = clipboardLabel;
  return row;
}

PiezoRow Together(std::int16_t lines, PiezoRow row) {
  row.together = lines;
  return row;
}

double Impedance(const PiezoMaterial& material) {
  return material.Density * 1e-6 * material.Velocity;
}

std::string Polarity(int layer) {
  return design.PZPolarity(layer) == 1 ? "+" : "-";
}

void MaterialRows(const std::function<void(const PiezoRow&)>& line) {
  const PiezoMaterial& rear = design.PZMatl(1);
  const PiezoMaterial& front = design.PZMatl(2);
  // Kept: the clipboard spells two labels in its own way.
  line(Together(4, WithLabel(Numbers("Longitudinal impedance", "0.000", Impedance(rear),
                                     Impedance(front), "MRayls"),
                             "Longititudinal impedance")));
  line(Field("Longitudinal velocity", "0.0", &PiezoMaterial::Velocity, "m/sec"));
  line(Field("Shear velocity", "0.0", &PiezoMaterial::ShearVelocity, "m/sec"));
  line(Field("Density", "0.0", &PiezoMaterial::Density, "kg/m^3"));
  line(Together(3, WithLabel(Numbers("Clamped capacitance Co", "0.0", design.PZCo(1) * 1e12,
                                     design.PZCo(2) * 1e12, "pF"),
                             "Clamped capacit. Co")));
  line(Field("Clamped dielectric const.", "0.00", &PiezoMaterial::Ks, "E33s"));
  line(Field("Thickness coupling kt", "0.0000", &PiezoMaterial::Kt, ""));
  line(Together(4, Field("Electrical loss tangent", "0.0000", &PiezoMaterial::TanDe, "tan de")));
  line(Field("Mechanical loss tangent", "0.0000", &PiezoMaterial::TanDm, "tan dm"));
  line(Texts("Vendor", rear.Vendor, front.Vendor));
  line(Texts("Data source", rear.DataSource, front.DataSource));
}

}  // namespace

void PiezoTable(bool details, const std::function<void(const PiezoRow&)>& line) {
  line(Numbers("Thickness", "0.00000", design.PZThick(1) * 1000, design.PZThick(2) * 1000, "mm"));
  line(Numbers("Parallel frequency Fp", "0.00000", Quotient(design.PZFa(1), design.FreqScale),
               Quotient(design.PZFa(2), design.FreqScale), design.FreqUnit));
  line(Texts("Material", design.PZMatl(1).Name, design.PZMatl(2).Name));
  if (design.NoPiezo == 2) {
    line(Texts("Polarity & connection", Polarity(1), Polarity(2), design.PZConnectName));
  } else {
    line(Texts("Polarity", Polarity(1), Polarity(2)));
  }
  if (details) {
    MaterialRows(line);
  }
}

}  // namespace halvorne
