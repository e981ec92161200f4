// A queue whose `put` settles ties and requeueing in its own way, which the route search depends
// on.
#pragma once

#include <tsl/ordered_map.h>

#include <cstddef>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
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
  PriorityQueue() = default;
  PriorityQueue(const PriorityQueue&) = delete;
  PriorityQueue& operator=(const PriorityQueue&) = delete;

  void put(const Element& element, Priority priority) {
    auto [entry, isNew] = first_.try_emplace(element);
    if (isNew) {
      entry.value() = insert(element, priority, pairs_.end());
      return;
    }
    const Position older = entry.value();
    if (older == pairs_.begin()) return;
    const Position before = std::prev(older);
    if (!(priority > before->first)) return;
    entry.value() = insert(element, priority, older);
    older->second.ahead = entry.value();
    remove(before);
  }

  /// Takes the last pair and returns its element; nothing when the queue is empty.
  std::optional<Element> next() {
    if (pairs_.empty()) return std::nullopt;
    const Position last = std::prev(pairs_.end());
    std::optional<Element> element(last->second.element);
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
    for (const auto& [priority, pair] : pairs_) pairs.emplace_back(pair.element, priority);
    return pairs;
  }

 private:
  struct Pair;
  /// Of equal priorities the one inserted first comes first.
  using Pairs = std::multimap<Priority, Pair, std::greater<Priority>>;
  using Position = typename Pairs::iterator;
  /// The pairs of one element are linked with one another; `end()` of the map where there is none.
  struct Pair {
    Element element;
    Position ahead;  ///< nearer to the front
    Position behind;
  };

  /// In front of all pairs of the element, the first of which is `behind`.
  Position insert(const Element& element, Priority priority, Position behind) {
    return pairs_.emplace(comparable(priority), Pair{element, pairs_.end(), behind});
  }

  Priority comparable(Priority priority) const {
    if (priority == priority) return priority;
    return pairs_.empty() ? std::numeric_limits<Priority>::infinity()
                          : std::prev(pairs_.end())->first;
  }

  void remove(Position position) {
    const auto& [element, ahead, behind] = position->second;
    if (behind != pairs_.end()) behind->second.ahead = ahead;
    if (ahead != pairs_.end())
      ahead->second.behind = behind;
    else if (behind != pairs_.end())
      first_[element] = behind;
    else
      first_.unordered_erase(element);
    pairs_.erase(position);
  }

  Pairs pairs_;
  struct SpreadHash {
    std::size_t operator()(const Element& element) const {
      const std::size_t hash = Hash()(element) * 0x9E3779B1U;
      return hash ^ hash >> 15U;
    }
  };
  tsl::ordered_map<Element, Position, SpreadHash, Equal,
                   std::allocator<std::pair<Element, Position>>,
                   std::vector<std::pair<Element, Position>>>
      first_;  ///< the one nearest to the front
};

}  // namespace orivanta
