#include "timedomain/wave_state.h"

#include "timedomain/plot_points.h"

namespace halvorne {

Wave wave;
PlotPoints points;

}  // namespace halvorne
