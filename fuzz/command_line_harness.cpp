#include <array>
#include <string>
#include <vector>

#include "batch/command_line.h"
#include "batch/stops.h"
#include "fuzz/fuzzed_program.h"
#include "fuzz/harnesses.h"
#include "support/program_state.h"

namespace halvorne::fuzz {

void FuzzCommandLine(std::string_view bytes) {
  const FuzzedProgram program;
  testing::MakeSimpleDesign();
  std::vector<std::string> words{"halvorne-batch"};
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    words.emplace_back(bytes.substr(0, end));
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  std::vector<const char*> pointers;
  pointers.reserve(words.size());
  for (const std::string& word : words) {
    pointers.push_back(word.c_str());
  }
  try {
    const batch::Request request =
        batch::ReadCommandLine(static_cast<int>(pointers.size()), pointers.data());
    Promise(request.command != nullptr, "a command line that is read has a command");
    ApplySettings(request.settings);
  } catch (const batch::WrongCommandLine&) {  // NOLINT(bugprone-empty-catch): most are
  } catch (const batch::CommandFailed&) {     // NOLINT(bugprone-empty-catch): a wrong design
  }
}

std::span<const Harness> Harnesses() {
  static constexpr std::array all = {Harness{"command_line", FuzzCommandLine}};
  return all;
}

}  // namespace halvorne::fuzz
