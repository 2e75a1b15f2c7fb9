#pragma once

#include <cstdint>

#include "platform/bounded.h"

// Complex 2 by 2 chain matrices as pairs of real ones: (1,1) A, (1,2) B, (2,1) C, (2,2) D of
// V1 = A V2 + B I2, I1 = C V2 + D I2, with I2 flowing out of port 2.

namespace halvorne {

using Matrix = Bounded2<double, 1, 2, 1, 2>;

/// A complex number as the quotient routines take it.
template <class Number>
struct ComplexOf {
  Number re = Number(0.0);
  Number im = Number(0.0);
};
using Complex = ComplexOf<double>;

/// The sweep's working point and working matrices.
struct Sweep {
  double Freq = 0;             ///< Hz
  double Omega = 0;            ///< rad/s
  std::int32_t FreqIndex = 0;  ///< point index
  Matrix MatRe, MatIm;         ///< running product
  Matrix SecRe, SecIm;         ///< current section
  Matrix OldRe, OldIm;         ///< AryMult's copy of the running product
  Matrix TermRe;               ///< AryMult's scratch for one real product
  Matrix ElecRe, ElecIm;       ///< electro-acoustic matrix of the piezoelectric stack
  Matrix ParmRe, ParmIm;       ///< second set of converted parameters in AcoustoElec
  double YRearRe = 0;          ///< admittance of the rear branch at the rear layer's centre
  double YRearIm = 0;
};

extern Sweep sweep;

/// Sets m to the unit matrix.
void AryIdent(Matrix& m);
/// Sets the four entries to 0.
void AryZero(Matrix& m);
/// Copies the four entries.
void AryCopy(const Matrix& from, Matrix& to);
/// out = a + k b, entry by entry; out may be a or b. Raises nothing: an entry that overflows is
/// reported as "ERROR in AryAdd of CALCS" and keeps its value, like those behind it.
void AryAdd(const Matrix& a, const Matrix& b, Matrix& out, double k);
/// out = a b; out must be neither a nor b.
void AryMpy(const Matrix& a, const Matrix& b, Matrix& out);
/// Folds the current section into the running product from the left: Mat := Sec x Mat.
void AryMult();

/// p = x conj(y), xx = |x|^2, yy = |y|^2, so that x/y is p/yy and y/x is conj(p)/xx; the caller
/// divides.
void CmplxUtil(const Complex& x, const Complex& y, Complex& p, double& xx, double& yy);
/// Determinant A D - B C of a complex matrix.
void ComplexDet(const Matrix& mRe, const Matrix& mIm, double& dRe, double& dIm);

/// Hybrid parameters of a chain matrix, H12 with its determinant. Pivot D.
void ABCDtoH(const Matrix& aRe, const Matrix& aIm, Matrix& hRe, Matrix& hIm);
/// Chain matrix of hybrid parameters. Pivot H21.
void HtoABCD(const Matrix& hRe, const Matrix& hIm, Matrix& aRe, Matrix& aIm);
/// Admittance parameters of a chain matrix. Pivot B.
/// Kept: a reciprocal section is assumed, Y12 is -1/B without a determinant, unlike ABCDtoH.
void ABCDtoY(const Matrix& aRe, const Matrix& aIm, Matrix& yRe, Matrix& yIm);
/// Chain matrix of admittance parameters. Pivot Y21.
void YtoABCD(const Matrix& yRe, const Matrix& yIm, Matrix& aRe, Matrix& aIm);

}  // namespace halvorne
