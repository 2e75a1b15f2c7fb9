// Figures that were published for transducers of the same kind; a loose comparison.

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "designs/shipped_design.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne::testing {
namespace {

class PublishedFigures : public ShippedDesign {
 protected:
  /// Selects a plot in its linear form; true when nothing failed.
  void Show(std::int16_t plotNumber, std::int16_t form = 0) {
    setup.PlotFormMemory(plotNumber) = form;
    view.CurrentPlot = plotNumber;
    PlotSelect(plotNumber);
  }

  /// Two-way -6 dB width in percent of the centre, as the grid shows it.
  double TwoWayBand() {
    Show(31);
    return std::stod(measured.CFBWText[3][3]);
  }

  double LeastInsertionLoss() {
    Show(32, 1);
    double least = points.PlotData(0).Y1;
    for (long i = 0; i <= design.NoFreqPts; ++i) {
      least = std::min(least, points.PlotData(i).Y1);
    }
    return least;
  }

  /// Point of the largest first trace, of those from `first` to `last` Hz.
  long Peak(double first, double last) const {
    const auto point = [](double freq) {
      return std::lround((freq - design.FreqStart) / design.FreqStep);
    };
    long best = point(first);
    for (long i = best; i <= point(last); ++i) {
      if (points.PlotData(i).Y1 > points.PlotData(best).Y1) {
        best = i;
      }
    }
    return best;
  }

  double ImpedancePeak() {
    Show(11);
    return points.PlotData(Peak(160e3, 200e3)).Y1;
  }
};

// Desilets, Fraser, Kino, IEEE Trans. Sonics Ultrason. SU-25 (1978) 115: 3.2 dB, one octave.
TEST_F(PublishedFigures, TwoMatchingLayersGiveAnOctave) {
  Open("imaging_5mhz_two_layer");
  EXPECT_NEAR(LeastInsertionLoss(), 3.2, 1.0);
  EXPECT_GT(TwoWayBand(), 58);
  EXPECT_LT(TwoWayBand(), 76);
}

TEST_F(PublishedFigures, AHeavyBackingGivesMoreThanEightyPercent) {
  Open("ndt_2p25mhz_heavy_backing");
  EXPECT_GT(TwoWayBand(), 80);
}

// Measurement Specialties: Piezo Film Sensors Technical Manual: g33 0.330 V m/N, so 8.25 uV/Pa.
TEST_F(PublishedFigures, TheFilmIsAsSensitiveAsItsVoltageConstantSays) {
  Open("pvdf_membrane_hydrophone_25um");
  EXPECT_NEAR(2 * std::hypot(curves.RxTFRe(0), curves.RxTFIm(0)), 8.25, 0.25 * 8.25);
}

// Bacon, IEEE Trans. Sonics Ultrason. SU-29 (1982) 18: of the order of 40 MHz.
TEST_F(PublishedFigures, TheMembraneResonatesNearFortyMegahertz) {
  Open("pvdf_membrane_hydrophone_25um");
  Show(24);
  const double freq =
      design.FreqStart +
      static_cast<double>(Peak(design.FreqStart, design.FreqStop)) * design.FreqStep;
  EXPECT_GT(freq, 36e6);
  EXPECT_LT(freq, 46e6);
}

// Toda, IEEE Int. Ultrasonics Symp. 2015: about 30 kohm in air and in vacuum.
TEST_F(PublishedFigures, TheAirHardlyChangesTheImpedance) {
  Open("air_coupled_200khz");
  const double inAir = ImpedancePeak();
  EXPECT_GT(inAir, 30e3 / 2.5);
  EXPECT_LT(inAir, 30e3 * 2.5);
  design.ZFrontLoad = 0.001;
  Sweep();
  EXPECT_NEAR(ImpedancePeak(), inAir, 0.25 * inAir);
}

// Gomez Alvarez-Arenas, IEEE Trans. UFFC 51 (2004) 624: 15 to 20 %, 24 dB at 0.45 MHz.
TEST_F(PublishedFigures, AMatchedAirTransducerHasSomePercentOfBand) {
  Open("air_coupled_200khz");
  EXPECT_GT(TwoWayBand(), 8);
  EXPECT_LT(TwoWayBand(), 25);
  EXPECT_GT(LeastInsertionLoss(), 20);
  EXPECT_LT(LeastInsertionLoss(), 50);
}

}  // namespace
}  // namespace halvorne::testing
