#pragma once

#include <string>
#include <vector>

#include "persistence/material_records.h"

namespace halvorne::batch {

/// A material that a layer or plate of the design is to have: "PZMatl(1)=TABLE/NAME".
struct MaterialChoice {
  enum class Target { kPiezo, kFace, kBack } target;
  int index;          ///< layer 1 or 2, plate 1 to 10
  std::string words;  ///< as it was written
  std::string name;   ///< TABLE/NAME
  std::vector<MaterialCell> cells;
};

/// Reads "PZMatl(1)=TABLE/NAME", "FaceMatl(2)=..." or "BackMatl(1)=..."; the cells are still to be
/// found. Raises WrongCommandLine.
MaterialChoice ReadMaterialChoice(const std::string& text);

/// Finds the records in the databases. Raises WrongCommandLine, with near names, for a table or a
/// name that is not there, CommandFailed when a database cannot be read.
void FindMaterials(std::vector<MaterialChoice>& choices);

/// Puts the records into the design as the browsers and the OK of the layers dialog do, then makes
/// derived values anew. Raises CommandFailed for a record that holds words or nothing where a
/// number belongs.
void ApplyMaterials(const std::vector<MaterialChoice>& choices);

}  // namespace halvorne::batch
