#include "dialogs/thickness_boxes.h"

#include "engine/design_model.h"
#include "platform/number_text.h"

namespace halvorne {

double MillimetresOf(double lambdas, double velocity) {
  const double frequency = design.DesignFreq == 0 ? 1 : design.DesignFreq;
  return lambdas * 1000 * velocity / frequency;
}

double LambdasOf(double millimetres, double velocity) {
  return millimetres / 1000 * design.DesignFreq / (velocity == 0 ? 1 : velocity);
}

std::string MillimetreText(double metres) {
  return Format(metres * 1000, kThicknessPattern);
}

std::string DesignFreqCaption() {
  return "Design center freq Fd = " +
         Format(Quotient(design.DesignFreq, design.FreqScale), "0.000 ") + design.FreqUnit;
}

}  // namespace halvorne
