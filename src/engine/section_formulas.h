#pragma once

#include <cmath>

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
void LineSection(const LineTerms<Number>& line, const Constant<Number>& z, const Number& dispersion,
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

/// (f / lossFreq)^lossExp, by which a loss at lossFreq grows with frequency.
template <class Number>
Number LossPower(const Number& freq, const Constant<Number>& lossFreq, double lossExp) {
  using std::pow;
  const Number ratio = FiniteQuotient(freq, lossFreq);
  return Finite(pow(ratio, lossExp));
}

/// Terms of an acoustic line at one frequency; arguments as those of Tline. lossPower() yields the
/// LossPower, which lines of one law share.
template <class Number, class Power>
LineTerms<Number> AcousticTerms(const Number& omega, const Number& dispersion,
                                const Constant<Number>& delay, const Constant<Number>& loss,
                                Power lossPower) {
  const Number phase = FiniteQuotient(omega * delay, dispersion);
  const Number nepers = Finite(lossPower() * loss);
  return TermsOfLine(phase, nepers);
}

/// What the electro-acoustic section of a layer takes from the design.
template <class Number>
struct LayerConstants {
  Number fa, co, rp, m0;  ///< those of PiezoConstants
  Number z;               ///< characteristic impedance with the area, Rayl m^2
  Number polarity;
};

/// Electro-acoustic section of a piezoelectric layer at one frequency.
///
/// Krimholtz, Leedom, Matthaei, Electronics Letters 6 (1970) 398-399: lossy clamped capacitance
/// and motional reactance in series, then a transformer to the centre of the layer's line.
template <class Number>
void PiezoSection(const LayerConstants<Number>& layer, const Number& freq, const Number& omega,
                  MatrixOf<Number>& re, MatrixOf<Number>& im) {
  using std::sin;
  const auto& [fa, co, rp, m0, z, polarity] = layer;

  const Number x = FiniteQuotient(fa, freq);
  const Number halfPhase = FiniteQuotient(kPi, 2.0 * x);
  const Number fullPhase = FiniteQuotient(kPi, x);
  const Number m = Finite(x * m0);
  const Number motional = Finite(m * m * z * sin(fullPhase));
  const Number phi = Finite(2.0 * m * sin(halfPhase));
  const Number n = FiniteQuotient(polarity, phi);
  const Number lossFigure = Finite(co * rp);
  const Number rs = FiniteQuotient(rp, (lossFigure * lossFigure + 1.0) * omega);

  im(1, 1) = im(1, 2) = im(2, 1) = im(2, 2) = Number(0.0);
  re(1, 1) = FiniteQuotient(1.0, n);
  re(1, 2) = Finite(n * rs);
  im(1, 2) = Finite(n * (motional - rs * rp * co));
  re(2, 1) = Number(0.0);
  re(2, 2) = n;
}

}  // namespace halvorne::formulas
