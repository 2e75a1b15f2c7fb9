#pragma once

#include <memory>

#include "plot/plot_state.h"

// Copies of the program's state. All of it is plain structs, so that a copy and its way back are an
// assignment each, and every bit comes back. They are large and live on the heap.

namespace halvorne {

/// A design with its results: all that a plot of it is made of.
struct DesignSnapshot {
  Design design;
  Curves curves;
  TimeCurve ExciteRe;  ///< the sampled excitation, which no sweep makes anew
};

std::unique_ptr<DesignSnapshot> TakeDesign();
void PutBack(const DesignSnapshot& snapshot);

/// The design with all that plots have made of it, what is on show and the settings of the session:
/// the state below the windows but for the sweep's working matrices, which no plot reads.
struct StateSnapshot {
  DesignSnapshot design;
  Draft draft;
  Wave wave;
  View view;
  PlotPoints points;
  Setup setup;
  Plot plot;
  PlotScale scale;
  Measured measured;
};

std::unique_ptr<StateSnapshot> TakeState();
void PutBack(const StateSnapshot& snapshot);

}  // namespace halvorne
