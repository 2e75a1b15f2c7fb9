#include "platform/failure.h"

#include <exception>
#include <new>

#include "platform/messages.h"

namespace halvorne {

const char* FailureDescription(int number) {
  switch (number) {
    case failure_number::kOverflow:
      return "Overflow";
    case failure_number::kOutOfMemory:
      return "Out of memory";
    case failure_number::kSubscript:
      return "Subscript out of range";
    case failure_number::kDivisionByZero:
      return "Division by zero";
    case failure_number::kTypeMismatch:
      return "Type mismatch";
    case failure_number::kFileNotFound:
      return "File not found";
    case failure_number::kInputPastEnd:
      return "Input past end of file";
    case failure_number::kPermissionDenied:
      return "Permission denied";
    case failure_number::kPathFileAccess:
      return "Path/File access error";
    case failure_number::kPathNotFound:
      return "Path not found";
    case failure_number::kPrinter:
      return "Printer error";
    case failure_number::kCancelled:
      return "Cancel was selected.";
    default:
      return "Invalid procedure call or argument";
  }
}

Failure::Failure(int number) : Failure(number, FailureDescription(number)) {}

void RaiseDivisionByZero() {
  throw Failure(failure_number::kDivisionByZero);
}
void RaiseOverflow() {
  throw Failure(failure_number::kOverflow);
}
void RaiseSubscript() {
  throw Failure(failure_number::kSubscript);
}
void RaiseTypeMismatch() {
  throw Failure(failure_number::kTypeMismatch);
}

Failure CurrentFailure() {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return Failure(failure_number::kOutOfMemory);
  } catch (const std::exception& other) {
    return {failure_number::kInvalidCall,
            std::string("Invalid procedure call or argument: ") + other.what()};
  } catch (...) {
    return Failure(failure_number::kInvalidCall);
  }
}

void ReportFailure(const char* procedure, const char* module) noexcept {
  try {
    const Failure failure = CurrentFailure();
    Message box;
    box.title = std::string("ERROR in ") + procedure + " of " + module;
    box.text = "Error: " + std::to_string(failure.Number()) + ". " + failure.Description();
    messages().Show(box);
  } catch (...) {  // NOLINT(bugprone-empty-catch): no memory is left even for the box
  }
}

}  // namespace halvorne
