#pragma once

#include <string>

namespace halvorne::studies {

/// A line on a terminal that tells how far the runs have come and how long they will still take.
class Progress {
 public:
  /// @param first,behind  the runs that are calculated now
  Progress(long first, long behind, long runs);
  /// Clears the line.
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Tells, a few times in a second at most, and nothing where standard error is no terminal.
  /// @param next  first run that is missing
  void Show(long next);

 private:
  long first_;
  long behind_;
  long runs_;
  bool terminal_;
  double began_;
  double told_ = 0;
};

/// "3 s", "12 min", "2.5 h".
std::string DurationText(double seconds);

}  // namespace halvorne::studies
