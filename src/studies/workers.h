#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

#include "studies/study_runs.h"

namespace halvorne::studies {

/// What is to be calculated, and what becomes of it.
struct Work {
  /// Called in each worker before its first run: lets go of what only this process is to hold.
  std::function<void()> letGo = {};
  /// Calculates a run, in a worker.
  std::function<RunResult(long run)> calculate;
  /// The result of a run that ended its worker twice.
  std::function<RunResult(long run, const std::string& why)> failed;
  /// Takes the results, each run once and in ascending order.
  std::function<void(long run, const RunResult& result)> take;
  /// Called after each batch of results: writes what was taken.
  std::function<void()> flush;
};

/// Processes that calculate runs, each a copy of this one with the design open. A worker that dies
/// is replaced; what it had not answered is calculated once more, run by run, and a run that ends
/// its worker twice on its own is taken as failed.
class Workers {
 public:
  /// @param jobs  how many at once, 1 or more
  Workers(int jobs, Work work);
  ~Workers();
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  /// Calculates the runs first to behind - 1. Raises NotPossible when no process can be made, and
  /// whatever `take` raises; the workers are ended then.
  void Run(long first, long behind);

 private:
  struct Stretch {
    long first;
    long count;
  };
  struct Worker {
    pid_t process = -1;
    int requests = -1;  ///< to it
    int answers = -1;   ///< from it
    std::string unread;
    std::deque<Stretch> asked;  ///< not answered, in order
  };

  void Start(Worker& worker);
  void Stop(Worker& worker);
  void Feed(Worker& worker);
  bool NextStretch(Stretch& stretch);
  void Read(Worker& worker);
  void TakeAnswers(Worker& worker);
  void Bury(Worker& worker);
  void HandOver();
  long StretchLength() const;

  int jobs_;
  Work work_;
  std::vector<Worker> workers_;
  std::deque<long> again_;      ///< runs that are calculated on their own
  std::map<long, int> deaths_;  ///< of workers with that run alone
  std::map<long, RunResult> waiting_;
  std::size_t waitingBytes_ = 0;
  long next_ = 0;      ///< first run that was asked of nobody
  long behind_ = 0;    ///< end of what is asked for
  long taken_ = 0;     ///< first run that was not handed over
  double perRun_ = 0;  ///< s that a worker takes for a run, 0 as long as none is known
};

}  // namespace halvorne::studies
