#include "batch/batch_run.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace halvorne::testing {
namespace {

constexpr const char* kProgram = HALVORNE_BINARY_DIR "/program/halvorne-batch";
constexpr rlim_t kMostSeconds = 30;
constexpr unsigned kMostWait = 120;  // s until a run that waits for something is ended
constexpr const char* kStandardOutput = "standard_output";
constexpr const char* kStandardError = "standard_error";

void Redirect(int stream, const std::string& file) {
  const int opened = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  if (opened < 0 || dup2(opened, stream) < 0) {
    _exit(126);
  }
}

void Limit(int resource, rlim_t most) {
  const rlimit limit{most, most};
  setrlimit(resource, &limit);
}

void TakeInput(const std::string& file) {
  // Opened for both ways a pipe without a writer does not wait for one.
  const int opened = open(file.c_str(), O_RDWR);
  if (opened < 0 || dup2(opened, STDIN_FILENO) < 0) {
    _exit(126);
  }
}

/// Takes the rights to pass over closed folders and over owners from what the process becomes.
void GiveUpPassingOverRights() {
  if (geteuid() == 0 && (prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0) != 0 ||
                         prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0) != 0 ||
                         prctl(PR_CAPBSET_DROP, CAP_FOWNER, 0, 0, 0) != 0)) {
    _exit(125);
  }
}

[[noreturn]] void Become(const Words& words, const Surroundings& surroundings,
                         const std::string& out, const std::string& err) {
  Redirect(STDOUT_FILENO, out);
  Redirect(STDERR_FILENO, err);
  if (!surroundings.inFrom.empty()) {
    TakeInput(surroundings.inFrom);
  }
  for (const std::string& setting : surroundings.environment) {
    putenv(strdup(setting.c_str()));
  }
  if (surroundings.rightsCount) {
    GiveUpPassingOverRights();
  }
  alarm(kMostWait);
  Limit(RLIMIT_CPU, kMostSeconds);
  Limit(RLIMIT_CORE, 0);
  if (surroundings.mostFileBytes >= 0) {
    Limit(RLIMIT_FSIZE, static_cast<rlim_t>(surroundings.mostFileBytes));
  }
  std::string program = kProgram;
  std::vector<std::string> texts = words;
  std::vector<char*> arguments{program.data()};
  std::transform(texts.begin(), texts.end(), std::back_inserter(arguments),
                 [](std::string& text) { return text.data(); });
  arguments.push_back(nullptr);
  execv(kProgram, arguments.data());
  _exit(127);
}

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

double ToNumber(const std::string& text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole ? value : std::nan("");
}

}  // namespace

BatchTest::BatchTest() {
  std::string name = std::filesystem::temp_directory_path() / "halvorne_test_XXXXXX";
  if (mkdtemp(name.data()) == nullptr) {
    std::abort();
  }
  folder_ = name;
}

BatchTest::~BatchTest() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

Outcome BatchTest::Run(const Words& words, const Surroundings& surroundings) const {
  const std::string out = surroundings.outTo.empty() ? Path(kStandardOutput) : surroundings.outTo;
  const std::string err = Path(kStandardError);
  const pid_t child = fork();
  if (child < 0) {
    std::abort();
  }
  if (child == 0) {
    Become(words, surroundings, out, err);
  }
  int state = 0;
  rusage usage{};
  if (wait4(child, &state, 0, &usage) != child) {
    std::abort();
  }
  Outcome outcome;
  outcome.status = WIFEXITED(state) ? WEXITSTATUS(state) : -WTERMSIG(state);
  outcome.out = surroundings.outTo.empty() ? ReadFile(out) : "";
  outcome.err = ReadFile(err);
  outcome.seconds = Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
  outcome.peakKib = usage.ru_maxrss;
  return outcome;
}

std::string BatchTest::Output(const Words& words) const {
  const Outcome run = Run(words);
  EXPECT_EQ(run.status, 0) << ::testing::PrintToString(words) << run.err;
  EXPECT_EQ(run.err, "") << ::testing::PrintToString(words);
  return run.out;
}

std::string BatchTest::Write(const std::string& name, const std::string& bytes) const {
  std::ofstream(Path(name), std::ios::binary) << bytes;
  return Path(name);
}

std::vector<std::string> BatchTest::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    const std::string name = entry.path().filename();
    if (name != kStandardOutput && name != kStandardError) {
      names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string Shipped(const std::string& name) {
  return HALVORNE_SOURCE_DIR "/share/DATA/" + name + ".dat";
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines = FieldsOf(text, '\n');
  for (std::string& line : lines) {
    if (line.ends_with('\r')) {
      line.pop_back();
    }
  }
  if (!lines.empty() && lines.back().empty()) {
    lines.pop_back();
  }
  return lines;
}

std::vector<std::string> FieldsOf(const std::string& line, char separator) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == separator) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

double Table::Number(std::size_t row, std::size_t column) const {
  return ToNumber(rows.at(row).at(column));
}

std::vector<Table> TablesOf(const std::string& csv) {
  std::vector<Table> tables;
  bool headerNext = true;
  for (const std::string& line : LinesOf(csv)) {
    if (headerNext) {
      tables.push_back({line, {}});
      headerNext = false;
    } else if (line.empty()) {
      headerNext = true;
    } else {
      tables.back().rows.push_back(FieldsOf(line, ','));
    }
  }
  return tables;
}

StoredDesign::StoredDesign(const std::string& path) {
  const std::vector<std::string> lines = LinesOf(ReadFile(path));
  const auto number = [&](std::size_t line, std::size_t field) {
    return ToNumber(FieldsOf(lines.at(line), ',').at(field));
  };
  title = FieldsOf(lines.at(1), '"').at(3);
  freqStart = number(3, 0);
  freqStop = number(3, 1);
  for (std::size_t k = 0; k < lines.size(); ++k) {
    if (lines[k] == "\"[ Number of points in frequency, time domains ]\"") {
      freqPoints = static_cast<int>(number(k + 1, 0));
      timePoints = static_cast<int>(number(k + 1, 1));
    } else if (lines[k] == "\"[ Electrical terminations on Tx, Rx ]\"") {
      termTx = number(k + 1, 0);
      termRx = number(k + 1, 1);
    } else if (lines[k].find(" Tx, Rx ]") != std::string::npos ||
               lines[k].find(" Re, Im ]") != std::string::npos) {
      auto& curve = curves[lines[k].substr(3, lines[k].size() - 6)];
      for (int i = 0; i <= freqPoints; ++i) {
        const std::size_t line = k + 1 + static_cast<std::size_t>(i);
        curve.emplace_back(number(line, 0), number(line, 1));
      }
    }
  }
}

}  // namespace halvorne::testing
