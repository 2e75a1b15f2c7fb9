#pragma once

#include <string>

#include "report/report_layout.h"

// Counterparts of the page's tables in text: each appends a line with a tab between its fields and
// CR LF at its end. No text is cut; what would tear the table (a tab, a line end) is replaced
// visibly. Failures end in the box of the procedure.

namespace halvorne {

void TabPrnClip(std::string& text, const std::string& label, double value1, double value2,
                const std::string& units, const char* format);
void TabPrnStrClip(std::string& text, const std::string& label, const std::string& text1,
                   const std::string& text2, const std::string& units);

/// Two tabs stand behind the second text.
void TPStrClip(std::string& text, const TwelveTexts& texts);
/// One tab stands behind each, so that from the third column on data stand left of their headings.
void TPNumClip(std::string& text, const PlateLine& line);

/// Appends the fields as a line. Failures go up to the caller.
void AppendLine(std::string& text, std::initializer_list<std::string> fields);

}  // namespace halvorne
