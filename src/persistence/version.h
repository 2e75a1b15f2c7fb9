#pragma once

#include <string>

namespace halvorne {

/// Version of the running program; the same as the build's project version.
inline constexpr int kVersionMajor = 4;
inline constexpr int kVersionMinor = 1;
inline constexpr int kVersionRevision = 0;

inline std::string ProgramVersion() {
  return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
         std::to_string(kVersionRevision);
}

/// First words of every design file, and of the version line in reports.
inline std::string ProgramVersionText() {
  return "Halvorne for Windows Version " + ProgramVersion();
}

}  // namespace halvorne
