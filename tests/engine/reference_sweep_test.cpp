#include <algorithm>
#include <set>

#include "engine_fixture.h"
#include "random_designs.h"
#include "support/reference_model.h"

// The whole sweep against the reference model on designs made at random.

namespace halvorne::testing {
namespace {

SweptCurves ReferenceCurves() {
  SweptCurves all;
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    const ReferencePoint point = ReferenceAt(i);
    all.ZinElec.push_back(point.ZinElec);
    all.ZinAc.push_back(point.ZinAc);
    all.TxTF.push_back(point.TxTF);
    all.RxTF.push_back(point.RxTF);
    all.TwoWayTF.push_back(point.TwoWayTF);
    all.TxEff.push_back(point.TxEff);
    all.RxEff.push_back(point.RxEff);
  }
  return all;
}

struct SweepCase {
  const char* name;
  DesignKind kind;
};

class ReferenceSweep : public EngineTest, public ::testing::WithParamInterface<SweepCase> {};

TEST_P(ReferenceSweep, AgreesAtEveryPoint) {
  RandomDesigns random(20240607);
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    random.Make(GetParam().kind);
    const SweptCurves swept = Swept();
    ExpectSameCurves(swept, ReferenceCurves(), 1e-11);
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_EQ(shown.Lines(), Boxes{});
}

constexpr int kOne = 1;
constexpr int kTwo = 2;
INSTANTIATE_TEST_SUITE_P(
    Designs, ReferenceSweep,
    ::testing::Values(SweepCase{"BareLayer", {kOne, false, false, false, false, false, 0}},
                      SweepCase{"LossyLayerWithPlates", {kOne, true, false, false, false, true, 3}},
                      SweepCase{"DispersivePlates", {kOne, true, true, false, false, true, 3}},
                      SweepCase{"ComplexLoads", {kOne, true, false, true, false, true, 2}},
                      SweepCase{"Networks", {kOne, true, false, false, true, true, 1}},
                      SweepCase{"TwoLayers", {kTwo, true, false, false, false, true, 2}},
                      SweepCase{"TwoDispersiveLayers", {kTwo, true, true, false, false, true, 2}},
                      SweepCase{"Everything", {0, true, true, true, true, true, 10}}),
    [](const auto& param) { return param.param.name; });

TEST_F(EngineTest, TheReferenceDesignsMeetEveryKindOfStackAndElement) {
  RandomDesigns random(20240607);
  std::set<int> connections;
  std::set<int> codes;
  for (int round = 0; round < 60; ++round) {
    random.Make({});
    connections.insert(design.PZConnect);
    for (int row = 1; row <= kNetworkRows; ++row) {
      codes.insert(static_cast<int>(design.ElNet(row, 1)));
    }
  }
  EXPECT_EQ(connections, (std::set<int>{0, 1, 2}));
  EXPECT_EQ(codes.size(), 18U) << "a code between 0 and 17 is never tried";
}

TEST_F(EngineTest, ReferenceAgreesForAnUnknownCodeBehindAnElementAndInTheFirstRow) {
  RandomDesigns random(77);
  random.Make({.layers = 1, .network = false});
  design.ElNet(1, 1) = 18;  // the stack's own matrix stands in the section
  design.ElNet(2, 1) = 3;
  design.ElNet(2, 2) = 1e-6;
  design.ElNet(3, 1) = -4;  // the inductor again
  ExpectSameCurves(Swept(), ReferenceCurves(), 1e-11);
}

}  // namespace
}  // namespace halvorne::testing
