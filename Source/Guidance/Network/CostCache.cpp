#include "Source/Guidance/Network/CostCache.hpp"

#include <algorithm>
#include <utility>

#include "Source/Guidance/Network/TravelTime.hpp"

namespace orivanta::guidance {

namespace {

constexpr std::size_t mostTables = 8;

}  // namespace

std::shared_ptr<const CostTable> CostCache::table(const Profile& profile,
                                                  const Closures& closures) {
  Profile usable = profile;
  usable.walkingMetersPerSecond = speedOf(profile);  // so that a NaN equals itself
  if (auto known = find(usable, closures)) return known;
  auto table = make(usable, closures);
  const std::lock_guard lock(mutex_);
  entries_.push_front({usable, closures, table});
  if (entries_.size() > mostTables) entries_.pop_back();
  return table;
}

std::shared_ptr<const CostTable> CostCache::find(const Profile& profile, const Closures& closures) {
  const std::lock_guard lock(mutex_);
  const auto entry = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& each) {
    return each.profile == profile && each.closures == closures;
  });
  if (entry == entries_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, entry);
  return entry->table;
}

std::shared_ptr<const CostTable> CostCache::make(const Profile& profile, const Closures& closures) {
  if (closures.empty()) return std::make_shared<CostTable>(network_, profile);
  auto arcs = places_.closedArcs(closures);
  const auto open = table(profile, {});
  return arcs.empty() ? open : std::make_shared<CostTable>(*open, network_, std::move(arcs));
}

}  // namespace orivanta::guidance
