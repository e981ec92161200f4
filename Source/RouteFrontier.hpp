// The frontier of the route search: a heap in which equal priorities come newest first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orivanta {

/// Holds each node at most once; the caller sees to that. A 4-ary heap: its order is that of
/// PriorityQueue as long as no queued node is put again.
class RouteFrontier {
 public:
  /// Sequence numbers start at `firstSequence` after each `clear`.
  explicit RouteFrontier(std::uint32_t firstSequence = 0);

  bool empty() const { return entries_.empty(); }
  void clear();

  /// `priority` is 0 or greater, infinity included, and not the negative zero.
  void put(double priority, std::uint32_t node);

  /// The node of the smallest priority, of equal ones the node put last. Not for an empty frontier.
  std::uint32_t front() const { return static_cast<std::uint32_t>(entries_.front().rank); }
  void removeFront();

 private:
  struct Entry {
    std::uint64_t priority;  ///< the bits of the double, which are in the order of the numbers
    std::uint64_t rank;      ///< high half: inverted sequence number; low half: node

    bool operator<(const Entry& other) const {
      return (priority < other.priority) | ((priority == other.priority) & (rank < other.rank));
    }
  };

  void renumber();

  std::vector<Entry> entries_;
  std::uint32_t firstSequence_;
  std::uint32_t sequence_;
};

}  // namespace orivanta
