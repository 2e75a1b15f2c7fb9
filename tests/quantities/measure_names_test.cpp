#include "quantities/measure_names.h"

#include <gtest/gtest.h>

#include "quantities/refusals.h"

namespace halvorne::testing {
namespace {

std::string WhatIsWrongWith(const std::string& text) {
  try {
    ReadMeasure(text);
  } catch (const WrongInput& wrong) {
    return wrong.what();
  }
  return "nothing";
}

TEST(MeasureNames, ANameStandsForItsUsualPlot) {
  const Measure bandwidth = ReadMeasure("bandwidth20");
  EXPECT_EQ(bandwidth.kind, MeasureKind::kBandwidth);
  EXPECT_EQ(bandwidth.plot, 31);
  EXPECT_EQ(bandwidth.level, 1);
  EXPECT_EQ(bandwidth.name, "bandwidth20");
  const Measure width = ReadMeasure("pulseWidth40");
  EXPECT_EQ(width.plot, 33);
  EXPECT_EQ(width.form, 1) << "the envelope";
  EXPECT_EQ(width.level, 2);
  EXPECT_EQ(ReadMeasure("impedance@5e6").plot, 11);
  EXPECT_EQ(ReadMeasure("impedance@5e6").at, 5e6);
}

TEST(MeasureNames, APlotAndAFormStandBehindAColon) {
  const Measure measure = ReadMeasure("value:31.1@5.5e6");
  EXPECT_EQ(measure.kind, MeasureKind::kValue);
  EXPECT_EQ(measure.plot, 31);
  EXPECT_EQ(measure.form, 1);
  EXPECT_EQ(measure.at, 5.5e6);
  EXPECT_EQ(ReadMeasure("peak:14").plot, 14);
  EXPECT_EQ(ReadMeasure("pulseWidth6:34.0").form, 0);
}

TEST(MeasureNames, LevelsOfPowersAreHalfThoseOfAmplitudes) {
  EXPECT_EQ(ReadMeasure("bandwidth3:13").level, 0);
  EXPECT_EQ(ReadMeasure("bandwidth20:13").level, 2);
  EXPECT_EQ(ReadMeasure("bandwidth20:14").level, 1);
  EXPECT_EQ(WhatIsWrongWith("bandwidth6:13"),
            "of plot 13 there are bandwidth3, bandwidth10 and bandwidth20");
  EXPECT_EQ(WhatIsWrongWith("bandwidth"),
            "of plot 31 there are bandwidth6, bandwidth20 and bandwidth40");
}

TEST(MeasureNames, InsertionLossIsTheLeastOneOrThatAtAFrequency) {
  EXPECT_EQ(ReadMeasure("insertionLoss").kind, MeasureKind::kLeastLoss);
  const Measure at = ReadMeasure("insertionLoss@5e6");
  EXPECT_EQ(at.kind, MeasureKind::kValue);
  EXPECT_EQ(at.plot, 32);
  EXPECT_EQ(at.form, 1);
}

TEST(MeasureNames, WhatCannotBeMeantIsTold) {
  EXPECT_EQ(WhatIsWrongWith("Bandwidth6"), "the measure is called bandwidth");
  EXPECT_EQ(WhatIsWrongWith("width"),
            "there is no such measure; 'halvorne-batch help measures' lists all");
  EXPECT_EQ(WhatIsWrongWith(""),
            "there is no such measure; 'halvorne-batch help measures' lists all");
  EXPECT_EQ(WhatIsWrongWith("peak6"), "peak has no level");
  EXPECT_EQ(WhatIsWrongWith("peak@5e6"), "peak is of no single point");
  EXPECT_EQ(WhatIsWrongWith("impedance"), "the point is missing, as in impedance@5e6");
  EXPECT_EQ(WhatIsWrongWith("value:31"), "the point is missing, as in value:31@5e6");
  EXPECT_EQ(WhatIsWrongWith("value@5e6"), "the plot is missing, as in value:31.1@5e6");
  EXPECT_EQ(WhatIsWrongWith("value:99@5e6"), "there is no plot 99");
  EXPECT_EQ(WhatIsWrongWith("value:x@5e6"), "'x' is no number of a plot");
  EXPECT_EQ(WhatIsWrongWith("value:31.2@5e6"), "plot 31 has no form 2");
  EXPECT_EQ(WhatIsWrongWith("value:31.-1@5e6"), "'-1' is no index of a form");
  EXPECT_EQ(WhatIsWrongWith("value:31@five"), "'five' is not a number");
  EXPECT_EQ(WhatIsWrongWith("peak:11"), "plot 11 has no peak");
  EXPECT_EQ(WhatIsWrongWith("bandwidth6:12"), "plot 12 has no bandwidth")
      << "a reflection coefficient has no band to measure";
  EXPECT_EQ(WhatIsWrongWith("pulseWidth6:31"), "plot 31 has no pulseWidth");
}

}  // namespace
}  // namespace halvorne::testing
