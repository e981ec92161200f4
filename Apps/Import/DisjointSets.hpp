// Groups things that belong together.
#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <numeric>
#include <utility>
#include <vector>

namespace orivanta::importer {

/// Disjoint sets of the numbers below a count. The least number stands for its set, so that the
/// order of joining does not matter.
class DisjointSets {
 public:
  explicit DisjointSets(std::size_t count) : parents_(count) {
    std::iota(parents_.begin(), parents_.end(), std::size_t{0});
  }

  /// The number that stands for the set of `item`. Shortens the way for later calls.
  std::size_t find(std::size_t item) {
    while (parents_[item] != item) item = parents_[item] = parents_[parents_[item]];
    return item;
  }

  void join(std::size_t first, std::size_t second) {
    const auto [least, most] = std::minmax({find(first), find(second)});
    parents_[most] = least;
  }

  /// The sets in the order of their first items, each in ascending order.
  std::vector<std::vector<std::size_t>> all() {
    std::map<std::size_t, std::vector<std::size_t>> sets;
    for (std::size_t i = 0; i < parents_.size(); ++i) sets[find(i)].push_back(i);
    std::vector<std::vector<std::size_t>> list;
    list.reserve(sets.size());
    for (auto& [first, set] : sets) list.push_back(std::move(set));
    return list;
  }

 private:
  std::vector<std::size_t> parents_;
};

}  // namespace orivanta::importer
