#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <string>
#include <string_view>

namespace halvorne {

/// Writes a text file of values: those of one line separated by single commas, lines ended by
/// CR LF, texts in double quotes with their bytes as they are but for a double quote, which would
/// end the text and becomes two single ones; truth values as #TRUE#, #FALSE#.
///
/// What the disk refuses is told once, by Close. Whatever was written before a failure stays.
class ValueWriter {
 public:
  /// Writes to memory: the lines are had from Text.
  ValueWriter();
  /// Creates or empties the file. Raises 70 or 76, and 75 at once for a folder, a pipe or a device.
  explicit ValueWriter(const std::string& fileName);
  /// Hands over what is left, in silence.
  ~ValueWriter();
  ValueWriter(const ValueWriter&) = delete;
  ValueWriter& operator=(const ValueWriter&) = delete;

  /// Writes one line. A number that is infinite or none raises 6.
  template <class First, class... Rest>
  void Line(const First& first, const Rest&... rest) {
    Write(first);
    ((Put(','), Write(rest)), ...);
    EndLine();
  }

  /// Writes a line of texts, at least one.
  void Texts(std::initializer_list<std::string> values);

  /// Writes a text alone on its line.
  void Label(std::string_view words) { Line(words); }

  /// Hands over what is left and closes. Raises 70 or 75 when any part of the file could not be
  /// written.
  void Close();

  /// Notes that values are missing because whoever had them failed.
  void NoteGap() noexcept { whole_ = false; }
  bool IsWhole() const { return whole_; }

  /// The lines that were written, of a writer without a file.
  std::string Text() const { return text_.substr(0, used_); }

 private:
  void Write(std::string_view value);
  void Write(const char* value) { Write(std::string_view(value)); }
  void Write(double value);
  void Write(float value);
  void Write(std::int16_t value) { Write(std::int32_t{value}); }
  void Write(std::int32_t value);
  void Write(bool value);
  void EndLine();
  void Put(char character) {
    *Room(1) = character;
    ++used_;
  }
  void Put(std::string_view characters);
  /// Where the next `count` characters go.
  char* Room(std::size_t count) {
    if (text_.size() - used_ < count) [[unlikely]] {
      MakeRoom(count);
    }
    return text_.data() + used_;
  }
  void MakeRoom(std::size_t count);
  void HandOver() noexcept;
  void CloseFile() noexcept;

  std::string fileName_;
  std::FILE* file_ = nullptr;
  std::string text_;  ///< room for lines not yet handed over
  std::size_t used_ = 0;
  int error_ = 0;  ///< errno of the first refusal
  bool whole_ = true;
};

}  // namespace halvorne
