#include "Source/Graph/NodeIndex.hpp"

#include <utility>

#include "Platform/Foundation/ParallelFor.hpp"
#include "Source/Node.hpp"

namespace orivanta {

namespace {

std::uint32_t tagOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash >> 32U); }

std::size_t slotCountFor(std::size_t entries) {
  std::size_t count = 16;
  while (count < 2 * entries) count *= 2;
  return count;
}

}  // namespace

NodeIndex::NodeIndex(const Collection<Node>& nodes)
    : entries_(nodes.values_container()), slots_(slotCountFor(entries_.size())) {
  std::vector<std::uint64_t> hashes(entries_.size());
  const auto hash = [&](std::size_t i) {
    if (i + 8 < entries_.size()) __builtin_prefetch(entries_[i + 8].first.data());
    hashes[i] = TextHash()(entries_[i].first);
  };
  foundation::parallelFor(entries_.size(), hash, 1024);
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    std::size_t slot = hashes[i] & mask;
    while (slots_[slot].entry != unused) slot = (slot + 1) & mask;
    slots_[slot] = {tagOf(hashes[i]), static_cast<std::uint32_t>(i)};
  }
}

// Returns the first entry that may match, or null if there is none.
const NodeIndex::Entry* NodeIndex::candidateOf(std::uint64_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t slot = hash & mask; slots_[slot].entry != unused; slot = (slot + 1) & mask)
    if (slots_[slot].tag == tagOf(hash)) return &entries_[slots_[slot].entry];
  return nullptr;
}

const std::shared_ptr<Node>* NodeIndex::nodeOf(std::string_view identifier,
                                               std::uint64_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t slot = hash & mask; slots_[slot].entry != unused; slot = (slot + 1) & mask) {
    if (slots_[slot].tag != tagOf(hash)) continue;
    const Entry& entry = entries_[slots_[slot].entry];
    if (entry.first == identifier) return &entry.second;
  }
  return nullptr;
}

// Each loop reads what the previous one has prefetched: the slots, the entries, their texts and
// nodes.
void NodeIndex::find(std::span<const std::string_view> identifiers,
                     std::vector<const std::shared_ptr<Node>*>& found) const {
  const std::size_t mask = slots_.size() - 1;
  std::vector<std::uint64_t> hashes;
  hashes.reserve(identifiers.size());
  for (const std::string_view identifier : identifiers) {
    hashes.push_back(TextHash()(identifier));
    __builtin_prefetch(&slots_[hashes.back() & mask]);
  }
  for (const std::uint64_t hash : hashes)
    if (const Entry* candidate = candidateOf(hash)) __builtin_prefetch(candidate);
  for (const std::uint64_t hash : hashes)
    if (const Entry* candidate = candidateOf(hash)) {
      __builtin_prefetch(candidate->first.data());
      __builtin_prefetch(&candidate->second->x);
      __builtin_prefetch(&candidate->second->multiplierWeight);
      // The reference counts are stored in front of the node.
      __builtin_prefetch(reinterpret_cast<const char*>(candidate->second.get()) - 8, 1);
    }
  found.clear();
  for (std::size_t i = 0; i < identifiers.size(); ++i)
    found.push_back(nodeOf(identifiers[i], hashes[i]));
}

}  // namespace orivanta
