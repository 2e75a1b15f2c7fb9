#include "persistence/touchstone_file.h"

#include <algorithm>
#include <cmath>
#include <complex>

#include "engine/design_model.h"
#include "persistence/file_names.h"
#include "platform/failure.h"
#include "platform/shortest_number.h"

namespace halvorne {
namespace {

/// A comment: such a file holds characters of seven bits only.
std::string Comment(std::string words) {
  std::ranges::replace_if(
      words, [](char c) { return c < ' ' || c > '~'; }, '?');
  return "! " + words + "\n";
}

void AppendPoint(std::string& text, std::int32_t point, double reference) {
  const double span = design.FreqStop - design.FreqStart;
  const std::complex<double> z(curves.ZinElecRe(point), curves.ZinElecIm(point));
  if (z + reference == 0.0) {
    RaiseDivisionByZero();
  }
  const std::complex<double> s11 = (z - reference) / (z + reference);
  AppendShortest(text, point * Quotient(span, design.NoFreqPts) + design.FreqStart);
  text += ' ';
  AppendShortest(text, Finite(s11.real()));
  text += ' ';
  AppendShortest(text, Finite(s11.imag()));
  text += '\n';
}

}  // namespace

std::string TouchstoneText(double reference) {
  if (!(reference > 0) || !std::isfinite(reference)) {
    throw Failure(failure_number::kInvalidCall, "The reference must be above 0 Ohms");
  }
  std::string file;
  ExtractFileName(design.DataFileName, file);
  std::string text = Comment("Halvorne, electrical input impedance as S11");
  text += Comment("Title: " + design.DesignTitle);
  text += Comment("Design: " + file);
  text += Comment("Calculated: " + design.CalcDateTime);
  text += "# HZ S RI R ";
  AppendShortest(text, reference);
  text += '\n';
  for (std::int32_t point = 0; point <= design.NoFreqPts; ++point) {
    AppendPoint(text, point, reference);
  }
  return text;
}

}  // namespace halvorne
