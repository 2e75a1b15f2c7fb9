#include "report/element_text.h"

#include <array>

#include "platform/failure.h"
#include "platform/number_text.h"

namespace halvorne {
namespace {

constexpr int kFirstCircuit = 10;
constexpr int kLastCircuit = 16;
constexpr int kSeriesE = 13;
constexpr int kLastCode = 17;

std::string Ohms(double r) {
  return NumberText(r) + " Ohms";
}
std::string Microhenry(double l) {
  return NumberText(l * 1e6) + " uH";
}
std::string Picofarad(double c) {
  return NumberText(c * 1e12) + " pF";
}

std::string CircuitText(int code, const Bounded<double, 1, kNetworkColumns>& value) {
  constexpr std::array kNames = {"Series A ", "Series B ", "Series C ", "Series E ",
                                 "Shunt B ",  "Shunt C ",  "Shunt D "};
  std::string text = kNames.at(static_cast<std::size_t>(code - kFirstCircuit));
  text += "R " + Ohms(value(2)) + " L " + Microhenry(value(3)) + " Ca " + Picofarad(value(4));
  return code == kSeriesE ? text + " Cb " + Picofarad(value(5)) : text;
}

std::string ElementText(int code, const Bounded<double, 1, kNetworkColumns>& value) {
  switch (code) {
    case 1:
      return "Series R " + Ohms(value(2));
    case 2:
      return "Shunt R " + Ohms(value(2));
    case 3:
      return "Series L " + Microhenry(value(2));
    case 4:
      return "Shunt L " + Microhenry(value(2));
    case 5:
      return "Series C " + Picofarad(value(2));
    case 6:
      return "Shunt C " + Picofarad(value(2));
    case 7:
      return "Coaxial cable " + Ohms(value(2)) + " " + NumberText(value(3)) + " m " +
             Format(value(4), "##0.##") + " dB/km at " + NumberText(value(5)) + " MHz";
    case 8:
      return "Xfmr " + NumberText(value(2)) + ":" + NumberText(value(3)) + " turns";
    case 9:
      return "Xfmr Lse " + Microhenry(value(2)) + " R " + Ohms(value(3)) + " Lsh " +
             Microhenry(value(4)) + " C " + Picofarad(value(5));
    case 17:
      return "Piezo " + NumberText(value(3)) + " layers";
    default:
      return code >= kFirstCircuit && code <= kLastCircuit ? CircuitText(code, value) : "";
  }
}

}  // namespace

std::string GetElNetString(const NetworkRows& network, int row) try {
  const Bounded<double, 1, kNetworkColumns>& value = network.rows(row);
  for (int code = 1; code <= kLastCode; ++code) {
    if (value(1) == code) {
      return std::to_string(row) + ". " + ElementText(code, value);
    }
  }
  return std::to_string(row) + ". ";
} catch (...) {
  ReportFailure("GetElNetString", "PRINTIT");
  return {};
}

}  // namespace halvorne
