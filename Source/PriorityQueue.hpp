// The frontier of the route search.
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace orivanta {

/// A list of elements in descending order of priority, taken from the end.
template <class Element, class Priority>
class PriorityQueue {
 public:
  std::vector<std::pair<Element, Priority>> collection;

  void put(const Element& element, Priority priority) {
    if (collection.empty()) {
      collection.insert(collection.begin(), {element, priority});
      return;
    }
    const auto snapshot = collection;
    bool inserted = false;
    for (std::size_t i = 0; i < snapshot.size(); ++i) {
      if (!inserted) {
        if (snapshot[i].first == element) return;
        if (priority > snapshot[i].second) {
          collection.insert(collection.begin() + static_cast<std::ptrdiff_t>(i), {element, priority});
          inserted = true;
        }
      } else if (snapshot[i].first == element) {
        collection.erase(collection.begin() + static_cast<std::ptrdiff_t>(i));
        return;
      }
    }
    if (!inserted) collection.emplace_back(element, priority);
  }

  std::optional<Element> next() {
    if (collection.empty()) return std::nullopt;
    Element element = collection.back().first;
    collection.pop_back();
    return element;
  }
};

}  // namespace orivanta
