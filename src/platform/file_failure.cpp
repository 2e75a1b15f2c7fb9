#include "platform/file_failure.h"

#include <string>

#include "platform/failure.h"
#include "platform/messages.h"

namespace halvorne {

void ReportFileFailure(const char* title) noexcept {
  try {
    const Failure failure = CurrentFailure();
    // Kept: "occured".
    messages().Show({.title = title,
                     .text = "The following error occured: \r\nError # " +
                             std::to_string(failure.Number()) + "\r\n" + failure.Description(),
                     .icon = MessageIcon::kCritical});
  } catch (...) {  // NOLINT(bugprone-empty-catch): no memory is left even for the box
  }
}

}  // namespace halvorne
