// The cost tables that were used last.
#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <mutex>
#include <vector>

#include "Source/Guidance/Network/CostTable.hpp"
#include "Source/Guidance/Network/GuideNetwork.hpp"
#include "Source/Guidance/Profile.hpp"

namespace orivanta::guidance {

/// Keeps eight tables. Thread-safe. The network must outlive it.
class CostCache {
 public:
  explicit CostCache(const GuideNetwork& network) : network_(network) {}

  /// Returns the table in which these arcs, in ascending order, are closed. It is created on first
  /// use; several threads may create the same one, but one of them is kept.
  std::shared_ptr<const CostTable> table(const Profile& profile,
                                         std::vector<GuideNetwork::Index> closedArcs = {});

 private:
  struct Entry {
    Profile profile;
    std::size_t hash;  // of the closed arcs
    std::shared_ptr<const CostTable> table;
  };

  std::shared_ptr<const CostTable> find(const Profile& profile, std::size_t hash,
                                        const std::vector<GuideNetwork::Index>& closedArcs);

  const GuideNetwork& network_;
  std::mutex mutex_;
  std::list<Entry> entries_;  // guarded by the mutex; the one used last is first
};

}  // namespace orivanta::guidance
