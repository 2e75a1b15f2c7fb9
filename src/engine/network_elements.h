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

/// Kinds of elements by their codes.
enum class ElementKind {
  kUnknown = 0,
  kSeriesR = 1,
  kShuntR = 2,
  kSeriesL = 3,
  kShuntL = 4,
  kSeriesC = 5,
  kShuntC = 6,
  kCoax = 7,
  kTransformer = 8,
  kNonIdeal = 9,
  kSeriesA = 10,
  kSeriesB = 11,
  kSeriesCircuitC = 12,
  kSeriesE = 13,
  kShuntB = 14,
  kShuntCircuitC = 15,
  kShuntD = 16,
  kLayers = 17
};

/// Kind of a code as it stands in a row. Kept: codes between 1 and 6 may be broken numbers, those
/// above a series element's own code are shunts.
ElementKind KindOf(double code);

/// Builds the section of network row `row` (1 to 20) by its code. An unknown code calls no routine,
/// so what stands in SecRe, SecIm repeats.
void ElementSection(int row);

}  // namespace halvorne
