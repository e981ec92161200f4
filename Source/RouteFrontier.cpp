#include "Source/RouteFrontier.hpp"

#include <algorithm>
#include <cstring>
#include <limits>

namespace orivanta {

namespace {

constexpr std::size_t arity = 4;

std::uint64_t bitsOf(double number) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &number, sizeof bits);
  return bits;
}

std::uint64_t rankOf(std::uint32_t sequence, std::uint32_t node) {
  return std::uint64_t{~sequence} << 32U | node;
}

}  // namespace

RouteFrontier::RouteFrontier(std::uint32_t firstSequence)
    : firstSequence_(firstSequence), sequence_(firstSequence) {}

void RouteFrontier::clear() {
  entries_.clear();
  sequence_ = firstSequence_;
}

void RouteFrontier::put(double priority, std::uint32_t node) {
  if (sequence_ == std::numeric_limits<std::uint32_t>::max()) renumber();
  const Entry entry{bitsOf(priority), rankOf(sequence_++, node)};
  std::size_t hole = entries_.size();
  entries_.push_back(entry);
  while (hole != 0) {
    const std::size_t parent = (hole - 1) / arity;
    if (!(entry < entries_[parent])) break;
    entries_[hole] = entries_[parent];
    hole = parent;
  }
  entries_[hole] = entry;
}

void RouteFrontier::removeFront() {
  const Entry last = entries_.back();
  entries_.pop_back();
  const std::size_t size = entries_.size();
  if (size == 0) return;
  std::size_t hole = 0;
  while (true) {
    const std::size_t first = hole * arity + 1;
    if (first >= size) break;
    std::size_t least = first;
    const std::size_t end = std::min(first + arity, size);
    for (std::size_t child = first + 1; child < end; ++child)
      least = entries_[child] < entries_[least] ? child : least;
    if (!(entries_[least] < last)) break;
    entries_[hole] = entries_[least];
    hole = least;
  }
  entries_[hole] = last;
}

// A sorted array is a heap too, so the numbers start again without a change of order.
void RouteFrontier::renumber() {
  std::sort(entries_.begin(), entries_.end());
  sequence_ = static_cast<std::uint32_t>(entries_.size());
  std::uint32_t sequence = sequence_;
  for (Entry& entry : entries_)
    entry.rank = rankOf(--sequence, static_cast<std::uint32_t>(entry.rank));
}

}  // namespace orivanta
