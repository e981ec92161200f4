#include "Source/Guidance/Network/CostCache.hpp"

#include <algorithm>
#include <boost/container_hash/hash.hpp>
#include <utility>

#include "Source/Guidance/Network/TravelTime.hpp"

namespace orivanta::guidance {

namespace {

constexpr std::size_t mostTables = 8;

std::size_t hashOf(const std::vector<GuideNetwork::Index>& arcs) {
  return boost::hash_range(arcs.begin(), arcs.end());
}

}  // namespace

std::shared_ptr<const CostTable> CostCache::table(const Profile& profile,
                                                  std::vector<GuideNetwork::Index> closedArcs) {
  Profile usable = profile;
  usable.walkingMetersPerSecond = speedOf(profile);  // so that a NaN equals itself
  const std::size_t hash = hashOf(closedArcs);
  {
    const std::lock_guard lock(mutex_);
    if (auto known = find(usable, hash, closedArcs)) return known;
  }
  std::shared_ptr<const CostTable> made;
  if (closedArcs.empty())
    made = std::make_shared<CostTable>(network_, usable);
  else
    made = std::make_shared<CostTable>(*table(usable), network_, std::move(closedArcs));
  const std::lock_guard lock(mutex_);
  if (auto known = find(usable, hash, made->closedArcs())) return known;
  entries_.push_front({usable, hash, made});
  if (entries_.size() > mostTables) entries_.pop_back();
  return made;
}

// The mutex must be locked.
std::shared_ptr<const CostTable> CostCache::find(
    const Profile& profile, std::size_t hash, const std::vector<GuideNetwork::Index>& closedArcs) {
  const auto entry = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& each) {
    return each.hash == hash && each.profile == profile && each.table->closedArcs() == closedArcs;
  });
  if (entry == entries_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, entry);
  return entry->table;
}

}  // namespace orivanta::guidance
