#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace halvorne {

/// Lines of a file or of a stream of the program's own, one at a time; its memory is that of a
/// line.
class LineReader {
 public:
  /// Longest line that is kept, in bytes.
  static constexpr std::size_t kMostBytes = std::size_t{1} << 16;

  /// Opens a file, or takes the open stream that the name stands for, /dev/stdin. Raises
  /// std::system_error.
  explicit LineReader(const std::string& name);
  ~LineReader();
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;

  /// Reads the next line without its end, LF or CR LF. Of a longer one than kMostBytes only so much
  /// is kept, and WasTooLong() tells. Raises std::system_error.
  /// @return false at the end
  bool Next(std::string& line);
  bool WasTooLong() const { return tooLong_; }
  /// Number of the line that was read last, from 1.
  long Number() const { return number_; }

 private:
  bool Fill();

  int file_;
  bool own_;  ///< opened here
  std::array<char, std::size_t{1} << 15> block_;
  std::size_t from_ = 0;
  std::size_t to_ = 0;
  bool tooLong_ = false;
  long number_ = 0;
};

}  // namespace halvorne
