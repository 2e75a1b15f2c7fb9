#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>

#include "platform/surface.h"
#include "report/report_state.h"

// The page of the report: 10 by 10 units, y upward, the graph in its upper half and the text below.
// One code prints on paper and in the preview; on paper alone pages break. Texts that would run
// over the right edge are cut there. Failures end in the box of the procedure in which they arise.

namespace halvorne {

/// Right edge of the page.
inline constexpr double kPageRight = 10;

/// A line of a plate table.
struct PlateLine {
  int number = 0;                ///< of the plate
  std::string name;              ///< of its material
  std::array<double, 9> values;  ///< shear and longitudinal velocity, impedance, loss, loss
                                 ///< frequency, loss exponent, relative area, lambdas, thickness
  std::string lastText;
};

/// Patterns of a plate line's values.
inline constexpr std::array<const char*, 9> kPlatePatterns{
    "0.0", "0.0", "0.000", "0.000", "0.000", "0.00", "0.000", "0.00000", "0.00000"};

using TwelveTexts = std::array<std::string, 12>;

/// Prints the whole report of the design and the plot on show: graph, header, content. The
/// printer's document is not ended.
void PrintOn(Surface& target);

/// Prints the page's head line, underlined, with the printed stamp near the right edge. It is
/// printed in the font in force: larger on the first page than on later ones.
void PrintHeader(Surface& target);

/// Prints the design's title in as many lines as its width asks for, cut by number of characters.
void PrintTitle(Surface& target, const std::string& text);

/// Begins a new page of paper when fewer than `lines` + 2 lines are left on this one.
void YCheck(Surface& target, std::int16_t lines);

/// Cuts a text, character by character from its end, until it is narrower than `width`.
void LimTextWidth(Surface& target, double width, const std::string& text, std::string& result);

/// Prints a line of the piezoelectric table: label, value, with two layers a second value, units.
void TabPrn(Surface& target, const std::string& label, double value1, double value2,
            const std::string& units, const char* format);
/// The same with texts, each cut to its column.
void TabPrnStr(Surface& target, const std::string& label, const std::string& text1,
               const std::string& text2, const std::string& units);

/// Prints a heading line of a plate table: each text cut to its column.
void TPStr(Surface& target, const TwelveTexts& texts);
/// Prints a line of a plate table: name and last text cut to their columns.
void TPNum(Surface& target, const PlateLine& line);

/// Draws the cursor's line and prints its read-out, in the scale of the graph.
void CursorOnPrinter(Surface& target);

// What the content is printed with. Failures go up to the caller.

/// Size of the report's text, points.
double TableFontSize(const Surface& target);
/// Loads the tab stops from the first on; the others keep their values.
void LoadTabs(std::initializer_list<float> stops);
/// Puts the pen to x. On paper a line that would stand below the page's end begins a new page.
void At(Surface& target, double x);
/// Prints a text of one line.
void Put(Surface& target, const std::string& text);
/// Prints words and a text in the table's font so that they end before `end`: in a smaller size,
/// down to 5 points, then with the text's middle left out.
void PutFitted(Surface& target, const std::string& words, const std::string& text, double end);
/// Prints a text whose lines are parted by CR LF.
void PutLines(Surface& target, const std::string& text);

}  // namespace halvorne
