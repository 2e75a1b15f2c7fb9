#include "quantities/caught_messages.h"

#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

using CaughtBoxes = FreshProgram;

Message Aliasing() {
  return {.title = "Warning",
          .text = "a\r\nb",
          .icon = MessageIcon::kCritical,
          .buttons = MessageButtons::kOkCancel,
          .defaultAnswer = MessageAnswer::kCancel};
}

TEST_F(CaughtBoxes, TheFirstOneIsKeptInOneLine) {
  CaughtMessages boxes(false);
  messages().Show({.title = "ERROR in X", .text = "first\r\nline"});
  messages().Show({.title = "ERROR in Y", .text = "second"});
  EXPECT_EQ(boxes.First(), "ERROR in X: first line");
  boxes.Forget();
  EXPECT_EQ(boxes.First(), "");
}

TEST_F(CaughtBoxes, ARefusedQuestionIsKeptAndOneThatIsAgreedToIsNot) {
  {
    CaughtMessages refusing(false);
    EXPECT_EQ(messages().Show(Aliasing()), MessageAnswer::kCancel);
    EXPECT_EQ(refusing.First(), "Warning: a b");
  }
  CaughtMessages agreeing(true);
  EXPECT_EQ(messages().Show(Aliasing()), MessageAnswer::kOk);
  EXPECT_EQ(agreeing.First(), "");
}

TEST_F(CaughtBoxes, TheMessagesBeforeAreInForceAgainAtTheEnd) {
  { const CaughtMessages boxes(false); }
  messages().Show({.title = "T", .text = "t"});
  EXPECT_EQ(shownMessages.Lines(), std::vector<std::string>{"T|t"});
}

}  // namespace
}  // namespace halvorne::testing
