#include "persistence/value_writer.h"

#include <algorithm>
#include <cerrno>

#include "persistence/file_failure.h"
#include "persistence/regular_file.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/vector_registers.h"

namespace halvorne {
namespace {

/// The largest number of 15 digits; rounded up to so many, one above it could not be read again.
constexpr double kLargest = 1.79769313486231E308;

constexpr std::size_t kBlock = std::size_t{64} << 10;

}  // namespace

ValueWriter::ValueWriter() {
  CleanVectorRegisters();
}

ValueWriter::ValueWriter(const std::string& fileName)
    : fileName_(fileName), file_(OpenRegularFile(fileName, "wb").release()) {
  std::setvbuf(file_, nullptr, _IONBF, 0);  // blocks are made here
  text_.reserve(kBlock + kBlock / 4);
  CleanVectorRegisters();
}

ValueWriter::~ValueWriter() {
  CloseFile();
}

void ValueWriter::Close() {
  CloseFile();
  if (error_ != 0) {
    RaiseFileFailure(error_, fileName_);
  }
}

void ValueWriter::Texts(std::initializer_list<std::string> values) {
  for (const std::string& value : values) {
    Write(value);
    text_ += ',';
  }
  text_.pop_back();
  EndLine();
}

void ValueWriter::Write(std::string_view value) {
  text_ += '"';
  for (std::size_t quote; (quote = value.find('"')) != std::string_view::npos;) {
    text_ += value.substr(0, quote);
    text_ += "''";
    value.remove_prefix(quote + 1);
  }
  text_ += value;
  text_ += '"';
}

void ValueWriter::Write(double value) {
  char digits[kNumberTextMax];
  const double bounded = std::clamp(Finite(value), -kLargest, kLargest);
  text_.append(digits, WriteNumber(digits, bounded));
}

void ValueWriter::Write(float value) {
  Finite(value);
  char digits[kNumberTextMax];
  text_.append(digits, WriteNumber(digits, value));
}

void ValueWriter::Write(std::int32_t value) {
  text_ += std::to_string(value);
}

void ValueWriter::Write(bool value) {
  text_ += value ? "#TRUE#" : "#FALSE#";
}

void ValueWriter::EndLine() {
  text_ += "\r\n";
  if (file_ != nullptr && text_.size() >= kBlock) {
    HandOver();
  }
}

void ValueWriter::HandOver() noexcept {
  // After a refusal nothing more is tried, so that a file never has a hole in its middle.
  if (error_ == 0 && std::fwrite(text_.data(), 1, text_.size(), file_) != text_.size()) {
    error_ = errno;
  }
  text_.clear();
}

void ValueWriter::CloseFile() noexcept {
  if (file_ == nullptr) {
    return;
  }
  HandOver();
  if (std::fclose(file_) != 0 && error_ == 0) {
    error_ = errno;
  }
  file_ = nullptr;
}

}  // namespace halvorne
