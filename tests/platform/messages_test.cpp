#include "platform/messages.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

const Message kQuestion{"Halvorne Save File", "Overwrite existing file?", MessageIcon::kQuestion,
                        MessageButtons::kYesNo, MessageAnswer::kNo};

TEST(Messages, BeforeAnyWereSetAreWrittenToStandardErrorAndTakeTheDefault) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(messages().Show(kQuestion), MessageAnswer::kNo);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "Halvorne Save File: Overwrite existing file?\n");
}

TEST(Messages, AreReplacedAndPutBack) {
  testing::RecordedMessages recorded;
  Messages* const first = SetMessages(&recorded);
  recorded.AnswerNext(MessageAnswer::kYes);
  EXPECT_EQ(messages().Show(kQuestion), MessageAnswer::kYes);
  EXPECT_EQ(messages().Show(kQuestion), MessageAnswer::kNo) << "one answer serves one question";
  EXPECT_EQ(SetMessages(nullptr), &recorded);
  EXPECT_EQ(&messages(), first);
}

TEST(MainWindow, ThatWasNeverSetIsAFailureAndNotACrash) {
  ASSERT_EQ(SetMainWindow(nullptr), nullptr);
  try {
    mainWindow();
    ADD_FAILURE() << "a window came from nowhere";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), failure_number::kInvalidCall);
  }
}

}  // namespace
}  // namespace halvorne
