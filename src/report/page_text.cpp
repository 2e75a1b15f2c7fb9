#include "platform/characters.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "report/report_layout.h"

// Texts on the page, their widths and their line ends.

namespace halvorne {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// The largest number up to `all` that fits. What fits grows steadily smaller, so that halves find
/// it without trying each.
template <class Fits>
std::size_t MostThat(std::size_t all, const Fits& fits) {
  std::size_t most = 0;
  std::size_t tooMany = all + 1;
  while (most + 1 < tooMany) {
    const std::size_t middle = (most + tooMany) / 2;
    (fits(middle) ? most : tooMany) = middle;
  }
  return most;
}

/// The longest beginning of a text in UTF-8 whose width fits.
template <class Fits>
std::string LongestThat(const Surface& target, std::string_view text, const Fits& fits) {
  const auto fitting = [&](std::size_t characters) {
    return fits(target.TextWidth(FirstCharacters(text, characters)));
  };
  return std::string(FirstCharacters(text, MostThat(CharacterCount(text), fitting)));
}

/// A line cut at the right edge of the page when it starts at x.
std::string CutAtEdge(const Surface& target, std::string_view line, double x) {
  return LongestThat(target, line, [x](double width) { return width <= kPageRight - x; });
}

/// A name of which the middle is left out, `kept` characters of it remaining.
std::string WithoutMiddle(const std::string& name, std::size_t kept) {
  constexpr const char* gap = "\xE2\x80\xA6";
  if (kept >= CharacterCount(name)) {
    return name;
  }
  std::string text(FirstCharacters(name, kept / 2));
  return text.append(gap).append(LastCharacters(name, kept - kept / 2));
}

/// Where a line of `width` page units is parted: number of lines and characters of each.
struct Parting {
  std::int16_t lines;
  std::int16_t characters;
};

Parting PartingOf(const Surface& target, const std::string& text, double width) {
  const std::int16_t lines = ToInt16(Int(Quotient(target.TextWidth(text), width) + 1));
  const auto length = static_cast<double>(CharacterCount(text));
  return {lines, ToInt16(Quotient(length, lines))};
}

}  // namespace

void LoadTabs(std::initializer_list<float> stops) {
  int stop = 0;
  for (const float x : stops) {
    report.ReportTab(stop++) = x;
  }
}

void Put(Surface& target, const std::string& text) {
  target.Print(CutAtEdge(target, PrintableText(text), target.CurrentX()));
}

void PutLines(Surface& target, const std::string& text) {
  std::string printed;
  double x = target.CurrentX();
  std::size_t start = 0;
  for (std::size_t end = text.find(kLineEnd); end != std::string::npos;
       end = text.find(kLineEnd, start)) {
    printed += CutAtEdge(target, std::string_view(text).substr(start, end - start), x);
    printed += kLineEnd;
    start = end + kLineEnd.size();
    x = 0;
  }
  target.Print(printed + CutAtEdge(target, std::string_view(text).substr(start), x));
}

void PutFitted(Surface& target, const std::string& words, const std::string& text, double end) {
  constexpr double smallest = 5;
  constexpr double step = 0.5;
  const std::string whole = PrintableText(text);
  const auto fits = [&](const std::string& shown) {
    return target.CurrentX() + target.TextWidth(words + shown + " ") <= end;
  };
  const double usual = TableFontSize(target);
  for (double size = usual - step; size >= smallest && !fits(whole); size -= step) {
    target.SetFontSize(size);
  }
  const std::size_t all = CharacterCount(whole);
  const std::size_t kept = fits(whole) ? all : MostThat(all - 1, [&](std::size_t characters) {
    return fits(WithoutMiddle(whole, characters));
  });
  Put(target, words + WithoutMiddle(whole, kept));
  target.SetFontSize(usual);
}

void LimTextWidth(Surface& target, double width, const std::string& text, std::string& result) try {
  const std::string whole = PrintableText(text);
  result = LongestThat(target, whole, [width](double part) { return part < width; });
} catch (...) {
  ReportFailure("LimTextWidth", "PRINTIT");
}

void PrintTitle(Surface& target, const std::string& text) try {
  constexpr const char* words = "TITLE:  ";
  const std::string title = PrintableText(text);
  const double width = kPageRight - report.ReportTab(1);
  if (target.TextWidth(title) <= width) {
    PutLines(target, words + title + "\r\n");
    return;
  }
  const Parting parting = PartingOf(target, title, width);
  std::string_view rest = title;
  std::string line = words;
  for (std::int16_t i = 1; i <= parting.lines; ++i) {
    // Kept: what the rounding leaves over is not printed.
    const std::string_view part =
        FirstCharacters(rest, static_cast<std::size_t>(parting.characters));
    rest.remove_prefix(part.size());
    line.append(part).append(kLineEnd);
    At(target, target.CurrentX());
    PutLines(target, line);
    line.clear();
  }
} catch (...) {
  ReportFailure("PrintTitle", "PRINTIT");
}

}  // namespace halvorne
