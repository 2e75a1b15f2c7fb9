#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "persistence/file_fixture.h"
#include "persistence/setup_file.h"
#include "persistence/setup_state.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "timedomain/view.h"

// Several copies of the program on one folder: each reads and writes the one setup file whenever it
// likes, and may be ended at any moment.

namespace halvorne::testing {
namespace {

constexpr std::int16_t kPlots[] = {11, 33};
constexpr int kForms[] = {11, 14, 17, 21, 27, 31, 34, 41};

/// Settings all of which tell the same number.
void SetAll(std::int16_t plotNumber) {
  view.CurrentPlot = plotNumber;
  for (const int form : kForms) {
    setup.PlotFormMemory(form) = plotNumber;
  }
  setup.DispFaceLayer = setup.ReportDetails = plotNumber;
  setup.LogRange = plotNumber;
  // Files of different length.
  view.TimeWindowPercent = static_cast<float>(plotNumber == kPlots[0] ? 0.25 : 33.34375);
  setup.AmplWindowPercent = plotNumber;
}

bool AllAre(std::int16_t plotNumber) {
  bool same = view.CurrentPlot == plotNumber && setup.DispFaceLayer == plotNumber &&
              setup.ReportDetails == plotNumber && setup.LogRange == plotNumber &&
              setup.AmplWindowPercent == static_cast<float>(plotNumber);
  for (const int form : kForms) {
    same = same && setup.PlotFormMemory(form) == plotNumber;
  }
  return same;
}

class SetupSharing : public FileTest {
 protected:
  SetupSharing() : folderBefore_(ProgramFolder()) {
    SetProgramFolder(Folder());
    window.SetKeepsSession(true);
    SetAll(kPlots[0]);
    writeHalvorneSetup();
  }
  ~SetupSharing() override { SetProgramFolder(folderBefore_); }

  /// Another copy that writes these settings again and again until it is ended.
  static pid_t StartWriter(std::int16_t plotNumber) {
    const pid_t child = fork();
    if (child == 0) {
      SetAll(plotNumber);
      for (;;) {
        writeHalvorneSetup();
      }
    }
    return child;
  }
  static void End(pid_t child) {
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
  void ExpectWholeSettings() {
    Reset(setup);
    Reset(view);
    ReadHalvorneSetup();
    ASSERT_EQ(shownMessages.Lines(), std::vector<std::string>{});
    ASSERT_TRUE(AllAre(kPlots[0]) || AllAre(kPlots[1])) << "a mixture of two copies' settings";
  }

 private:
  std::filesystem::path folderBefore_;
};

TEST_F(SetupSharing, ACopyThatStartsWhileOthersWriteReadsTheSettingsOfOneOfThem) {
  const pid_t one = StartWriter(kPlots[0]);
  const pid_t other = StartWriter(kPlots[1]);
  for (int start = 0; start < 3000 && !HasFatalFailure(); ++start) {
    ExpectWholeSettings();
  }
  End(one);
  End(other);
}

TEST_F(SetupSharing, ACopyThatIsKilledWhileItWritesLeavesWholeSettings) {
  std::mt19937 random(16);
  for (int round = 0; round < 100 && !HasFatalFailure(); ++round) {
    const pid_t writer = StartWriter(kPlots[round % 2]);
    usleep(static_cast<useconds_t>(500 + random() % 3000));
    End(writer);
    ExpectWholeSettings();
  }
}

}  // namespace
}  // namespace halvorne::testing
