#pragma once

// Several frequency points side by side in one wide register. The files that use a pack are
// compiled for one instruction set each; all that they make bears the pack's width in its name, so
// that none of it is taken for the code of another file.

namespace halvorne {

/// The values of one register: the compiler's own type, whose operators work lane by lane.
template <int kLanes>
using Lanes [[gnu::vector_size(8 * kLanes)]] = double;

// The C library's functions of a whole register, which its calling convention names. They are
// within 4 units of the last place and go through the functions of <cmath> where they don't hold.
extern "C" {
Lanes<2> _ZGVbN2v_cos(Lanes<2> x);
Lanes<2> _ZGVbN2v_sin(Lanes<2> x);
Lanes<2> _ZGVbN2v_exp(Lanes<2> x);
Lanes<2> _ZGVbN2vv_pow(Lanes<2> x, Lanes<2> n);
Lanes<4> _ZGVdN4v_cos(Lanes<4> x);
Lanes<4> _ZGVdN4v_sin(Lanes<4> x);
Lanes<4> _ZGVdN4v_exp(Lanes<4> x);
Lanes<4> _ZGVdN4vv_pow(Lanes<4> x, Lanes<4> n);
Lanes<8> _ZGVeN8v_cos(Lanes<8> x);
Lanes<8> _ZGVeN8v_sin(Lanes<8> x);
Lanes<8> _ZGVeN8v_exp(Lanes<8> x);
Lanes<8> _ZGVeN8vv_pow(Lanes<8> x, Lanes<8> n);
}

/// A register and its functions.
template <int kLanes>
struct Register;

template <>
struct Register<2> {
  using Values = Lanes<2>;
  static constexpr auto kCos = _ZGVbN2v_cos;
  static constexpr auto kSin = _ZGVbN2v_sin;
  static constexpr auto kExp = _ZGVbN2v_exp;
  static constexpr auto kPow = _ZGVbN2vv_pow;
};

template <>
struct Register<4> {
  using Values = Lanes<4>;
  static constexpr auto kCos = _ZGVdN4v_cos;
  static constexpr auto kSin = _ZGVdN4v_sin;
  static constexpr auto kExp = _ZGVdN4v_exp;
  static constexpr auto kPow = _ZGVdN4vv_pow;
};

template <>
struct Register<8> {
  using Values = Lanes<8>;
  static constexpr auto kCos = _ZGVeN8v_cos;
  static constexpr auto kSin = _ZGVeN8v_sin;
  static constexpr auto kExp = _ZGVeN8v_exp;
  static constexpr auto kPow = _ZGVeN8vv_pow;
};

/// The values of one quantity at several frequency points. Lane by lane its operators yield the
/// bits of those on double.
///
/// Nothing is raised: where a procedure on double would fail, the lane ends as infinite or as no
/// number, and stays so to the end of the formulas, since no operation makes it finite again.
template <int kLanes>
class Pack {
  using Values = typename Register<kLanes>::Values;

 public:
  Pack() = default;
  Pack(double value) : lanes_(value - Values{}) {}  // NOLINT: a constant at all points

  static Pack Load(const double* from) {
    Pack pack;
    __builtin_memcpy(&pack.lanes_, from, sizeof pack.lanes_);
    return pack;
  }
  void Store(double* to) const { __builtin_memcpy(to, &lanes_, sizeof lanes_); }

  friend Pack operator+(const Pack& a, const Pack& b) { return Pack(a.lanes_ + b.lanes_); }
  friend Pack operator-(const Pack& a, const Pack& b) { return Pack(a.lanes_ - b.lanes_); }
  friend Pack operator*(const Pack& a, const Pack& b) { return Pack(a.lanes_ * b.lanes_); }
  /// By a finite b only, see Quotient.
  friend Pack operator/(const Pack& a, const Pack& b) { return Pack(a.lanes_ / b.lanes_); }
  friend Pack operator-(const Pack& a) { return Pack(-a.lanes_); }

  /// The value itself; what isn't finite shows in the end.
  friend Pack Finite(const Pack& value) { return value; }
  /// a / b, and no number where b is infinite, which would not show in a quotient of 0.
  friend Pack Quotient(const Pack& a, const Pack& b) { return Marked(a / b, b); }
  /// Quotient(a, b), and 0 where b is 0.
  friend Pack Efficiency(const Pack& a, const Pack& b) {
    return Pack(b.lanes_ == 0.0 ? Values{} : Quotient(a, b).lanes_);
  }
  /// The value, and no number where the witness isn't finite.
  friend Pack Marked(const Pack& value, const Pack& witness) {
    return Pack(value.lanes_ + witness.lanes_ * 0.0);
  }

  friend Pack cos(const Pack& x) { return Pack(Register<kLanes>::kCos(x.lanes_)); }
  friend Pack sin(const Pack& x) { return Pack(Register<kLanes>::kSin(x.lanes_)); }
  friend Pack exp(const Pack& x) { return Pack(Register<kLanes>::kExp(x.lanes_)); }
  /// x^n, exact for n = 1 and a product for n = 2; no number where x isn't finite.
  friend Pack pow(const Pack& x, double n) {
    if (n == 1.0) {
      return x;
    }
    if (n == 2.0) {
      return x * x;
    }
    return Marked(Pack(Register<kLanes>::kPow(x.lanes_, Pack(n).lanes_)), x);
  }

 private:
  explicit Pack(Values lanes) : lanes_(lanes) {}

  Values lanes_;
};

}  // namespace halvorne
