#include "report/report_content.h"

#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/vector_registers.h"
#include "plot/plot_state.h"
#include "report/report_layout.h"
#include "report/report_words.h"

namespace halvorne {
namespace {

/// Where the second text of a line stands.
constexpr double kSecondText = 4;
/// The same on the lines of loads and terminations.
constexpr double kSecondSide = 5;

void LoadGeneralTabs() {
  LoadTabs({0, 0.15F});
}

/// Prints a text at x and ends the line.
void PutLineAt(Surface& target, double x, const std::string& text) {
  At(target, x);
  Put(target, text);
  target.PrintLineEnd();
}

/// Prints a line of two texts.
void PutPairAt(Surface& target, double x1, const std::string& text1, double x2,
               const std::string& text2) {
  At(target, x1);
  Put(target, text1);
  PutLineAt(target, x2, text2);
}

void PrintHeadLines(Surface& target) {
  PutPairAt(target, report.ReportTab(0), "HALVORNE INPUT PARAMETERS", kSecondText,
            FileVersionWords());
  At(target, report.ReportTab(0));
  PutFitted(target, kDataFileWords, DataFileText(), kSecondText);
  PutLineAt(target, kSecondText, CalculatedText());
  At(target, report.ReportTab(0));
  PrintTitle(target, design.DesignTitle);
}

/// Column `column` of three rows as a list.
template <class Rows>
std::string ThreeCells(const Rows& rows, std::size_t firstRow, std::size_t column,
                       const char* lastSeparator = ", ") {
  return rows[firstRow][column] + ", " + rows[firstRow + 1][column] + lastSeparator +
         rows[firstRow + 2][column];
}

/// " at -6, -20, and -40 dB: ".
template <class Rows>
std::string AtLevels(const Rows& rows, std::size_t firstRow) {
  return " at " + ThreeCells(rows, firstRow, 0, ", and ") + " dB: ";
}

std::string CenterLine() {
  const auto& cells = measured.CFBWText;
  if (!measured.CFBWValid) {
    return "Center frequency: No valid data";
  }
  return "Center frequency" + AtLevels(cells, 3) + ThreeCells(cells, 3, 1) + " " + cells[2][1];
}

std::string BandLine() {
  const auto& cells = measured.CFBWText;
  if (!measured.CFBWValid) {
    return "Bandwidth: No valid data";
  }
  return "Bandwidth" + AtLevels(cells, 3) + ThreeCells(cells, 3, 2) + " " + cells[2][1] +
         "  In percent of CF: " + ThreeCells(cells, 3, 3) + " % of CF";
}

std::string PulseLine() {
  const auto& cells = measured.PulseWidthText;
  if (!measured.PulseWidthValid) {
    return "Pulse width: No valid data";
  }
  // Kept: no "and" before the last level.
  return "Pulse width at " + ThreeCells(cells, 2, 0) + " dB: " + ThreeCells(cells, 2, 1) + " " +
         cells[1][1] + "  " + measured.PeakAmplText;
}

void PrintStatistics(Surface& target) {
  if (!measured.CFBWValid && !measured.PulseWidthValid) {
    return;
  }
  PutLineAt(target, report.ReportTab(0), "PLOT STATISTICS");
  for (const std::string& line : {CenterLine(), BandLine(), PulseLine()}) {
    PutLineAt(target, report.ReportTab(1), line);
  }
}

void PrintAttenuation(Surface& target) {
  std::string text = "ATTENUATION IN THE LOAD MEDIUM:  ";
  if (measured.AttenValid && design.AttenOn) {
    const auto& captions = measured.AttenCaptions;
    text += captions[0] + ", " + captions[1] + ", " + captions[2] + ", " + captions[3];
  } else {
    text += "Not enabled";
  }
  if (measured.AttenValid) {
    PutLineAt(target, report.ReportTab(0), text);
  }
}

void PrintExcitation(Surface& target) {
  if (ExcitationPrinted()) {
    PutLineAt(target, report.ReportTab(0), "EXCITATION WAVEFORM:  " + ExcitationText());
  }
}

void PrintFrequencyAndTime(Surface& target) {
  PutLineAt(target, report.ReportTab(0), "FREQUENCY AND TIME");
  PutPairAt(target, report.ReportTab(1), DesignFreqText(), kSecondText, FreqRangeText());
  YCheck(target, 1);
  PutPairAt(target, report.ReportTab(1),
            "Number of points in frequency domain: " + PrintedNumber(design.NoFreqPts), kSecondText,
            "Time domain: " + PrintedNumber(design.NoTimePts));
  YCheck(target, 7);
}

void PrintLayers(Surface& target) {
  LoadGeneralTabs();
  YCheck(target, 5);
  PutLineAt(target, report.ReportTab(0), "ACOUSTIC LAYERS");
  if (design.NoFace < 1) {
    PutLineAt(target, report.ReportTab(1), "No Faceplates");
  } else {
    PrintFacePlatesOn(target);
  }
  YCheck(target, 4);
  LoadGeneralTabs();
  if (design.NoBack < 1) {
    PutLineAt(target, report.ReportTab(1), "No Backplates");
  } else {
    PrintBackPlatesOn(target);
  }
}

void PrintLoadsAndTerminations(Surface& target) {
  LoadGeneralTabs();
  YCheck(target, 1);
  PutPairAt(target, report.ReportTab(0), "ACOUSTIC LOAD IMPEDANCES:   " + RearLoadText(),
            kSecondSide, FrontLoadText());
  YCheck(target, 1);
  PutPairAt(target, report.ReportTab(0), "ELECTRICAL TERMINATIONS:   " + TransmitterText(),
            kSecondSide, ReceiverText());
}

void PrintHeadings(Surface& target, const char* side) {
  for (const TwelveTexts& line : PlateHeadings(side)) {
    TPStr(target, line);
  }
}

void PrintPlates(Surface& target, const PlateSide& side, std::int16_t count) {
  for (std::int16_t i = 1; i <= count; ++i) {
    if (i > 1) {
      YCheck(target, 1);
    }
    TPNum(target, LineOfPlate(side, i));
  }
}

void LoadPlateTabs() {
  LoadTabs({0.15F, 0.7F, 1.8F, 2.6F, 3.4F, 4.2F, 5.0F, 5.8F, 6.6F, 7.4F, 8.2F, 9.0F});
}

}  // namespace

void PrintParasOn(Surface& target) try {
  CleanVectorRegisters();
  LoadTabs({0, 0.15F, 4.0F});
  PrintHeadLines(target);
  PrintStatistics(target);
  PrintAttenuation(target);
  PrintExcitation(target);
  PrintFrequencyAndTime(target);
  PrintPiezoParasOn(target);
  PrintLayers(target);
  PrintLoadsAndTerminations(target);
  YCheck(target, 2);
  PutLineAt(target, report.ReportTab(0), "ELECTRICAL MATCHING NETWORK: ");
  PrintElNetOn(target);
} catch (...) {
  ReportFailure("PrintParasOn", "PRINTIT");
}

void PrintPiezoParasOn(Surface& target) try {
  PutLineAt(target, report.ReportTab(0), "PIEZOELECTRIC ELEMENT DESCRIPTION");
  const bool two = design.NoPiezo == 2;
  if (two) {
    PutLineAt(target, report.ReportTab(1), ConnectionText());
  }
  PutPairAt(target, report.ReportTab(1), ElementSizeWords(), kSecondText, ElementAreaText());
  LoadTabs({0.15F, 2.0F, 4.0F, 6.0F});
  TabPrnStr(target, "PARAMETER", two ? "REAR LAYER" : "VALUE", "FRONT LAYER", "UNITS");
  PiezoTable(setup.ReportDetails == 1, [&target](const PiezoRow& row) {
    if (row.together > 0) {
      YCheck(target, row.together);
    }
    if (row.format != nullptr) {
      TabPrn(target, row.label, row.number1, row.number2, row.units, row.format);
    } else {
      TabPrnStr(target, row.label, row.text1, row.text2, row.units);
    }
  });
} catch (...) {
  ReportFailure("PrintPiezoParasOn", "PRINTIT");
}

void PrintFacePlatesOn(Surface& target) try {
  LoadPlateTabs();
  PrintHeadings(target, "FACE");
  PrintPlates(target, FaceSide(), design.NoFace);
} catch (...) {
  ReportFailure("PrintFacePlatesOn", "PRINTIT");
}

void PrintBackPlatesOn(Surface& target) try {
  LoadPlateTabs();
  if (design.NoFace == 0) {
    PrintHeadings(target, "BACK");
  } else {
    Put(target, "BACKPLATES");
    target.PrintLineEnd();
  }
  PrintPlates(target, BackSide(), design.NoBack);
} catch (...) {
  ReportFailure("PrintBackPlatesOn", "PRINTIT");
}

void PrintElNetOn(Surface& target) try {
  std::int16_t lines = 2;
  At(target, report.ReportTab(1));
  const std::vector<std::string> elements = NetworkTexts();
  if (elements.empty()) {
    Put(target, kNoNetwork);
    target.PrintLineEnd();
    return;
  }
  std::string text;
  for (const std::string& element : elements) {
    const std::string next = ", " + element;
    if (target.TextWidth(text + next) > kPageRight - report.ReportTab(1)) {
      text.append("\r\n").append(element);
      ++lines;
    } else {
      text += text.empty() ? element : next;
    }
  }
  // Kept: on a new page, and from the second line on, the network starts at the left edge.
  YCheck(target, lines);
  PutLines(target, text);
  target.PrintLineEnd();
} catch (...) {
  ReportFailure("PrintElNetOn", "PRINTIT");
}

}  // namespace halvorne
