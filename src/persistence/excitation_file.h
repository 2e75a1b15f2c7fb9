#pragma once

#include <string>

namespace halvorne {

/// Reads an excitation file: its first line into `comment`, then numbers, wherever the lines end,
/// into the draft's waveform from index 0 to 16000 at most; what lies behind them becomes 0.
/// TmpExcitePoints becomes the number of values, at least 1.
///
/// Raises 53, 62, 70, 75 or 76 for the file, 13 or 6 for a value; then nothing has been changed.
void ReadExciteFile(const std::string& fileName, std::string& comment);

}  // namespace halvorne
