#include "persistence/side_file.h"

#include "engine/design_model.h"
#include "persistence/value_reader.h"
#include "platform/file_failure.h"

namespace halvorne {

bool ReadSideFile(const std::string& fileName, const char* title,
                  const TakeSideComment& takeComment, const TakeSideLine& take) try {
  ValueReader file(fileName);
  takeComment(file.TakeLine());
  for (std::int32_t point = 0; point <= kLastFreqPoint && file.HasLine(); ++point) {
    take(point, file.TakeLine());
  }
  return true;
} catch (...) {
  ReportFileFailure(title);
  return false;
}

}  // namespace halvorne
