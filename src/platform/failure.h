#pragma once

#include <cmath>
#include <stdexcept>
#include <string>

namespace halvorne {

/// Numbers of the failures that the program raises itself.
namespace failure_number {
inline constexpr int kInvalidCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscript = 9;
inline constexpr int kDivisionByZero = 11;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kFileNotFound = 53;
inline constexpr int kInputPastEnd = 62;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kPrinter = 482;
inline constexpr int kCancelled = 32755;
}  // namespace failure_number

/// What stops a procedure: a number and words, as its box shows them.
class Failure : public std::runtime_error {
 public:
  /// A failure with the standard description of `number`.
  explicit Failure(int number);
  Failure(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}

  int Number() const { return number_; }
  std::string Description() const { return what(); }

 private:
  int number_;
};

/// Standard description of a failure number, "Division by zero" for 11.
const char* FailureDescription(int number);

[[noreturn]] void RaiseDivisionByZero();
[[noreturn]] void RaiseOverflow();
[[noreturn]] void RaiseSubscript();
[[noreturn]] void RaiseTypeMismatch();

/// The exception that is being handled as a Failure; to be called in a handler only.
/// Anything of the standard library becomes 5 "Invalid procedure call or argument" with what it
/// said.
Failure CurrentFailure();

/// Turns the exception that is being handled into the common box with the OK button, the title
/// "ERROR in <procedure> of <module>" and the text "Error: <number>. <description>".
/// To be called in a handler only; lets nothing escape.
void ReportFailure(const char* procedure, const char* module) noexcept;

/// a / b. Raises 11 when b is 0.
inline double Quotient(double a, double b) {
  if (b == 0.0) [[unlikely]] {
    RaiseDivisionByZero();
  }
  return a / b;
}

/// The value itself. Raises 6 when it is infinite or not a number.
inline double Finite(double value) {
  if (!std::isfinite(value)) [[unlikely]] {
    RaiseOverflow();
  }
  return value;
}

}  // namespace halvorne
