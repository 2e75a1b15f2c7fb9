#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/design_model.h"
#include "report/report_layout.h"

// Wording that the printed report and the text exports share. Where nothing else is said, failures
// go up to the caller.

namespace halvorne {

/// A number as a print statement writes it: a blank before it and a blank after it.
std::string PrintedNumber(double value);

/// Words before the name of the data file.
inline constexpr const char* kDataFileWords = "Data file: ";
/// Name of the data file, or that there is none.
std::string DataFileText();
std::string FileVersionWords();
std::string CalculatedText();

/// True for the plots that show an excitation.
bool ExcitationPrinted();
/// The excitation: wave, frequency, cycles, delay, phase and points, or file, length and comment.
/// Empty where there is none.
std::string ExcitationText();

std::string DesignFreqText();
std::string FreqRangeText();

std::string ConnectionText();
std::string ElementSizeWords();
std::string ElementAreaText();

std::string RearLoadText();
std::string FrontLoadText();
std::string TransmitterText();
std::string ReceiverText();

/// What is printed in place of an empty network.
inline constexpr const char* kNoNetwork = "No electrical matching network";
/// Elements of the electrical network up to its end, with their numbers.
std::vector<std::string> NetworkTexts();

/// A row of the piezoelectric table. Layer 1 is the rear one.
struct PiezoRow {
  std::string label;
  std::string clipboardLabel;
  const char* format = nullptr;  ///< pattern of the numbers; null for a row of texts
  double number1 = 0, number2 = 0;
  std::string text1, text2;
  std::string units;
  std::int16_t together = 0;  ///< lines that stay together from this one on; 0: no test
};

/// Hands the rows to `line` in order, each made when its turn comes.
/// @param details  with the material
void PiezoTable(bool details, const std::function<void(const PiezoRow&)>& line);

/// The three heading lines of a plate table.
/// @param side  "FACE" or "BACK"
std::array<TwelveTexts, 3> PlateHeadings(const char* side);

/// One side of the stack.
struct PlateSide {
  const PlateMaterials& materials;
  const ChainValues& thick;
  const ChainValues& area;
};
PlateSide FaceSide();
PlateSide BackSide();
/// Table line of plate i, 1 to 10.
PlateLine LineOfPlate(const PlateSide& side, std::int16_t i);

}  // namespace halvorne
