#include "studies/study_fixture.h"

namespace halvorne::testing {
namespace {

using StudyFiles = StudyTest;
using studies::ReadStudy;
using studies::Study;

TEST_F(StudyFiles, SayAllThatAStudyNeeds) {
  const Study study = ReadStudy(R"json({
    "design": "probe.dat", "set": {"TermRx": 75, "AttenOn": true, "DesignTitle": "spread"},
    "runs": 200, "seed": 9, "acceptAliasing": true,
    "vary": [
      {"field": "FrontThick(1)", "distribution": "normal", "deviation": 2, "unit": "percent"},
      {"field": "TermTx", "distribution": "triangular", "from": 40, "mode": 50, "to": 70},
      {"field": "NoFace", "distribution": "list", "values": [0, 1]}],
    "correlated": [{"fields": ["TermTx", "FrontThick(1)"], "correlation": [[1, 0.6], [0.6, 1]]}],
    "measure": ["peak"], "limits": [{"measure": "bandwidth6", "atLeast": 1e6}],
    "plots": [{"plot": 31, "form": 1}], "percentiles": [10, 90], "worst": 3})json",
                                "s");
  EXPECT_EQ(study.design, "probe.dat");
  EXPECT_EQ(study.settings.size(), 3U);
  EXPECT_EQ(study.runs, 200);
  EXPECT_EQ(study.seed, 9U);
  EXPECT_TRUE(study.acceptAliasing);
  ASSERT_EQ(study.fields.size(), 3U);
  EXPECT_TRUE(study.fields[0].percent);
  EXPECT_TRUE(study.fields[0].meanIsOwn);
  EXPECT_EQ(study.fields[1].distribution.mean, 50);
  EXPECT_EQ(study.groups.at(0).fields, (std::vector<std::size_t>{1, 0}));
  EXPECT_NEAR(study.groups[0].factor[1][1], 0.8, 1e-15) << "0.6 and 0.8 are of a 3-4-5 triangle";
  ASSERT_EQ(study.measures.size(), 2U) << "that of the limit is measured too";
  EXPECT_EQ(study.limits.at(0).measure, 1U);
  EXPECT_EQ(study.plots.at(0).plot, 31);
  EXPECT_EQ(study.upperPercentile, 90);
  EXPECT_EQ(study.worst, 3U);
}

TEST_F(StudyFiles, ThatAreNoJsonAreToldWithTheirLine) {
  EXPECT_EQ(WhatIsWrongWith("{\n\"design\": \"d\",\n nonsense}").substr(0, 21),
            "s:3: it is no JSON: s");
  EXPECT_EQ(WhatIsWrongWith("").substr(0, 18), "s:1: it is no JSON");
  EXPECT_EQ(WhatIsWrongWith("{\"runs\": 1,\n\"runs\": 2}"), "s:2: runs stands there twice");
}

TEST_F(StudyFiles, ThatDoNotKeepToTheSchemaAreToldWithLineAndField) {
  EXPECT_EQ(WhatIsWrongWith("[]"), "s:1: a array cannot stand here");
  EXPECT_EQ(WhatIsWrongWith("{\n\"design\": \"d\"\n}"), "s:1: 'vary' is missing");
  EXPECT_EQ(WhatIsWrongWith("{\"design\":\"d\",\"runs\":5,\n\"vary\":[\n{\"field\":\"TermTx\",\n"
                            "\"distribution\":\"gauss\"}]}"),
            "s:4: vary[0].distribution: \"gauss\" is none of the words that can stand here");
  EXPECT_EQ(WhatIsWrongWith(Text("", R"("distribution":"normal","deviaton":2)")),
            "s:1: vary[0]: there is no 'deviaton' here");
  EXPECT_EQ(WhatIsWrongWith(Text(",\n\"seed\": \"x\"\n")), "s:2: seed: a string cannot stand here");
  EXPECT_EQ(WhatIsWrongWith(Text(",\n\"seed\": 1,\n\"worst\":\n-1")).substr(0, 11), "s:4: worst:");
}

TEST_F(StudyFiles, WhoseDistributionsCannotBeMeantAreToldWithTheirLine) {
  const auto wrong = [](const std::string& spread) { return WhatIsWrongWith(Text("", spread)); };
  const std::string at = "s:1: vary[0]: ";
  EXPECT_EQ(wrong(R"("distribution":"normal")"), at + "'deviation' is missing");
  EXPECT_EQ(wrong(R"("distribution":"uniform","from":1,"to":2,"mode":1)"),
            at + "'mode' means nothing to uniform");
  EXPECT_EQ(wrong(R"("distribution":"uniform","from":2,"to":2)"), at + "'from' must be below 'to'");
  EXPECT_EQ(wrong(R"("distribution":"triangular","from":1,"to":2,"mode":3)"),
            at + "'mode' must be between 'from' and 'to'");
  EXPECT_EQ(wrong(R"("distribution":"list")"), at + "'values' is missing");
  EXPECT_EQ(wrong(R"("distribution":"grid","values":[1],"count":3)"),
            at + "'count' means nothing to grid");
  EXPECT_EQ(WhatIsWrongWith(R"({"design":"d","runs":2,"vary":[{"field":"NoFace",
    "distribution":"uniform","from":0,"to":2}]})"),
            at + "the field takes whole numbers; it can vary over a list or a grid");
  EXPECT_EQ(WhatIsWrongWith(R"({"design":"d","runs":2,"vary":[{"field":"DesignTitle",
    "distribution":"uniform","from":0,"to":2}]})"),
            at + "the field is a text");
}

TEST_F(StudyFiles, ThatNameWhatIsNotThereAreToldWithTheirLine) {
  EXPECT_EQ(WhatIsWrongWith(R"({"design":"d","runs":2,"vary":[
    {"field":"Nothing","distribution":"uniform","from":0,"to":2}]})"),
            "s:2: vary[0].field: the design has no such field; 'halvorne-batch help fields' lists "
            "all");
  EXPECT_EQ(WhatIsWrongWith(Text(R"(,"measure":["peak","width"])")),
            "s:1: measure[1]: there is no such measure; 'halvorne-batch help measures' lists all");
  EXPECT_EQ(WhatIsWrongWith(Text(R"(,"plots":[{"plot":99}])")),
            "s:1: plots[0]: there is no plot 99");
  EXPECT_EQ(WhatIsWrongWith(Text(R"(,"limits":[{"measure":"peak"}])")),
            "s:1: limits[0]: 'atLeast' or 'atMost' is missing");
  EXPECT_EQ(WhatIsWrongWith(Text(R"(,"worst":2)")),
            "s:1: worst: what is worst is judged by 'limits', which are missing");
  EXPECT_EQ(WhatIsWrongWith(Text(R"(,"set":{"NoFace":1.5})")),
            "s:1: set.NoFace: '1.5' is not a whole number");
}

TEST_F(StudyFiles, CorrelationsThatCannotBeAreRefused) {
  const auto wrong = [](const std::string& groups) {
    return WhatIsWrongWith(R"({"design":"d","runs":2,"vary":[
      {"field":"TermTx","distribution":"uniform","from":0,"to":2},
      {"field":"TermRx","distribution":"uniform","from":0,"to":2},
      {"field":"ZBackLoad","distribution":"grid","values":[1,2]}],
      "correlated":[)" + groups +
                           "]}");
  };
  const std::string at = "s:5: correlated[0]: ";
  EXPECT_EQ(wrong(R"({"fields":["TermTx","TermRx"],"correlation":[[1,1],[1,1]]})"),
            at + "the matrix is not positive definite: no quantities can be correlated so");
  EXPECT_EQ(wrong(R"({"fields":["TermTx","TermRx"],"correlation":[[1,0.5],[0.4,1]]})"),
            at + "the matrix must be symmetric, with ones on its diagonal");
  EXPECT_EQ(wrong(R"({"fields":["TermTx","TermRx"],"correlation":[[1,0.5]]})"),
            at + "the matrix must have 2 rows of as many numbers");
  EXPECT_EQ(wrong(R"({"fields":["TermTx","TermTx"],"correlation":[[1,0.5],[0.5,1]]})"),
            at + "'TermTx' is in a group already");
  EXPECT_EQ(wrong(R"json({"fields":["TermTx","PZThick(1)"],"correlation":[[1,0.5],[0.5,1]]})json"),
            at + "'PZThick(1)' does not vary");
  EXPECT_EQ(wrong(R"({"fields":["TermTx","ZBackLoad"],"correlation":[[1,0.5],[0.5,1]]})"),
            at + "'ZBackLoad' varies over a grid, which is not drawn");
}

TEST_F(StudyFiles, AGridSaysHowManyRunsThereAre) {
  const std::string grids = R"({"design":"d","vary":[
    {"field":"TermTx","distribution":"grid","from":40,"to":60,"count":5},
    {"field":"TermRx","distribution":"grid","values":[50,75,100]}]})";
  EXPECT_EQ(ReadStudy(grids, "s").runs, 15);
  EXPECT_EQ(WhatIsWrongWith(R"({"design":"d","vary":[{"field":"TermTx","distribution":"normal",
    "deviation":1}]})"),
            "s:1: 'runs' is missing");
}

}  // namespace
}  // namespace halvorne::testing
