#include "studies/worker_process.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <system_error>
#include <unistd.h>

#include "platform/files/own_streams.h"

namespace halvorne::studies {
namespace {

constexpr std::size_t kMostPending = std::size_t{1} << 15;
constexpr std::chrono::milliseconds kLongestSilence{50};

/// What stands before the line and the curves of an answer.
struct Head {
  std::int64_t run;
  std::uint64_t lineBytes;
  std::uint64_t curveBytes;
};

bool ReadRequest(int stream, Request& request) {
  auto* bytes = reinterpret_cast<char*>(&request);
  std::size_t have = 0;
  while (have < sizeof request) {
    const ssize_t more = read(stream, bytes + have, sizeof request - have);
    if (more < 0 && errno == EINTR) {
      continue;
    }
    if (more <= 0) {
      return false;
    }
    have += static_cast<std::size_t>(more);
  }
  return true;
}

void AppendAnswer(std::string& bytes, long run, const RunResult& result) {
  const Head head{run, result.line.size(), result.curves.size() * sizeof(float)};
  bytes.append(reinterpret_cast<const char*>(&head), sizeof head);
  bytes += result.line;
  bytes.append(reinterpret_cast<const char*>(result.curves.data()), head.curveBytes);
}

}  // namespace

void ServeRequests(int requests, int answers, const std::function<RunResult(long run)>& calculate) {
  using Clock = std::chrono::steady_clock;
  std::string pending;
  Request request{};
  try {
    while (ReadRequest(requests, request)) {
      auto written = Clock::now();
      for (long run = request.first; run < request.first + request.count; ++run) {
        AppendAnswer(pending, run, calculate(run));
        const bool last = run + 1 == request.first + request.count;
        if (last || pending.size() >= kMostPending || Clock::now() - written >= kLongestSilence) {
          WriteStream(answers, pending);
          pending.clear();
          written = Clock::now();
        }
      }
    }
  } catch (const std::system_error&) {  // nobody is there to tell
    _exit(1);
  }
  // Not through exit(): what the program that made this copy has open is none of its business.
  _exit(0);
}

std::optional<Answer> NextAnswer(const std::string& bytes, std::size_t& at) {
  Head head{};
  if (bytes.size() - at < sizeof head) {
    return std::nullopt;
  }
  std::memcpy(&head, bytes.data() + at, sizeof head);
  if (bytes.size() - at < sizeof head + head.lineBytes + head.curveBytes) {
    return std::nullopt;
  }
  Answer answer{static_cast<long>(head.run), {}};
  const char* from = bytes.data() + at + sizeof head;
  answer.result.line.assign(from, head.lineBytes);
  answer.result.curves.resize(head.curveBytes / sizeof(float));
  std::memcpy(answer.result.curves.data(), from + head.lineBytes, head.curveBytes);
  at += sizeof head + head.lineBytes + head.curveBytes;
  return answer;
}

}  // namespace halvorne::studies
