#include "engine/acoustic_sections.h"

#include "engine/design_model.h"
#include "engine/section_formulas.h"
#include "engine/two_port.h"

namespace halvorne {

namespace {

/// Load in force at points 0 to NoFreqPts; entries above keep their values.
void FlatLoad(double load, FreqCurve& re, FreqCurve& im) {
  for (std::int32_t point = 0; point <= design.NoFreqPts; ++point) {
    re(point) = load;
    im(point) = 0;
  }
}

void ScaledLoad(double load, const FreqCurve& normRe, const FreqCurve& normIm, FreqCurve& re,
                FreqCurve& im) {
  for (std::int32_t point = 0; point <= design.NoFreqPts; ++point) {
    re(point) = Finite(load * normRe(point));
    im(point) = Finite(load * normIm(point));
  }
}

}  // namespace

void Tline(std::int16_t slot, double z, double delay, double loss, double lossFreq,
           float lossExp) try {
  const double dispersion = design.VelDisp(slot, sweep.FreqIndex);
  const auto line = formulas::AcousticTerms(sweep.Omega, dispersion, delay, loss, [&] {
    return formulas::LossPower(sweep.Freq, lossFreq, lossExp);
  });
  formulas::LineSection(line, z, dispersion, sweep.SecRe, sweep.SecIm);
  AryMult();
} catch (...) {
  ReportFailure("Tline", "CALCS");
}

void RearPort() try {
  AryIdent(sweep.SecRe);
  sweep.SecRe(2, 1) = sweep.YRearRe;
  AryZero(sweep.SecIm);
  sweep.SecIm(2, 1) = sweep.YRearIm;
  AryMult();
} catch (...) {
  ReportFailure("RearPort", "CALCS");
}

void CmplxLoad() try {
  if (design.ZFrontComplex) {
    ScaledLoad(design.ZFrontLoad, design.ZFrontNormRe, design.ZFrontNormIm, design.ZFrontRe,
               design.ZFrontIm);
  } else {
    FlatLoad(design.ZFrontLoad, design.ZFrontRe, design.ZFrontIm);
    design.ZFrontFile = "blank";
    design.ZFrontComment = "none";
  }
  if (design.ZBackComplex) {
    ScaledLoad(design.ZBackLoad, design.ZBackNormRe, design.ZBackNormIm, design.ZBackRe,
               design.ZBackIm);
  } else {
    FlatLoad(design.ZBackLoad, design.ZBackRe, design.ZBackIm);
    design.ZBackFile = "blank";
    design.ZBackComment = "none";
  }
} catch (...) {
  ReportFailure("CmplxLoad", "CALCS");
}

void ComplexLoad() try {
  // Kept: flags and file names stay, so a complex load is flat until the next CmplxLoad.
  for (std::int32_t point = 0; point <= design.NoFreqPts; ++point) {
    design.ZFrontRe(point) = design.ZFrontLoad;
    design.ZFrontIm(point) = 0;
    design.ZBackRe(point) = design.ZBackLoad;
    design.ZBackIm(point) = 0;
  }
} catch (...) {
  ReportFailure("ComplexLoad", "CALCS");
}

}  // namespace halvorne
