#pragma once

#include <string>
#include <vector>

namespace halvorne {

/// A number of the design that can be tuned, in words for a person.
struct TunableNumber {
  std::string words;  ///< "Face plate 1: thickness, mm"
  std::string field;  ///< its name among the fields of the design, "FrontThick(1)"
  double unitSize;    ///< the unit of the words in the field's unit
  double lowest;      ///< in the unit of the words, as its dialog bounds it; infinite without bound
  double highest;
  double least = 0;    ///< what takes the place of 0, in the field's unit; 0 where 0 may stay
  double divisor = 1;  ///< of a field in a larger unit: dividing gives the bits that dialogs store
};

/// The numbers of the open design that a sweep depends on: layers, plates, loads, element,
/// terminations and network, in the order of the menu Input.
std::vector<TunableNumber> TunableNumbers();

/// The number as it stands in the design, in the unit of the words.
double TunedValue(const TunableNumber& number);

/// The nearest value that the number's bounds allow.
double WithinBounds(const TunableNumber& number, double value);

}  // namespace halvorne
