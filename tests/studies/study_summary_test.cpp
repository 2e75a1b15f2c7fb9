#include "studies/study_summary.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <numbers>

#include "statistics/normal.h"
#include "studies/run_plan.h"
#include "studies/study_fixture.h"

namespace halvorne::testing {
namespace {

using studies::ReadStudy;
using studies::RunTable;
using studies::Study;

class StudySummaries : public StudyTest {
 protected:
  const Study study = ReadStudy(R"({"design":"d","runs":20000,"vary":[
      {"field":"TermTx","distribution":"normal","mean":50,"deviation":2},
      {"field":"TermRx","distribution":"normal","mean":10,"deviation":1}],
      "measure":["peak","impedance@5e6"],
      "limits":[{"measure":"peak","atLeast":100},{"measure":"impedance@5e6","atMost":20}],
      "worst":3})",
                                "s");

  /// A response that is linear in what varies: peak = 2 x TermTx + TermRx, impedance = TermRx.
  RunTable LinearResponse() const {
    const studies::RunPlan plan(study);
    RunTable table{{{}, {}}, {{}, {}}, std::vector<bool>(20'000, false), {}};
    for (long run = 0; run < study.runs; ++run) {
      const std::vector<double> values = plan.Values(run);
      table.fields[0].push_back(values[0]);
      table.fields[1].push_back(values[1]);
      table.measures[0].push_back(2 * values[0] + values[1]);
      table.measures[1].push_back(values[1]);
    }
    return table;
  }
};

TEST_F(StudySummaries, OfALinearResponseAreThoseOfTheTheory) {
  const auto summary = Summarise(study, LinearResponse(), {110, 10});
  const auto& peak = summary.measures[0];
  // Mean 2 x 50 + 10, deviation sqrt(4 x 4 + 1); of 20000 runs four standard errors.
  const double deviation = std::sqrt(17);
  EXPECT_NEAR(peak.moments.Mean(), 110, 4 * deviation / std::sqrt(20'000));
  EXPECT_NEAR(peak.moments.Deviation(), deviation, 4 * deviation / std::sqrt(40'000));
  for (const double share : {0.05, 0.5, 0.95}) {
    EXPECT_NEAR(SampleQuantile(peak.sorted, share), 110 + deviation * NormalQuantile(share), 0.25)
        << share;
  }
  // Of normal quantities of correlation r the ranks have 6 / pi asin(r / 2).
  ASSERT_EQ(peak.influences[0].field, 0U) << "the stronger one first";
  const auto ranks = [](double r) { return 6 / std::numbers::pi * std::asin(r / 2); };
  EXPECT_NEAR(peak.influences[0].correlation, ranks(4 / deviation), 0.02);
  EXPECT_NEAR(peak.influences[1].correlation, ranks(1 / deviation), 0.03);
  EXPECT_NEAR(summary.measures[1].influences[0].correlation, 1, 1e-12);
  // The share above 100.
  const double good = 1 - NormalShare(-10 / deviation);
  EXPECT_NEAR(static_cast<double>(summary.yield.perLimit[0]) / 20'000, good, 0.004);
  EXPECT_EQ(summary.yield.perLimit[1], 20'000);
  EXPECT_EQ(summary.yield.passed, summary.yield.perLimit[0]);
}

TEST_F(StudySummaries, TheWorstRunMissesALimitByMostDeviations) {
  RunTable table = LinearResponse();
  table.measures[0][77] = -1000;
  table.measures[1][78] = 1000;  // by more deviations, since most of it spreads less
  table.failed[5] = true;
  table.measures[0][5] = table.measures[1][5] = std::nan("");
  const auto summary = Summarise(study, table, {110, 10});
  ASSERT_EQ(summary.yield.worst.size(), 3U);
  EXPECT_EQ(summary.failed, 1);
  EXPECT_TRUE((summary.yield.worst[0] == 77 && summary.yield.worst[1] == 78) ||
              (summary.yield.worst[0] == 78 && summary.yield.worst[1] == 77));
}

TEST_F(StudySummaries, AreTheSameForScriptsAndForPeople) {
  RunTable table = LinearResponse();
  table.errors["ERROR in X"] = {3, 17};
  const auto summary = Summarise(study, table, {110, std::nan("")});
  const auto json = nlohmann::json::parse(SummaryJson(study, table, summary));
  EXPECT_EQ(json["runs"], 20'000);
  EXPECT_EQ(json["measures"]["peak"]["asDesigned"], 110);
  EXPECT_TRUE(json["measures"]["impedance@5e6"]["asDesigned"].is_null());
  EXPECT_EQ(json["measures"]["peak"]["influences"][0]["field"], "TermTx");
  EXPECT_EQ(json["yield"]["limits"][0]["kept"], summary.yield.perLimit[0]);
  EXPECT_EQ(json["errors"][0]["firstRun"], 17);
  EXPECT_EQ(json["worst"].size(), 3U);
  const std::string text = SummaryText(study, table, summary);
  EXPECT_NE(text.find("20000 runs of d, seed 1, 0 failed"), std::string::npos);
  EXPECT_NE(text.find("Failed: 3 runs, the first of them run 17: ERROR in X"), std::string::npos);
}

}  // namespace
}  // namespace halvorne::testing
