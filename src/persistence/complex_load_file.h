#pragma once

#include <string>

namespace halvorne {

/// Reads a complex load file into the front side: its comment into ZFrontComment, from each line
/// the real and imaginary part, relative to the nominal load, into ZFrontNormRe, ZFrontNormIm.
/// Points without a line keep their values. The name, the flag and the loads in force stay as they
/// are. A failure shows the file box under "open Front Acoustic Load file".
/// @return false when the box was shown
bool ReadFrontLoadFile(const std::string& fileName);

/// The same of the rear side, under "open Rear Acoustic Load file".
bool ReadRearLoadFile(const std::string& fileName);

}  // namespace halvorne
