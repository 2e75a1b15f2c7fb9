#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "studies/study_runs.h"

namespace halvorne::studies {

/// What a worker is asked: the runs first to first + count - 1.
struct Request {
  long first;
  long count;
};

/// The worker's side: answers requests until their stream ends or nobody takes an answer.
[[noreturn]] void ServeRequests(int requests, int answers,
                                const std::function<RunResult(long run)>& calculate);

/// An answer that was read.
struct Answer {
  long run;
  RunResult result;
};

/// Takes the next whole answer off the bytes from `at` on and moves `at` behind it; none when they
/// hold but a piece.
std::optional<Answer> NextAnswer(const std::string& bytes, std::size_t& at);

}  // namespace halvorne::studies
