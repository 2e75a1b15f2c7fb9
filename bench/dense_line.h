#pragma once

#include <QImage>
#include <QPolygonF>
#include <QSize>

namespace halvorne::bench {

inline constexpr int kDenseSamples = 65536;
inline constexpr QSize kDensePicture(1200, 800);

/// Puts two dense waveforms with slowly changing amplitudes where the plot's values stand: hundreds
/// of cycles in every inch.
void SetDenseWaveforms();

/// The points of both, one line, where a picture of kDensePicture has them: what redraws are
/// measured against.
class DenseLine {
 public:
  DenseLine();
  /// One drawPolyline of the toolkit's, without antialiasing.
  void DrawOnce();

 private:
  QPolygonF line_;
  QImage image_;
};

}  // namespace halvorne::bench
