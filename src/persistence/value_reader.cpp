#include "persistence/value_reader.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <system_error>

#include "persistence/file_failure.h"
#include "persistence/plain_decimal.h"
#include "persistence/regular_file.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"

namespace halvorne {
namespace {

using plain_decimal::IsDigit;

constexpr std::size_t kMostBytes = std::size_t{64} << 20;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}
bool IsSeparator(char c) {
  return c == ',' || IsLineEnd(c);
}

/// Bytes worth making room for. Asked of the open file, since meanwhile its name may have come to
/// stand for another. Files that the system makes as they are read tell no size; their room costs
/// nothing until it is filled.
std::size_t Room(std::FILE* file) {
  const long size = std::fseek(file, 0, SEEK_END) == 0 ? std::ftell(file) : 0;
  std::rewind(file);
  return size <= 0 ? kMostBytes : std::min(static_cast<std::size_t>(size), kMostBytes);
}

/// True for a decimal number whose magnitude is 1 or more.
bool AtLeastOne(std::string_view number) {
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, mark);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t leading = digits.find_first_of("123456789");
  const double place = leading < point ? static_cast<double>(point - leading) - 1
                                       : -static_cast<double>(leading - point);
  const bool negative =
      number.substr(mark).starts_with("e-") || number.substr(mark).starts_with("E-");
  const std::size_t sign = number.find_first_of("0123456789", mark);
  double exponent = 0;
  for (std::size_t i = sign; i < number.size(); ++i) {
    exponent = exponent * 10 + (number[i] - '0');
  }
  return place + (negative ? -exponent : exponent) >= 0;
}

/// A number at the begin of a text.
struct FoundNumber {
  double value = 0;
  const char* end = nullptr;  ///< behind it; null when the text begins otherwise
  bool tooLarge = false;
};

FoundNumber FindNumber(const char* begin, const char* end) {
  const char* const digits = begin + (begin != end && (*begin == '+' || *begin == '-') ? 1 : 0);
  // from_chars takes no plus sign, and it would take "inf" and "nan".
  if (digits == end || !(IsDigit(*digits) || *digits == '.')) {
    return {};
  }
  double number = 0;
  const auto [stop, error] = std::from_chars(*begin == '+' ? digits : begin, end, number);
  if (error == std::errc::invalid_argument) {
    return {};
  }
  return {number, stop, error == std::errc::result_out_of_range && AtLeastOne({digits, stop})};
}

}  // namespace

ValueReader::ValueReader(const std::string& fileName) {
  CleanVectorRegisters();
  const FileHandle file = OpenRegularFile(fileName, "rb");
  const std::size_t room = Room(file.get());
  bytes_ = std::make_unique_for_overwrite<char[]>(room + kDecimalMargin);
  const std::size_t size = std::fread(bytes_.get(), 1, room, file.get());
  if (std::ferror(file.get()) != 0) {
    RaiseFileFailure(errno, fileName);
  }
  std::fill_n(bytes_.get() + size, kDecimalMargin, '\0');
  at_ = bytes_.get();
  end_ = at_ + size;
  if (std::string_view(at_, size).starts_with(kByteOrderMark)) {
    at_ += kByteOrderMark.size();
  }
}

void ValueReader::SkipToValue() {
  if (!HasValue()) {
    throw Failure(failure_number::kInputPastEnd);
  }
}

/// Steps over blanks and one separator. False when something else stands there.
bool ValueReader::TakeSeparator() {
  while (at_ != end_ && IsBlank(*at_)) {
    ++at_;
  }
  if (at_ == end_) {
    return true;
  }
  if (!IsSeparator(*at_)) {
    return false;
  }
  ++at_;
  return true;
}

std::string_view ValueReader::TakeField() {
  const bool quoted = *at_ == '"';
  const char* const begin = quoted ? at_ + 1 : at_;
  const char* const end =
      quoted ? std::find(begin, end_, '"') : std::find_if(begin, end_, IsSeparator);
  if (quoted && end == end_) {
    at_ = end_;
    throw Failure(failure_number::kInputPastEnd);
  }
  at_ = std::find_if(end, end_, IsSeparator);
  TakeSeparator();
  return {begin, end};
}

void ValueReader::RefuseField() {
  TakeField();
  RaiseTypeMismatch();
}

std::string ValueReader::TakeLine() {
  if (!HasLine()) {
    throw Failure(failure_number::kInputPastEnd);
  }
  const char* const begin = at_;
  const char* const end = std::find_if(begin, end_, IsLineEnd);
  at_ = end;
  if (at_ != end_) {
    at_ += *at_ == '\r' && at_ + 1 != end_ && at_[1] == '\n' ? 2 : 1;
  }
  return {begin, end};
}

bool ValueReader::HasValue() {
  while (at_ != end_ && (IsBlank(*at_) || IsLineEnd(*at_))) {
    ++at_;
  }
  return at_ != end_;
}

void ValueReader::Label(std::string_view /*words*/) {
  SkipToValue();
  TakeField();
}

void ValueReader::Read(std::string& value) {
  SkipToValue();
  value = TakeField();
}

void ValueReader::Read(double& value) {
  if (*at_ == '\n') {  // of the line end before, whose first half was the separator
    ++at_;
  }
  if (!IsDigit(*at_)) {
    SkipToValue();
  }
  if (const char* const separator = ReadPlainDecimal(at_, value)) {
    at_ = separator + 1;
    return;
  }
  const char* const begin = at_;
  const FoundNumber found = FindNumber(begin, end_);
  if (found.end == nullptr) {
    RefuseField();
  }
  at_ = found.end;
  if (!TakeSeparator()) {
    at_ = begin;
    RefuseField();
  }
  if (found.tooLarge) {
    RaiseOverflow();
  }
  value = found.value;
}

void ValueReader::Read(float& value) {
  double number = 0;
  Read(number);
  value = ToSingle(number);
}

void ValueReader::Read(std::int16_t& value) {
  double number = 0;
  Read(number);
  value = ToInt16(number);
}

void ValueReader::Read(std::int32_t& value) {
  double number = 0;
  Read(number);
  value = ToInt32(number);
}

void ValueReader::Read(bool& value) {
  SkipToValue();
  if (*at_ != '#') {
    double number = 0;
    Read(number);
    if (number != 0 && number != -1) {
      RaiseTypeMismatch();
    }
    value = number != 0;
    return;
  }
  std::string_view word = TakeField();
  while (IsBlank(word.back())) {
    word.remove_suffix(1);
  }
  if (word != "#TRUE#" && word != "#FALSE#") {
    RaiseTypeMismatch();
  }
  value = word == "#TRUE#";
}

double NumberOfText(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && IsBlank(text.back())) {
    text.remove_suffix(1);
  }
  const char* const end = text.data() + text.size();
  const FoundNumber found = FindNumber(text.data(), end);
  if (found.end != end) {
    RaiseTypeMismatch();
  }
  if (found.tooLarge) {
    RaiseOverflow();
  }
  return found.value;
}

}  // namespace halvorne
