#pragma once

#include <cmath>
#include <cstdint>
#include <memory>
#include <new>

namespace halvorne {

/// The constants as the program writes them; their last digits are part of its results.
inline constexpr double kPi = 3.14159265358979;
inline constexpr double kTwoPi = 6.28318530717958;

/// Largest integer not above x.
inline double Int(double x) {
  return std::floor(x);
}
/// x without its fraction.
inline double Fix(double x) {
  return std::trunc(x);
}
/// -1, 0 or 1.
inline double Sgn(double x) {
  return static_cast<double>((x > 0) - (x < 0));
}

/// a - b, which 32 bits need not hold.
inline double Difference(std::int32_t a, std::int32_t b) {
  return static_cast<double>(a) - b;
}

/// Logarithm to base 10 as Log(|x|)/Log(10), with 0 taken as 1e-38; never a failure.
///
/// Kept: the argument that was really used is written back, so a negative variable comes back
/// positive and a zero as 1e-38. Kept: the quotient of two logarithms, which for 1000 lies a
/// little below 3.
double log10(double& value);
inline double log10(double&& value) {
  return log10(value);
}  // NOLINT: an expression has nowhere to write back

/// Assignment to a 16- or 32-bit integer: rounds half to even, raises 6 when it does not fit.
std::int16_t ToInt16(double value);
std::int32_t ToInt32(double value);
/// Assignment to a 32-bit float: raises 6 when the value does not fit or is not a number.
float ToSingle(double value);

/// Puts a state back to its start (all zero, false, empty) in place, without a copy on the stack.
template <class State>
void Reset(State& state) {
  std::destroy_at(&state);
  ::new (static_cast<void*>(&state)) State{};
}

}  // namespace halvorne
