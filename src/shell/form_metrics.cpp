#include "shell/form_metrics.h"

namespace halvorne {

HeightCorrection CorrectionFor(int screenPixels) {
  if (screenPixels <= 540) {
    return {234, true};
  }
  if (screenPixels <= 684) {
    return {140, false};
  }
  // Kept: 897 still belongs to the band below it.
  if (screenPixels <= 897) {
    return {0, false};
  }
  return {-200, false};
}

GraphGeometry GraphGeometryFor(double height, double width, double correction, double pictureTop) {
  GraphGeometry geometry{};
  geometry.pictureHeight = height - 3263.039 + correction;
  geometry.pictureWidth = width - 3153;
  geometry.scrollTop = pictureTop + geometry.pictureHeight + 98;
  geometry.titleTop = geometry.scrollTop + 448.222;
  return geometry;
}

}  // namespace halvorne
