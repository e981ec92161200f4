// Looking up many nodes by identifier. A large venue has hundreds of thousands of references, each
// a walk through memory that is not in the cache; taken together, the walks overlap.
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

/// Refers to the collection, which must outlive it unchanged. Any number of threads at once.
class NodeIndex {
 public:
  explicit NodeIndex(const Collection<Node>& nodes);

  /// The node of each identifier, or null, in their order. The pointers are valid as long as the
  /// collection.
  void find(std::span<const std::string_view> identifiers,
            std::vector<const std::shared_ptr<Node>*>& found) const;

 private:
  using Entry = std::pair<std::string, std::shared_ptr<Node>>;
  // The upper half of the hash beside the entry's position, so that other entries of the same slot
  // are mostly passed over without a look at them.
  struct Slot {
    std::uint32_t tag = 0;
    std::uint32_t entry = unused;
  };
  static constexpr std::uint32_t unused = 0xFFFFFFFFU;

  const Entry* candidateOf(std::uint64_t hash) const;
  const std::shared_ptr<Node>* nodeOf(std::string_view identifier, std::uint64_t hash) const;

  const std::vector<Entry>& entries_;
  std::vector<Slot> slots_;  // a power of two, at most half of them used
};

}  // namespace orivanta
