#pragma once

#include <complex>
#include <string>
#include <vector>

#include "support/fresh_program.h"

namespace halvorne::testing {

/// The five designs that follow published transducers.
inline const std::vector<std::string> kArchetypes = {
    "imaging_5mhz_two_layer", "ndt_2p25mhz_heavy_backing", "pvdf_membrane_hydrophone_25um",
    "air_coupled_200khz", "stack_two_layer_parallel"};

/// Names a test after the design that it is about.
inline std::string DesignName(const ::testing::TestParamInfo<std::string>& row) {
  return row.param;
}

/// Path of a file of share/.
std::string SharedFile(const std::string& path);

/// The program with one of the shipped designs open.
class ShippedDesign : public FreshProgram {
 protected:
  /// Starts the session with the shipped settings and opens share/DATA/<name>.dat.
  void Open(const std::string& name);
  /// Derives everything and sweeps, without a new plot.
  void Sweep();
  /// Sweeps so that point 0 lies at `freq`, Hz.
  void SweepFrom(double freq);
  /// Takes the losses out of layers and plates; what must not be 0 becomes negligible.
  void MakeLossless();
};

/// One value of a pair of curves.
template <class Curve>
std::complex<double> At(const Curve& re, const Curve& im, long point) {
  return {re(point), im(point)};
}

/// A row of a table of reference values: its design and its numbers, in the order of the header.
struct ReferenceRow {
  std::string design;
  std::vector<double> values;
};

/// The rows of tests/data/<name> behind its comment and its header.
std::vector<ReferenceRow> ReferenceTable(const std::string& name);

}  // namespace halvorne::testing
