#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace halvorne {

/// A growing text buffer whose allocation grows in chunks, so that appending many short texts is
/// linear. Characters are one byte here; lengths of the allocation are told in bytes of two-byte
/// characters.
class cStringBuilder {
 public:
  cStringBuilder();

  /// Adds a text at the end. When it does not fit, the allocation grows by one chunk, and by as
  /// many more as the text needs.
  void Append(std::string_view text);
  void AppendByVal(std::string_view text) { Append(text); }

  /// First position (from 1) of `text` at or behind `start` (below 1: the beginning), 0 when there
  /// is none within the used part. `compare` 0 exact, 1 without case.
  std::int32_t Find(std::string_view text, std::int32_t start = 1, std::int16_t compare = 0) const;

  /// Gives back whole chunks while the spare part exceeds one.
  void HeapMinimize();

  /// Puts a text before character `index` (from 0). An index beyond the used length raises 9.
  void Insert(std::int32_t index, std::string_view text);
  void InsertByVal(std::int32_t index, std::string_view text) { Insert(index, text); }

  /// Drops `length` characters from `index` (from 0) on. A range beyond the used length raises 9.
  void Remove(std::int32_t index, std::int32_t length);

  /// Characters that the allocation holds.
  std::int32_t Capacity() const;
  /// Characters of one chunk.
  std::int32_t ChunkSize() const;
  void SetChunkSize(std::int32_t characters);
  /// Characters in use.
  std::int32_t Length() const;

  /// Replaces the contents; an empty text clears the allocation too.
  void SetTheString(std::string_view text);
  std::string ToString() const;

 private:
  void Reserve(std::size_t used);

  std::string buffer_;  ///< allocated characters, blanks behind the used part
  std::size_t used_ = 0;
  std::size_t chunk_;
};

}  // namespace halvorne
