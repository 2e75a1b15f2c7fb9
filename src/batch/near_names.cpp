#include "batch/near_names.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace halvorne::batch {
namespace {

constexpr std::size_t kMost = 5;

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return std::tolower(c); });
  return lower;
}

/// Letters to be changed, added or left out to make b of a (Levenshtein 1966).
std::size_t Distance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t k = 1; k <= b.size(); ++k) {
      const std::size_t changed = diagonal + (a[i - 1] == b[k - 1] ? 0 : 1);
      diagonal = row[k];
      row[k] = std::min({row[k] + 1, row[k - 1] + 1, changed});
    }
  }
  return row[b.size()];
}

bool Holds(const std::string& whole, const std::string& piece) {
  return !piece.empty() && whole.find(piece) != std::string::npos;
}

}  // namespace

std::vector<std::string> NearNames(std::string_view written,
                                   const std::vector<std::string>& names) {
  struct Candidate {
    std::size_t distance;
    const std::string* name;
  };
  const std::string wanted = Lower(written);
  const std::size_t few = std::max<std::size_t>(2, wanted.size() / 2);
  std::vector<Candidate> candidates;
  for (const std::string& name : names) {
    const std::string lower = Lower(name);
    const bool holds = Holds(lower, wanted) || Holds(wanted, lower);
    const std::size_t distance = holds ? 0 : Distance(wanted, lower);
    if (distance <= few) {
      candidates.push_back({distance, &name});
    }
  }
  std::ranges::stable_sort(candidates, {}, &Candidate::distance);
  std::vector<std::string> nearest;
  for (const Candidate& candidate : candidates) {
    if (nearest.size() < kMost && std::ranges::count(nearest, *candidate.name) == 0) {
      nearest.push_back(*candidate.name);
    }
  }
  return nearest;
}

std::string NearNamesHint(std::string_view written, const std::vector<std::string>& names) {
  std::string hint;
  for (const std::string& name : NearNames(written, names)) {
    hint += (hint.empty() ? "; near it are '" : ", '") + name + "'";
  }
  return hint;
}

}  // namespace halvorne::batch
