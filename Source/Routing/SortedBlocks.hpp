// A sorted list in small blocks, for PriorityQueue.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace orivanta {

/// Numbers in descending order of their priorities; among equal priorities, in the order of
/// insertion. A binary search finds the block, which fits into a few cache lines, and then all of
/// its priorities are compared. This takes a third less time than a search tree, whose branches are
/// unpredictable. At most one in sixteen insertions splits a block, which moves one pointer for
/// each following block.
template <class Priority>
class SortedBlocks {
 public:
  using Number = std::uint32_t;
  struct Entry {
    Priority priority;
    Number number;
  };
  /// Valid until the next change.
  struct Position {
    std::size_t block, index;
  };

  bool empty() const { return blocks_.empty(); }
  const Entry& operator[](Position at) const { return blocks_[at.block]->entries[at.index]; }

  Position last() const { return {blocks_.size() - 1, blocks_.back()->size - 1}; }
  static bool isFirst(Position at) { return at.block == 0 && at.index == 0; }
  Position before(Position at) const {
    if (at.index != 0) return {at.block, at.index - 1};
    return {at.block - 1, blocks_[at.block - 1]->size - 1};
  }

  /// Returns the first entry for which `isBefore` is false. There must be one.
  template <class IsBefore>
  Position find(const IsBefore& isBefore) const {
    const auto block = std::partition_point(blocks_.begin(), blocks_.end(), [&](const auto& each) {
      return isBefore(each->entries[each->size - 1]);
    });
    const Entry* const first = (*block)->entries.data();
    const Entry* const found = std::partition_point(first, first + (*block)->size, isBefore);
    return {static_cast<std::size_t>(block - blocks_.begin()),
            static_cast<std::size_t>(found - first)};
  }

  void insert(Priority priority, Number number) {
    std::size_t at = blockFor(priority);
    if (blocks_[at]->size == blockSize) {
      split(at);
      if (!(priority > least_[at])) ++at;
    }
    Block& block = *blocks_[at];
    Entry* const first = block.entries.data();
    std::size_t index = 0;
    for (std::size_t i = 0; i < block.size; ++i) index += !(priority > first[i].priority);
    std::move_backward(first + index, first + block.size, first + block.size + 1);
    first[index] = {priority, number};
    least_[at] = first[block.size++].priority;
  }

  void erase(Position at) {
    Block& block = *blocks_[at.block];
    if (block.size == 1) {
      blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(at.block));
      least_.erase(least_.begin() + static_cast<std::ptrdiff_t>(at.block));
      return;
    }
    Entry* const first = block.entries.data();
    std::move(first + at.index + 1, first + block.size, first + at.index);
    --block.size;
  }

 private:
  static constexpr std::size_t blockSize = 32;
  struct Block {
    std::size_t size = 0;
    std::array<Entry, blockSize> entries;
  };

  // Returns the first block with a smaller priority, or the last block.
  std::size_t blockFor(Priority priority) {
    if (blocks_.empty()) {
      blocks_.push_back(std::make_unique<Block>());
      least_.push_back(priority);
    }
    const auto block =
        std::partition_point(least_.begin(), least_.end() - 1,
                             [priority](Priority least) { return !(priority > least); });
    return static_cast<std::size_t>(block - least_.begin());
  }

  void split(std::size_t at) {
    constexpr std::size_t half = blockSize / 2;
    Block& block = *blocks_[at];
    auto next = std::make_unique<Block>();
    std::copy(block.entries.begin() + half, block.entries.end(), next->entries.begin());
    next->size = blockSize - half;
    block.size = half;
    const auto place = static_cast<std::ptrdiff_t>(at);
    least_.insert(least_.begin() + place, block.entries[half - 1].priority);
    blocks_.insert(blocks_.begin() + place + 1, std::move(next));
  }

  std::vector<std::unique_ptr<Block>> blocks_;  ///< none is empty
  std::vector<Priority> least_;  ///< per block: at most its smallest priority, and at least the
                                 ///< greatest of the next block
};

}  // namespace orivanta
