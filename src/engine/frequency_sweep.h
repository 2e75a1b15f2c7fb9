#pragma once

#include "engine/two_port.h"

namespace halvorne {

/// Fills the chain arrays (loss, delay, impedance) from the materials.
void PrelimCalc();

/// Runs the sweep: the six result curves at points 0 to NoFreqPts.
///
/// A failure in a called routine is reported in its name and the sweep goes on with what stands in
/// the matrices; a failure of its own ends it at that point, with "ERROR in MainCalc of CALCS".
void MainCalc();

/// Terminates the running product at its second port with z and looks in from the first:
/// n = A z + B, d = C z + D, p = n conj(d), nn = |n|^2, dd = |d|^2.
void ZinElec(double zRe, double zIm, Complex& p, double& nn, double& dd, Complex& n, Complex& d);

/// Terminates the running product at its first port with the real r and looks in from the second:
/// n = D r + B, d = C r + A, p = n conj(d), nn = |n|^2, dd = |d|^2.
void ZinAcoust(double r, Complex& p, double& nn, double& dd);

}  // namespace halvorne
