#include "persistence/complex_load_file.h"

#include "engine/design_model.h"
#include "persistence/delimited_words.h"
#include "persistence/side_file.h"
#include "persistence/value_reader.h"

namespace halvorne {
namespace {

bool ReadLoadFile(const std::string& fileName, const char* title, std::string& comment,
                  FreqCurve& re, FreqCurve& im) {
  const auto takeComment = [&](const std::string& words) { comment = words; };
  const auto takeLine = [&](std::int32_t point, const std::string& line) {
    const double real = NumberOfText(GetWord(line, 1, ","));
    // Kept: a line without a comma is both parts, since its second field is the line again.
    const double imaginary = NumberOfText(GetWord(line, 2, ","));
    re(point) = real;
    im(point) = imaginary;
  };
  return ReadSideFile(fileName, title, takeComment, takeLine);
}

}  // namespace

bool ReadFrontLoadFile(const std::string& fileName) {
  return ReadLoadFile(fileName, "open Front Acoustic Load file", design.ZFrontComment,
                      design.ZFrontNormRe, design.ZFrontNormIm);
}

bool ReadRearLoadFile(const std::string& fileName) {
  return ReadLoadFile(fileName, "open Rear Acoustic Load file", design.ZBackComment,
                      design.ZBackNormRe, design.ZBackNormIm);
}

}  // namespace halvorne
