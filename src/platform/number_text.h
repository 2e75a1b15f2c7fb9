#pragma once

#include <string>
#include <string_view>

namespace halvorne {

/// Room that writing the general number-to-text form needs, in characters; the longest text is
/// shorter.
inline constexpr int kNumberTextMax = 40;

/// Writes the general form of a number at `out` (room for kNumberTextMax) and returns its end.
///
/// At most 15 (64-bit) or 7 (32-bit) significant digits without trailing zeros; a zero before the
/// point; exponent form with E, sign and at least two digits only below 1E-04 or from 1E+15
/// (64-bit) or 1E+07 (32-bit) on; no negative zero. Independent of any locale.
char* WriteNumber(char* out, double value);
char* WriteNumber(char* out, float value);

/// The same as a string.
std::string NumberText(double value);
std::string NumberText(float value);
/// The same behind a blank that keeps the place of the sign of a number that has none, " 3".
std::string SpacedNumberText(double value);

/// Decimal form of `value` by a picture pattern: `0` a digit always shown, `#` a digit shown only
/// if significant, `.` the decimal point, a trailing `E+00` scientific form, any other character
/// itself. Rounds half away from zero on the 15-digit decimal form; no sign on a zero; the point
/// of the pattern is always shown, "5. " for 5 in "0.#### ". Raises 6 for a value that is not
/// finite.
std::string Format(double value, std::string_view pattern);

/// Text of a control to a number: empty text and whatever is not wholly a number give 0; never a
/// failure. Sign, digits, decimal point and exponent are taken, blanks around them skipped; the
/// point may be "." or that of the user's locale.
double SafeVal(std::string_view text);
/// The same where the user's decimal point is `point`.
double SafeVal(std::string_view text, std::string_view point);

}  // namespace halvorne
