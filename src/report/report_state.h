#pragma once

#include <string>

#include "platform/bounded.h"

namespace halvorne {

/// State of the report that is being printed.
struct Report {
  float ReportLineHeight = 0;       ///< a line of the first page's header, page units
  std::string ReportPrintedStamp;   ///< "Printed: " and when
  Bounded<float, 0, 11> ReportTab;  ///< tab stops, page units; each section loads its own
};

extern Report report;

}  // namespace halvorne
