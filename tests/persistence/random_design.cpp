#include "persistence/random_design.h"

#include <cstdio>
#include <cstdlib>
#include <random>

#include "engine/design_model.h"
#include "timedomain/wave_state.h"

namespace halvorne::testing {
namespace {

class Dice {
 public:
  explicit Dice(unsigned seed) : random_(seed) {}

  int Whole(int from, int to) {
    return from + static_cast<int>(random_() % static_cast<unsigned>(to - from + 1));
  }
  bool Coin() { return Whole(0, 1) == 1; }
  void operator()(double& value) { value = std::strtod(Decimal(15, 20).c_str(), nullptr); }
  void operator()(float& value) { value = std::strtof(Decimal(6, 20).c_str(), nullptr); }
  void operator()(std::int16_t& value) { value = static_cast<std::int16_t>(Whole(-32768, 32767)); }
  void operator()(std::int32_t& value) { value = Whole(-1000000, 1000000); }
  void operator()(bool& value) { value = Coin(); }
  void operator()(std::string& value) {
    value.clear();
    for (int left = Whole(0, 30); left > 0; --left) {
      value += Whole(0, 9) == 0 ? '"' : static_cast<char>(Whole(1, 255));
    }
  }
  template <class First, class... Rest>
  requires(sizeof...(Rest) > 0) void operator()(First& first, Rest&... rest) {
    (*this)(first);
    (*this)(rest...);
  }

 private:
  /// A positive decimal of 1 to `most` digits, of any size up to 10^+-range.
  std::string Decimal(int most, int range) {
    std::string text = std::to_string(Whole(1, 9)) + ".";
    for (int left = Whole(0, most - 1); left > 0; --left) {
      text += std::to_string(Whole(0, 9));
    }
    return text + "E" + std::to_string(Whole(-range, range));
  }

  std::mt19937 random_;
};

void FillPlates(Dice& dice, PlateMaterials& materials, ChainValues& thick, ChainValues& area) {
  for (AcousticMaterial& m : materials) {
    dice(m.Name, m.Velocity, m.ShearVelocity, m.Density, m.Loss, m.LossFreq, m.LossExp, m.Vendor,
         m.Formula, m.Comments, m.DataSource);
  }
  for (int i = 1; i <= kMaxPlates; ++i) {
    dice(thick(i), area(i));
  }
}

void FillLoad(Dice& dice, bool& isComplex, std::string& name, std::string& comment, FreqCurve& re,
              FreqCurve& im) {
  dice(isComplex);
  if (isComplex) {
    dice(name, comment);
  } else {  // a real side forgets its file
    name = "blank";
    comment = "none";
  }
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    dice(re(i), im(i));
  }
}

std::string Bits(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%a", value);
  return text;
}

class Fields {
 public:
  void Add(const std::string& name, const std::string& value) {
    list.push_back(name + " = " + value);
  }
  void Add(const std::string& name, double value) { Add(name, Bits(value)); }

  void Plates(const std::string& side, int plates, const PlateMaterials& materials,
              const ChainValues& thick, const ChainValues& area) {
    for (int i = 1; i <= plates; ++i) {
      const AcousticMaterial& m = materials(i);
      const std::string name = side + std::to_string(i) + ".";
      Add(name + "Name", m.Name);
      Add(name + "Velocity", m.Velocity);
      Add(name + "ShearVelocity", m.ShearVelocity);
      Add(name + "Density", m.Density);
      Add(name + "Loss", m.Loss);
      Add(name + "LossFreq", m.LossFreq);
      Add(name + "LossExp", m.LossExp);
      Add(name + "Vendor", m.Vendor);
      Add(name + "Formula", m.Formula);
      Add(name + "Comments", m.Comments);
      Add(name + "DataSource", m.DataSource);
    }
    for (int i = 0; i <= plates; ++i) {
      Add(side + "Thick" + std::to_string(i), thick(i));
      Add(side + "Area" + std::to_string(i), area(i));
    }
  }
  void Curve(const std::string& name, const FreqCurve& curve) {
    for (int i = 0; i <= design.NoFreqPts; ++i) {
      Add(name + std::to_string(i), curve(i));
    }
  }

  std::vector<std::string> list;
};

void AddScalars(Fields& f) {
  f.Add("CalcDateTime", design.CalcDateTime);
  f.Add("DesignTitle", design.DesignTitle);
  f.Add("FreqStart", design.FreqStart);
  f.Add("FreqStop", design.FreqStop);
  f.Add("FreqScale", design.FreqScale);
  f.Add("FreqUnit", design.FreqUnit);
  f.Add("DesignFreq", design.DesignFreq);
  f.Add("DesignFreqText", design.DesignFreqText);
  f.Add("NoPiezo", design.NoPiezo);
  f.Add("PZConnect", design.PZConnect);
  f.Add("PZConnectName", design.PZConnectName);
  f.Add("ElementArea", design.ElementArea);
  f.Add("ElementSizeText", design.ElementSizeText);
  f.Add("ElementShape", design.ElementShape);
  f.Add("ElementDim1", design.ElementDim1);
  f.Add("ElementDim2", design.ElementDim2);
  f.Add("PZVelDispOn", design.PZVelDispOn);
  f.Add("FaceVelDispOn", design.FaceVelDispOn);
  f.Add("BackVelDispOn", design.BackVelDispOn);
  f.Add("NoFreqPts", design.NoFreqPts);
  f.Add("NoTimePts", design.NoTimePts);
  f.Add("TermTx", design.TermTx);
  f.Add("TermRx", design.TermRx);
  f.Add("ZFrontLoad", design.ZFrontLoad);
  f.Add("ZBackLoad", design.ZBackLoad);
  f.Add("NoFace", design.NoFace);
  f.Add("NoBack", design.NoBack);
  f.Add("ZFrontComplex", design.ZFrontComplex);
  f.Add("ZFrontFile", design.ZFrontFile);
  f.Add("ZFrontComment", design.ZFrontComment);
  f.Add("ZBackComplex", design.ZBackComplex);
  f.Add("ZBackFile", design.ZBackFile);
  f.Add("ZBackComment", design.ZBackComment);
  f.Add("AttenOn", design.AttenOn);
  f.Add("AttenLength", design.AttenLength);
  f.Add("AttenRate", design.AttenRate);
  f.Add("AttenFreq", design.AttenFreq);
  f.Add("AttenExp", design.AttenExp);
  f.Add("ExciteType", design.ExciteType);
  f.Add("ExciteWave", design.ExciteWave);
  f.Add("ExciteFreq", design.ExciteFreq);
  f.Add("ExciteCycles", design.ExciteCycles);
  f.Add("ExciteDelay", design.ExciteDelay);
  f.Add("ExcitePhase", design.ExcitePhase);
  f.Add("ExcitePoints", design.ExcitePoints);
  if (design.ExciteType == 2) {
    f.Add("ExciteFileName", design.ExciteFileName);
    f.Add("ExciteComment", design.ExciteComment);
  }
}

void AddPiezo(Fields& f) {
  for (int i = 1; i <= design.NoPiezo; ++i) {
    const PiezoMaterial& m = design.PZMatl(i);
    const std::string name = "PZMatl" + std::to_string(i) + ".";
    f.Add(name + "Name", m.Name);
    f.Add(name + "Velocity", m.Velocity);
    f.Add(name + "ShearVelocity", m.ShearVelocity);
    f.Add(name + "Density", m.Density);
    f.Add(name + "Ks", m.Ks);
    f.Add(name + "Kt", m.Kt);
    f.Add(name + "TanDe", m.TanDe);
    f.Add(name + "TanDm", m.TanDm);
    f.Add(name + "Vendor", m.Vendor);
    f.Add(name + "DataSource", m.DataSource);
    f.Add(name + "PZThick", design.PZThick(i));
    f.Add(name + "PZPolarity", design.PZPolarity(i));
  }
}

}  // namespace

void MakeRandomDesign(unsigned seed, int intervals) {
  Dice dice(seed);
  dice(design.CalcDateTime, design.DesignTitle, design.FreqStart, design.FreqStop, design.FreqScale,
       design.FreqUnit, design.DesignFreq, design.DesignFreqText, design.PZConnect,
       design.PZConnectName);
  design.NoPiezo = static_cast<std::int16_t>(dice.Whole(1, 2));
  for (int i = 1; i <= kMaxPiezo; ++i) {
    PiezoMaterial& m = design.PZMatl(i);
    dice(m.Name, m.Velocity, m.ShearVelocity, m.Density, m.Ks, m.Kt, m.TanDe, m.TanDm, m.Vendor,
         m.DataSource, design.PZThick(i), design.PZPolarity(i));
  }
  dice(design.ElementArea, design.ElementSizeText, design.ElementShape, design.ElementDim1,
       design.ElementDim2, design.PZVelDispOn, design.FaceVelDispOn, design.BackVelDispOn,
       design.TermTx, design.TermRx, design.ZFrontLoad, design.ZBackLoad);
  design.NoFreqPts = intervals;
  design.NoTimePts = 64;
  design.NoFace = static_cast<std::int16_t>(dice.Whole(0, kMaxPlates));
  design.NoBack = static_cast<std::int16_t>(dice.Whole(0, kMaxPlates));
  FillPlates(dice, design.FaceMatl, design.FrontThick, design.FrontArea);
  FillPlates(dice, design.BackMatl, design.BackThick, design.BackArea);
  FillLoad(dice, design.ZFrontComplex, design.ZFrontFile, design.ZFrontComment, design.ZFrontNormRe,
           design.ZFrontNormIm);
  FillLoad(dice, design.ZBackComplex, design.ZBackFile, design.ZBackComment, design.ZBackNormRe,
           design.ZBackNormIm);
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    dice(design.VelDispNames(slot, 0), design.VelDispNames(slot, 1));
    for (int point = 0; point <= intervals; ++point) {
      dice(design.VelDisp(slot, point));
    }
  }
  dice(design.AttenOn, design.AttenLength, design.AttenRate, design.AttenFreq, design.AttenExp);
  for (int row = 1; row <= kNetworkRows; ++row) {
    for (int column = 1; column <= kNetworkColumns; ++column) {
      dice(design.ElNet(row, column));
    }
  }
  for (int i = 0; i <= intervals; ++i) {
    dice(curves.ZinElecRe(i), curves.ZinElecIm(i), curves.ZinAcRe(i), curves.ZinAcIm(i),
         curves.TxEff(i), curves.RxEff(i), curves.TxTFRe(i), curves.TxTFIm(i), curves.RxTFRe(i),
         curves.RxTFIm(i), curves.TwoWayTFRe(i), curves.TwoWayTFIm(i));
  }
  design.ExciteType = static_cast<std::int16_t>(dice.Whole(0, 2));
  dice(design.ExciteWave, design.ExciteFreq, design.ExciteCycles, design.ExciteDelay,
       design.ExcitePhase, design.ExcitePoints, design.ExciteFileName, design.ExciteComment);
  design.ExciteLength = dice.Whole(0, 50);
  for (int i = 0; i <= design.ExciteLength; ++i) {
    dice(wave.ExciteRe(i));
  }
  PiezoLayers();
}

std::vector<std::string> StoredFields() {
  Fields f;
  AddScalars(f);
  AddPiezo(f);
  f.Plates("Front", design.NoFace, design.FaceMatl, design.FrontThick, design.FrontArea);
  f.Plates("Back", design.NoBack, design.BackMatl, design.BackThick, design.BackArea);
  f.Curve("ZFrontNormRe", design.ZFrontNormRe);
  f.Curve("ZFrontNormIm", design.ZFrontNormIm);
  f.Curve("ZBackNormRe", design.ZBackNormRe);
  f.Curve("ZBackNormIm", design.ZBackNormIm);
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    f.Add("VelDispNames" + std::to_string(slot), design.VelDispNames(slot, 0));
    f.Add("VelDispComments" + std::to_string(slot), design.VelDispNames(slot, 1));
    f.Curve("VelDisp" + std::to_string(slot) + " ", design.VelDisp.rows(slot));
  }
  for (int row = 1; row <= kNetworkRows; ++row) {
    for (int column = 1; column <= kNetworkColumns; ++column) {
      f.Add("ElNet" + std::to_string(row) + "," + std::to_string(column),
            design.ElNet(row, column));
    }
  }
  f.Curve("ZinElecRe", curves.ZinElecRe);
  f.Curve("ZinElecIm", curves.ZinElecIm);
  f.Curve("ZinAcRe", curves.ZinAcRe);
  f.Curve("ZinAcIm", curves.ZinAcIm);
  f.Curve("TxEff", curves.TxEff);
  f.Curve("RxEff", curves.RxEff);
  f.Curve("TxTFRe", curves.TxTFRe);
  f.Curve("TxTFIm", curves.TxTFIm);
  f.Curve("RxTFRe", curves.RxTFRe);
  f.Curve("RxTFIm", curves.RxTFIm);
  f.Curve("TwoWayTFRe", curves.TwoWayTFRe);
  f.Curve("TwoWayTFIm", curves.TwoWayTFIm);
  if (design.ExciteType >= 1) {
    f.Add("ExciteLength", design.ExciteLength);
    for (int i = 0; i <= design.ExciteLength; ++i) {
      f.Add("Excite" + std::to_string(i), wave.ExciteRe(i));
    }
  }
  return f.list;
}

}  // namespace halvorne::testing
