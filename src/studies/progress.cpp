#include "studies/progress.h"

#include <chrono>
#include <cstdio>
#include <unistd.h>

namespace halvorne::studies {
namespace {

double Now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

Progress::Progress(long first, long behind, long runs)
    : first_(first),
      behind_(behind),
      runs_(runs),
      terminal_(isatty(STDERR_FILENO) == 1),
      began_(Now()) {}

Progress::~Progress() {
  if (terminal_ && told_ > 0) {
    std::fputs("\r\033[K", stderr);
  }
}

void Progress::Show(long next) {
  constexpr double pause = 0.25;
  const double now = Now();
  if (!terminal_ || now - told_ < pause || next <= first_) {
    return;
  }
  told_ = now;
  const double each = (now - began_) / static_cast<double>(next - first_);
  std::fprintf(stderr, "\r\033[Krun %ld of %ld, %s left", next, runs_,
               DurationText(each * static_cast<double>(behind_ - next)).c_str());
}

std::string DurationText(double seconds) {
  constexpr double minute = 60;
  constexpr double hour = 3600;
  char text[32];
  if (seconds < 2 * minute) {
    std::snprintf(text, sizeof text, "%.0f s", seconds);
  } else if (seconds < 2 * hour) {
    std::snprintf(text, sizeof text, "%.0f min", seconds / minute);
  } else {
    std::snprintf(text, sizeof text, "%.1f h", seconds / hour);
  }
  return text;
}

}  // namespace halvorne::studies
