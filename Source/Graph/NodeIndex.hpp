// Looks up many nodes by identifier. A large venue has hundreds of thousands of references, and
// each lookup accesses memory that is not in the cache; in a batch, these accesses overlap.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Source/Collections.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// Refers to the collection, which must outlive it unchanged. Thread-safe.
class NodeIndex {
 public:
  explicit NodeIndex(const Collection<Node>& nodes);

  /// Finds the node of each identifier, in order; null if there is none. The pointers are valid as
  /// long as the collection.
  void find(std::span<const std::string_view> identifiers,
            std::vector<const std::shared_ptr<Node>*>& found) const;

 private:
  using Entry = std::pair<std::string, std::shared_ptr<Node>>;
  // The upper half of the hash and the position of the entry. The hash excludes most other entries
  // of the same slot without reading them.
  struct Slot {
    std::uint32_t tag = 0;
    std::uint32_t entry = unused;
  };
  static constexpr std::uint32_t unused = 0xFFFFFFFFU;

  const Entry* candidateOf(std::uint64_t hash) const;
  const std::shared_ptr<Node>* nodeOf(std::string_view identifier, std::uint64_t hash) const;

  const std::vector<Entry>& entries_;
  std::vector<Slot> slots_;  // the size is a power of two; at most half are used
};

}  // namespace orivanta
