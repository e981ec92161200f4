#include "Apps/Command/Suggestion.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>

#include "Platform/Foundation/DisplayText.hpp"

namespace orivanta::command {

namespace {

constexpr std::size_t longestWord = 100;  // longer ones are not misspelled

char folded(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// The optimal string alignment distance, which counts two swapped neighbors as one difference.
std::size_t differences(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> now(b.size() + 1);
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    now[0] = i;
    for (std::size_t k = 1; k <= b.size(); ++k) {
      const bool same = folded(a[i - 1]) == folded(b[k - 1]);
      now[k] = std::min({last[k] + 1, now[k - 1] + 1, last[k - 1] + (same ? 0 : 1)});
      if (i > 1 && k > 1 && folded(a[i - 1]) == folded(b[k - 2]) &&
          folded(a[i - 2]) == folded(b[k - 1]))
        now[k] = std::min(now[k], before[k - 2] + 1);
    }
    std::swap(before, last);
    std::swap(last, now);
  }
  return last[b.size()];
}

}  // namespace

std::string closestWord(std::string_view word, const std::vector<std::string>& known) {
  std::string closest;
  if (word.size() > longestWord) return closest;
  std::size_t fewest = word.size() / 3 + 1;
  constexpr std::size_t shortestBeginning = 3;
  for (const std::string& candidate : known) {
    if (candidate.size() > longestWord) continue;
    const bool isBeginning = word.size() >= shortestBeginning &&
                             differences(word, candidate.substr(0, word.size())) == 0;
    const std::size_t count = isBeginning ? 0 : differences(word, candidate);
    if (count >= fewest) continue;
    fewest = count;
    closest = candidate;
  }
  return closest;
}

std::string didYouMean(std::string_view word, const std::vector<std::string>& known) {
  const std::string closest = closestWord(word, known);
  if (closest.empty()) return {};
  return fmt::format(" Did you mean \"{}\"?", foundation::printable(closest));
}

}  // namespace orivanta::command
