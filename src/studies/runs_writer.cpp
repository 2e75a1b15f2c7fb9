#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/files/line_reader.h"
#include "platform/files/own_streams.h"
#include "quantities/refusals.h"
#include "studies/study_folder.h"

namespace halvorne::studies {
namespace {

[[noreturn]] void RaiseUnwritten(const std::string& name, int error) {
  throw NotPossible(name + " could not be written: " + std::generic_category().message(error));
}

int OpenForWriting(const std::string& name) {
  const int file = open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  if (file < 0) {
    RaiseUnwritten(name, errno);
  }
  return file;
}

long SizeOf(int file) {
  struct stat status {};
  return fstat(file, &status) == 0 ? status.st_size : 0;
}

void CutAt(int file, long size, const std::string& name) {
  if (ftruncate(file, size) != 0 || lseek(file, size, SEEK_SET) < 0) {
    RaiseUnwritten(name, errno);
  }
}

/// Writes bytes at the end; a piece of them that fits is cut off again.
void Append(int file, long& size, std::string& bytes, const std::string& name) {
  try {
    WriteStream(file, bytes);
  } catch (const std::system_error& refused) {
    CutAt(file, size, name);
    RaiseUnwritten(name, refused.code().value());
  }
  size += static_cast<long>(bytes.size());
  bytes.clear();
}

}  // namespace

long RunOfLine(const std::string& line) {
  constexpr std::string_view begin = R"({"run":)";
  long run = -1;
  if (line.starts_with(begin) && line.ends_with('}')) {
    std::from_chars(line.data() + begin.size(), line.data() + line.size(), run);
  }
  return run;
}

RunsWriter::RunsWriter(const StudyFolder& folder, const Shard& shard, const Study& study,
                       std::size_t curveSize)
    : linesName_(folder.RunsFile(shard)),
      curvesName_(folder.CurvesFile(shard)),
      kept_(study),
      first_(shard.First(study.runs)),
      curveBytes_(curveSize * sizeof(float)) {
  lines_ = OpenForWriting(linesName_);
  try {
    if (flock(lines_, LOCK_EX | LOCK_NB) != 0) {
      throw NotPossible(linesName_ + " is being written by another program");
    }
    if (curveSize > 0) {
      curves_ = OpenForWriting(curvesName_);
      curvesSize_ = SizeOf(curves_);
    }
    FindWholeRuns();
  } catch (const NotPossible&) {
    LetGo();
    throw;
  }
}

RunsWriter::~RunsWriter() {
  LetGo();
}

void RunsWriter::LetGo() {
  for (int* file : {&lines_, &curves_}) {
    if (*file >= 0) {
      close(std::exchange(*file, -1));
    }
  }
}

void RunsWriter::FindWholeRuns() try {
  const long size = SizeOf(lines_);
  const long keptBefore = kept_.CountBelow(first_);
  const auto record = static_cast<long>(curveBytes_);
  LineReader reader(linesName_);
  std::string line;
  next_ = first_;
  while (reader.Next(line)) {
    const long end = linesSize_ + static_cast<long>(line.size()) + 1;
    const long curvesNeeded = (kept_.CountBelow(next_ + 1) - keptBefore) * record;
    if (end > size || (curves_ >= 0 && curvesNeeded > curvesSize_)) {
      break;
    }
    if (RunOfLine(line) != next_) {
      throw NotPossible(linesName_ + ", line " + std::to_string(reader.Number()) +
                        ": this is not run " + std::to_string(next_));
    }
    linesSize_ = end;
    ++next_;
  }
  CutAt(lines_, linesSize_, linesName_);
  if (curves_ >= 0) {
    curvesSize_ = (kept_.CountBelow(next_) - keptBefore) * record;
    CutAt(curves_, curvesSize_, curvesName_);
  }
} catch (const std::system_error& refused) {
  throw NotPossible(linesName_ + " could not be read: " + refused.code().message());
}

void RunsWriter::Add(long run, const RunResult& result) {
  newLines_ += result.line;
  if (curves_ >= 0) {
    newCurves_.append(reinterpret_cast<const char*>(result.curves.data()),
                      result.curves.size() * sizeof(float));
  }
  next_ = run + 1;
}

void RunsWriter::Flush() {
  if (curves_ >= 0) {
    Append(curves_, curvesSize_, newCurves_, curvesName_);
  }
  Append(lines_, linesSize_, newLines_, linesName_);
}

}  // namespace halvorne::studies
