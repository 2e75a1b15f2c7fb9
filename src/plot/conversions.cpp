#include "plot/conversions.h"

#include <algorithm>
#include <cmath>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/numbers.h"
#include "plot/catalogue.h"
#include "plot/gather.h"
#include "plot/measures.h"
#include "timedomain/sample_blocks.h"

namespace halvorne {
namespace {

/// What stands for a divisor of 0 in the impedance forms.
constexpr double kTiny = 1e-44;

double NotZero(double divisor) {
  return divisor == 0 ? kTiny : divisor;
}

/// Angle of an impedance in degrees.
///
/// Kept: in the left half plane the half turn has the other sign than in PolarConvert, so that the
/// second quadrant reads between -270 and -180.
double Theta(double re, double im) {
  const double divisor = NotZero(re);
  const double theta = (180.0 / kPi) * std::atan(Finite(im / divisor));
  return divisor < 0 ? theta - Sgn(im) * 180 : theta;
}

/// One point of an impedance form. Indexes outside 0 to 5 leave it alone.
void ConvertImpedance(std::int16_t index, const PlotPoint& raw, PlotPoint& converted) {
  const double re = raw.Y1;
  const double im = raw.Y2;
  switch (index) {
    case 0:
    case 4:
      converted.Y1 = Finite(std::sqrt(re * re + im * im));
      converted.Y2 = Theta(re, im);
      return;
    case 1:
    case 5:
      converted.Y1 = 1 / NotZero(Finite(std::sqrt(re * re + im * im)));
      converted.Y2 = -Theta(re, im);
      return;
    case 2:
      converted = raw;
      return;
    case 3: {
      const double square = NotZero(Finite(re * re + im * im));
      converted.Y1 = Finite(re / square);
      converted.Y2 = Finite(-im / square);
      return;
    }
    default:
      return;
  }
}

void LimitValue(double& value) {
  if (std::fabs(value) > 1e38) {
    value = Sgn(value) * 1e38;
  }
  if (std::fabs(value) < 1e-38) {
    value = Sgn(value) * 1e-38;
  }
}

}  // namespace

void AttenCalc(std::int16_t dBFactor, std::int16_t passes) try {
  if (!design.AttenOn) {
    return;
  }
  const double length = design.AttenLength;
  const double rate = design.AttenRate;
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    const double frequency =
        Quotient((design.FreqStop - design.FreqStart) * i, design.NoFreqPts) + design.FreqStart;
    const double law = std::pow(Finite(Quotient(frequency, design.AttenFreq)), design.AttenExp);
    const double decibels = Finite(Finite(law) * (-passes * length * rate));
    const double factor = Finite(std::pow(10, Quotient(decibels, dBFactor)));
    PlotPoint& point = points.RawData(i);
    point.Y1 = Finite(factor * point.Y1);
    point.Y2 = Finite(factor * point.Y2);
  }
} catch (...) {
  ReportFailure("AttenCalc", "PLOTIT");
}

void PolarConvert(std::int32_t count, const Bounded<PlotPoint, 0, kLastFreqPoint>& source,
                  Bounded<PlotPoint, 0, kLastFreqPoint>& destination, double offset) try {
  constexpr double degreesPerRadian = 57.2957795131;
  for (std::int32_t i = 0; i <= count; ++i) {
    const PlotPoint& from = source(ToInt32(i + offset));
    const double re = from.Y1;
    const double im = from.Y2;
    const double magnitude = Finite(std::sqrt(re * re + im * im));
    double phase = 0;
    if (re == 0) {
      phase = Sgn(im) * kPi / 2;
    } else {
      phase = std::atan(Finite(im / re));
      if (re < 0) {
        // Kept: Sgn(0) leaves a negative real number at phase 0.
        phase += Sgn(im) * kPi;
      }
    }
    PlotPoint& to = destination(i);
    to.Y1 = magnitude;
    to.Y2 = phase * degreesPerRadian;
  }
} catch (...) {
  ReportFailure("PolarConvert", "PLOTIT");
}

void ReImConvert(std::int16_t index) try {
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    ConvertImpedance(index, points.RawData(i), points.PlotData(i));
  }
  if (index == 4 || index == 5) {
    for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
      double& value = points.PlotData(i).Y1;
      value = Finite(20 * log10(value));
    }
    plot.AmplLog = true;
  }
  LimitPdata();
} catch (...) {
  ReportFailure("ReImConvert", "PLOTIT");
}

std::int16_t LinLogFactor(int plotNumber) {
  switch (plotNumber) {
    case 12:
    case 14:
    case 22:
    case 24:
    case 31:
    case 32:
      return 20;
    case 13:
    case 15:
    case 23:
    case 25:
      return 10;
    default:
      return 0;
  }
}

void FillBandBuffer() {
  constexpr int insertionLoss = 32;
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    plot.MeasBuf(i) = points.RawData(i).Y1;
    if (view.CurrentPlot == insertionLoss) {
      plot.MeasBuf(i) = Finite(Quotient(1, plot.MeasBuf(i)));
    }
  }
}

void LinLogConvert(std::int16_t index, std::int16_t dBFactor) try {
  FillBandBuffer();
  CFBWCalc(plot.MeasBuf, dBFactor);
  if (index == 0) {
    for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
      points.PlotData(i) = points.RawData(i);
    }
  } else if (index == 1) {
    for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
      PlotPoint& raw = points.RawData(i);
      // Kept: the logarithm writes back, a gathered 0 becomes 1e-38 and a negative value positive.
      points.PlotData(i).Y1 = Finite(dBFactor * log10(raw.Y1));
      points.PlotData(i).Y2 = raw.Y2;
    }
    plot.AmplLog = true;
  }
  measured.CFBWValid = true;
  measured.AttenValid = true;
} catch (...) {
  ReportFailure("LinLogConvert", "PLOTIT");
}

void VDispConvert() try {
  const CataloguePlot* const row = FindPlot(view.CurrentPlot);
  if (row == nullptr) {
    return;
  }
  Gather(*row);
  plot.PlotTitle = TitleOf(*row);
  if (row->forms == FormList::kPiezoLayer) {
    mainWindow().SetPlotTypeIndex(0);
  }
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    points.PlotData(i) = {points.RawData(i).Y1, 0};
  }
} catch (...) {
  ReportFailure("VDispConvert", "PLOTIT");
}

void LimitPdata() try {
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    LimitValue(points.PlotData(i).Y1);
    LimitValue(points.PlotData(i).Y2);
  }
} catch (...) {
  ReportFailure("LimitPdata", "PLOTIT");
}

void ArrayMaxMin(const MeasureBuffer& array, std::int32_t first, std::int32_t last, double& max,
                 double& min) try {
  Extrema all;
  max = all.max;
  min = all.min;
  ForBlocks(first, last, MeasureBuffer::count, [&](long from, long count) {
    const Extrema block = ExtremaOf(array.data() + from, count);
    all = {std::max(all.max, block.max), std::min(all.min, block.min)};
    max = all.max;
    min = all.min;
  });
} catch (...) {
  ReportFailure("ArrayMaxMin", "PLOTIT");
}

}  // namespace halvorne
