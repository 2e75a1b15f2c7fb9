#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "quantities/refusals.h"
#include "studies/study.h"
#include "support/fresh_program.h"

namespace halvorne::testing {

/// A small open design and a folder of the test's own.
class StudyTest : public FreshProgram {
 protected:
  StudyTest() {
    MakeSimpleDesign(10, 64);
    std::string name = std::filesystem::temp_directory_path() / "halvorne_study_XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
      std::abort();
    }
    path = name;
  }
  ~StudyTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }

  /// Text of a study file that varies TermTx, with more members behind.
  static std::string Text(const std::string& more = "",
                          const std::string& spread = R"("distribution":"normal","deviation":2)") {
    return R"({"design":"d.dat","runs":10,"vary":[{"field":"TermTx",)" + spread + "}]" + more + "}";
  }
  static std::string WhatIsWrongWith(const std::string& text) {
    try {
      studies::ReadStudy(text, "s");
    } catch (const WrongInput& wrong) {
      return wrong.what();
    }
    return "nothing";
  }

  std::string path;
};

}  // namespace halvorne::testing
