#include "studies/workers.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/files/own_streams.h"
#include "quantities/refusals.h"
#include "studies/worker_process.h"

namespace halvorne::studies {
namespace {

/// A stretch of runs takes about so long.
constexpr double kStretchSeconds = 0.02;
constexpr long kLongestStretch = 512;
/// Results that wait for an earlier run; beyond that nothing new is asked for.
constexpr std::size_t kMostWaiting = std::size_t{16} << 20;
constexpr std::size_t kReadBlock = std::size_t{1} << 16;
constexpr int kMostDeaths = 2;

double Now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

[[noreturn]] void RaiseNoProcess() {
  throw NotPossible("a worker process could not be made: " +
                    std::generic_category().message(errno));
}

struct Pipe {
  Pipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
      RaiseNoProcess();
    }
    out = ends[0];
    in = ends[1];
  }
  int out;
  int in;
};

/// While it lives, a request to a worker that has died is a failed call and not this program's end.
class NoPipeSignal {
 public:
  NoPipeSignal() : before_(std::signal(SIGPIPE, SIG_IGN)) {}
  ~NoPipeSignal() { std::signal(SIGPIPE, before_); }
  NoPipeSignal(const NoPipeSignal&) = delete;
  NoPipeSignal& operator=(const NoPipeSignal&) = delete;

 private:
  void (*before_)(int);
};

std::string HowItEnded(int state) {
  return WIFSIGNALED(state) ? "signal " + std::to_string(WTERMSIG(state))
                            : "status " + std::to_string(WEXITSTATUS(state));
}

}  // namespace

Workers::Workers(int jobs, Work work) : jobs_(jobs), work_(std::move(work)) {}

Workers::~Workers() {
  for (Worker& worker : workers_) {
    Stop(worker);
  }
}

void Workers::Start(Worker& worker) {
  const Pipe requests;
  const Pipe answers;
  std::fflush(nullptr);  // else the copy would write it once more
  const pid_t parent = getpid();
  worker.process = fork();
  if (worker.process < 0) {
    RaiseNoProcess();
  }
  if (worker.process == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) {
      _exit(1);  // it was gone before that held
    }
    close(requests.in);
    close(answers.out);
    for (const Worker& other : workers_) {
      if (other.requests >= 0) {
        close(other.requests);
        close(other.answers);
      }
    }
    if (work_.letGo) {
      work_.letGo();
    }
    ServeRequests(requests.out, answers.in, work_.calculate);
  }
  close(requests.out);
  close(answers.in);
  worker.requests = requests.in;
  worker.answers = answers.out;
}

void Workers::Stop(Worker& worker) {
  if (worker.process > 0) {
    close(worker.requests);
    close(worker.answers);
    kill(worker.process, SIGKILL);
    waitpid(worker.process, nullptr, 0);
    worker.process = -1;
    worker.requests = -1;
    worker.answers = -1;
  }
}

long Workers::StretchLength() const {
  const long left = (behind_ - next_) / (4L * jobs_) + 1;
  const long fitting = perRun_ > 0 ? static_cast<long>(kStretchSeconds / perRun_) : 1;
  return std::clamp(fitting, 1L, std::min(left, kLongestStretch));
}

bool Workers::NextStretch(Stretch& stretch) {
  if (!again_.empty()) {
    stretch = {again_.front(), 1};
    again_.pop_front();
    return true;
  }
  if (next_ >= behind_ || waitingBytes_ > kMostWaiting) {
    return false;
  }
  stretch = {next_, std::min(StretchLength(), behind_ - next_)};
  next_ += stretch.count;
  return true;
}

void Workers::Feed(Worker& worker) {
  constexpr std::size_t ahead = 2;  // so that it need not wait for the next request
  Stretch stretch{};
  // A run that is calculated on its own is alone with its worker.
  while (worker.asked.size() < (again_.empty() && deaths_.empty() ? ahead : 1) &&
         NextStretch(stretch)) {
    worker.asked.push_back(stretch);
    const Request request{stretch.first, stretch.count};
    try {
      WriteStream(worker.requests, {reinterpret_cast<const char*>(&request), sizeof request});
    } catch (const std::system_error&) {
      return;  // it has died, which its answers' end will tell
    }
  }
}

void Workers::TakeAnswers(Worker& worker) {
  std::size_t at = 0;
  while (auto answer = NextAnswer(worker.unread, at)) {
    Stretch& stretch = worker.asked.front();
    ++stretch.first;
    if (--stretch.count == 0) {
      worker.asked.pop_front();
    }
    waitingBytes_ += answer->result.line.size() + answer->result.curves.size() * sizeof(float);
    deaths_.erase(answer->run);
    waiting_.emplace(answer->run, std::move(answer->result));
  }
  worker.unread.erase(0, at);
}

void Workers::Bury(Worker& worker) {
  int state = 0;
  close(worker.requests);
  close(worker.answers);
  kill(worker.process, SIGKILL);
  waitpid(worker.process, &state, 0);
  worker.process = -1;
  worker.requests = -1;
  worker.answers = -1;
  worker.unread.clear();
  const bool alone = worker.asked.size() == 1 && worker.asked.front().count == 1;
  for (const Stretch& stretch : worker.asked) {
    for (long run = stretch.first; run < stretch.first + stretch.count; ++run) {
      int& deaths = deaths_[run];
      deaths += alone ? 1 : 0;
      if (deaths < kMostDeaths) {
        again_.push_back(run);
        continue;
      }
      RunResult result =
          work_.failed(run, "the calculation ended its process twice, by " + HowItEnded(state));
      waitingBytes_ += result.line.size() + result.curves.size() * sizeof(float);
      waiting_.emplace(run, std::move(result));
      deaths_.erase(run);
    }
  }
  worker.asked.clear();
}

void Workers::Read(Worker& worker) {
  std::string block(kReadBlock, '\0');
  const ssize_t have = read(worker.answers, block.data(), block.size());
  if (have < 0 && errno == EINTR) {
    return;
  }
  if (have > 0) {
    worker.unread.append(block, 0, static_cast<std::size_t>(have));
    TakeAnswers(worker);
    return;
  }
  Bury(worker);
  Start(worker);
}

void Workers::HandOver() {
  bool any = false;
  for (auto first = waiting_.begin(); first != waiting_.end() && first->first == taken_;
       first = waiting_.begin()) {
    work_.take(taken_, first->second);
    waitingBytes_ -= first->second.line.size() + first->second.curves.size() * sizeof(float);
    waiting_.erase(first);
    ++taken_;
    any = true;
  }
  if (any) {
    work_.flush();
  }
}

void Workers::Run(long first, long behind) {
  const NoPipeSignal quiet;
  next_ = first;
  taken_ = first;
  behind_ = behind;
  const long useful = std::min(static_cast<long>(jobs_), behind - first);
  workers_.resize(static_cast<std::size_t>(std::max(useful, 0L)));
  for (Worker& worker : workers_) {
    Start(worker);
  }
  const double began = Now();
  std::vector<pollfd> streams(workers_.size());
  while (taken_ < behind_) {
    for (std::size_t k = 0; k < workers_.size(); ++k) {
      Feed(workers_[k]);
      streams[k] = {workers_[k].answers, POLLIN, 0};
    }
    if (poll(streams.data(), streams.size(), -1) < 0 && errno != EINTR) {
      RaiseNoProcess();
    }
    for (std::size_t k = 0; k < workers_.size(); ++k) {
      if (streams[k].revents != 0) {
        Read(workers_[k]);
      }
    }
    HandOver();
    const long done = taken_ - first;
    perRun_ =
        done > 0 ? (Now() - began) * static_cast<double>(useful) / static_cast<double>(done) : 0;
  }
}

}  // namespace halvorne::studies
