#include "engine/element_size.h"

#include <cmath>
#include <utility>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/numbers.h"

namespace halvorne {

std::array<const char*, 2> DimensionCaptions(std::int16_t shape) {
  switch (shape) {
    case kAnnulus:
      return {"Outer Diameter", "Inner Diameter"};
    case kRectangle:
      return {"Length", "Width"};
    default:
      return {"Diameter", ""};
  }
}

void TakeElementSize() {
  if (design.ElementShape == kAnnulus && design.ElementDim1 < design.ElementDim2) {
    std::swap(design.ElementDim1, design.ElementDim2);
  }
  const double dim1 = design.ElementDim1;
  const double dim2 = design.ElementDim2;
  switch (design.ElementShape) {
    case kDisk:
      design.ElementArea = Finite(kPi * std::pow(dim1 / 2000, 2));
      design.ElementSizeText = NumberText(dim1) + " mm disk";
      break;
    case kAnnulus:
      design.ElementArea = Finite(kPi * (std::pow(dim1 / 2000, 2) - std::pow(dim2 / 2000, 2)));
      design.ElementSizeText = NumberText(dim2) + " x" + SpacedNumberText(dim1) + " mm annulus";
      break;
    case kRectangle:
      design.ElementArea = Finite(dim2 * dim1 / 1000000);
      design.ElementSizeText = NumberText(dim1) + " x" + SpacedNumberText(dim2) + " mm rect. bar";
      break;
    default:
      break;
  }
  if (design.ElementArea == 0) {
    design.ElementArea = 1E-20;  // an empty or degenerate element stays computable
  }
}

}  // namespace halvorne
