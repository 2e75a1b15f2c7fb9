#include "studies/study_folder.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/files/whole_file.h"
#include "quantities/refusals.h"

namespace halvorne::studies {
namespace {

namespace fs = std::filesystem;

std::string Numbered(const char* stem, const Shard& shard, const char* ending) {
  std::string name = stem;
  if (shard.count > 1) {
    name.append("-").append(std::to_string(shard.number));
    name.append("-of-").append(std::to_string(shard.count));
  }
  return name + ending;
}

[[noreturn]] void RaiseUnwritten(const std::string& name, const std::error_code& why) {
  throw NotPossible(name + " could not be written: " + why.message());
}

/// What the name says of a file of runs; a count of 0 when it is none.
Shard ShardOf(const std::string& name) {
  Shard shard{1, 0};
  int end = 0;
  if (std::sscanf(name.c_str(), "runs-%ld-of-%ld.jsonl%n", &shard.number, &shard.count, &end) !=
          2 ||
      end != static_cast<int>(name.size()) || shard.number < 1 || shard.number > shard.count) {
    return {1, name == "runs.jsonl" ? 1L : 0L};
  }
  return shard;
}

}  // namespace

std::string ReadWholeFile(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(file), {}};
  if (!file.is_open() || file.bad()) {
    throw NotPossible(name + " could not be read");
  }
  return bytes;
}

void StudyFolder::Empty() const {
  for (const auto& entry : fs::directory_iterator(path_)) {
    const std::string name = entry.path().filename();
    const bool runs = ShardOf(name).count > 0;
    if (runs || (name.starts_with("curves") && name.ends_with(".f32"))) {
      fs::remove(entry.path());
    }
  }
}

void StudyFolder::Prepare(const std::string& study, const std::string& design, bool force) const
    try {
  fs::create_directories(path_);
  if (fs::exists(StudyFile())) {
    const bool same = ReadWholeFile(StudyFile()) == study && fs::exists(DesignFile()) &&
                      ReadWholeFile(DesignFile()) == design;
    if (!same && !force) {
      throw NotPossible(path_ +
                        " holds the runs of another study, or of another state of its design; "
                        "--force throws them away");
    }
    if (same && !force) {
      return;
    }
    Empty();
  }
  Write("design.dat", design);
  Write("study.json", study);
} catch (const fs::filesystem_error& refused) {
  RaiseUnwritten(path_, refused.code());
}

std::string StudyFolder::RunsFile(const Shard& shard) const {
  return Path(Numbered("runs", shard, ".jsonl"));
}

std::string StudyFolder::CurvesFile(const Shard& shard) const {
  return Path(Numbered("curves", shard, ".f32"));
}

std::vector<Shard> StudyFolder::Shards(long runs) const try {
  std::vector<Shard> shards;
  for (const auto& entry : fs::directory_iterator(path_)) {
    const Shard shard = ShardOf(entry.path().filename());
    if (shard.count > 1) {
      shards.push_back(shard);
    }
  }
  std::ranges::sort(shards, {}, [runs](const Shard& shard) {
    return std::pair(shard.First(runs), shard.Behind(runs));
  });
  return shards;
} catch (const fs::filesystem_error& refused) {
  throw NotPossible(path_ + " could not be read: " + refused.code().message());
}

void StudyFolder::Write(const std::string& name, std::string_view bytes) const try {
  WriteWholeFile(Path(name), bytes);
} catch (const std::system_error& refused) {
  RaiseUnwritten(Path(name), refused.code());
}

}  // namespace halvorne::studies
