#pragma once

#include <span>
#include <string>

namespace halvorne {

/// Reads a velocity dispersion file into dispersion slots (0 to 21), the same into each: its bare
/// name and its comment, then from each line the factor of a point, the first line that of point 0.
/// Points without a line keep their factors.
///
/// A failure shows the file box under `title`. A file that cannot be read changes nothing; one with
/// a line that is no number has given its name, its comment and the points before that line.
/// @return false when the box was shown
bool ReadDispersionFile(const std::string& fileName, const char* title,
                        std::span<const int> chainSlots);

/// Takes the file out of a dispersion slot: both names empty, the factor 1 at all points.
void ClearDispersion(int slot);

}  // namespace halvorne
