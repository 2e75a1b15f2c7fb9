#pragma once

#include <span>
#include <string>
#include <variant>

#include "engine/design_model.h"

namespace halvorne {

/// What a cell of a material store holds: nothing, a number or a text.
using MaterialCell = std::variant<std::monostate, double, std::string>;

inline constexpr int kPiezoCells = 10;
inline constexpr int kAcousticCells = 11;

/// Copies a record of the piezoelectric store into a layer's material, field by field in the order
/// of the columns, as it stands. A text that is a number counts as one.
///
/// @param cells     kPiezoCells cells in the order of the fields of PiezoMaterial
/// @param material  changed; on a failure the fields before the failing one are already
///
/// Raises 13 when a number is missing or in words, 6 when it is beyond the range of numbers.
void TakePiezoRecord(std::span<const MaterialCell> cells, PiezoMaterial& material);

/// The same for a record of the acoustic store, kept within what a plate can be: a longitudinal
/// velocity of at least 1, a shear velocity from 0 to velocity / sqrt(2) (Poisson's ratio 0), a
/// density of at least 0.000001. The loss, its frequency and its exponent are taken unchecked as
/// 32-bit numbers.
///
/// @param cells     kAcousticCells cells in the order of the fields of AcousticMaterial
/// @param material  changed; on a failure the fields before the failing one are already
///
/// Raises 13 when a number is missing or in words, 6 when it is beyond the range of numbers or a
/// loss beyond that of 32 bits.
void TakeAcousticRecord(std::span<const MaterialCell> cells, AcousticMaterial& material);

/// Gives a layer of the design its material. An electrical loss of exactly 0 could not be computed
/// and is stored as 0.00001.
///
/// @param layer  1 or 2
void StorePiezoMaterial(int layer, const PiezoMaterial& material);

}  // namespace halvorne
