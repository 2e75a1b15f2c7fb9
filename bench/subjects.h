#pragma once

#include <vector>

#include "row.h"

namespace halvorne::bench {

/// Sweeps beside the library calls that they need.
std::vector<Row> SweepRows();
/// Variants in one batch process beside what their sweeps allow.
std::vector<Row> BatchRows();
/// Transform and excitation plot beside FFTW.
std::vector<Row> TransformRows();
/// Design file beside bare number conversions.
std::vector<Row> DesignFileRows();
/// Work right behind a painted window beside the same in a process without the toolkit.
std::vector<Row> PaintedRows();
/// The main picture beside one polyline of the toolkit's.
std::vector<Row> RedrawRows();
/// A step of a slider that tunes beside the time that it may take.
std::vector<Row> TuningRows();
/// Start, memory and resizing of the desktop program beside an empty window and one polyline.
std::vector<Row> WindowRows();

}  // namespace halvorne::bench
