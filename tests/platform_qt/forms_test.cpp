#include "platform/qt/forms.h"

#include <QDialog>
#include <gtest/gtest.h>

namespace halvorne {
namespace {

TEST(FormCount, CountsTheLoadedWindowsOfANameWhateverItsCase) {
  EXPECT_EQ(FormCount("frmPiezoDB"), 0);
  QDialog first;
  first.setObjectName("frmPiezoDB");
  EXPECT_EQ(FormCount("frmPiezoDB"), 1) << "loaded is enough, shown it need not be";
  QDialog second;
  second.setObjectName("FRMPIEZODB");
  QDialog other;
  other.setObjectName("frmPiezoDB2");
  EXPECT_EQ(FormCount("frmpiezodb"), 2) << "a name that only begins so is another";
}

TEST(FormCount, LeavesOutWhatIsNoWindowOfItsOwn) {
  QDialog window;
  window.setObjectName("frmFaceEntry");
  QWidget control(&window);
  control.setObjectName("frmPiezoDB");
  EXPECT_EQ(FormCount("frmPiezoDB"), 0);
}

}  // namespace
}  // namespace halvorne
