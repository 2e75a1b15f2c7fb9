// What stands in a store when the program is killed.

#include <QCoreApplication>
#include <QProcess>
#include <csignal>

#include "materials/browser_test.h"
#include "platform/paths.h"

namespace halvorne::testing {
namespace {

/// Set in the process that is killed: the program folder whose store it works on.
constexpr const char* kFolderVariable = "HALVORNE_TEST_KILLED_IN";

class KilledProgram : public BrowserTest {
 protected:
  /// Runs this test in a process of its own, which ends by its own signal.
  void RunAndBeKilled() {
    QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
    surroundings.insert(kFolderVariable, QString::fromStdString(Folder().string()));
    QProcess process;
    process.setProcessEnvironment(surroundings);
    process.setProcessChannelMode(QProcess::MergedChannels);
    const ::testing::TestInfo& self = *::testing::UnitTest::GetInstance()->current_test_info();
    process.start(
        QCoreApplication::applicationFilePath(),
        {QStringLiteral("--gtest_filter=%1.%2").arg(self.test_suite_name(), self.name())});
    constexpr int patience = 100'000;  // ms
    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit) << process.readAll().toStdString();
    EXPECT_EQ(process.exitCode(), SIGKILL);
  }
  static bool IsToBeKilled() { return qEnvironmentVariableIsSet(kFolderVariable); }
  static std::filesystem::path StoreOfParent() {
    return qEnvironmentVariable(kFolderVariable).toStdString() + "/Database/pzmatls.mdb";
  }
};

TEST_F(KilledProgram, LeavesEachRowThatWasLeftAndNothingOfTheOneAtHand) {
  if (IsToBeKilled()) {
    SetProgramFolder(qEnvironmentVariable(kFolderVariable).toStdString());
    OpenPiezo();
    TypeIntoCell(1, "4321");
    Press(Qt::Key_Down);
    TypeIntoCell(1, "4999");
    std::raise(SIGKILL);
  }
  RunAndBeKilled();
  OtherProgram other(PiezoFile());
  EXPECT_EQ(other.Value("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(other.Value("SELECT \"Longit vel m/sec\" FROM \"First\" WHERE \"Material\" = 'Alpha'"),
            4321);
  EXPECT_EQ(other.Value("SELECT \"Longit vel m/sec\" FROM \"First\" WHERE \"Material\" = 'beta'"),
            4100);
}

TEST_F(KilledProgram, InTheMiddleOfAWriteLeavesTheRowsAsTheyWere) {
  if (IsToBeKilled()) {
    OtherProgram store(StoreOfParent());
    store.Run("PRAGMA cache_size = 1");  // pages go to the file before the end of the transaction
    store.Run("PRAGMA cache_spill = 1");
    store.Run("BEGIN IMMEDIATE");
    store.Run("UPDATE \"First\" SET \"Vendor\" = hex(zeroblob(200000))");
    std::raise(SIGKILL);
  }
  RunAndBeKilled();
  EXPECT_TRUE(std::filesystem::exists(PiezoFile().string() + "-journal"))
      << "nothing had reached the file, so this test proves nothing";
  OpenPiezo();
  EXPECT_EQ(Names().size(), 3U);
  EXPECT_EQ(Cell(0, 8), "Maker A");
  TypeIntoCell(1, "4321");
  Press(Qt::Key_Down);
  EXPECT_EQ(OtherProgram(PiezoFile())
                .Value("SELECT \"Longit vel m/sec\" FROM \"First\" WHERE \"Material\" = 'Alpha'"),
            4321);
}

}  // namespace
}  // namespace halvorne::testing
