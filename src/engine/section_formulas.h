#pragma once

#include <cmath>
#include <cstdint>

#include "engine/design_model.h"
#include "engine/two_port_formulas.h"
#include "platform/failure.h"
#include "platform/numbers.h"

// The formulas of the acoustic and piezoelectric sections, written once for a number type like
// those of the two-port toolkit.

namespace halvorne::formulas {

/// Cosine and sine of a line's phase, hyperbolic cosine and sine of its loss.
template <class Number>
struct LineTerms {
  Number c, s, ch, sh;
};

/// @param phase   radians
/// @param nepers  loss, Np
template <class Number>
LineTerms<Number> TermsOfLine(const Number& phase, const Number& nepers) {
  using std::cos;
  using std::exp;
  using std::sin;
  const Number e = Finite(exp(nepers));
  const Number inverse = FiniteQuotient(1.0, e);
  return {cos(phase), sin(phase), (inverse + e) * 0.5, (e - inverse) * 0.5};
}

/// Chain matrix of a lossy line of impedance z, entry by entry.
///
/// Kept: the dispersion factor stands in the C entry only, so the determinant is not 1 where it
/// differs from 1.
template <class Number>
void LineSection(const LineTerms<Number>& line, double z, const Number& dispersion,
                 MatrixOf<Number>& re, MatrixOf<Number>& im) {
  const auto& [c, s, ch, sh] = line;
  re(1, 1) = Finite(c * ch);
  im(1, 1) = Finite(sh * s);
  re(1, 2) = Finite(sh * z * c);
  im(1, 2) = Finite(ch * z * s);
  const Number dispersed = dispersion * z;
  re(2, 1) = FiniteQuotient(sh * c, dispersed);
  im(2, 1) = FiniteQuotient(s * ch, dispersed);
  re(2, 2) = re(1, 1);
  im(2, 2) = im(1, 1);
}

/// Section of an acoustic line at one frequency; arguments as those of Tline.
template <class Number>
void AcousticLine(const Number& freq, const Number& omega, const Number& dispersion, double z,
                  double delay, double loss, double lossFreq, float lossExp, MatrixOf<Number>& re,
                  MatrixOf<Number>& im) {
  using std::pow;
  const Number phase = FiniteQuotient(omega * delay, dispersion);
  const Number ratio = FiniteQuotient(freq, lossFreq);
  const Number nepers = Finite(Finite(pow(ratio, static_cast<double>(lossExp))) * loss);
  LineSection(TermsOfLine(phase, nepers), z, dispersion, re, im);
}

/// Electro-acoustic section of a piezoelectric layer at one frequency.
///
/// Krimholtz, Leedom, Matthaei, Electronics Letters 6 (1970) 398-399: lossy clamped capacitance
/// and motional reactance in series, then a transformer to the centre of the layer's line.
template <class Number>
void PiezoSection(std::int16_t layer, const Number& freq, const Number& omega, MatrixOf<Number>& re,
                  MatrixOf<Number>& im) {
  using std::sin;
  const PiezoMaterial& matl = design.PZMatl(layer);
  const double co = design.PZCo(layer);
  const double rp = design.PZRp(layer);

  const Number x = FiniteQuotient(design.PZFa(layer), freq);
  const Number halfPhase = FiniteQuotient(kPi, 2 * x);
  const Number fullPhase = FiniteQuotient(kPi, x);
  const Number m = Finite(x * design.PZM0(layer));
  const Number motional =
      Finite(m * m * (matl.Density * matl.Velocity * design.ElementArea) * sin(fullPhase));
  const Number phi = Finite(2 * m * sin(halfPhase));
  const Number n = FiniteQuotient(static_cast<double>(design.PZPolarity(layer)), phi);
  const double lossFigure = Finite(co * rp);
  const Number rs = FiniteQuotient(rp, (lossFigure * lossFigure + 1) * omega);

  im(1, 1) = im(1, 2) = im(2, 1) = im(2, 2) = Number(0.0);
  re(1, 1) = FiniteQuotient(1.0, n);
  re(1, 2) = Finite(n * rs);
  im(1, 2) = Finite(n * (motional - rs * rp * co));
  re(2, 1) = Number(0.0);
  re(2, 2) = n;
}

}  // namespace halvorne::formulas
