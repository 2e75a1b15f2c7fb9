#pragma once

#include <QLineEdit>
#include <limits>
#include <string>

namespace halvorne {

/// Bounds of a number box and the texts that take the place of what lies outside of them.
struct BoxBounds {
  double lowest;
  const char* lowestText;
  double highest = std::numeric_limits<double>::infinity();
  const char* highestText = "";
};

/// Puts the lower bound into a box. In a box that is being typed in it is marked, so that the next
/// digit takes its place.
void CorrectToLowest(QLineEdit* box, const std::string& text);

/// Puts the upper bound into a box. In a box that is being typed in the text cursor stays.
void CorrectToHighest(QLineEdit* box, const std::string& text);

/// Puts a bound into a box whose number lies outside; each such change runs the box's change logic.
/// @return the number that the box shows then
double CorrectedValue(QLineEdit* box, const BoxBounds& bounds);

/// Shows a text from its begin on.
void ShowText(QLineEdit* box, const std::string& text);

/// Stores a box's text. One that still shows `field` leaves it its bytes.
void StoreText(const QLineEdit* box, std::string& field);

/// Lays a box out for numbers: aligned to the right, as wide as `digits` of them at least.
QLineEdit* AsNumberBox(QLineEdit* box, int digits);

}  // namespace halvorne
