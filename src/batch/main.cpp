#include <QGuiApplication>
#include <cstdio>
#include <exception>

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
  Session session{request, window, boxes};
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

int Run(const QStringList& arguments) {
  try {
    return RunCommand(ReadCommandLine(arguments));
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
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // What the toolkit has to say about its surroundings is nothing to a script.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
      std::fprintf(stderr, "%s\n", qPrintable(text));
    }
  });
  const QGuiApplication application(argc, argv);
  return halvorne::batch::Run(QGuiApplication::arguments());
}
