#include "persistence/array_io.h"

#include "platform/failure.h"

namespace halvorne {

void AryInput(ValueReader& file, std::int16_t count, ChainValues& values,
              std::string& scratch) try {
  file.Line(scratch);
  for (long i = 0; i <= count; ++i) {
    file.Line(values(i));
  }
} catch (...) {
  ReportFailure("AryInput", "FILES");
}

void AryInput2(ValueReader& file, std::int32_t count, FreqCurve& first, FreqCurve& second,
               std::string& scratch) try {
  file.Line(scratch);
  for (long i = 0; i <= count; ++i) {
    file.Line(first(i), second(i));
  }
} catch (...) {
  ReportFailure("AryInput2", "FILES");
}

void AryOutput(ValueWriter& file, std::int16_t count, const ChainValues& values,
               const std::string& label) try {
  file.Label(label);
  for (long i = 0; i <= count; ++i) {
    file.Line(values(i));
  }
} catch (...) {
  file.NoteGap();
  ReportFailure("AryOutput", "FILES");
}

void AryOutput2(ValueWriter& file, std::int32_t count, const FreqCurve& first,
                const FreqCurve& second, const std::string& label) try {
  file.Label(label);
  for (long i = 0; i <= count; ++i) {
    file.Line(first(i), second(i));
  }
} catch (...) {
  file.NoteGap();
  ReportFailure("AryOutput2", "FILES");
}

}  // namespace halvorne
