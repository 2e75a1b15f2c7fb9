#include <array>
#include <string_view>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "plot/catalogue.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

struct AxisName {
  std::string_view label;
  std::string_view unit;
};

/// What stands at the right axis beside a left name.
enum class RightAxis { kNotSet, kTheta, kPhaseOrDelay, kReactance, kSusceptance };

struct AxisNames {
  int plot;
  int index;
  AxisName left;
  RightAxis right;
};

using enum RightAxis;

// Plots 41 and 42 share the rows of plot 21, 23 those of 13, 25 those of 15, 32 those of 31.
// Kept: plot 21 has no rows for its log forms, the names of the plot before it stay.
constexpr std::array kFrequencyNames{
    AxisNames{11, 0, {"Z", "Ohms"}, kTheta},
    AxisNames{11, 1, {"Y", "Siemens"}, kTheta},
    AxisNames{11, 2, {"R", "Ohms"}, kReactance},
    AxisNames{11, 3, {"G", "Siemens"}, kSusceptance},
    AxisNames{11, 4, {"Log Z", "dB"}, kTheta},
    AxisNames{11, 5, {"Log Y", "dB"}, kTheta},
    AxisNames{21, 0, {"Z", "Rayls"}, kTheta},
    AxisNames{21, 1, {"Y", "Rayls^-1"}, kTheta},
    AxisNames{21, 2, {"R", "Rayls"}, kReactance},
    AxisNames{21, 3, {"G", "Rayls^-1"}, kSusceptance},
    AxisNames{12, 0, {"Vr/Vi", "V/V"}, kTheta},
    AxisNames{12, 1, {"Vr/Vi", "dB"}, kTheta},
    AxisNames{22, 0, {"Pr/Pi", "Pa/Pa"}, kTheta},
    // Kept: the log form of the pressure coefficient has the voltage's name.
    AxisNames{22, 1, {"Vr/Vi", "dB"}, kTheta},
    AxisNames{13, 0, {"Po/Pi", "W/W"}, kNotSet},
    AxisNames{13, 1, {"Po/Pi", "dB"}, kNotSet},
    AxisNames{15, 0, {"Po/Pav", "W/W"}, kNotSet},
    AxisNames{15, 1, {"Po/Pav", "dB"}, kNotSet},
    AxisNames{14, 0, {"Po/Vi", "Pa/V"}, kPhaseOrDelay},
    AxisNames{14, 1, {"Po/Vi", "dB"}, kPhaseOrDelay},
    AxisNames{24, 0, {"Vo/Pi", "V/MPa"}, kPhaseOrDelay},
    AxisNames{24, 1, {"Vo/Pi", "dB V/MPa"}, kPhaseOrDelay},
    AxisNames{31, 0, {"Vo/Vi", "V/V"}, kPhaseOrDelay},
    AxisNames{31, 1, {"Vo/Vi", "dB"}, kPhaseOrDelay},
};

struct TimeNames {
  AxisName linear;
  AxisName log;
  AxisName spectrum;
};

constexpr TimeNames kTransmitNames{{" Po/Vi", "Pa/V"}, {"Po/Vi", "dB"}, {"Po/Vi", "dB"}};
constexpr TimeNames kReceiveNames{{"Vo/Pi", "V/MPa"}, {"Vo/Pi", "dB V/MPa"}, {"Vo/Pi", "dB"}};
constexpr TimeNames kTwoWayNames{{" Vo/Vi", "V/V"}, {"Vo/Vi", "dB"}, {"Vo/Vi", "dB"}};

void SetLeft(const AxisName& name) {
  scale.LeftLabel = name.label;
  scale.LeftUnit = name.unit;
}

void SetRight(const AxisName& name) {
  scale.RightLabel = name.label;
  scale.RightUnit = name.unit;
}

void SetRight(RightAxis axis) {
  constexpr AxisName theta{"Theta", "Degrees"};
  switch (axis) {
    case kNotSet:
      return;
    case kTheta:
      return SetRight(theta);
    case kReactance:
      return SetRight({"X", scale.LeftUnit});
    case kSusceptance:
      return SetRight({"B", scale.LeftUnit});
    case kPhaseOrDelay:
      if (setup.PhaseDisplayOption == 0 || setup.PhaseDisplayOption == 1) {
        SetRight(theta);
      } else if (setup.PhaseDisplayOption == 2) {
        SetRight({"Delay", "sec"});
      }
      return;
  }
}

/// The plot under whose number the names stand.
int NamesOf(int plotNumber) {
  switch (plotNumber) {
    case 41:
    case 42:
      return 21;
    case 23:
      return 13;
    case 25:
      return 15;
    case 32:
      return 31;
    default:
      return plotNumber;
  }
}

void SetFrequencyNames(int plotNumber, int index) {
  for (const AxisNames& names : kFrequencyNames) {
    if (names.plot == NamesOf(plotNumber) && names.index == index) {
      SetLeft(names.left);
      SetRight(names.right);
      return;
    }
  }
  if (plotNumber == 11) {
    SetLeft({});
    SetRight(AxisName{});
  }
}

void SetTimeNames(const TimeNames& names, int index) {
  scale.PeakUnit = names.linear.unit;
  switch (index) {
    case 0:
    case 1:
    case 3:
    case 4:
    case 6:
    case 7:
      SetLeft(names.linear);
      break;
    case 2:
    case 5:
    case 8:
      SetLeft(names.log);
      break;
    default:
      return;
  }
  if (index <= 2) {
    SetRight(AxisName{});
  } else if (index == 3) {
    SetRight({"Im Wfm", scale.LeftUnit});
  } else if (index <= 5) {
    SetRight({"|Wfm|", scale.LeftUnit});
  } else {
    SetRight(names.spectrum);
  }
}

}  // namespace

void GetAmplLabels(std::int16_t plotNumber) try {
  const int index = mainWindow().PlotTypeIndex();
  switch (plotNumber) {
    case 16:
    case 17:
      return SetTimeNames(kTransmitNames, index);
    case 26:
    case 27:
      return SetTimeNames(kReceiveNames, index);
    case 33:
    case 34:
      return SetTimeNames(kTwoWayNames, index);
    case 51:
    case 52:
    case 53:
      return SetLeft({"Velocity", "normalized"});
    default:
      return SetFrequencyNames(plotNumber, index);
  }
} catch (...) {
  ReportFailure("GetAmplLabels", "PLOTIT");
}

}  // namespace halvorne
