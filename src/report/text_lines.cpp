#include "report/text_lines.h"

#include <span>
#include <vector>

#include "platform/characters.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

void AppendFields(std::string& text, std::span<const std::string> fields) {
  for (const std::string& field : fields) {
    if (&field != fields.data()) {
      text += "\t";
    }
    text += PrintableText(field);
  }
  text += "\r\n";
}

}  // namespace

void AppendLine(std::string& text, std::initializer_list<std::string> fields) {
  AppendFields(text, {fields.begin(), fields.size()});
}

void TabPrnClip(std::string& text, const std::string& label, double value1, double value2,
                const std::string& units, const char* format) try {
  TabPrnStrClip(text, label, Format(value1, format),
                design.NoPiezo == 2 ? Format(value2, format) : "", units);
} catch (...) {
  ReportFailure("TabPrnClip", "PRINTIT");
}

void TabPrnStrClip(std::string& text, const std::string& label, const std::string& text1,
                   const std::string& text2, const std::string& units) try {
  if (design.NoPiezo == 2) {
    AppendLine(text, {label, text1, text2, units});
  } else {
    AppendLine(text, {label, text1, units});
  }
} catch (...) {
  ReportFailure("TabPrnStrClip", "PRINTIT");
}

void TPStrClip(std::string& text, const TwelveTexts& texts) try {
  std::vector<std::string> fields(texts.begin(), texts.end());
  fields.insert(fields.begin() + 2, "");
  AppendFields(text, fields);
} catch (...) {
  ReportFailure("TPStrClip", "PRINTIT");
}

void TPNumClip(std::string& text, const PlateLine& line) try {
  // Kept: a column less than the headings have.
  std::vector<std::string> fields{std::to_string(line.number), line.name};
  for (std::size_t i = 0; i < line.values.size(); ++i) {
    fields.push_back(Format(line.values[i], kPlatePatterns[i]));
  }
  fields.push_back(line.lastText);
  AppendFields(text, fields);
} catch (...) {
  ReportFailure("TPNumClip", "PRINTIT");
}

}  // namespace halvorne
