// A priority queue implemented as a sorted list, as a reference for PriorityQueue.
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace orivanta::test {

/// Has the same contract as PriorityQueue. `put` scans the list from the front.
template <class Element, class Priority>
class LiteralPriorityQueue {
 public:
  void put(const Element& element, Priority priority) {
    const std::size_t size = pairs_.size();
    std::size_t inserted = 0;
    for (std::size_t i = 0; i < size; ++i) {
      const auto& pair = pairs_[i + inserted];
      if (pair.first == element) {
        if (inserted != 0) pairs_.erase(pairs_.begin() + static_cast<std::ptrdiff_t>(i));
        return;
      }
      if (inserted == 0 && priority > pair.second) {
        pairs_.insert(pairs_.begin() + static_cast<std::ptrdiff_t>(i), {element, priority});
        inserted = 1;
      }
    }
    if (inserted == 0) pairs_.emplace_back(element, priority);
  }

  std::optional<Element> next() {
    if (pairs_.empty()) return std::nullopt;
    std::optional<Element> element(std::move(pairs_.back().first));
    pairs_.pop_back();
    return element;
  }

  std::size_t size() const { return pairs_.size(); }
  const std::vector<std::pair<Element, Priority>>& collection() const { return pairs_; }

 private:
  std::vector<std::pair<Element, Priority>> pairs_;
};

}  // namespace orivanta::test
