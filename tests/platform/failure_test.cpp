#include "platform/failure.h"

#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <ostream>
#include <stdexcept>

#include "support/fresh_program.h"

namespace halvorne {
namespace {

struct NumberAndWords {
  int number;
  const char* words;
};

void PrintTo(const NumberAndWords& row, std::ostream* out) {
  *out << row.number;
}

class FailureWords : public ::testing::TestWithParam<NumberAndWords> {};

TEST_P(FailureWords, StandTheSameInTheTableAndInTheException) {
  EXPECT_STREQ(FailureDescription(GetParam().number), GetParam().words);
  const Failure failure(GetParam().number);
  EXPECT_EQ(failure.Number(), GetParam().number);
  EXPECT_EQ(failure.Description(), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    AllNumbers, FailureWords,
    ::testing::Values(
        NumberAndWords{5, "Invalid procedure call or argument"}, NumberAndWords{6, "Overflow"},
        NumberAndWords{7, "Out of memory"}, NumberAndWords{9, "Subscript out of range"},
        NumberAndWords{11, "Division by zero"}, NumberAndWords{13, "Type mismatch"},
        NumberAndWords{53, "File not found"}, NumberAndWords{62, "Input past end of file"},
        NumberAndWords{70, "Permission denied"}, NumberAndWords{75, "Path/File access error"},
        NumberAndWords{76, "Path not found"}, NumberAndWords{32755, "Cancel was selected."}));

template <class Action>
int NumberRaisedBy(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure.Number();
  }
  return 0;
}

TEST(Quotient, RaisesDivisionByZeroForBothZerosOnly) {
  EXPECT_EQ(Quotient(3, 4), 0.75);
  EXPECT_EQ(NumberRaisedBy([] { Quotient(1, 0.0); }), 11);
  EXPECT_EQ(NumberRaisedBy([] { Quotient(1, -0.0); }), 11);
  EXPECT_EQ(NumberRaisedBy([] { Quotient(1, std::numeric_limits<double>::denorm_min()); }), 0);
}

TEST(Finite, RaisesOverflowForInfinityAndForWhatIsNoNumber) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Finite(-1e308), -1e308);
  EXPECT_EQ(NumberRaisedBy([] { Finite(kInfinity); }), 6);
  EXPECT_EQ(NumberRaisedBy([] { Finite(-kInfinity); }), 6);
  EXPECT_EQ(NumberRaisedBy([] { Finite(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

/// What ReportFailure shows for what `raise` raises in a procedure.
template <class Raise>
void FailingProcedure(Raise raise) try {
  raise();
} catch (...) {
  ReportFailure("MainCalc", "CALCS");
}

class ReportedFailure : public testing::FreshProgram {};

TEST_F(ReportedFailure, NamesTheProcedureItsModuleTheNumberAndTheWords) {
  FailingProcedure([] { Quotient(1, 0); });
  ASSERT_EQ(shownMessages.Shown().size(), 1U);
  const Message& box = shownMessages.Shown()[0];
  EXPECT_EQ(box.title, "ERROR in MainCalc of CALCS");
  EXPECT_EQ(box.text, "Error: 11. Division by zero");
  EXPECT_EQ(box.buttons, MessageButtons::kOk);
  EXPECT_EQ(box.icon, MessageIcon::kNone);
}

TEST_F(ReportedFailure, OfTheLibraryIsAnInvalidCallWithWhatItSaid) {
  FailingProcedure([] { throw std::length_error("too long"); });
  FailingProcedure([] { throw std::bad_alloc(); });
  FailingProcedure([] { throw 42; });
  EXPECT_EQ(shownMessages.Lines(),
            (std::vector<std::string>{
                "ERROR in MainCalc of CALCS|Error: 5. Invalid procedure call or argument: too long",
                "ERROR in MainCalc of CALCS|Error: 7. Out of memory",
                "ERROR in MainCalc of CALCS|Error: 5. Invalid procedure call or argument"}));
}

TEST_F(ReportedFailure, KeepsItsOwnWords) {
  FailingProcedure([] { throw Failure(75, "No room left"); });
  EXPECT_EQ(shownMessages.Shown().at(0).text, "Error: 75. No room left");
}

class ThrowingMessages final : public Messages {
 public:
  MessageAnswer Show(const Message& /*message*/) override { throw std::runtime_error("no box"); }
};

TEST(ReportFailure, LetsNothingEscapeEvenWhenTheBoxFails) {
  ThrowingMessages broken;
  Messages* const before = SetMessages(&broken);
  EXPECT_NO_THROW(FailingProcedure([] { RaiseTypeMismatch(); }));
  SetMessages(before);
}

}  // namespace
}  // namespace halvorne
