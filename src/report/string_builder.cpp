#include "report/string_builder.h"

#include <algorithm>
#include <cctype>

#include "platform/failure.h"
#include "platform/numbers.h"

namespace halvorne {
namespace {

constexpr std::size_t kBytesPerCharacter = 2;
constexpr std::size_t kDefaultChunk = 16384 / kBytesPerCharacter;

std::int32_t Count(std::size_t characters) {
  return ToInt32(static_cast<double>(characters));
}

}  // namespace

cStringBuilder::cStringBuilder() : chunk_(kDefaultChunk) {}

void cStringBuilder::Reserve(std::size_t used) {
  while (used > buffer_.size()) {
    buffer_.append(chunk_, ' ');
  }
}

void cStringBuilder::Append(std::string_view text) {
  Reserve(used_ + text.size());
  std::ranges::copy(text, buffer_.begin() + static_cast<std::ptrdiff_t>(used_));
  used_ += text.size();
}

std::int32_t cStringBuilder::Find(std::string_view text, std::int32_t start,
                                  std::int16_t compare) const {
  const std::string_view contents = std::string_view(buffer_).substr(0, used_);
  const std::size_t from = start < 1 ? 0 : static_cast<std::size_t>(start) - 1;
  if (from >= used_) {
    return 0;
  }
  const auto equal = [compare](unsigned char a, unsigned char b) {
    return compare == 0 ? a == b : std::tolower(a) == std::tolower(b);
  };
  const auto* const found = std::search(contents.begin() + static_cast<std::ptrdiff_t>(from),
                                        contents.end(), text.begin(), text.end(), equal);
  return found == contents.end() ? 0
                                 : Count(static_cast<std::size_t>(found - contents.begin()) + 1);
}

void cStringBuilder::HeapMinimize() {
  std::size_t allocated = buffer_.size();
  while (allocated - used_ > chunk_) {
    allocated -= chunk_;
  }
  buffer_.resize(allocated);
  buffer_.shrink_to_fit();
}

void cStringBuilder::Insert(std::int32_t index, std::string_view text) {
  if (index < 0 || static_cast<std::size_t>(index) > used_) {
    RaiseSubscript();
  }
  Reserve(used_ + text.size());
  const auto at = buffer_.begin() + index;
  const auto end = buffer_.begin() + static_cast<std::ptrdiff_t>(used_);
  std::copy_backward(at, end, end + static_cast<std::ptrdiff_t>(text.size()));
  std::ranges::copy(text, at);
  used_ += text.size();
}

void cStringBuilder::Remove(std::int32_t index, std::int32_t length) {
  if (index < 0 || length < 0 ||
      static_cast<std::size_t>(index) + static_cast<std::size_t>(length) > used_) {
    RaiseSubscript();
  }
  const auto at = buffer_.begin() + index;
  const auto end = buffer_.begin() + static_cast<std::ptrdiff_t>(used_);
  std::copy(at + length, end, at);
  std::fill(end - length, end, ' ');
  used_ -= static_cast<std::size_t>(length);
}

std::int32_t cStringBuilder::Capacity() const {
  return Count(buffer_.size());
}

std::int32_t cStringBuilder::ChunkSize() const {
  return Count(chunk_);
}

void cStringBuilder::SetChunkSize(std::int32_t characters) {
  if (characters < 1) {
    throw Failure(failure_number::kInvalidCall);
  }
  chunk_ = static_cast<std::size_t>(characters);
}

std::int32_t cStringBuilder::Length() const {
  return Count(used_);
}

void cStringBuilder::SetTheString(std::string_view text) {
  if (text.empty()) {
    std::string().swap(buffer_);
    used_ = 0;
    return;
  }
  Reserve(text.size());
  std::ranges::copy(text, buffer_.begin());
  std::fill(buffer_.begin() + static_cast<std::ptrdiff_t>(text.size()), buffer_.end(), ' ');
  used_ = text.size();
}

std::string cStringBuilder::ToString() const {
  return buffer_.substr(0, used_);
}

}  // namespace halvorne
