#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "quantities/settings.h"

namespace halvorne {

/// The open design as it was opened, given other values and put back, as often as one likes. What
/// a variant comes to does not depend on those before it.
class OpenedDesign {
 public:
  OpenedDesign();
  ~OpenedDesign();
  OpenedDesign(const OpenedDesign&) = delete;
  OpenedDesign& operator=(const OpenedDesign&) = delete;

  /// Gives the design the values and makes derived values anew; returns and raises as
  /// ApplySettings() does. The design has to stand as it was opened.
  bool Apply(std::span<const Setting> settings);

  /// Puts back what Apply() and a calculation behind it have changed, but for the curves.
  void PutBack();

 private:
  struct Kept;

  std::unique_ptr<Kept> kept_;
  std::vector<std::pair<FieldPlace, FieldValue>> changed_;
  unsigned derived_ = 0;  ///< of what Apply() has set
};

}  // namespace halvorne
