#include "persistence/excitation_file.h"

#include <algorithm>
#include <vector>

#include "engine/design_model.h"
#include "persistence/value_reader.h"

namespace halvorne {
namespace {

/// Kept: as many as a curve has points, though the waveform has room for 65536.
constexpr std::size_t kMostValues = kLastFreqPoint + 1;

}  // namespace

void ReadExciteFile(const std::string& fileName, std::string& comment) {
  ValueReader file(fileName);
  std::string firstLine = file.TakeLine();
  std::vector<double> values;
  values.reserve(kMostValues);
  while (values.size() < kMostValues && file.HasValue()) {
    file.Read(values.emplace_back());
  }
  comment = std::move(firstLine);
  const auto behind = std::ranges::copy(values, draft.TmpExciteWfm.begin()).out;
  std::fill(behind, draft.TmpExciteWfm.end(), 0.0);
  draft.TmpExcitePoints = static_cast<std::int32_t>(std::max<std::size_t>(values.size(), 1));
}

}  // namespace halvorne
