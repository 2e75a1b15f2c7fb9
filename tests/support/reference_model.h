#pragma once

#include <complex>
#include <cstdint>

namespace halvorne::testing {

/// The six curves of one frequency point, worked out another way.
struct ReferencePoint {
  std::complex<double> ZinElec;   ///< ohms
  std::complex<double> ZinAc;     ///< Rayl
  std::complex<double> TxTF;      ///< Pa/V
  std::complex<double> RxTF;      ///< uV/Pa
  std::complex<double> TwoWayTF;  ///< V/V
  double TxEff = 0;
  double RxEff = 0;
};

/// The curves of `design` at a frequency point, from its inputs alone (materials, thicknesses,
/// nominal loads, network), without the engine: complex numbers in extended precision, circuits
/// from impedances and admittances, two layers joined by solving their mesh and node equations.
ReferencePoint ReferenceAt(std::int32_t point);

}  // namespace halvorne::testing
