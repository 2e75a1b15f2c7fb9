#include "plot/measures.h"

#include <algorithm>
#include <cmath>

#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/conversions.h"
#include "timedomain/sample_blocks.h"
#include "timedomain/sample_rate.h"

namespace halvorne {
namespace {

std::string LevelText(float level, std::int16_t dBFactor) {
  return Format(log10(level) * dBFactor, "0");
}

LevelCrossings CrossingsAt(float lower, float upper, float level, std::int16_t dBFactor) {
  return {lower, upper, level, log10(double{level}) * dBFactor};
}

/// The first index whose value, as a 32-bit float, lies above the level; `otherwise` where none
/// does.
std::int32_t FirstAbove(const MeasureBuffer& array, std::int32_t first, std::int32_t last,
                        float level, std::int32_t otherwise) {
  constexpr auto block = static_cast<std::int32_t>(kSampleBlock);
  const std::int32_t inside = std::min(last, static_cast<std::int32_t>(MeasureBuffer::last));
  std::int32_t i = first;
  while (i >= 0 && i <= inside - block && NoneAbove(array.data() + i, block, level)) {
    i += block;
  }
  for (; i <= last; ++i) {
    if (ToSingle(array(i)) > level) {
      return i;
    }
  }
  return otherwise;
}

/// The last index of that kind.
std::int32_t LastAbove(const MeasureBuffer& array, std::int32_t first, std::int32_t last,
                       float level, std::int32_t otherwise) {
  constexpr auto block = static_cast<std::int32_t>(kSampleBlock);
  std::int32_t i = last;
  while (i <= MeasureBuffer::last && i - block >= std::max(first, 0) &&
         NoneAbove(array.data() + i - block + 1, block, level)) {
    i -= block;
  }
  for (; i >= first; --i) {
    if (ToSingle(array(i)) > level) {
      return i;
    }
  }
  return otherwise;
}

}  // namespace

float DisplayFrequency(float point) {
  return ToSingle(Quotient(point * design.FreqStep + design.FreqStart, design.FreqScale));
}

const char* BandPattern(double lower, double upper) {
  return lower + upper < 100 ? "0.000" : "0.00";
}

void CrossLevel(const MeasureBuffer& array, std::int32_t first, std::int32_t last, float level,
                float& lower, float& upper) try {
  const auto between = [&](double point) { return first < point && point < last; };

  lower = ToSingle(last);
  lower = ToSingle(FirstAbove(array, first, last, level, last));
  if (between(lower)) {
    const auto inside = static_cast<long>(lower);
    const double outer = array(inside - 1);
    lower = ToSingle(Quotient(level - outer, array(inside) - outer) + lower - 1);
  }

  upper = ToSingle(first);
  upper = ToSingle(LastAbove(array, first, last, level, first));
  if (between(upper)) {
    const auto inside = static_cast<long>(upper);
    const double inner = array(inside);
    upper = ToSingle(Quotient(inner - level, inner - array(inside + 1)) + upper);
  }
} catch (...) {
  ReportFailure("CrossLevel", "PLOTIT");
}

void CFBWCalc(MeasureBuffer& array, std::int16_t dBFactor) try {
  double max = 0;
  double min = 0;
  ArrayMaxMin(array, 0, design.NoFreqPts, max, min);
  measured.Band = {};
  measured.CFBWText[2] = {"dB", design.FreqUnit, design.FreqUnit, "% CF"};

  float lower = 0;
  float upper = 0;
  for (measured.GridRow = 3; measured.GridRow <= 5; ++measured.GridRow) {
    auto& row = measured.CFBWText[measured.GridRow];
    const float share = kMeasureLevels[measured.GridRow - 3];
    row[0] = LevelText(share, dBFactor);
    const float level = ToSingle(share * max);
    CrossLevel(array, 0, design.NoFreqPts, level, lower, upper);
    measured.Band[measured.GridRow - 3] = CrossingsAt(lower, upper, level, dBFactor);
    const double f1 = DisplayFrequency(lower);
    const double f2 = DisplayFrequency(upper);
    const char* const pattern = BandPattern(f1, f2);
    row[1] = Format((f1 + f2) / 2, pattern);
    row[2] = Format(f2 - f1, pattern);
    row[3] = Format(Quotient((f2 - f1) * 200, f2 + f1), "0.00");
  }
} catch (...) {
  ReportFailure("CFBWCalc", "PLOTIT");
}

void PulseWidthCalc(MeasureBuffer& array) try {
  double max = 0;
  double min = 0;
  ArrayMaxMin(array, 0, LastSample(), max, min);
  if (std::abs(min) > max) {
    max = std::abs(min);
  }
  measured.Pulse = {};
  measured.PulseWidthText[1] = {"dB", view.TimeUnit};

  float lower = 0;
  float upper = 0;
  for (measured.GridRow = 2; measured.GridRow <= 4; ++measured.GridRow) {
    auto& row = measured.PulseWidthText[measured.GridRow];
    const float share = kMeasureLevels[measured.GridRow - 2];
    row[0] = LevelText(share, 20);
    const float level = ToSingle(share * max);
    CrossLevel(array, 0, ToInt32(design.NoTimePts / 2.0), level, lower, upper);
    measured.Pulse[measured.GridRow - 2] = CrossingsAt(lower, upper, level, 20);
    const double samplesPerUnit = view.TimeScale * design.SampleRateHz;
    row[1] = Format(Quotient(upper, samplesPerUnit) - Quotient(lower, samplesPerUnit), "0.000");
  }
  measured.PeakAmpl = ToSingle(max);
} catch (...) {
  ReportFailure("PulseWidthCalc", "PLOTIT");
}

}  // namespace halvorne
