#include "batch/study_command.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <thread>
#include <unistd.h>

#include "batch/design_session.h"
#include "batch/stops.h"
#include "platform/files/own_streams.h"
#include "studies/run_study.h"
#include "studies/study.h"

namespace halvorne::batch {
namespace {

/// Opens the study's design as the command line's would be, with the study's settings.
void OpenStudyDesign(const Session& session, const studies::Study& study, const std::string& file) {
  Request request = session.request;
  request.in = file;
  request.settings = study.settings;
  Session opened{request, session.window, session.messages};
  const int failuresBefore = session.messages.FailureCount();
  OpenDesign(opened);
  if (session.messages.FailureCount() > failuresBefore) {
    throw CommandFailed(file + " could not be read as a design without a failure");
  }
}

std::string BesideStudy(const std::string& study, const std::string& design) {
  return (std::filesystem::path(study).parent_path() / design).string();
}

int JobsOf(const Request& request) {
  return request.jobs > 0 ? request.jobs
                          : static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
}

void Tell(const std::string& text) {
  WriteStream(STDOUT_FILENO, text);
}

void Gather(const Session& session) {
  const studies::StudyFolder folder(session.request.gather);
  const studies::Study study =
      studies::ReadStudy(studies::ReadWholeFile(folder.StudyFile()), folder.StudyFile());
  OpenStudyDesign(session, study, folder.DesignFile());
  studies::JoinShards(study, folder);
  Tell(studies::CompleteStudy(study, folder));
}

void Calculate(const Session& session) {
  const Request& request = session.request;
  const std::string text = studies::ReadWholeFile(request.topic);
  const studies::Study study = studies::ReadStudy(text, request.topic);
  const std::string design = BesideStudy(request.topic, study.design);
  OpenStudyDesign(session, study, design);
  const studies::StudyFolder folder(request.out);
  folder.Prepare(text, studies::ReadWholeFile(design), request.force);
  const long there = studies::CalculateRuns(study, folder, request.shard, JobsOf(request));
  if (there > 0) {
    std::fprintf(stderr, "halvorne-batch: note: %ld runs stood in %s already\n", there,
                 folder.RunsFile(request.shard).c_str());
  }
  if (request.shard.count == 1) {
    Tell(studies::CompleteStudy(study, folder));
  }
}

}  // namespace

void RunStudyCommand(const Session& session) {
  const Request& request = session.request;
  if (!request.gather.empty()) {
    if (!request.topic.empty() || !request.out.empty()) {
      throw WrongCommandLine("--gather: the folder says all, neither FILE nor -o are needed");
    }
    Gather(session);
    return;
  }
  if (request.topic.empty()) {
    throw WrongCommandLine("the study file is missing");
  }
  if (request.out.empty()) {
    throw WrongCommandLine("-o FOLDER is missing");
  }
  Calculate(session);
}

}  // namespace halvorne::batch
