#include "batch/output.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

#include "batch/stops.h"
#include "persistence/overwrite_question.h"
#include "platform/files/own_streams.h"
#include "platform/files/whole_file.h"

namespace halvorne::batch {
namespace {

void WriteToStandardOutput(std::string_view bytes) {
  try {
    WriteStream(STDOUT_FILENO, bytes);
  } catch (const std::system_error&) {
    throw CommandFailed("standard output could not be written");
  }
}

/// Something that is written to and not replaced: a device, a pipe, a stream of the program's own.
bool IsWrittenTo(const std::string& name) {
  struct stat status {};
  return OwnStream(name) ||
         (stat(name.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode));
}

void WriteToDevice(const std::string& name, std::string_view bytes) {
  const int device = open(name.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
  if (device < 0) {
    throw std::system_error(errno, std::generic_category());
  }
  try {
    WriteStream(device, bytes);
  } catch (const std::system_error&) {
    close(device);
    throw;
  }
  if (close(device) != 0) {
    throw std::system_error(errno, std::generic_category());
  }
}

void WriteFile(const std::string& name, std::string_view bytes) try {
  if (const auto stream = OwnStream(name)) {
    WriteStream(*stream, bytes);
  } else if (IsWrittenTo(name)) {
    WriteToDevice(name, bytes);
  } else {
    WriteWholeFile(name, bytes);
  }
} catch (const std::system_error& refused) {
  throw CommandFailed(name + " could not be written: " + refused.code().message());
}

/// True when both names lead to one file.
bool IsSameFile(const std::string& one, const std::string& other) {
  struct stat first {};
  struct stat second {};
  return stat(one.c_str(), &first) == 0 && stat(other.c_str(), &second) == 0 &&
         S_ISREG(first.st_mode) && first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

/// Whatever bears the name, be it a link that leads nowhere.
bool IsNameTaken(const std::string& name) {
  struct stat status {};
  return lstat(name.c_str(), &status) == 0;
}

}  // namespace

void WriteFile(const Session& session, const std::string& file, std::string_view bytes) {
  std::vector<std::string> designs = session.request.others;
  designs.push_back(session.request.in);
  for (const std::string& design : designs) {
    if (IsSameFile(design, file)) {
      throw WrongCommandLine("-o: " + file + " is the design itself");
    }
  }
  WriteFile(file, bytes);
}

void WriteOutput(const Session& session, std::string_view bytes) {
  const Request& request = session.request;
  if (request.out.empty()) {
    WriteToStandardOutput(bytes);
    return;
  }
  WriteFile(session, request.out, bytes);
}

void WriteOutputOnceAsked(const Session& session, const char* title,
                          const std::function<std::string()>& make) {
  const Request& request = session.request;
  if (!request.force && IsNameTaken(request.out) && !IsWrittenTo(request.out)) {
    MayOverwrite(request.out, title);  // tells its question, whose answer here is No
    throw CommandFailed(request.out + " exists and is left alone; --force overwrites it");
  }
  const int failuresBefore = session.messages.FailureCount();
  const bool wouldReplace = IsNameTaken(request.out) && !IsWrittenTo(request.out);
  const std::string bytes = make();
  if (session.messages.FailureCount() > failuresBefore ||
      (wouldReplace && failuresBefore > session.failuresOfFirstPlot)) {
    throw CommandFailed(request.out + " was not written");
  }
  WriteFile(request.out, bytes);
}

}  // namespace halvorne::batch
