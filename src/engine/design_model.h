#pragma once

#include <cstdint>
#include <string>

#include "platform/bounded.h"

// The one design of the program, its results and the copies that dialogs edit. All quantities are
// SI unless a field says otherwise.

namespace halvorne {

inline constexpr int kMaxPiezo = 2;
inline constexpr int kMaxPlates = 10;
inline constexpr int kNetworkRows = 20;
inline constexpr int kNetworkColumns = 6;
inline constexpr int kLastFreqPoint = 16000;
inline constexpr int kLastTimePoint = 65535;
inline constexpr int kDispersionSlots = 22;
/// Dispersion slot of the back half of the piezoelectric stack; back plate n has n + 11.
inline constexpr int kBackSlot = 11;

/// One value per frequency point.
using FreqCurve = Bounded<double, 0, kLastFreqPoint>;
/// One value per time sample. The gap behind them staggers curves that stand side by side, so that
/// the same sample of several curves isn't found in the same set of a cache.
struct TimeCurve : Bounded<double, 0, kLastTimePoint> {
  double gap[56];
};

struct PiezoMaterial {
  std::string Name;          ///< "None" marks a layer that isn't in use
  double Velocity = 0;       ///< longitudinal, m/s
  double ShearVelocity = 0;  ///< m/s
  double Density = 0;        ///< kg/m^3
  double Ks = 0;             ///< clamped relative dielectric constant, shown as "E33s"
  double Kt = 0;             ///< thickness coupling factor
  double TanDe = 0;          ///< electrical loss tangent
  double TanDm = 0;          ///< mechanical loss tangent
  std::string Vendor;
  std::string DataSource;
};

struct AcousticMaterial {
  std::string Name;
  double Velocity = 0;       ///< longitudinal, m/s
  double ShearVelocity = 0;  ///< m/s
  double Density = 0;        ///< kg/m^3
  float Loss = 0;            ///< attenuation at LossFreq, dB/cm
  float LossFreq = 0;        ///< MHz
  float LossExp = 0;         ///< exponent of the loss's frequency law
  std::string Vendor;
  std::string Formula;
  std::string Comments;
  std::string DataSource;
};

using PlateMaterials = Bounded<AcousticMaterial, 1, kMaxPlates>;
using ChainValues = Bounded<double, 0, 25>;
/// Rows of the matching network: column 1 the element's code, 2 to 6 its values in SI units.
using NetworkRows = Bounded2<double, 1, kNetworkRows, 1, kNetworkColumns>;
/// Factor by which a chain entry's phase velocity differs at a frequency point; neutral 1.
using DispersionTable = Bounded2<double, 0, kDispersionSlots - 1, 0, kLastFreqPoint>;
/// Kind 0 the dispersion file's name, kind 1 its comment; neutral "blank".
using DispersionNames = Bounded2<std::string, 0, kDispersionSlots - 1, 0, 1>;

/// Everything that describes one transducer and its sweep.
struct Design {
  // Piezoelectric layers: 1 the rear one (the only one of single-layer designs), 2 the front one.
  std::int16_t NoPiezo = 0;    ///< 1 or 2
  std::int16_t PZConnect = 0;  ///< 0 one layer, 1 series, 2 parallel
  std::string PZConnectName;   ///< "None", "Series" or "Parallel"
  Bounded<PiezoMaterial, 1, kMaxPiezo> PZMatl;
  Bounded<double, 1, kMaxPiezo> PZThick;           ///< m
  Bounded<std::int16_t, 1, kMaxPiezo> PZPolarity;  ///< +1 or -1

  // Their constants, from PiezoConstants.
  Bounded<double, 1, kMaxPiezo> PZFa;  ///< half-wave frequency, Hz
  Bounded<double, 1, kMaxPiezo> PZCo;  ///< clamped capacitance, F
  Bounded<double, 1, kMaxPiezo> PZRp;  ///< dielectric loss figure: resistance across Co x omega
  Bounded<double, 1, kMaxPiezo> PZM0;  ///< h / (omega Z0) at PZFa

  // Element.
  double ElementArea = 0;         ///< m^2
  std::string ElementSizeText;    ///< the words behind "Element size: "
  std::int16_t ElementShape = 0;  ///< 1 disk, 2 annulus, 3 rectangle
  double ElementDim1 = 0;         ///< mm
  double ElementDim2 = 0;         ///< mm

  // Plates: 1 lies next to the piezoelectric stack.
  std::int16_t NoFace = 0;
  std::int16_t NoBack = 0;
  PlateMaterials FaceMatl;
  PlateMaterials BackMatl;

  // The two acoustic chains: index 0 is half a piezoelectric layer, 1 to 10 the side's plates.
  ChainValues FrontThick, BackThick;        ///< m
  ChainValues FrontArea, BackArea;          ///< relative area
  ChainValues FrontLoss, BackLoss;          ///< loss at the reference frequency, Np
  ChainValues FrontDelay, BackDelay;        ///< transit time, s
  ChainValues FrontLossFreq, BackLossFreq;  ///< reference frequency of the loss, Hz
  Bounded<float, 0, 25> FrontLossExp, BackLossExp;
  ChainValues FrontZ, BackZ;      ///< characteristic impedance with the area, Rayl m^2
  ChainValues FrontVel, BackVel;  ///< index 0 only: velocity of that half layer, m/s

  // Velocity dispersion. Slot 0 front half of the stack, 1 to 10 face plates, 11 back half,
  // 12 to 21 back plates.
  bool PZVelDispOn = false;
  bool FaceVelDispOn = false;
  bool BackVelDispOn = false;
  DispersionTable VelDisp;
  DispersionNames VelDispNames;

  // Sweep and time record.
  double FreqStart = 0;        ///< Hz
  double FreqStop = 0;         ///< Hz
  std::int32_t NoFreqPts = 0;  ///< intervals; the points run 0 to NoFreqPts
  std::int32_t NoTimePts = 0;  ///< samples, a power of two for the transform
  double DesignFreq = 0;       ///< design centre frequency Fd, Hz
  std::string DesignFreqText;  ///< kept with DesignFreq in the file
  float FreqScale = 0;         ///< display unit of frequency, Hz
  std::string FreqUnit;        ///< its caption
  double FreqStep = 0;         ///< Hz
  double SampleRateHz = 0;
  double TimeWindow = 0;  ///< s

  // Terminations and loads.
  double TermTx = 0;      ///< transmitter output impedance, ohms
  double TermRx = 0;      ///< receiver input impedance, ohms
  double ZFrontLoad = 0;  ///< nominal load, Rayl
  double ZBackLoad = 0;   ///< nominal load, Rayl
  bool ZFrontComplex = false;
  bool ZBackComplex = false;
  std::string ZFrontFile, ZBackFile;                               ///< "blank" when none
  std::string ZFrontComment, ZBackComment;                         ///< "none" when none
  FreqCurve ZFrontNormRe, ZFrontNormIm, ZBackNormRe, ZBackNormIm;  ///< relative to the nominal load
  FreqCurve ZFrontRe, ZFrontIm, ZBackRe, ZBackIm;                  ///< load in force, Rayl
  double FrontLoadArea = 0;  ///< area of the outermost layer, m^2
  double BackLoadArea = 0;   ///< m^2

  /// Row 1 lies next to the transducer; a code of 0 ends the network.
  NetworkRows ElNet;

  // Attenuation in the load medium, for the display only.
  bool AttenOn = false;
  float AttenLength = 0;  ///< cm
  float AttenRate = 0;    ///< dB/cm
  float AttenFreq = 0;    ///< Hz
  float AttenExp = 0;

  // Excitation.
  std::int16_t ExciteType = 0;  ///< 0 none, 1 function generator, 2 file
  std::int16_t ExciteWave = 0;  ///< 1 sine, 2 square
  float ExciteFreq = 0;         ///< Hz
  float ExciteCycles = 0;
  float ExciteDelay = 0;  ///< s
  float ExcitePhase = 0;  ///< degrees
  std::int32_t ExcitePoints = 0;
  std::string ExciteFileName;
  std::string ExciteComment;
  std::int32_t ExciteLength = 0;  ///< last index of the waveform

  // Document.
  std::string DataFileName;
  std::string DesignTitle;
  std::string CalcDateTime;     ///< stamped by each sweep
  std::string FileVersionText;  ///< of the program that wrote the file
  float FileFormat = 0;         ///< 4 when written
  std::int32_t DesignNew = 0;   ///< 65535 after a recalculation, 0 after a file was read or written
};

/// The six result curves of the last sweep, or of the file as read.
struct Curves {
  FreqCurve ZinElecRe, ZinElecIm;    ///< electrical input impedance, ohms
  FreqCurve ZinAcRe, ZinAcIm;        ///< acoustic input impedance, Rayl
  FreqCurve TxEff, RxEff;            ///< efficiencies
  FreqCurve TxTFRe, TxTFIm;          ///< transmit transfer function, Pa/V
  FreqCurve RxTFRe, RxTFIm;          ///< receive transfer function, uV/Pa
  FreqCurve TwoWayTFRe, TwoWayTFIm;  ///< two-way transfer function, V/V
};

/// What dialogs edit until their OK moves it into the design.
struct Draft {
  Bounded<PiezoMaterial, 1, kMaxPiezo> TmpPZMatl;
  Bounded<double, 1, kMaxPiezo> TmpPZThick;           ///< m
  Bounded<std::int16_t, 1, kMaxPiezo> TmpPZPolarity;  ///< +1 or -1
  std::int16_t TmpNoPiezo = 0;
  std::int16_t TmpPZConnect = 0;
  std::string TmpPZConnectName;
  bool TmpPZVelDispOn = false;

  PlateMaterials TmpAcMatl;
  Bounded<double, 0, kMaxPlates - 1> TmpPlateThick;  ///< m; element n - 1 is plate n
  Bounded<double, 0, kMaxPlates - 1> TmpPlateArea;   ///< element n - 1 is plate n
  std::int16_t TmpNoPlates = 0;
  bool TmpPlateVelDispOn = false;

  DispersionTable VelDispBackup;
  DispersionNames VelDispNamesBackup;

  NetworkRows TmpElNet;
  std::int16_t ElRow = 0;     ///< row of it that is being worked on, 1 to 20
  std::int16_t ElAction = 0;  ///< 1 insert, 2 change

  /// Option of frmAcoustLoad that was clicked last on a side, 0 real, 1 complex; never put back.
  std::int16_t LastFrontLoadOption = 0;
  std::int16_t LastBackLoadOption = 0;

  std::int16_t TmpExciteType = 0;
  std::int16_t TmpExciteWave = 0;
  float TmpExciteFreq = 0;
  float TmpExciteCycles = 0;
  float TmpExciteDelay = 0;
  float TmpExcitePhase = 0;
  std::int32_t TmpExcitePoints = 0;
  TimeCurve TmpExciteWfm;
};

extern Design design;
extern Curves curves;
extern Draft draft;

/// Fills layer 2 with the neutral layer that a single-layer design holds.
void InitPZLayer2();

/// Derives index 0 of both chains from the piezoelectric layers. On single-layer designs both
/// halves are of layer 1, layer 2 becomes neutral and the connection "None".
void PiezoLayers();

}  // namespace halvorne
