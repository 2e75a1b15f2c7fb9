#pragma once

namespace halvorne::bench {

/// The largest design: 16000 intervals, 65536 samples, 2 layers, 10 + 10 lossy dispersive plates,
/// 20 network rows, one for each kind of element.
void MakeLargestDesign();

/// A typical design: 400 intervals, 1 layer, 2 plates, 2 network rows.
void MakeTypicalDesign();

}  // namespace halvorne::bench
