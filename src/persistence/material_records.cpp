#include "persistence/material_records.h"

#include <charconv>
#include <cmath>
#include <string_view>

#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/numbers.h"

namespace halvorne {
namespace {

double NumberIn(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  const std::size_t last = text.find_last_not_of(' ');
  if (first == std::string_view::npos) {
    RaiseTypeMismatch();
  }
  text = text.substr(first, last - first + 1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end != text.data() + text.size() || error == std::errc::invalid_argument) {
    RaiseTypeMismatch();
  }
  if (error != std::errc()) {
    RaiseOverflow();
  }
  return value;
}

double Number(const MaterialCell& cell) {
  if (const auto* const text = std::get_if<std::string>(&cell)) {
    return Finite(NumberIn(*text));
  }
  if (const auto* const value = std::get_if<double>(&cell)) {
    return Finite(*value);
  }
  RaiseTypeMismatch();
}

std::string Text(const MaterialCell& cell) {
  if (const auto* const value = std::get_if<double>(&cell)) {
    return NumberText(*value);
  }
  const auto* const text = std::get_if<std::string>(&cell);
  return text != nullptr ? *text : std::string();
}

}  // namespace

void TakePiezoRecord(std::span<const MaterialCell> cells, PiezoMaterial& material) {
  auto cell = cells.begin();
  material.Name = Text(*cell++);
  for (double PiezoMaterial::*field :
       {&PiezoMaterial::Velocity, &PiezoMaterial::ShearVelocity, &PiezoMaterial::Density,
        &PiezoMaterial::Ks, &PiezoMaterial::Kt, &PiezoMaterial::TanDe, &PiezoMaterial::TanDm}) {
    material.*field = Number(*cell++);  // Kept: unchecked, unlike a plate's
  }
  material.Vendor = Text(*cell++);
  material.DataSource = Text(*cell++);
}

void TakeAcousticRecord(std::span<const MaterialCell> cells, AcousticMaterial& material) {
  auto cell = cells.begin();
  material.Name = Text(*cell++);
  material.Velocity = std::fmax(Number(*cell++), 1.0);
  const double highestShear = material.Velocity / std::sqrt(2.0);
  material.ShearVelocity = std::fmin(std::fmax(Number(*cell++), 0.0), highestShear);
  material.Density = std::fmax(Number(*cell++), 0.000001);
  material.Loss = ToSingle(Number(*cell++));
  material.LossFreq = ToSingle(Number(*cell++));
  material.LossExp = ToSingle(Number(*cell++));
  material.Vendor = Text(*cell++);
  material.Formula = Text(*cell++);
  material.Comments = Text(*cell++);
  material.DataSource = Text(*cell++);
}

void StorePiezoMaterial(int layer, const PiezoMaterial& material) {
  design.PZMatl(layer) = material;
  if (material.TanDe == 0) {
    design.PZMatl(layer).TanDe = 0.00001;
  }
}

}  // namespace halvorne
