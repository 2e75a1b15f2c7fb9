#include "support/reference_model.h"

#include <cmath>

#include "engine/design_model.h"

namespace halvorne::testing {

namespace {

using Real = long double;
using Value = std::complex<Real>;

constexpr Real kTwoPiExact = 6.283185307179586476925286766559L;
constexpr Value kJ{0, 1};

/// Chain matrix: V1 = a V2 + b I2, I1 = c V2 + d I2.
struct TwoPort {
  Value a{1}, b{0}, c{0}, d{1};
};

TwoPort operator*(const TwoPort& l, const TwoPort& r) {
  return {l.a * r.a + l.b * r.c, l.a * r.b + l.b * r.d, l.c * r.a + l.d * r.c,
          l.c * r.b + l.d * r.d};
}

TwoPort Series(Value impedance) {
  return {1, impedance, 0, 1};
}
TwoPort Shunt(Value admittance) {
  return {1, 0, admittance, 1};
}
TwoPort Transformer(Real ratio) {
  return {ratio, 0, 0, 1 / ratio};
}

/// Line of propagation g; the impedance of the forward entry may differ from that of the other.
TwoPort Line(Value g, Real zForward, Real zBackward) {
  return {std::cosh(g), zForward * std::sinh(g), std::sinh(g) / zBackward, std::cosh(g)};
}

Value Parallel(Value z1, Value z2) {
  return z1 * z2 / (z1 + z2);
}

struct Frequency {
  std::int32_t point;
  Real f;
  Real w;
};

TwoPort AcousticLayer(const Frequency& at, int slot, Real thick, Real v, Real density, Real area,
                      Real nepers) {
  const Real dispersion = design.VelDisp(slot, at.point);
  const Real z = density * v * area;
  return Line(nepers + kJ * (at.w * thick / v / dispersion), z, z * dispersion);
}

TwoPort Plate(const Frequency& at, int slot, const AcousticMaterial& plate, Real thick,
              Real relativeArea) {
  const Real ratio = at.f / (Real{plate.LossFreq} * 1e6L);
  const Real decibels = Real{plate.Loss} * (thick * 100) * std::pow(ratio, Real{plate.LossExp});
  const Real nepers = decibels * 0.1151293L;
  return AcousticLayer(at, slot, thick, plate.Velocity, plate.Density,
                       design.ElementArea * relativeArea, nepers);
}

/// Half of a piezoelectric layer as a line: alpha = w tan dm / (2 v).
TwoPort HalfLayer(const Frequency& at, int slot, int layer) {
  const PiezoMaterial& matl = design.PZMatl(layer);
  const Real thick = Real{design.PZThick(layer)} / 2;
  const Real nepers = at.w * matl.TanDm / (2 * Real{matl.Velocity}) * thick;
  return AcousticLayer(at, slot, thick, matl.Velocity, matl.Density, design.ElementArea, nepers);
}

/// Electrical port to the acoustic centre of a layer.
TwoPort Piezo(const Frequency& at, int layer) {
  const PiezoMaterial& matl = design.PZMatl(layer);
  const Real thick = design.PZThick(layer);
  const Real permittivity = Real{matl.Ks} * Real{8.85e-12};
  const Real z0 = Real{matl.Density} * matl.Velocity * design.ElementArea;
  const Real h = matl.Kt * matl.Velocity * std::sqrt(matl.Density / permittivity);
  const Real c0 = permittivity * design.ElementArea / thick;
  const Real phase = at.w * thick / matl.Velocity;

  const Real leak = at.w * c0 * matl.TanDe / (1 - Real{matl.Kt} * matl.Kt);
  const Value dielectric = Real{1} / (leak + kJ * at.w * c0);
  const Value motional = kJ * (h * h / (at.w * at.w * z0) * std::sin(phase));
  const Real phi = 2 * h / (at.w * z0) * std::sin(phase / 2);
  return Series(dielectric + motional) * Transformer(phi / design.PZPolarity(layer));
}

/// Two paths with common acoustic ports, electrical ports in series: one current, the voltages
/// add.
TwoPort JoinSeries(const TwoPort& x, const TwoPort& y) {
  const Value perCurrent = Real{1} / x.d + Real{1} / y.d;
  const Value c = (x.c / x.d + y.c / y.d) / perCurrent;
  const Value d = Real{1} / perCurrent;
  const Value impedance = x.b / x.d + y.b / y.d;
  const Value open = (x.a - x.b * x.c / x.d) + (y.a - y.b * y.c / y.d);
  return {open + impedance * c, impedance * d, c, d};
}

/// The same with electrical ports in parallel: one voltage, the currents add. Both paths are taken
/// as reciprocal whatever their determinants.
TwoPort JoinParallel(const TwoPort& x, const TwoPort& y) {
  const Value perVoltage = Real{1} / x.b + Real{1} / y.b;
  const Value a = (x.a / x.b + y.a / y.b) / perVoltage;
  const Value b = Real{1} / perVoltage;
  const Value admittance = x.d / x.b + y.d / y.b;
  return {a, b, admittance * a - perVoltage, admittance * b};
}

TwoPort Stack(const Frequency& at, Value rearAdmittance) {
  const TwoPort rear = Piezo(at, 1) * Shunt(rearAdmittance);
  if (design.NoPiezo == 1) {
    return rear;
  }
  const TwoPort path = rear * HalfLayer(at, kBackSlot, 1) * HalfLayer(at, 0, 2);
  return design.PZConnect == 1 ? JoinSeries(path, Piezo(at, 2)) : JoinParallel(path, Piezo(at, 2));
}

TwoPort Cable(const Frequency& at, Real z0, Real length, Real attenuation, Real lossFreq) {
  const Real phase = at.w * length / 2.1e8L;
  return Line(phase * attenuation * 0.003848L / lossFreq + kJ * phase, z0, z0);
}

/// Section of a network row. `standing` is what an unknown code repeats.
TwoPort Element(const Frequency& at, int row, TwoPort& standing) {
  const Real c2 = design.ElNet(row, 2);
  const Real c3 = design.ElNet(row, 3);
  const Real c4 = design.ElNet(row, 4);
  const Real c5 = design.ElNet(row, 5);
  const auto inductor = [&](Real l) { return kJ * (at.w * l); };
  const auto capacitor = [&](Real c) { return Real{1} / (kJ * (at.w * c)); };
  const Value tank = c2 + inductor(c3);  // R and L in series
  const Value ladder = inductor(c3) + Parallel(c2, capacitor(c4));
  TwoPort section = standing;
  switch (static_cast<int>(design.ElNet(row, 1))) {
    case 1:
      section = Series(c2);
      break;
    case 2:
      section = Shunt(1 / c2);
      break;
    case 3:
      section = Series(inductor(c2));
      break;
    case 4:
      section = Shunt(Real{1} / inductor(c2));
      break;
    case 5:
      section = Series(capacitor(c2));
      break;
    case 6:
      section = Shunt(Real{1} / capacitor(c2));
      break;
    case 7:
      section = Cable(at, c2, c3, c4, c5);
      break;
    case 8:
    case 17:
      section = Transformer(c2 / c3);
      break;
    case 9: {
      const Value shunt = 1 / c3 + Real{1} / inductor(c4) + Real{1} / capacitor(c5);
      standing = Series(inductor(c2));
      return standing * Shunt(shunt) * standing;
    }
    case 10:
      section = Series(Parallel(Parallel(c2, inductor(c3)), capacitor(c4)));
      break;
    case 11:
      section = Series(Parallel(tank, capacitor(c4)));
      break;
    case 12:
      section = Series(ladder);
      break;
    case 13:
      section = Series(Parallel(tank + capacitor(c4), capacitor(c5)));
      break;
    case 14:
      section = Shunt(Real{1} / Parallel(tank, capacitor(c4)));
      break;
    case 15:
      section = Shunt(Real{1} / ladder);
      break;
    case 16:
      section = Shunt(Real{1} / (tank + capacitor(c4)));
      break;
    default:
      break;
  }
  standing = section;
  return section;
}

Value Load(double nominal, bool complex, double re, double im) {
  const Value relative = complex ? Value{re, im} : Value{1};
  return Real{nominal} * relative;
}

std::complex<double> Narrow(Value value) {
  return {static_cast<double>(value.real()), static_cast<double>(value.imag())};
}

Value RearAdmittance(const Frequency& at) {
  TwoPort rear = HalfLayer(at, kBackSlot, 1);
  Real area = design.ElementArea;
  for (int k = 1; k <= design.NoBack; ++k) {
    rear = rear *
           Plate(at, kBackSlot + k, design.BackMatl(k), design.BackThick(k), design.BackArea(k));
    area = Real{design.ElementArea} * design.BackArea(k);
  }
  const Value load = area * Load(design.ZBackLoad, design.ZBackComplex,
                                 design.ZBackNormRe(at.point), design.ZBackNormIm(at.point));
  return (rear.c * load + rear.d) / (rear.a * load + rear.b);
}

}  // namespace

ReferencePoint ReferenceAt(std::int32_t point) {
  const Real f =
      design.FreqStart + point * (Real{design.FreqStop} - design.FreqStart) / design.NoFreqPts;
  const Frequency at{point, f, f * kTwoPiExact};

  const TwoPort stack = Stack(at, RearAdmittance(at));
  TwoPort whole = stack * HalfLayer(at, 0, design.NoPiezo == 1 ? 1 : 2);
  Real area = design.ElementArea;
  for (int k = 1; k <= design.NoFace; ++k) {
    whole = whole * Plate(at, k, design.FaceMatl(k), design.FrontThick(k), design.FrontArea(k));
    area = Real{design.ElementArea} * design.FrontArea(k);
  }
  TwoPort standing = stack;
  for (int row = 1; row <= kNetworkRows && design.ElNet(row, 1) != 0; ++row) {
    whole = Element(at, row, standing) * whole;
  }

  const Value specific = Load(design.ZFrontLoad, design.ZFrontComplex, design.ZFrontNormRe(point),
                              design.ZFrontNormIm(point));
  const Value n = whole.a * specific * area + whole.b;
  const Value d = whole.c * specific * area + whole.d;
  const Real transmitter = design.TermTx;
  const Real receiver = design.TermRx;
  const Value tx = specific / (n + transmitter * d);
  const Value rx = receiver * area / (n + receiver * d);
  const Value acoustic = (whole.d * receiver + whole.b) / (whole.c * receiver + whole.a);

  ReferencePoint result;
  result.ZinElec = Narrow(n / d);
  result.ZinAc = Narrow(acoustic / area);
  result.TxTF = Narrow(tx);
  result.RxTF = Narrow(rx * Real{1e6});
  result.TwoWayTF = Narrow(tx * rx);
  result.TxEff = static_cast<double>(area * specific.real() / (n / d * std::norm(d)).real());
  result.RxEff =
      static_cast<double>(receiver / (acoustic * std::norm(whole.c * receiver + whole.a)).real());
  return result;
}

}  // namespace halvorne::testing
