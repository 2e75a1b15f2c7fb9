#pragma once

#include <stdexcept>

namespace halvorne {

/// What was asked for cannot be meant: a name that is not there, a value that is none. The text
/// says what is wrong.
struct WrongInput : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What was asked for is understood and cannot be done here. The text says why.
struct NotPossible : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace halvorne
