#include <QGuiApplication>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fcntl.h>

#include "batch/commands.h"
#include "batch/stops.h"
#include "plot/headless_window.h"
#include "plot/measures.h"

namespace halvorne::batch {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongCommandLine = 2;

void Complain(const char* what) {
  std::fprintf(stderr, "halvorne-batch: %s\n", what);
}

/// Runs the command; what the program's boxes said is told in any case.
int RunCommand(const Request& request) {
  BatchMessages boxes(request.force, request.acceptAliasing);
  HeadlessWindow window;
  SetMessages(&boxes);
  SetMainWindow(&window);
  InitGrids();
  Session session{.request = request, .window = window, .messages = boxes};
  int status = kDone;
  std::string complaint;
  try {
    request.command->run(session);
  } catch (const WrongCommandLine& wrong) {
    status = kWrongCommandLine;
    complaint = wrong.what();
  } catch (const std::exception& failed) {
    status = kFailed;
    complaint = failed.what();
  }
  boxes.Tell();
  if (!complaint.empty()) {
    Complain(complaint.c_str());
  }
  SetMainWindow(nullptr);
  SetMessages(nullptr);
  return status == kDone && boxes.FailureCount() > 0 ? kFailed : status;
}

/// A standard stream that the caller closed stays unusable; else the next file to be opened would
/// take its number and what is told would end up in it.
void OccupyClosedStreams() {
  for (int stream = 0; stream <= 2; ++stream) {
    const bool closed = fcntl(stream, F_GETFD) == -1;
    if (closed && open("/dev/null", stream == 0 ? O_WRONLY : O_RDONLY) != stream) {
      std::_Exit(kFailed);
    }
  }
}

int Run(int count, char** words) {
  try {
    return RunCommand(ReadCommandLine(count, words));
  } catch (const WrongCommandLine& wrong) {
    Complain(wrong.what());
    return kWrongCommandLine;
  } catch (const std::exception& failed) {
    Complain(failed.what());
    return kFailed;
  }
}

}  // namespace
}  // namespace halvorne::batch

int main(int argc, char** argv) {
  halvorne::batch::OccupyClosedStreams();
  std::signal(SIGXFSZ, SIG_IGN);  // too large a file is a failed write that is told, not the end
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // What the toolkit has to say about its surroundings is nothing to a script.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
      std::fprintf(stderr, "%s\n", qPrintable(text));
    }
  });
  // The toolkit has options of its own, which are none of this program's: it sees the name only.
  int name = 1;
  const QGuiApplication application(name, argv);
  return halvorne::batch::Run(argc, argv);
}
