#pragma once

#include "engine/design_model.h"

namespace halvorne::tools {

/// Velocity of a lossy material at `freq`, relative to its velocity at the frequency of its loss.
///
/// The nearly local form of the Kramers-Kronig relation, d(1/c)/d(omega) = -(2/pi) alpha/omega^2,
/// integrated over the material's loss law. O'Donnell, Jaynes, Miller, J. Acoust. Soc. Am. 69
/// (1981) 696-701.
/// @param freq  Hz, above 0
double VelocityFactor(const AcousticMaterial& material, double freq);

/// Radiation impedance of a circular piston in a rigid baffle, relative to that of a plane wave,
/// whose real part is 1 - J1(x)/(x/2), imaginary part H1(x)/(x/2) with x = 2 k a. Kinsler, Frey,
/// Coppens, Sanders: Fundamentals of Acoustics.
/// @param radius    m
/// @param velocity  of the medium, m/s
/// @param freq      Hz, above 0
struct PistonImpedance {
  double re;
  double im;
};
PistonImpedance PistonRadiation(double radius, double velocity, double freq);

}  // namespace halvorne::tools
