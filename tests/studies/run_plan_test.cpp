#include "studies/run_plan.h"

#include "engine/design_model.h"
#include "statistics/sample.h"
#include "studies/study_fixture.h"

namespace halvorne::testing {
namespace {

using RunPlans = StudyTest;
using studies::KeptRuns;
using studies::ReadStudy;
using studies::RunPlan;
using studies::Study;

TEST_F(RunPlans, PerCentAreOfTheDesignsOwnValue) {
  design.TermTx = 80;
  const Study study =
      ReadStudy(Text("", R"("distribution":"grid","values":[50,100,150],"unit":"percent")"), "s");
  const RunPlan plan(study);
  EXPECT_NEAR(plan.Values(0)[0], 40, 1e-12);
  EXPECT_NEAR(plan.Values(1)[0], 80, 1e-12);
  EXPECT_NEAR(plan.Values(2)[0], 120, 1e-12);
  EXPECT_NEAR(plan.Values(3)[0], 40, 1e-12) << "a grid begins anew";
  design.TermTx = 0;
  EXPECT_THROW(RunPlan{study}, WrongInput);
}

TEST_F(RunPlans, ANormalFieldHasTheDesignsValueInItsMiddle) {
  design.TermTx = 80;
  const Study study =
      ReadStudy(Text("", R"("distribution":"normal","deviation":5,"unit":"percent")"), "s");
  const RunPlan plan(study);
  Moments moments;
  for (long run = 0; run < 10'000; ++run) {
    moments.Add(plan.Values(run)[0]);
  }
  EXPECT_NEAR(moments.Mean(), 80, 4 * 4 / 100.0);
  EXPECT_NEAR(moments.Deviation(), 4, 0.12);
}

TEST_F(RunPlans, GridsRunThroughAllTheirPointsTheLastOneFastest) {
  const Study study = ReadStudy(R"({"design":"d","vary":[
    {"field":"TermTx","distribution":"grid","from":40,"to":60,"count":3},
    {"field":"TermRx","distribution":"grid","values":[1,2]}]})",
                                "s");
  const RunPlan plan(study);
  std::vector<std::vector<double>> seen;
  for (long run = 0; run < study.runs; ++run) {
    seen.push_back(plan.Values(run));
  }
  EXPECT_EQ(seen, (std::vector<std::vector<double>>{
                      {40, 1}, {40, 2}, {50, 1}, {50, 2}, {60, 1}, {60, 2}}));
}

TEST_F(RunPlans, KeptRunsOfALargeStudyAreSpreadOverAllOfIt) {
  Study study = ReadStudy(Text(), "s");
  for (const long runs : {10L, 2000L, 2001L, 54'321L}) {
    study.runs = runs;
    const KeptRuns kept(study);
    long count = 0;
    for (long run = 0; run < runs; ++run) {
      ASSERT_EQ(kept.CountBelow(run), count) << run << " of " << runs;
      count += kept.Holds(run) ? 1 : 0;
    }
    EXPECT_EQ(count, std::min(runs, KeptRuns::kMost));
    EXPECT_EQ(kept.CountBelow(runs), count);
    EXPECT_NEAR(static_cast<double>(kept.CountBelow(runs / 2)), static_cast<double>(count) / 2, 1);
  }
}

}  // namespace
}  // namespace halvorne::testing
