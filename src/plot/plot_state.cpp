#include "plot/plot_state.h"

namespace halvorne {

Plot plot;
PlotScale scale;
Measured measured;
Reading reading;

}  // namespace halvorne
