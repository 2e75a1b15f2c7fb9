#pragma once

#include <cstdint>
#include <string>

namespace halvorne {

/// All inputs of the design as text with tabs, for the clipboard and the list of inputs.
/// @param details  1 with the material of the layers
void ParasToClipboard(std::string& text, std::int16_t details);

/// The plotted data as a table with tabs, for the clipboard.
void GraphDataToClipboard(std::string& text);

/// Measurements of the plot on show as text, for the clipboard.
std::string StatisticsText();

/// Title of the question of SaveGraphData.
inline constexpr const char* kSaveGraphDataTitle = "Halvorne Save Graph Data";

/// Writes the plotted data as the text file that spreadsheets read. An existing file is overwritten
/// only after a question and kept as NAME~ until the new one is whole; failures raise, the
/// command's handler shows them.
void SaveGraphData(const std::string& fileName);

/// The bytes that SaveGraphData writes, without a file. Raises like it.
std::string GraphDataFileText();

}  // namespace halvorne
