#include "Source/Guidance/Audit.hpp"

#include <algorithm>
#include <string_view>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::guidance {

namespace {

// How many places are tried as the starting point of a venue without entrances.
constexpr std::size_t mostTried = 50;

bool isEntranceWord(std::string_view word) {
  if (word.starts_with("cat-")) word.remove_prefix(4);
  return word == "entrance" || word == "exit" || word == "entrances" || word == "exits";
}

std::vector<Stop> stopsOf(const PlaceList& places) { return {places.begin(), places.end()}; }

// Returns the costs in as few calls as the limit of `Guide::costs` allows. If even one row exceeds
// it, nothing counts as reached.
CostRows costsOf(const Guide& guide, const std::vector<Stop>& from, const std::vector<Stop>& to,
                 const Profile& profile, const Closures& closures = {}) {
  const std::size_t most = std::max<std::size_t>(1, Guide::mostCosts / (to.size() + 1));
  CostRows rows;
  for (std::size_t begin = 0; begin < from.size(); begin += most) {
    const std::size_t end = std::min(from.size(), begin + most);
    const std::vector<Stop> part(from.begin() + std::ptrdiff_t(begin),
                                 from.begin() + std::ptrdiff_t(end));
    const auto found = guide.costs(part, to, profile, closures);
    const CostRows none(part.size(), std::vector<std::int64_t>(to.size(), -1));
    for (const auto& row : found.value_or(none)) rows.push_back(row);
  }
  return rows;
}

// The ways between the places and any of the entrances.
class Reach {
 public:
  Reach(const Guide& guide, const PlaceList& entrances, const PlaceList& places)
      : guide_(guide), places_(stopsOf(places)) {
    NodeList nodes;
    for (const auto& entrance : entrances)
      nodes.insert(nodes.end(), entrance->nodes.begin(), entrance->nodes.end());
    start_.emplace_back(std::move(nodes));
  }

  std::vector<std::int64_t> costs(const Profile& profile, const Closures& closures = {}) const {
    return costsOf(guide_, start_, places_, profile, closures).front();
  }

  // Returns for each place whether an entrance can be reached from it.
  std::vector<bool> waysBack() const {
    return guide_.leadToAny(places_, start_, Profile::fastest());
  }

 private:
  const Guide& guide_;
  std::vector<Stop> start_;
  std::vector<Stop> places_;
};

// Returns the places that are reached in `before` but not in `after`.
PlaceList lost(const PlaceList& places, const std::vector<std::int64_t>& before,
               const std::vector<std::int64_t>& after) {
  PlaceList list;
  for (std::size_t i = 0; i < places.size(); ++i)
    if (before[i] >= 0 && after[i] < 0) list.push_back(places[i]);
  return list;
}

PlaceList unreached(const PlaceList& places, const std::vector<std::int64_t>& costs) {
  PlaceList list;
  for (std::size_t i = 0; i < places.size(); ++i)
    if (costs[i] < 0) list.push_back(places[i]);
  return list;
}

// The failure of any other connector does not matter to those who need a way without steps.
bool mayBeStepFree(const Vortex& connector) {
  return connector.accessible && connector.type != "stairs" && connector.type != "escalator";
}

// Returns the place from which most others are reached, among the first ones.
std::shared_ptr<Location> bestConnected(const Guide& guide, const PlaceList& places) {
  const PlaceList tried(places.begin(),
                        places.begin() + std::ptrdiff_t(std::min(places.size(), mostTried)));
  const auto rows = costsOf(guide, stopsOf(tried), stopsOf(places), Profile::fastest());
  const auto reached = [](const std::vector<std::int64_t>& row) {
    return std::count_if(row.begin(), row.end(), [](std::int64_t cost) { return cost >= 0; });
  };
  const auto best = std::max_element(rows.begin(), rows.end(), [&](const auto& a, const auto& b) {
    return reached(a) < reached(b);
  });
  return tried[std::size_t(best - rows.begin())];
}

}  // namespace

bool isEntrance(const Location& location) {
  if (location.type && isEntranceWord(*location.type)) return true;
  return std::any_of(location.categories.begin(), location.categories.end(),
                     [](const auto& category) {
                       return category && category->id && isEntranceWord(*category->id);
                     });
}

Audit audit(const Venue& venue, const Guide& guide, const foundation::CancellationToken& token) {
  Audit result;
  PlaceList places;
  PlaceList entrances;
  if (!venue.locations || !venue.vortices) return result;
  for (const auto& location : *venue.locations) {
    if (location->nodes.empty()) {
      result.withoutNodes.push_back(location);
      continue;
    }
    places.push_back(location);
    if (isEntrance(*location)) entrances.push_back(location);
  }
  if (places.empty()) return result;
  if (entrances.empty()) {
    entrances.push_back(bestConnected(guide, places));
    result.entranceAssumed = true;
  }
  const auto stepFree = costsOf(guide, stopsOf(entrances), stopsOf(places), Profile::stepFree());
  for (std::size_t i = 0; i < entrances.size(); ++i)
    result.entrances.push_back({entrances[i], unreached(places, stepFree[i])});
  const Reach reach(guide, entrances, places);
  const auto all = reach.costs(Profile::fastest());
  const auto allStepFree = reach.costs(Profile::stepFree());
  result.unreachable = unreached(places, all);
  const auto back = reach.waysBack();
  for (std::size_t i = 0; i < places.size(); ++i)
    if (all[i] >= 0 && !back[i]) result.withoutWayBack.push_back(places[i]);
  for (const auto& connector : *venue.vortices) {
    if (token.isCanceled()) break;
    const Closures failure({*connector->id});
    ConnectorFinding finding{
        connector, lost(places, all, reach.costs(Profile::fastest(), failure)), {}};
    if (mayBeStepFree(*connector))
      finding.cutOffStepFree = lost(places, allStepFree, reach.costs(Profile::stepFree(), failure));
    if (!finding.cutOff.empty() || !finding.cutOffStepFree.empty())
      result.connectors.push_back(std::move(finding));
  }
  return result;
}

}  // namespace orivanta::guidance
