// The frontier of the route search: a heap that returns nodes of equal priority newest first.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace orivanta {

/// A node that is put several times is taken as many times. If no queued node is put again, the
/// order is that of PriorityQueue.
///
/// A heap with four children per node. `take` leaves the root vacant, and the next `put` fills it.
/// In a search that is usually a neighbor of the taken node, which rarely sinks far.
class RouteFrontier {
 public:
  /// Sequence numbers start at `firstSequence` after each `clear`.
  explicit RouteFrontier(std::uint32_t firstSequence = 0) : firstSequence_(firstSequence) {
    clear();
  }

  void clear() {
    entries_.assign(spare, Entry::last());
    size_ = 0;
    rootIsVacant_ = false;
    sequence_ = firstSequence_;
  }

  /// `priority` must be 0 or greater, possibly infinite, and not negative zero.
  void put(double priority, std::uint32_t node) {
    if (sequence_ == std::numeric_limits<std::uint32_t>::max()) renumber();
    const Entry entry(priority, sequence_++, node);
    if (rootIsVacant_) {
      rootIsVacant_ = false;
      sink(entry);
    } else {
      entries_.push_back(Entry::last());
      rise(entry, size_++);
    }
  }

  bool empty() const { return size_ == (rootIsVacant_ ? 1 : 0); }

  /// Takes the node with the smallest priority; among equal priorities, the one put last. The
  /// frontier must not be empty.
  std::uint32_t take() {
    if (rootIsVacant_) closeRoot();
    rootIsVacant_ = true;
    return entries_.front().node();
  }

 private:
  // Ordered by priority, then by sequence number (greater first), then by node.
  class Entry {
   public:
    Entry(double priority, std::uint32_t sequence, std::uint32_t node)
        : Entry(bitsOf(priority), std::uint64_t{~sequence} << 32U | node) {}
    /// An entry that is ordered after all others.
    static Entry last() { return Entry(~std::uint64_t{0}, ~std::uint64_t{0}); }

    Entry renumbered(std::uint32_t sequence) const {
      return Entry(priority_, std::uint64_t{~sequence} << 32U | node());
    }
    std::uint32_t node() const { return static_cast<std::uint32_t>(rank_); }

    // Without a branch, because its outcome is unpredictable.
    bool operator<(const Entry& other) const {
#ifdef __SIZEOF_INT128__
      return key() < other.key();
#else
      return (priority_ < other.priority_) |
             ((priority_ == other.priority_) & (rank_ < other.rank_));
#endif
    }

   private:
    Entry(std::uint64_t priority, std::uint64_t rank) : priority_(priority), rank_(rank) {}

    // Doubles that are not negative have the same order as their bits.
    static std::uint64_t bitsOf(double number) {
      std::uint64_t bits = 0;
      std::memcpy(&bits, &number, sizeof bits);
      return bits;
    }

#ifdef __SIZEOF_INT128__
    unsigned __int128 key() const {
      return static_cast<unsigned __int128>(priority_) << 64U | rank_;
    }
#endif

    std::uint64_t priority_;
    std::uint64_t rank_;
  };

  static constexpr std::size_t arity = 4;
  static constexpr std::size_t spare = arity;  ///< entries after the heap, for `sink`

  void rise(Entry entry, std::size_t hole) {
    Entry* const entries = entries_.data();
    while (hole != 0) {
      const std::size_t parent = (hole - 1) / arity;
      const Entry above = entries[parent];
      if (!(entry < above)) break;
      entries[hole] = above;
      hole = parent;
    }
    entries[hole] = entry;
  }

  // Moves an entry down from the root, replacing it with the least of four children at each step.
  void sink(Entry entry) {
    Entry* const entries = entries_.data();
    std::size_t hole = 0;
    for (std::size_t child = 1; child < size_; child = hole * arity + 1) {
      const std::size_t left = child + (entries[child + 1] < entries[child]);
      const std::size_t right = child + 2 + (entries[child + 3] < entries[child + 2]);
      const std::size_t least = left + (right - left) * (entries[right] < entries[left]);
      const Entry below = entries[least];
      if (!(below < entry)) break;
      entries[hole] = below;
      hole = least;
    }
    entries[hole] = entry;
  }

  void closeRoot() {
    rootIsVacant_ = false;
    entries_.pop_back();
    const Entry moved = entries_[--size_];
    entries_[size_] = Entry::last();
    sink(moved);
  }

  // A sorted array is also a heap, so the sequence numbers restart without a change in order.
  void renumber() {
    if (rootIsVacant_) closeRoot();
    std::sort(entries_.begin(), entries_.begin() + static_cast<std::ptrdiff_t>(size_));
    sequence_ = 0;
    for (std::size_t i = size_; i-- != 0;) entries_[i] = entries_[i].renumbered(sequence_++);
  }

  std::vector<Entry> entries_;
  std::size_t size_;  ///< including the vacant root
  bool rootIsVacant_;
  std::uint32_t firstSequence_;
  std::uint32_t sequence_;
};

}  // namespace orivanta
