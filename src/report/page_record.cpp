#include "report/page_record.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "platform/characters.h"
#include "platform/main_window.h"
#include "plot/plot_state.h"
#include "report/report_layout.h"

namespace halvorne {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr double kPageSize = 10;

/// A number to a millionth of a page unit, which is far below what a printer resolves.
std::string NumberOf(double value) {
  constexpr double perUnit = 1e6;
  const double rounded = std::round(value * perUnit) / perUnit;
  std::array<char, 32> digits{};
  const auto written = std::to_chars(digits.begin(), digits.end(), rounded == 0 ? 0 : rounded);
  return {digits.data(), written.ptr};
}

std::string HexOf(unsigned value, int digits) {
  std::string text;
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    text += "0123456789abcdef"[value >> static_cast<unsigned>(shift) & 0xFU];
  }
  return text;
}

std::string TextOf(std::string_view bytes) {
  std::string quoted = "\"";
  for (const char byte : Utf8Of(bytes)) {
    if (byte == '"' || byte == '\\') {
      quoted += '\\';
      quoted += byte;
    } else if (static_cast<std::uint8_t>(byte) < 0x20) {
      quoted += "\\u" + HexOf(static_cast<std::uint8_t>(byte), 4);
    } else {
      quoted += byte;
    }
  }
  return quoted + '"';
}

std::string ColourOf(Colour colour) {
  return "\"#" + HexOf(colour.red, 2) + HexOf(colour.green, 2) + HexOf(colour.blue, 2) + '"';
}

std::string Truth(bool value) {
  return value ? "true" : "false";
}

/// One object of the record, built field by field.
class Object {
 public:
  explicit Object(const char* operation) : text_(R"({"op":")" + std::string(operation) + '"') {}

  Object& Add(const char* name, const std::string& value) {
    text_ += ",\"" + std::string(name) + "\":" + value;
    return *this;
  }
  Object& Add(const char* name, double value) { return Add(name, NumberOf(value)); }
  Object& Add(const char* name, int value) { return Add(name, std::to_string(value)); }
  Object& AddLook(Colour colour, int drawStyle) {
    return Add("color", ColourOf(colour))
        .Add("style", TextOf(drawStyle == kDots ? "dots" : "solid"));
  }
  std::string Line() const { return text_ + "}\n"; }

 private:
  std::string text_;
};

}  // namespace

std::string PageRecord::Text(const std::string& font, double width, double height) const {
  return Object("report")
             .Add("pages", page_)
             .Add("plot", int{view.CurrentPlot})
             .Add("form", mainWindow().PlotTypeIndex())
             .Add("detail", int{setup.ReportDetails})
             .Add("line_height", report.ReportLineHeight)
             .Add("font", TextOf(font))
             .Add("width_pt", width)
             .Add("height_pt", height)
             .Line() +
         lines_;
}

double PageRecord::PageX(double x) const {
  return (x - corner1_.x) / (corner2_.x - corner1_.x) * kPageSize;
}

double PageRecord::PageY(double y) const {
  return kPageSize - (y - corner1_.y) / (corner2_.y - corner1_.y) * kPageSize;
}

void PageRecord::Scale(double x1, double y1, double x2, double y2) {
  drawn_.Scale(x1, y1, x2, y2);
  corner1_ = {x1, y1};
  corner2_ = {x2, y2};
}

void PageRecord::Line(double x1, double y1, double x2, double y2) {
  Line(x1, y1, x2, y2, foreColour_);
}

void PageRecord::Line(double x1, double y1, double x2, double y2, Colour colour) {
  drawn_.Line(x1, y1, x2, y2, colour);
  lines_ += Object("line")
                .Add("page", page_)
                .Add("x1", PageX(x1))
                .Add("y1", PageY(y1))
                .Add("x2", PageX(x2))
                .Add("y2", PageY(y2))
                .AddLook(colour, drawStyle_)
                .Line();
}

void PageRecord::Box(double x1, double y1, double x2, double y2) {
  drawn_.Box(x1, y1, x2, y2);
  lines_ += Object("box")
                .Add("page", page_)
                .Add("x1", PageX(x1))
                .Add("y1", PageY(y1))
                .Add("x2", PageX(x2))
                .Add("y2", PageY(y2))
                .Line();
}

void PageRecord::FillBox(double x1, double y1, double x2, double y2, Colour colour) {
  drawn_.FillBox(x1, y1, x2, y2, colour);
  lines_ += Object("fill")
                .Add("page", page_)
                .Add("x1", PageX(x1))
                .Add("y1", PageY(y1))
                .Add("x2", PageX(x2))
                .Add("y2", PageY(y2))
                .Add("color", ColourOf(colour))
                .Line();
}

void PageRecord::Polyline(std::span<const Point> trace) {
  drawn_.Polyline(trace);
  if (trace.size() < 2) {
    return;
  }
  std::string list;
  for (const Point& point : trace) {
    list += (list.empty() ? "[[" : ",[") + NumberOf(PageX(point.x)) + ',' +
            NumberOf(PageY(point.y)) + ']';
  }
  lines_ += Object("polyline")
                .Add("page", page_)
                .Add("points", list + ']')
                .AddLook(foreColour_, drawStyle_)
                .Line();
}

void PageRecord::Print(std::string_view text) {
  for (std::size_t end = text.find(kLineEnd); end != std::string_view::npos;
       end = text.find(kLineEnd)) {
    PrintPart(text.substr(0, end));
    PrintLineEnd();
    text.remove_prefix(end + kLineEnd.size());
  }
  PrintPart(text);
}

void PageRecord::PrintPart(std::string_view line) {
  if (line.empty()) {
    return;
  }
  const double perX = kPageSize / (corner2_.x - corner1_.x);
  const double perY = -kPageSize / (corner2_.y - corner1_.y);
  lines_ += Object("text")
                .Add("page", page_)
                .Add("x", PageX(CurrentX()))
                .Add("y", PageY(CurrentY()))
                .Add("text", TextOf(line))
                .Add("size", fontSize_)
                .Add("bold", Truth(false))
                .Add("italic", Truth(false))
                .Add("underline", Truth(underline_))
                .Add("w", TextWidth(line) * perX)
                .Add("h", TextHeight(line) * perY)
                .Line();
  drawn_.Print(line);
}

void PageRecord::SetFontSize(double size) {
  drawn_.SetFontSize(size);
  fontSize_ = size;
}

void PageRecord::SetFontUnderline(bool on) {
  drawn_.SetFontUnderline(on);
  underline_ = on;
}

void PageRecord::SetForeColor(Colour colour) {
  drawn_.SetForeColor(colour);
  foreColour_ = colour;
}

void PageRecord::SetDrawStyle(int style) {
  drawn_.SetDrawStyle(style);
  drawStyle_ = style;
}

void PageRecord::NewPage() {
  drawn_.NewPage();
  ++page_;
}

}  // namespace halvorne
