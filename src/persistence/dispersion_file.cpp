#include "persistence/dispersion_file.h"

#include <algorithm>

#include "engine/design_model.h"
#include "persistence/file_names.h"
#include "persistence/side_file.h"
#include "persistence/value_reader.h"

namespace halvorne {

bool ReadDispersionFile(const std::string& fileName, const char* title,
                        std::span<const int> chainSlots) {
  const auto takeComment = [&](const std::string& comment) {
    std::string name;
    ExtractFileName(fileName, name);
    for (const int slot : chainSlots) {
      design.VelDispNames(slot, 0) = name;
      design.VelDispNames(slot, 1) = comment;
    }
  };
  const auto takeLine = [&](std::int32_t point, const std::string& line) {
    const double factor = NumberOfText(line);
    for (const int slot : chainSlots) {
      design.VelDisp(slot, point) = factor;
    }
  };
  return ReadSideFile(fileName, title, takeComment, takeLine);
}

void ClearDispersion(int slot) {
  std::ranges::fill(design.VelDisp.rows(slot), 1.0);
  std::ranges::fill(design.VelDispNames.rows(slot), "");
}

}  // namespace halvorne
