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
constexpr std::size_t kLeastRoom = std::size_t{4} << 10;

}  // namespace

ValueWriter::ValueWriter() {
  CleanVectorRegisters();
}

ValueWriter::ValueWriter(const std::string& fileName)
    : fileName_(fileName), file_(OpenRegularFile(fileName, "wb").release()) {
  std::setvbuf(file_, nullptr, _IONBF, 0);  // blocks are made here
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
    Put(',');
  }
  --used_;
  EndLine();
}

void ValueWriter::MakeRoom(std::size_t count) {
  text_.resize(std::max(used_ + count, 2 * text_.size() + kLeastRoom));
}

void ValueWriter::Put(std::string_view characters) {
  std::copy(characters.begin(), characters.end(), Room(characters.size()));
  used_ += characters.size();
}

void ValueWriter::Write(std::string_view value) {
  Put('"');
  for (std::size_t quote; (quote = value.find('"')) != std::string_view::npos;) {
    Put(value.substr(0, quote));
    Put("''");
    value.remove_prefix(quote + 1);
  }
  Put(value);
  Put('"');
}

void ValueWriter::Write(double value) {
  const double bounded = std::clamp(Finite(value), -kLargest, kLargest);
  char* const out = Room(kNumberTextMax);
  used_ += static_cast<std::size_t>(WriteNumber(out, bounded) - out);
}

void ValueWriter::Write(float value) {
  Finite(value);
  char* const out = Room(kNumberTextMax);
  used_ += static_cast<std::size_t>(WriteNumber(out, value) - out);
}

void ValueWriter::Write(std::int32_t value) {
  Put(std::to_string(value));
}

void ValueWriter::Write(bool value) {
  Put(value ? "#TRUE#" : "#FALSE#");
}

void ValueWriter::EndLine() {
  Put('\r');
  Put('\n');
  if (file_ != nullptr && used_ >= kBlock) {
    HandOver();
  }
}

void ValueWriter::HandOver() noexcept {
  // After a refusal nothing more is tried, so that a file never has a hole in its middle.
  if (error_ == 0 && std::fwrite(text_.data(), 1, used_, file_) != used_) {
    error_ = errno;
  }
  used_ = 0;
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
