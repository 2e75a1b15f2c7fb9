#include "platform/failure.h"
#include "plot/plot_state.h"
#include "report/report_words.h"
#include "report/text_exports.h"
#include "report/text_lines.h"

namespace halvorne {
namespace {

void AppendHead(std::string& text) {
  AppendLine(text, {"HALVORNE INPUT PARAMETERS ", FileVersionWords()});
  AppendLine(text, {kDataFileWords + DataFileText(), CalculatedText()});
  AppendLine(text, {design.DesignTitle});
  if (ExcitationPrinted()) {
    AppendLine(text, {"EXCITATION WAVEFORM"});
    AppendLine(text, {ExcitationText()});
  }
  AppendLine(text, {"FREQUENCY AND TIME"});
  AppendLine(text, {DesignFreqText(), FreqRangeText()});
  AppendLine(text, {"Number of points in frequency domain: " + std::to_string(design.NoFreqPts),
                    "Time domain: " + std::to_string(design.NoTimePts)});
}

void AppendPiezo(std::string& text, bool details) {
  const bool two = design.NoPiezo == 2;
  AppendLine(text, {"PIEZOELECTRIC ELEMENT DESCRIPTION"});
  if (two) {
    AppendLine(text, {ConnectionText()});
  }
  AppendLine(text, {ElementSizeWords(), ElementAreaText()});
  // Kept: the blanks behind "VALUE".
  TabPrnStrClip(text, "PARAMETER", two ? "REAR LAYER" : "VALUE  ", "FRONT LAYER", "UNITS");
  PiezoTable(details, [&text](const PiezoRow& row) {
    if (row.format != nullptr) {
      TabPrnClip(text, row.clipboardLabel, row.number1, row.number2, row.units, row.format);
    } else {
      TabPrnStrClip(text, row.clipboardLabel, row.text1, row.text2, row.units);
    }
  });
}

void AppendPlates(std::string& text, const char* heading, const PlateSide& side,
                  std::int16_t count) {
  for (const TwelveTexts& line : PlateHeadings(heading)) {
    TPStrClip(text, line);
  }
  for (std::int16_t i = 1; i <= count; ++i) {
    TPNumClip(text, LineOfPlate(side, i));
  }
}

void AppendLayers(std::string& text) {
  AppendLine(text, {"ACOUSTIC LAYERS"});
  if (design.NoFace < 1) {
    AppendLine(text, {"No Faceplates"});
  } else {
    AppendPlates(text, "FACE", FaceSide(), design.NoFace);
  }
  if (design.NoBack < 1) {
    AppendLine(text, {"No Backplates"});
  } else {
    AppendLine(text, {"BACKPLATES"});
    AppendPlates(text, "BACK", BackSide(), design.NoBack);
  }
}

void AppendNetwork(std::string& text) {
  AppendLine(text, {"ELECTRICAL MATCHING NETWORK: "});
  std::string network;
  for (const std::string& element : NetworkTexts()) {
    network += (network.empty() ? "" : ", ") + element;
  }
  AppendLine(text, {network.empty() ? kNoNetwork : network});
}

}  // namespace

void ParasToClipboard(std::string& text, std::int16_t details) try {
  text.clear();
  AppendHead(text);
  AppendPiezo(text, details == 1);
  AppendLayers(text);
  AppendLine(text, {"ACOUSTIC LOAD IMPEDANCES:   " + RearLoadText(), FrontLoadText()});
  AppendLine(text, {"ELECTRICAL TERMINATIONS:   " + TransmitterText(), ReceiverText()});
  AppendNetwork(text);
} catch (...) {
  ReportFailure("ParasToClipboard", "PRINTIT");
}

}  // namespace halvorne
