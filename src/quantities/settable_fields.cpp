#include "quantities/settable_fields.h"

#include <bit>
#include <type_traits>

#include "engine/design_model.h"
#include "quantities/derived_values.h"

namespace halvorne {
namespace {

constexpr Rule kOneOrTwo{"1 or 2", [](double v) { return v == 1 || v == 2; }};
constexpr Rule kZeroToTwo{"0, 1 or 2", [](double v) { return v >= 0 && v <= 2; }};
constexpr Rule kOneToThree{"1, 2 or 3", [](double v) { return v >= 1 && v <= 3; }};
constexpr Rule kSign{"1 or -1", [](double v) { return v == 1 || v == -1; }};
constexpr Rule kPlateCount{"from 0 to 10", [](double v) { return v >= 0 && v <= kMaxPlates; }};
constexpr Rule kFreqPointCount{"from 1 to 16000",
                               [](double v) { return v >= 1 && v <= kLastFreqPoint; }};
constexpr Rule kTimePointCount{"a power of two from 2 to 65536", [](double v) {
                                 return v >= 2 && v <= kLastTimePoint + 1 &&
                                        std::has_single_bit(static_cast<unsigned>(v));
                               }};
constexpr Rule kTimeIndex{"from 0 to 65535",
                          [](double v) { return v >= 0 && v <= kLastTimePoint; }};

template <auto Member>
Field Scalar(const char* name, unsigned derived = kNothing, const Rule* rule = nullptr) {
  return {name, {}, [](Indexes) -> FieldPlace { return &(design.*Member); }, derived, rule};
}

template <auto Member>
Field Array(const std::string& name, unsigned derived = kNothing, const Rule* rule = nullptr) {
  using Type = std::decay_t<decltype(design.*Member)>;
  return {name + "()",
          {{Type::first, Type::last}},
          [](Indexes at) -> FieldPlace { return &(design.*Member)(at.first); },
          derived,
          rule};
}

template <auto Member>
Field Table(const std::string& name, unsigned derived = kNothing) {
  using Rows = decltype((design.*Member).rows);
  using Columns = std::decay_t<decltype((design.*Member).rows(Rows::first))>;
  return {name + "()",
          {{Rows::first, Rows::last}, {Columns::first, Columns::last}},
          [](Indexes at) -> FieldPlace { return &(design.*Member)(at.first, at.second); },
          derived};
}

template <auto Records, auto Member>
Field RecordMember(const std::string& name, const char* member, unsigned derived = kNothing) {
  using Type = std::decay_t<decltype(design.*Records)>;
  return {name + "()." + member,
          {{Type::first, Type::last}},
          [](Indexes at) -> FieldPlace { return &((design.*Records)(at.first).*Member); },
          derived};
}

void AddPiezoelectric(std::vector<Field>& table) {
  constexpr auto matl = &Design::PZMatl;
  using Record = PiezoMaterial;
  const std::string name = "PZMatl";
  table.insert(table.end(), {Scalar<&Design::NoPiezo>("NoPiezo", kPiezo, &kOneOrTwo),
                             Scalar<&Design::PZConnect>("PZConnect", kPiezo, &kZeroToTwo),
                             Scalar<&Design::PZConnectName>("PZConnectName"),
                             RecordMember<matl, &Record::Name>(name, "Name"),
                             RecordMember<matl, &Record::Velocity>(name, "Velocity", kPiezo),
                             RecordMember<matl, &Record::ShearVelocity>(name, "ShearVelocity"),
                             RecordMember<matl, &Record::Density>(name, "Density", kPiezo),
                             RecordMember<matl, &Record::Ks>(name, "Ks", kPiezo),
                             RecordMember<matl, &Record::Kt>(name, "Kt", kPiezo),
                             RecordMember<matl, &Record::TanDe>(name, "TanDe", kPiezo),
                             RecordMember<matl, &Record::TanDm>(name, "TanDm", kPiezo),
                             RecordMember<matl, &Record::Vendor>(name, "Vendor"),
                             RecordMember<matl, &Record::DataSource>(name, "DataSource"),
                             Array<&Design::PZThick>("PZThick", kPiezo),
                             Array<&Design::PZPolarity>("PZPolarity", kNothing, &kSign),
                             Array<&Design::PZFa>("PZFa"),
                             Array<&Design::PZCo>("PZCo"),
                             Array<&Design::PZRp>("PZRp"),
                             Array<&Design::PZM0>("PZM0"),
                             Scalar<&Design::ElementArea>("ElementArea", kPiezo),
                             Scalar<&Design::ElementSizeText>("ElementSizeText"),
                             Scalar<&Design::ElementShape>("ElementShape", kNothing, &kOneToThree),
                             Scalar<&Design::ElementDim1>("ElementDim1"),
                             Scalar<&Design::ElementDim2>("ElementDim2")});
}

template <auto Records>
void AddPlateMaterials(std::vector<Field>& table, const std::string& name) {
  using Record = AcousticMaterial;
  table.insert(table.end(), {RecordMember<Records, &Record::Name>(name, "Name"),
                             RecordMember<Records, &Record::Velocity>(name, "Velocity"),
                             RecordMember<Records, &Record::ShearVelocity>(name, "ShearVelocity"),
                             RecordMember<Records, &Record::Density>(name, "Density"),
                             RecordMember<Records, &Record::Loss>(name, "Loss"),
                             RecordMember<Records, &Record::LossFreq>(name, "LossFreq"),
                             RecordMember<Records, &Record::LossExp>(name, "LossExp"),
                             RecordMember<Records, &Record::Vendor>(name, "Vendor"),
                             RecordMember<Records, &Record::Formula>(name, "Formula"),
                             RecordMember<Records, &Record::Comments>(name, "Comments"),
                             RecordMember<Records, &Record::DataSource>(name, "DataSource")});
}

void AddChains(std::vector<Field>& table) {
  table.insert(table.end(), {Scalar<&Design::NoFace>("NoFace", kNothing, &kPlateCount),
                             Scalar<&Design::NoBack>("NoBack", kNothing, &kPlateCount),
                             Array<&Design::FrontThick>("FrontThick"),
                             Array<&Design::BackThick>("BackThick"),
                             Array<&Design::FrontArea>("FrontArea"),
                             Array<&Design::BackArea>("BackArea"),
                             Array<&Design::FrontLoss>("FrontLoss"),
                             Array<&Design::BackLoss>("BackLoss"),
                             Array<&Design::FrontDelay>("FrontDelay"),
                             Array<&Design::BackDelay>("BackDelay"),
                             Array<&Design::FrontLossFreq>("FrontLossFreq"),
                             Array<&Design::BackLossFreq>("BackLossFreq"),
                             Array<&Design::FrontLossExp>("FrontLossExp"),
                             Array<&Design::BackLossExp>("BackLossExp"),
                             Array<&Design::FrontZ>("FrontZ"),
                             Array<&Design::BackZ>("BackZ"),
                             Array<&Design::FrontVel>("FrontVel"),
                             Array<&Design::BackVel>("BackVel"),
                             Scalar<&Design::PZVelDispOn>("PZVelDispOn"),
                             Scalar<&Design::FaceVelDispOn>("FaceVelDispOn"),
                             Scalar<&Design::BackVelDispOn>("BackVelDispOn"),
                             Table<&Design::VelDisp>("VelDisp"),
                             Table<&Design::VelDispNames>("VelDispNames")});
}

void AddSweep(std::vector<Field>& table) {
  table.insert(
      table.end(),
      {Scalar<&Design::FreqStart>("FreqStart", kLimits),
       Scalar<&Design::FreqStop>("FreqStop", kLimits),
       Scalar<&Design::NoFreqPts>("NoFreqPts", kLimits, &kFreqPointCount),
       Scalar<&Design::NoTimePts>("NoTimePts", kSampling, &kTimePointCount),
       Scalar<&Design::DesignFreq>("DesignFreq"), Scalar<&Design::DesignFreqText>("DesignFreqText"),
       Scalar<&Design::FreqScale>("FreqScale", kSampling), Scalar<&Design::FreqUnit>("FreqUnit"),
       Scalar<&Design::FreqStep>("FreqStep"), Scalar<&Design::SampleRateHz>("SampleRateHz"),
       Scalar<&Design::TimeWindow>("TimeWindow")});
}

void AddLoads(std::vector<Field>& table) {
  table.insert(table.end(), {Scalar<&Design::TermTx>("TermTx"),
                             Scalar<&Design::TermRx>("TermRx"),
                             Scalar<&Design::ZFrontLoad>("ZFrontLoad", kLoads),
                             Scalar<&Design::ZBackLoad>("ZBackLoad", kLoads),
                             Scalar<&Design::ZFrontComplex>("ZFrontComplex", kLoads),
                             Scalar<&Design::ZBackComplex>("ZBackComplex", kLoads),
                             Scalar<&Design::ZFrontFile>("ZFrontFile"),
                             Scalar<&Design::ZBackFile>("ZBackFile"),
                             Scalar<&Design::ZFrontComment>("ZFrontComment"),
                             Scalar<&Design::ZBackComment>("ZBackComment"),
                             Array<&Design::ZFrontNormRe>("ZFrontNormRe", kLoads),
                             Array<&Design::ZFrontNormIm>("ZFrontNormIm", kLoads),
                             Array<&Design::ZBackNormRe>("ZBackNormRe", kLoads),
                             Array<&Design::ZBackNormIm>("ZBackNormIm", kLoads),
                             Array<&Design::ZFrontRe>("ZFrontRe"),
                             Array<&Design::ZFrontIm>("ZFrontIm"),
                             Array<&Design::ZBackRe>("ZBackRe"),
                             Array<&Design::ZBackIm>("ZBackIm"),
                             Scalar<&Design::FrontLoadArea>("FrontLoadArea"),
                             Scalar<&Design::BackLoadArea>("BackLoadArea"),
                             Table<&Design::ElNet>("ElNet"),
                             Scalar<&Design::AttenOn>("AttenOn"),
                             Scalar<&Design::AttenLength>("AttenLength"),
                             Scalar<&Design::AttenRate>("AttenRate"),
                             Scalar<&Design::AttenFreq>("AttenFreq"),
                             Scalar<&Design::AttenExp>("AttenExp")});
}

void AddExcitationAndDocument(std::vector<Field>& table) {
  table.insert(
      table.end(),
      {Scalar<&Design::ExciteType>("ExciteType", kExcitation, &kZeroToTwo),
       Scalar<&Design::ExciteWave>("ExciteWave", kExcitation, &kOneOrTwo),
       Scalar<&Design::ExciteFreq>("ExciteFreq", kExcitation),
       Scalar<&Design::ExciteCycles>("ExciteCycles", kExcitation),
       Scalar<&Design::ExciteDelay>("ExciteDelay", kExcitation),
       Scalar<&Design::ExcitePhase>("ExcitePhase", kExcitation),
       Scalar<&Design::ExcitePoints>("ExcitePoints", kExcitation, &kTimeIndex),
       Scalar<&Design::ExciteFileName>("ExciteFileName"),
       Scalar<&Design::ExciteComment>("ExciteComment"),
       Scalar<&Design::ExciteLength>("ExciteLength", kNothing, &kTimeIndex),
       Scalar<&Design::DataFileName>("DataFileName"), Scalar<&Design::DesignTitle>("DesignTitle"),
       Scalar<&Design::CalcDateTime>("CalcDateTime"),
       Scalar<&Design::FileVersionText>("FileVersionText"),
       Scalar<&Design::FileFormat>("FileFormat"), Scalar<&Design::DesignNew>("DesignNew")});
}

}  // namespace

const std::vector<Field>& SettableFields() {
  static const std::vector<Field> all = [] {
    std::vector<Field> table;
    AddPiezoelectric(table);
    AddPlateMaterials<&Design::FaceMatl>(table, "FaceMatl");
    AddPlateMaterials<&Design::BackMatl>(table, "BackMatl");
    AddChains(table);
    AddSweep(table);
    AddLoads(table);
    AddExcitationAndDocument(table);
    return table;
  }();
  return all;
}

}  // namespace halvorne
