// A queue whose `put` settles ties and requeueing in its own way, which the route search depends
// on.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace orivanta {

/// A list of (element, priority) pairs in descending order of priority, taken from the end: the
/// smallest priority first, of equal priorities the one put last.
///
/// `put` behaves as this walk of the list from its front does, and takes O(log n) instead:
/// - the walk ends without any change when it meets the element before a smaller priority;
/// - else the new pair goes before the first smaller priority, or to the end;
/// - and if the walk meets the element further on, the pair that stood just before that older one
///   is removed, while the older one stays.
///
/// Elements need equality and a hash, priorities an order. A NaN, which is not greater than
/// anything, goes to the end and from then on counts as the priority of the pair before it.
template <class Element, class Priority, class Hash = std::hash<Element>,
          class Equal = std::equal_to<Element>>
class PriorityQueue {
 public:
  void put(const Element& element, Priority priority) {
    Occurrences& occurrences = occurrences_[element];
    if (occurrences.empty()) {
      occurrences.push_back(insert(element, priority));
      return;
    }
    const Position oldest = occurrences.back();
    if (oldest == pairs_.begin()) return;
    const Position before = std::prev(oldest);
    if (!(priority > before->first.priority)) return;
    occurrences.push_back(insert(element, priority));
    remove(before);
  }

  /// Takes the last pair and returns its element; nothing when the queue is empty.
  std::optional<Element> next() {
    if (pairs_.empty()) return std::nullopt;
    const Position last = std::prev(pairs_.end());
    std::optional<Element> element(last->second);
    remove(last);
    return element;
  }

  /// A source of elements, each taken from the queue by the call that returns it, until it returns
  /// nothing. Valid as long as the queue, which may change between the calls.
  auto generate() {
    return [this] { return next(); };
  }

  std::size_t size() const { return pairs_.size(); }

  /// The whole list, the largest priority first.
  std::vector<std::pair<Element, Priority>> collection() const {
    std::vector<std::pair<Element, Priority>> pairs;
    pairs.reserve(pairs_.size());
    for (const auto& [place, element] : pairs_) pairs.emplace_back(element, place.priority);
    return pairs;
  }

 private:
  struct Place {
    Priority priority;
    std::uint64_t sequence;

    bool operator<(const Place& other) const {
      if (priority > other.priority) return true;
      if (other.priority > priority) return false;
      return sequence < other.sequence;
    }
  };
  using Pairs = std::map<Place, Element>;
  using Position = typename Pairs::iterator;
  using Occurrences = std::vector<Position>;  ///< the one nearest to the front is the last

  Position insert(const Element& element, Priority priority) {
    return pairs_.emplace(Place{comparable(priority), sequence_++}, element).first;
  }

  Priority comparable(Priority priority) const {
    if (priority == priority) return priority;
    return pairs_.empty() ? std::numeric_limits<Priority>::infinity()
                          : std::prev(pairs_.end())->first.priority;
  }

  void remove(Position position) {
    const auto entry = occurrences_.find(position->second);
    Occurrences& occurrences = entry->second;
    if (occurrences.size() == 1)
      occurrences_.erase(entry);
    else
      occurrences.erase(std::lower_bound(
          occurrences.begin(), occurrences.end(), position,
          [](Position left, Position right) { return right->first < left->first; }));
    pairs_.erase(position);
  }

  Pairs pairs_;
  std::unordered_map<Element, Occurrences, Hash, Equal> occurrences_;
  std::uint64_t sequence_ = 0;
};

}  // namespace orivanta
