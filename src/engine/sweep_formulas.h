#pragma once

#include "engine/two_port_formulas.h"

// The formulas by which the sweep reads its curves off the whole chain matrix, written once for a
// number type like those of the two-port toolkit.

namespace halvorne::formulas {

/// Looks into the first port of a chain matrix whose second one ends in z: n = A z + B, d = C z +
/// D.
template <class Number>
void TerminateSecondPort(const MatrixOf<Number>& re, const MatrixOf<Number>& im, const Number& zRe,
                         const Number& zIm, ComplexOf<Number>& n, ComplexOf<Number>& d) {
  n.re = Finite(re(1, 1) * zRe - im(1, 1) * zIm + re(1, 2));
  n.im = Finite(re(1, 1) * zIm + im(1, 1) * zRe + im(1, 2));
  d.re = Finite(re(2, 1) * zRe - im(2, 1) * zIm + re(2, 2));
  d.im = Finite(re(2, 1) * zIm + im(2, 1) * zRe + im(2, 2));
}

/// Looks into the second port of a chain matrix whose first one ends in the real r: n = D r + B,
/// d = C r + A.
template <class Number>
void TerminateFirstPort(const MatrixOf<Number>& re, const MatrixOf<Number>& im,
                        const Constant<Number>& r, ComplexOf<Number>& n, ComplexOf<Number>& d) {
  n.re = Finite(re(2, 2) * r + re(1, 2));
  n.im = Finite(im(2, 2) * r + im(1, 2));
  d.re = Finite(re(2, 1) * r + re(1, 1));
  d.im = Finite(im(2, 1) * r + im(1, 1));
}

/// a / b, and 0 where no power enters at all, b = 0.
inline double Efficiency(double a, double b) {
  return b == 0 ? 0 : FiniteQuotient(a, b);
}

/// What a terminated product yields: x/y is p/yy.
template <class Number>
struct Terminated {
  ComplexOf<Number> p, n, d;
  Number nn = Number(0.0);
  Number dd = Number(0.0);
};

/// What the curves take from the design.
template <class Number>
struct Terminations {
  Number termTx, termRx;  ///< ohms
  Number area;            ///< FrontLoadArea, m^2
};

/// The values of the curves at a point; Value is a number, or a reference to where it is kept.
template <class Value>
struct CurveValues {
  Value ZinElecRe, ZinElecIm, ZinAcRe, ZinAcIm, TxEff, RxEff;
  Value TxTFRe, TxTFIm, RxTFRe, RxTFIm, TwoWayTFRe, TwoWayTFIm;
};

/// Transfer functions from the product's n and d at the electrical port; the load is that without
/// the area, so the transmit curve is pressure per volt.
template <class Number, class Values>
void TransferFunctions(const Terminations<Number>& ends, const Number& loadRe, const Number& loadIm,
                       const Terminated<Number>& port, Values& at) {
  const ComplexOf<Number> x{Finite(port.n.re + ends.termTx * port.d.re),
                            Finite(port.n.im + ends.termTx * port.d.im)};
  const Number s = FiniteQuotient(1.0, x.im * x.im + x.re * x.re);
  at.TxTFRe = Finite((x.im * loadIm + x.re * loadRe) * s);
  at.TxTFIm = Finite((x.re * loadIm - x.im * loadRe) * s);

  const Number received = Finite(ends.termRx * ends.area);
  const ComplexOf<Number> y{Finite(port.n.re + ends.termRx * port.d.re),
                            Finite(port.n.im + ends.termRx * port.d.im)};
  at.RxTFRe = FiniteQuotient(received * y.re, y.im * y.im + y.re * y.re);
  at.RxTFIm = FiniteQuotient(-at.RxTFRe * y.im, y.re);

  const ComplexOf<Number> w{Finite(y.re * x.re - y.im * x.im), Finite(y.im * x.re + y.re * x.im)};
  const Number g = FiniteQuotient(received, w.im * w.im + w.re * w.re);
  at.TwoWayTFRe = Finite((w.re * loadRe + w.im * loadIm) * g);
  at.TwoWayTFIm = Finite((w.re * loadIm - w.im * loadRe) * g);
}

/// The curves seen from the electrical port, and the transfer functions.
template <class Number, class Values>
void ElectricalCurves(const Terminations<Number>& ends, const Number& loadRe, const Number& loadIm,
                      const Terminated<Number>& port, Values& at) {
  at.ZinElecRe = FiniteQuotient(port.p.re, port.dd);
  at.ZinElecIm = FiniteQuotient(port.p.im, port.dd);
  at.TxEff = Efficiency(ends.area * loadRe, port.p.re);
  TransferFunctions(ends, loadRe, loadIm, port, at);
}

/// The curves seen from the acoustic port, and the receive curve's unit.
template <class Number, class Values>
void AcousticCurves(const Terminations<Number>& ends, const Terminated<Number>& port, Values& at) {
  at.ZinAcRe = FiniteQuotient(port.p.re, ends.area * port.dd);
  at.ZinAcIm = FiniteQuotient(port.p.im, ends.area * port.dd);
  at.RxEff = Efficiency(ends.termRx, port.p.re);

  constexpr double kMicrovolts = 1e6;  // Kept: the two-way curve isn't scaled.
  at.RxTFRe = Finite(at.RxTFRe * kMicrovolts);
  at.RxTFIm = Finite(at.RxTFIm * kMicrovolts);
}

}  // namespace halvorne::formulas
