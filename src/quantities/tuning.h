#pragma once

#include <map>
#include <memory>
#include <string>

#include "plot/state_snapshot.h"
#include "quantities/settings.h"
#include "quantities/tunable_numbers.h"

namespace halvorne {

/// The design while numbers of it are tried out. As it was before it is held as the reference.
///
/// What is tried stands in the design itself, so that every plot and text shows it, until it is
/// kept or put back; a Tuning that goes without either puts back. Constructor, Keep() and PutBack()
/// let failures out as the plot commands do: in boxes.
class Tuning {
 public:
  Tuning();
  ~Tuning();
  Tuning(const Tuning&) = delete;
  Tuning& operator=(const Tuning&) = delete;

  /// Gives a number a value, in the unit of its words and within its bounds; shown by Show().
  void Set(const TunableNumber& number, double value);
  /// Gives a number that was set the value back that it had; shown by Show().
  void Restore(const TunableNumber& number);
  /// Makes the curves and the plot on show from the numbers that were set, as the OK of their
  /// dialogs would; nothing is asked.
  /// @return the first failure in one line, empty when there was none
  std::string Show();

  /// Leaves the numbers in the design as the OK of their dialogs does.
  void Keep();
  /// Puts every bit of the design and its curves back, but for a title that was typed meanwhile,
  /// and shows the plot of it.
  void PutBack();

 private:
  void Store();

  std::unique_ptr<DesignSnapshot> before_;
  // By the name of the field.
  std::map<std::string, Setting> set_;
  std::map<std::string, FieldValue> starts_;  ///< the values of those before they were set
  bool open_ = true;
};

}  // namespace halvorne
