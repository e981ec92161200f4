// A priority queue whose `put` has special rules for ties and for elements that are queued again.
// The route search depends on them.
#pragma once

#include <tsl/ordered_map.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "Source/Routing/SortedBlocks.hpp"

namespace orivanta {

/// A list of (element, priority) pairs in descending order of priority, taken from the end: the
/// smallest priority first; among equal priorities, the one put last.
///
/// `put` has the same result as the following walk from the front of the list, without the walk:
/// - the walk ends without any change when it meets the element before a smaller priority;
/// - otherwise the new pair is inserted before the first smaller priority, or at the end;
/// - if the walk then meets the element again, the pair directly before that older pair is removed,
///   and the older pair stays.
///
/// Elements need equality and a hash, and priorities an order. A NaN, which is not greater than
/// anything, is inserted at the end and then has the priority of the pair before it.
template <class Element, class Priority, class Hash = std::hash<Element>,
          class Equal = std::equal_to<Element>>
class PriorityQueue {
 public:
  PriorityQueue() = default;
  PriorityQueue(const PriorityQueue&) = delete;
  PriorityQueue& operator=(const PriorityQueue&) = delete;

  void put(const Element& element, Priority priority) {
    auto [entry, isNew] = first_.try_emplace(element, none);
    const Number older = entry.value();
    if (isNew) {
      entry.value() = insert(element, priority, older);
      return;
    }
    if (!(priority > pairs_[older].priority)) return;
    const Position place = positionOf(older);
    if (order_.isFirst(place)) return;
    const Position before = order_.before(place);
    if (!(priority > order_[before].priority)) return;
    const Number toRemove = order_[before].number;
    entry.value() = insert(element, priority, older);
    pairs_[older].ahead = entry.value();
    remove(toRemove, positionOf(toRemove));
  }

  /// Takes the last pair and returns its element. Returns nothing if the queue is empty.
  std::optional<Element> next() {
    if (order_.empty()) return std::nullopt;
    const Position last = order_.last();
    const Number number = order_[last].number;
    std::optional<Element> element(pairs_[number].element);
    remove(number, last);
    return element;
  }

  /// Returns a function that takes the next element from the queue and returns it, or nothing if
  /// the queue is empty. Valid as long as the queue, which may change between the calls.
  auto generate() {
    return [this] { return next(); };
  }

  std::size_t size() const { return pairs_.size() - unused_.size(); }

  /// Returns the whole list, the largest priority first.
  std::vector<std::pair<Element, Priority>> collection() const {
    std::vector<std::pair<Element, Priority>> pairs;
    pairs.reserve(size());
    if (order_.empty()) return pairs;
    for (Position at = order_.last();; at = order_.before(at)) {
      pairs.emplace_back(pairs_[order_[at].number].element, order_[at].priority);
      if (order_.isFirst(at)) break;
    }
    std::reverse(pairs.begin(), pairs.end());
    return pairs;
  }

 private:
  using Order = SortedBlocks<Priority>;
  using Position = typename Order::Position;
  using Number = typename Order::Number;
  static constexpr Number none = std::numeric_limits<Number>::max();

  /// The pairs of one element form a linked list.
  struct Pair {
    Element element;
    Priority priority;
    std::uint64_t sequence;
    Number ahead;  ///< nearer to the front
    Number behind;
  };

  /// Inserts a pair in front of all pairs of the element, the first of which is `behind`.
  Number insert(const Element& element, Priority priority, Number behind) {
    priority = comparable(priority);
    const Number number = unused_.empty() ? static_cast<Number>(pairs_.size()) : unused_.back();
    if (unused_.empty()) {
      pairs_.push_back({element, priority, sequence_++, none, behind});
    } else {
      unused_.pop_back();
      pairs_[number] = {element, priority, sequence_++, none, behind};
    }
    order_.insert(priority, number);
    return number;
  }

  Position positionOf(Number wanted) const {
    const Pair& pair = pairs_[wanted];
    return order_.find([&](const auto& entry) {
      if (entry.priority > pair.priority) return true;
      return !(pair.priority > entry.priority) && pairs_[entry.number].sequence < pair.sequence;
    });
  }

  Priority comparable(Priority priority) const {
    const bool isNumber = priority <= priority;  // NOLINT(misc-redundant-expression): not for a NaN
    if (isNumber) return priority;
    return order_.empty() ? std::numeric_limits<Priority>::infinity()
                          : order_[order_.last()].priority;
  }

  void remove(Number number, Position at) {
    order_.erase(at);
    const Pair pair = std::move(pairs_[number]);
    if (pair.behind != none) pairs_[pair.behind].ahead = pair.ahead;
    if (pair.ahead != none)
      pairs_[pair.ahead].behind = pair.behind;
    else if (pair.behind != none)
      first_[pair.element] = pair.behind;
    else
      first_.unordered_erase(pair.element);
    unused_.push_back(number);
  }

  struct SpreadHash {
    std::size_t operator()(const Element& element) const {
      const std::size_t hash = Hash()(element) * 0x9E3779B1U;
      return hash ^ hash >> 15U;
    }
  };

  Order order_;
  std::vector<Pair> pairs_;     ///< by number
  std::vector<Number> unused_;  ///< numbers of pairs that were removed
  tsl::ordered_map<Element, Number, SpreadHash, Equal, std::allocator<std::pair<Element, Number>>,
                   std::vector<std::pair<Element, Number>>>
      first_;  ///< per element, the pair nearest to the front
  std::uint64_t sequence_ = 0;
};

}  // namespace orivanta
