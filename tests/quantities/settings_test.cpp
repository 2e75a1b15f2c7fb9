#include "quantities/settings.h"

#include <limits>

#include "engine/design_model.h"
#include "quantities/refusals.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

class NumbersForFields : public FreshProgram {
 protected:
  static std::string WhatIsWrongWith(const std::string& field, double number) {
    try {
      SettingOf(FindNamedField(field), number);
    } catch (const WrongInput& wrong) {
      return wrong.what();
    }
    return "nothing";
  }
};

TEST_F(NumbersForFields, AreStoredInTheFieldsOwnType) {
  ApplySettings(std::vector{
      SettingOf(FindNamedField("FrontThick(3)"), 1.5e-4), SettingOf(FindNamedField("NoFace"), 3),
      SettingOf(FindNamedField("FaceMatl(2).Loss"), 0.1), SettingOf(FindNamedField("AttenOn"), 1)});
  EXPECT_EQ(design.FrontThick(3), 1.5e-4);
  EXPECT_EQ(design.NoFace, 3);
  EXPECT_EQ(design.FaceMatl(2).Loss, 0.1F);
  EXPECT_TRUE(design.AttenOn);
}

TEST_F(NumbersForFields, ThatTheyCannotHoldAreRefused) {
  EXPECT_EQ(WhatIsWrongWith("NoFace", 2.5), "'2.5' is not a whole number");
  EXPECT_EQ(WhatIsWrongWith("NoFace", 11), "the value must be from 0 to 10");
  EXPECT_EQ(WhatIsWrongWith("NoFace", 1e9), "'1e+09' is too large");
  EXPECT_EQ(WhatIsWrongWith("FaceMatl(2).Loss", 1e39), "'1e+39' is too large");
  EXPECT_EQ(WhatIsWrongWith("AttenOn", 2), "'2' is neither 0 nor 1");
  EXPECT_EQ(WhatIsWrongWith("DesignTitle", 2), "the field is a text");
  EXPECT_EQ(WhatIsWrongWith("TermTx", std::numeric_limits<double>::quiet_NaN()),
            "'nan' is not a number");
  EXPECT_EQ(WhatIsWrongWith("TermTx", 50), "nothing");
}

}  // namespace
}  // namespace halvorne::testing
