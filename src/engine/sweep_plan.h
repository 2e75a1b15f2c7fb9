#pragma once

#include <cstdint>

#include "engine/design_model.h"
#include "engine/network_elements.h"
#include "engine/section_formulas.h"
#include "engine/sweep_formulas.h"

namespace halvorne {

/// A law by which losses grow with frequency; many plates share one.
struct PlannedLaw {
  double lossFreq;  ///< Hz
  double lossExp;
};

struct PlannedLine {
  double z;                  ///< characteristic impedance with the area, Rayl m^2
  double delay;              ///< s
  double loss;               ///< at the law's frequency, Np
  int law;                   ///< index among the plan's laws
  const double* dispersion;  ///< factor at each point
};

struct PlannedChain {
  int plates;
  PlannedLine lines[kMaxPlates + 1];  ///< those of Chain
};

struct PlannedElement {
  ElementKind kind;
  double values[4];
};

/// A load at each point, Rayl.
struct PlannedLoad {
  const double* re;
  const double* im;
};

/// All that a sweep takes from the design, gathered once. Plain values and pointers only: it is
/// read by code that is compiled for other instruction sets and may share no function with the
/// rest.
struct SweepPlan {
  double start;       ///< Hz
  double step;        ///< Hz
  std::int32_t last;  ///< last point

  int lawCount;
  PlannedLaw laws[2 * (kMaxPlates + 1)];
  PlannedChain front, back;

  bool twoLayers;
  bool inSeries;  ///< two layers: electrically in series, not in parallel
  formulas::LayerConstants<double> layers[kMaxPiezo];

  int elementCount;
  PlannedElement elements[kNetworkRows];

  formulas::Terminations<double> ends;
  double backArea;  ///< BackLoadArea, m^2
  PlannedLoad frontLoad, backLoad;
};

/// Gathers what a sweep takes from the design; the load areas must stand.
///
/// @param step  distance of the points, Hz
/// @return false for a design in which something is out of its range or refers to what stood
/// before:
///         a count, a connection or an element code that is unknown
bool PlanSweep(double step, SweepPlan& plan);

}  // namespace halvorne
