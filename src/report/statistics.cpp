#include <span>

#include "plot/plot_state.h"
#include "report/text_exports.h"

namespace halvorne {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kNoData = "No valid data";

/// Cells joined by tabs, and a line end.
std::string GridRow(std::span<const std::string> cells) {
  std::string line;
  for (const std::string& cell : cells) {
    if (&cell != cells.data()) {
      line += "\t";
    }
    line += cell;
  }
  return line + kLineEnd;
}

std::string BandSection() {
  std::string text = std::string("Center frequency and bandwidth:") + kLineEnd;
  if (!measured.CFBWValid) {
    return text + kNoData + kLineEnd;
  }
  for (const auto& row : measured.CFBWText) {
    text += GridRow(row);
  }
  return text;
}

std::string PulseSection() {
  std::string text = std::string("Pulse width:") + kLineEnd;
  if (!measured.PulseWidthValid) {
    return text + kNoData + kLineEnd;
  }
  for (const auto& row : measured.PulseWidthText) {
    text += GridRow(row);
  }
  return text + measured.PkAmplCaption + kLineEnd;
}

std::string AttenuationSection() {
  std::string text = std::string("Attenuation in the load medium:") + kLineEnd;
  if (!measured.AttenValid || !design.AttenOn) {
    return text + kNoData;
  }
  for (const std::string& caption : measured.AttenCaptions) {
    text += caption + kLineEnd;
  }
  return text;
}

}  // namespace

std::string StatisticsText() {
  return BandSection() + kLineEnd + PulseSection() + kLineEnd + AttenuationSection() + kLineEnd;
}

}  // namespace halvorne
