// The cost tables that were used last.
#pragma once

#include <list>
#include <memory>
#include <mutex>

#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/Network/CostTable.hpp"
#include "Source/Guidance/Network/PlaceTable.hpp"
#include "Source/Guidance/Profile.hpp"

namespace orivanta::guidance {

/// Keeps eight tables. Thread-safe. The network and the places must outlive it.
class CostCache {
 public:
  CostCache(const GuideNetwork& network, const PlaceTable& places)
      : network_(network), places_(places) {}

  /// Returns the table, created on first use. Several threads may create the same one.
  std::shared_ptr<const CostTable> table(const Profile& profile, const Closures& closures);

 private:
  struct Entry {
    Profile profile;
    Closures closures;
    std::shared_ptr<const CostTable> table;
  };

  std::shared_ptr<const CostTable> find(const Profile& profile, const Closures& closures);
  std::shared_ptr<const CostTable> make(const Profile& profile, const Closures& closures);

  const GuideNetwork& network_;
  const PlaceTable& places_;
  std::mutex mutex_;
  std::list<Entry> entries_;  // guarded by the mutex; the one used last is first
};

}  // namespace orivanta::guidance
