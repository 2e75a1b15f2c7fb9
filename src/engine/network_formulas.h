#pragma once

#include <cmath>

#include "engine/section_formulas.h"
#include "engine/two_port_formulas.h"
#include "platform/failure.h"

// The formulas of the electrical element catalogue, written once for a number type like those of
// the two-port toolkit. The sections start as the unit matrix; only the entries named are written.

namespace halvorne::formulas {

/// A complex quotient x/y, before its division.
template <class Number>
struct Ratio {
  Number xRe, xIm, yRe, yIm;
};

template <class Number>
Number Squared(const Number& value) {
  using std::pow;
  return Finite(pow(value, 2.0));
}

/// Reactance of an inductor and its susceptance; of a capacitor the other way round.
template <class Number>
Number InductorReactance(const Number& omega, const Constant<Number>& l) {
  return Finite(omega * l);
}
template <class Number>
Number InductorSusceptance(const Number& omega, const Constant<Number>& l) {
  return FiniteQuotient(-1.0, omega * l);
}
template <class Number>
Number CapacitorReactance(const Number& omega, const Constant<Number>& c) {
  return FiniteQuotient(-1.0, omega * c);
}
template <class Number>
Number CapacitorSusceptance(const Number& omega, const Constant<Number>& c) {
  return Finite(omega * c);
}

/// Susceptance of a capacitor and an inductor in parallel.
template <class Number>
Number TankSusceptance(const Number& omega, const Constant<Number>& l, const Constant<Number>& c) {
  return Finite(omega * c - FiniteQuotient(1.0, omega * l));
}

/// Section of a coaxial cable; arguments as those of Coax.
template <class Number>
void CoaxSection(const Number& omega, const Constant<Number>& z0, const Constant<Number>& length,
                 const Constant<Number>& attenuation, const Constant<Number>& lossFreq,
                 MatrixOf<Number>& re, MatrixOf<Number>& im) {
  constexpr double kCableVelocity = 2.1e8;       // m/s
  constexpr double kNepersPerRadian = 0.003848;  // per dB/km and MHz, at that velocity
  const Number phase = Finite(omega * length / kCableVelocity);
  const Number nepers = FiniteQuotient(phase * attenuation * kNepersPerRadian, lossFreq);
  LineSection(TermsOfLine(phase, nepers), z0, Number(1.0), re, im);
}

/// Series impedance of circuit A: R, L and C in parallel.
template <class Number>
Ratio<Number> SeriesARatio(const Number& omega, const Constant<Number>& r,
                           const Constant<Number>& l, const Constant<Number>& c) {
  return {Number(0.0), FiniteQuotient(omega, c),
          Finite(FiniteQuotient(1.0, l * c) - Squared(omega)), FiniteQuotient(omega, r * c)};
}

/// Series impedance of circuit B: R and L in series, C across them.
template <class Number>
Ratio<Number> SeriesBRatio(const Number& omega, const Constant<Number>& r,
                           const Constant<Number>& l, const Constant<Number>& c) {
  return {FiniteQuotient(r, l * c), FiniteQuotient(omega, c),
          Finite(FiniteQuotient(1.0, l * c) - Squared(omega)), FiniteQuotient(omega * r, l)};
}

/// Series impedance of circuit C: L in series with R and C in parallel.
template <class Number>
Ratio<Number> SeriesCRatio(const Number& omega, const Constant<Number>& r,
                           const Constant<Number>& l, const Constant<Number>& c) {
  return {Finite(FiniteQuotient(1.0, l * c) - Squared(omega)), FiniteQuotient(omega, r * c),
          FiniteQuotient(1.0, r * l * c), FiniteQuotient(omega, l)};
}

/// Series impedance of circuit E: R, L and Ca in series, Cb across them.
template <class Number>
Ratio<Number> SeriesERatio(const Number& omega, const Constant<Number>& r,
                           const Constant<Number>& l, const Constant<Number>& ca,
                           const Constant<Number>& cb) {
  const Number w2 = Squared(omega);
  return {Finite(FiniteQuotient(1.0, l * ca) - w2), FiniteQuotient(omega * r, l),
          FiniteQuotient(-w2 * r * cb, l),
          Finite((FiniteQuotient(FiniteQuotient(1.0, ca) + FiniteQuotient(1.0, cb), l) - w2) *
                 (omega * cb))};
}

/// Shunt admittance of circuit B: R and L in series, C across them.
template <class Number>
Ratio<Number> ShuntBRatio(const Number& omega, const Constant<Number>& r, const Constant<Number>& l,
                          const Constant<Number>& c) {
  return {Finite((FiniteQuotient(1.0, l * c) - Squared(omega)) * c),
          FiniteQuotient(omega * r * c, l), FiniteQuotient(r, l), omega};
}

/// Shunt admittance of circuit C: L in series with R and C in parallel.
template <class Number>
Ratio<Number> ShuntCRatio(const Number& omega, const Constant<Number>& r, const Constant<Number>& l,
                          const Constant<Number>& c) {
  return {FiniteQuotient(1.0, r * l * c), FiniteQuotient(omega, l),
          Finite(FiniteQuotient(1.0, l * c) - Squared(omega)), FiniteQuotient(omega, r * c)};
}

/// Shunt admittance of circuit D: R, L and C in series.
template <class Number>
Ratio<Number> ShuntDRatio(const Number& omega, const Constant<Number>& r, const Constant<Number>& l,
                          const Constant<Number>& c) {
  return {Number(0.0), FiniteQuotient(omega, l),
          Finite(FiniteQuotient(1.0, l * c) - Squared(omega)), FiniteQuotient(omega * r, l)};
}

}  // namespace halvorne::formulas
