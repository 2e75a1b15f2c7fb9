#pragma once

namespace halvorne {

/// Share of a standard normal quantity below x.
double NormalShare(double x);

/// The x below which a share of a standard normal quantity lies, to about 16 digits: algorithm AS
/// 241, PPND16 (M. J. Wichura, Applied Statistics 37, 1988, 477-484).
/// @param share  between 0 and 1, both excluded
double NormalQuantile(double share);

}  // namespace halvorne
