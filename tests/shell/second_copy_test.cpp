#include <QSqlQuery>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

#include "materials/material_store.h"
#include "shell/window_test.h"

// A second copy of the program on the same folder, started and ended while the first one works.

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;

class SecondCopy : public WindowTest {
 protected:
  SecondCopy() {
    const fs::path built = fs::path(HALVORNE_BINARY_DIR) / "program" / "halvorne";
    std::error_code otherDisk;
    fs::create_hard_link(built, Folder() / "halvorne", otherDisk);
    if (otherDisk) {
      fs::copy(built, Folder() / "halvorne");
    }
  }

  pid_t StartSecond() const {
    const std::string program = Folder() / "halvorne";
    const pid_t child = fork();
    if (child == 0) {
      const int nothing = open("/dev/null", O_RDWR);
      dup2(nothing, STDOUT_FILENO);
      dup2(nothing, STDERR_FILENO);
      execl(program.c_str(), program.c_str(), nullptr);
      _exit(127);
    }
    return child;
  }

  /// Ends it, and expects that it ran until then.
  static void End(pid_t child, int signal) {
    kill(child, signal);
    int state = 0;
    ASSERT_EQ(waitpid(child, &state, 0), child);
    EXPECT_TRUE(WIFSIGNALED(state) && WTERMSIG(state) == signal) << "it ended by itself: " << state;
  }

  std::string Settings() const { return ReadFile(Folder() / "HALVORNESETUP"); }
  std::string Acoustic() const { return ReadFile(Folder() / "Database" / "Acoustic.mdb"); }
};

constexpr int kRounds = 5;

/// From before its first instruction has run to behind the start-up window's second.
std::chrono::milliseconds LifeOf(int round) {
  return std::chrono::milliseconds(round * 400);
}
int SignalOf(int round) {
  return round % 2 == 0 ? SIGKILL : SIGTERM;
}

TEST_F(SecondCopy, LeavesTheSettingsAloneWheneverItIsStartedAndEnded) {
  StartWithDesign();
  ChooseForm(3);
  const std::string settings = Settings();
  for (int round = 0; round < kRounds; ++round) {
    const pid_t second = StartSecond();
    QTest::qSleep(static_cast<int>(LifeOf(round).count()));
    End(second, SignalOf(round));
    EXPECT_EQ(Settings(), settings) << round;
  }
}

TEST_F(SecondCopy, TakesNoSettingFromTheFirstThatWorksMeanwhile) {
  StartWithDesign();
  std::mt19937 random(16);
  for (int round = 0; round < kRounds; ++round) {
    const pid_t second = StartSecond();
    const auto until = std::chrono::steady_clock::now() + LifeOf(round);
    std::string settings;
    do {
      ChooseForm(static_cast<int>(random() % 4));
      settings = Settings();
      EXPECT_EQ(std::count(settings.begin(), settings.end(), '\n'), 10) << settings;
    } while (std::chrono::steady_clock::now() < until);
    End(second, SignalOf(round));
    EXPECT_EQ(Settings(), settings) << round;
  }
}

TEST_F(SecondCopy, LeavesTheDatabasesWholeThoughTheFirstWritesToOne) {
  StartProgram();
  const std::string acoustic = Acoustic();
  QSqlDatabase store = StoreConnection(kPiezoStore);
  OpenStore(store);
  const QString table = store.tables().value(0);
  const auto rows = [&] {
    QSqlQuery count(QStringLiteral("SELECT COUNT(*) FROM \"%1\"").arg(table), store);
    return count.next() ? count.value(0).toInt() : -1;
  };
  const int before = rows();
  ASSERT_GT(before, 0);
  QSqlQuery write(store);
  for (int round = 0; round < kRounds; ++round) {
    const pid_t second = StartSecond();
    ASSERT_TRUE(store.transaction());
    ASSERT_TRUE(write.exec(
        QStringLiteral("INSERT INTO \"%1\" (Material) VALUES ('Mine %2')").arg(table).arg(round)));
    QTest::qSleep(static_cast<int>(LifeOf(round).count()));
    End(second, SignalOf(round));
    EXPECT_TRUE(store.commit()) << "the second copy holds the database";
  }
  EXPECT_EQ(rows(), before + kRounds);
  QSqlQuery check(QStringLiteral("PRAGMA integrity_check"), store);
  ASSERT_TRUE(check.next());
  EXPECT_EQ(check.value(0).toString(), QStringLiteral("ok"));
  EXPECT_EQ(Acoustic(), acoustic);
}

}  // namespace
}  // namespace halvorne::testing
