#pragma once

#include <string>
#include <string_view>

#include "engine/design_model.h"
#include "persistence/array_io.h"
#include "timedomain/wave_state.h"

// The rows of a design file in their order, told once for both ways: `File` is a ValueReader or a
// ValueWriter. A reader takes the counts and flags that steer the later rows from the rows before.

namespace halvorne {

inline void Array(ValueReader& file, std::int16_t count, ChainValues& values,
                  const std::string& /*label*/) {
  std::string scratch;
  AryInput(file, count, values, scratch);
}

inline void Array(ValueWriter& file, std::int16_t count, const ChainValues& values,
                  const std::string& label) {
  AryOutput(file, count, values, label);
}

inline void Curve(ValueReader& file, FreqCurve& first, FreqCurve& second,
                  const std::string& /*label*/) {
  std::string scratch;
  AryInput2(file, design.NoFreqPts, first, second, scratch);
}

inline void Curve(ValueWriter& file, const FreqCurve& first, const FreqCurve& second,
                  const std::string& label) {
  AryOutput2(file, design.NoFreqPts, first, second, label);
}

inline std::string NumberedLabel(std::string_view words, int number) {
  return "[ " + std::string(words) + " " + std::to_string(number) + " ]";
}

template <class File>
void SweepRows(File& file) {
  file.Line(design.FreqStart, design.FreqStop);
  file.Line(design.FreqScale, design.FreqUnit);
  file.Line(design.DesignFreq, design.DesignFreqText);
}

template <class File>
void PiezoRows(File& file) {
  file.Label("[ Number of piezoelectric layers and connectivity ]");
  file.Line(design.NoPiezo, design.PZConnect, design.PZConnectName);
  file.Label("[ Piezoelectric material properties ]");
  for (int i = 1; i <= design.NoPiezo; ++i) {
    file.Label(NumberedLabel("Piezoelectric layer", i));
    PiezoMaterial& matl = design.PZMatl(i);
    file.Line(matl.Name, matl.Velocity, matl.ShearVelocity);
    file.Line(matl.Density, matl.Ks, matl.Kt);
    file.Line(matl.TanDe, matl.TanDm);
    file.Line(matl.Vendor, matl.DataSource);
  }
  file.Label("[ Piezoelectric layer thickness and polarity ]");
  for (int i = 1; i <= design.NoPiezo; ++i) {
    file.Line(design.PZThick(i), design.PZPolarity(i));
  }
  file.Label("[ Piezoelectric layer area, shape, and dimensions ]");
  file.Line(design.ElementArea, design.ElementSizeText);
  file.Line(design.ElementShape, design.ElementDim1, design.ElementDim2);
}

template <class File>
void CountRows(File& file) {
  file.Label("[ Velocity dispersion On/Off in piezo, face, and back layers ]");
  file.Line(design.PZVelDispOn, design.FaceVelDispOn, design.BackVelDispOn);
  file.Label("[ Number of points in frequency, time domains ]");
  file.Line(design.NoFreqPts, design.NoTimePts);
  file.Label("[ Electrical terminations on Tx, Rx ]");
  file.Line(design.TermTx, design.TermRx);
  file.Label("[ Acoustic load impedances on front, back faces ]");
  file.Line(design.ZFrontLoad, design.ZBackLoad);
  file.Label("[ Number of face and back layers ]");
  file.Line(design.NoFace, design.NoBack);
}

template <class File>
void MaterialRows(File& file, std::string_view layerWords, std::int16_t plates,
                  PlateMaterials& materials) {
  for (int i = 1; i <= plates; ++i) {
    file.Label(NumberedLabel(layerWords, i));
    AcousticMaterial& matl = materials(i);
    file.Line(matl.Name);
    file.Line(matl.Velocity, matl.ShearVelocity, matl.Density);
    file.Line(matl.Loss, matl.LossFreq, matl.LossExp);
    file.Line(matl.Vendor);
    file.Line(matl.Formula);
    file.Line(matl.Comments);
    file.Line(matl.DataSource);
  }
}

template <class File>
void PlateRows(File& file) {
  file.Label("[ Front layer acoustic properties ]");
  MaterialRows(file, "Face layer", design.NoFace, design.FaceMatl);
  Array(file, design.NoFace, design.FrontThick, "[ Front layer thicknesses ]");
  Array(file, design.NoFace, design.FrontArea, "[ Front layer areas ]");
  file.Label("[ Back layer acoustic properties ]");
  MaterialRows(file, "Back layer", design.NoBack, design.BackMatl);
  Array(file, design.NoBack, design.BackThick, "[ Back layer thicknesses ]");
  Array(file, design.NoBack, design.BackArea, "[ Back layer areas ]");
}

/// Format 4 only.
template <class File>
void LoadRows(File& file) {
  file.Line(design.ZFrontComplex);
  file.Line(design.ZFrontFile);
  file.Line(design.ZFrontComment);
  Curve(file, design.ZFrontNormRe, design.ZFrontNormIm, "[ Zfront Re, Im ]");
  file.Line(design.ZBackComplex);
  file.Line(design.ZBackFile);
  file.Line(design.ZBackComment);
  Curve(file, design.ZBackNormRe, design.ZBackNormIm, "[ Zback Re, Im ]");
}

/// Format 4 only.
template <class File>
void DispersionRows(File& file) {
  file.Label("Velocity dispersion file names");
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    file.Line(design.VelDispNames(slot, 0));
  }
  file.Label("Velocity dispersion comments");
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    file.Line(design.VelDispNames(slot, 1));
  }
  file.Label("Velocity dispersion data");
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    for (long point = 0; point <= design.NoFreqPts; ++point) {
      file.Line(design.VelDisp(slot, point));
    }
  }
}

template <class File>
void NetworkRowsOf(File& file) {
  file.Line(design.AttenOn, design.AttenLength, design.AttenRate, design.AttenFreq,
            design.AttenExp);
  file.Label("[ Electrical Network ]");
  for (int row = 1; row <= kNetworkRows; ++row) {
    file.Line(design.ElNet(row, 1), design.ElNet(row, 2), design.ElNet(row, 3),
              design.ElNet(row, 4), design.ElNet(row, 5), design.ElNet(row, 6));
  }
}

template <class File>
void CurveRows(File& file) {
  Curve(file, curves.ZinElecRe, curves.ZinElecIm, "[ Zin Electric Re, Im ]");
  Curve(file, curves.ZinAcRe, curves.ZinAcIm, "[ Zin Acoustic Re, Im ]");
  Curve(file, curves.TxEff, curves.RxEff, "[ Efficiency in Tx, Rx ]");
  Curve(file, curves.TxTFRe, curves.TxTFIm, "[ Tx TF Re, Im ]");
  Curve(file, curves.RxTFRe, curves.RxTFIm, "[ Rx TF Re, Im ]");
  Curve(file, curves.TwoWayTFRe, curves.TwoWayTFIm, "[ Two-way TF Re, Im ]");
}

template <class File>
void ExcitationRows(File& file) {
  file.Label("[ Excitation Waveform Type ]");
  file.Line(design.ExciteType);
  file.Label("[ Function Generator Settings ]");
  file.Line(design.ExciteWave, design.ExciteFreq, design.ExciteCycles, design.ExciteDelay,
            design.ExcitePhase, design.ExcitePoints);
  if (design.ExciteType == 2) {
    file.Label("[ Excitation File ]");
    file.Line(design.ExciteFileName, design.ExciteComment);
  }
  if (design.ExciteType < 1) {
    return;
  }
  file.Label("[ Excitation Waveform Data ]");
  file.Line(design.ExciteLength);
  for (long i = 0; i <= design.ExciteLength; ++i) {
    file.Line(wave.ExciteRe(i));
  }
}

}  // namespace halvorne
