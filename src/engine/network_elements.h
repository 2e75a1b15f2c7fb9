#pragma once

// The electrical element catalogue. Each routine fills SecRe, SecIm for sweep.Omega; values are SI.

namespace halvorne {

/// Resistor R, ohms: series for code 1, shunt else.
void Rnet(double code, double r);
/// Inductor L, H: series for code 3, shunt else.
void Lnet(double code, double l);
/// Capacitor C, F: series for code 5, shunt else.
void Cnet(double code, double c);
/// Coaxial cable of velocity 2.1e8 m/s: impedance in ohms, length in m, attenuation in dB/km at
/// lossFreq in MHz, growing in proportion to frequency.
void Coax(double z0, double length, double attenuation, double lossFreq);
/// Ideal transformer of primary to secondary turns.
void Xfmr(double primary, double secondary);
/// Transformer as a T: series Lse, shunt R || Lsh || C, series Lse. Folds the first two itself.
void NonIdeal(double lse, double r, double lsh, double c);

/// Equivalent circuits of an impedance analyser: series impedances, shunt admittances.
void SeriesA(double r, double l, double c);
void SeriesB(double r, double l, double c);
void SeriesC(double r, double l, double c);
void SeriesE(double r, double l, double ca, double cb);
void ShuntB(double r, double l, double c);
void ShuntC(double r, double l, double c);
void ShuntD(double r, double l, double c);

/// Builds the section of network row `row` (1 to 20) by its code. An unknown code calls no routine,
/// so what stands in SecRe, SecIm repeats.
void ElementSection(int row);

}  // namespace halvorne
