#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace halvorne {

/// Reads a text file of values, one after the other.
///
/// A value ends at a comma or a line end of any kind (LF, CR, CR LF), a quoted text at its closing
/// quote; what else stands before the next separator is dropped. Blanks, tabs, line ends and a
/// byte-order mark before a value are skipped. A value that fails is used up and leaves its target
/// as it was. Raises 62 at the end of the file, 13 for what is no value of the kind asked for,
/// 6 for one that does not fit.
class ValueReader {
 public:
  /// Takes in the whole file, of which no more than 64 MiB is looked at. Raises 53, 70 or 76, and
  /// 75 at once for a folder, a pipe or a device.
  explicit ValueReader(const std::string& fileName);

  /// Reads the next values, in order.
  template <class... Value>
  void Line(Value&... values) {
    (Read(values), ...);
  }

  /// The rest of the line as it stands, without its end. Raises 62 at the end of the file.
  std::string TakeLine();
  /// False when nothing but blanks and line ends is left.
  bool HasValue();
  /// False when nothing at all is left.
  bool HasLine() const { return at_ != end_; }

  /// Reads a text that means nothing; never compared with the words that belong there.
  void Label(std::string_view words);

  /// Bytes between double quotes, or up to a comma or line end.
  void Read(std::string& value);
  /// Any decimal form with or without sign, zero before the point and exponent; "." whatever the
  /// locale. An integer rounds half to even.
  void Read(double& value);
  void Read(float& value);
  void Read(std::int16_t& value);
  void Read(std::int32_t& value);
  /// #TRUE#, #FALSE#, -1 or 0.
  void Read(bool& value);

 private:
  void SkipToValue();
  bool TakeSeparator();
  std::string_view TakeField();
  [[noreturn]] void RefuseField();

  std::unique_ptr<char[]> bytes_;
  const char* at_ = nullptr;
  const char* end_ = nullptr;
};

/// The number that a text is, blanks around it left aside, in the forms that ValueReader takes.
/// Raises 13 for any other text, 6 for a number that is too large.
double NumberOfText(std::string_view text);

}  // namespace halvorne
