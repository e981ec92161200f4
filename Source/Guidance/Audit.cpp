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

// Divides places into parts that one call of `Guide::costs` takes.
std::vector<std::vector<Stop>> partsOf(const PlaceList& places, std::size_t most) {
  std::vector<std::vector<Stop>> parts;
  std::size_t nodes = 0;  // of the last part
  for (const auto& place : places) {
    nodes += place->nodes.size();
    if (parts.empty() || parts.back().size() == most || nodes > Guide::mostCostNodes) {
      parts.emplace_back();
      nodes = place->nodes.size();
    }
    parts.back().emplace_back(place);
  }
  return parts;
}

// Which places are reached from a start, in their order.
using Reached = std::vector<bool>;

// The ways between the places of a venue. After a cancellation, no result may be used.
class Reach {
 public:
  Reach(const Guide& guide, const PlaceList& places, const foundation::CancellationToken& token)
      : guide_(guide),
        size_(places.size()),
        parts_(partsOf(places, Guide::mostCostDestinations)),
        token_(token) {}

  // Calls `visit` with the number of each start and the places that are reached from it.
  template <class Visit>
  void visitReached(const PlaceList& from, const Profile& profile, Visit visit) const {
    const std::size_t columns = std::min(size_, Guide::mostCostDestinations);
    const std::size_t most = std::min(Guide::mostCosts / columns, Guide::mostCostStarts);
    std::size_t start = 0;
    for (const auto& part : partsOf(from, most))
      for (const Reached& reached : rowsOf(part, profile, {})) {
        if (token_.isCanceled()) return;
        visit(start++, reached);
      }
  }

  // Returns the places that are reached from a start.
  Reached reachedFrom(const Stop& start, const Profile& profile,
                      const Closures& closures = {}) const {
    return rowsOf({start}, profile, closures).front();
  }

  // Returns for each place whether a stop can be reached from it.
  Reached waysTo(const Stop& stop) const {
    Reached ways;
    for (const auto& part : parts_)
      for (const bool leads : guide_.leadToAny(part, {stop}, Profile::fastest(), {}, token_))
        ways.push_back(leads);
    return ways;
  }

 private:
  std::vector<Reached> rowsOf(const std::vector<Stop>& from, const Profile& profile,
                              const Closures& closures) const {
    std::vector<Reached> rows(from.size());
    for (const auto& part : parts_) {
      const auto costs = guide_.costs(from, part, profile, closures, token_);
      for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t i = 0; i < part.size(); ++i)
          rows[row].push_back(costs && (*costs)[row][i] >= 0);
    }
    return rows;
  }

  const Guide& guide_;
  const std::size_t size_;
  const std::vector<std::vector<Stop>> parts_;
  const foundation::CancellationToken& token_;
};

// Returns the places that are reached in `before` but not in `after`.
PlaceList lost(const PlaceList& places, const Reached& before, const Reached& after) {
  PlaceList list;
  for (std::size_t i = 0; i < places.size(); ++i)
    if (before[i] && !after[i]) list.push_back(places[i]);
  return list;
}

// The failure of any other connector does not matter to those who need a way without steps.
bool mayBeStepFree(const Vortex& connector) {
  return connector.accessible && connector.type != "stairs" && connector.type != "escalator";
}

// Returns the place from which most others are reached, among the first ones.
std::shared_ptr<Location> bestConnected(const Reach& reach, const PlaceList& places) {
  const PlaceList tried(places.begin(),
                        places.begin() + std::ptrdiff_t(std::min(places.size(), mostTried)));
  std::size_t best = 0;
  std::ptrdiff_t most = -1;
  reach.visitReached(tried, Profile::fastest(), [&](std::size_t i, const Reached& reached) {
    const auto count = std::count(reached.begin(), reached.end(), true);
    if (count > most) best = i, most = count;
  });
  return tried[best];
}

// Adds what is found if the connectors fail, one at a time.
void addFailures(Audit& result, const Venue& venue, const Reach& reach, const PlaceList& places,
                 const Stop& entrances, const foundation::CancellationToken& token) {
  const auto all = reach.reachedFrom(entrances, Profile::fastest());
  const auto stepFree = reach.reachedFrom(entrances, Profile::stepFree());
  for (const auto& connector : *venue.vortices) {
    if (token.isCanceled()) return;
    const Closures failure({*connector->id});
    const auto cutOff = [&](const Reached& before, const Profile& profile) {
      return lost(places, before, reach.reachedFrom(entrances, profile, failure));
    };
    ConnectorFinding finding{connector, cutOff(all, Profile::fastest()), {}};
    if (mayBeStepFree(*connector)) finding.cutOffStepFree = cutOff(stepFree, Profile::stepFree());
    if (token.isCanceled()) return;
    if (!finding.cutOff.empty() || !finding.cutOffStepFree.empty())
      result.connectors.push_back(std::move(finding));
  }
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
    if (token.isCanceled()) return result;
    places.push_back(location);
    if (isEntrance(*location)) entrances.push_back(location);
  }
  if (places.empty()) return result;
  const Reached everything(places.size(), true);
  const Reach reach(guide, places, token);
  if (entrances.empty()) {
    entrances.push_back(bestConnected(reach, places));
    result.entranceAssumed = true;
  }
  reach.visitReached(entrances, Profile::stepFree(), [&](std::size_t i, const Reached& reached) {
    result.entrances.push_back({entrances[i], lost(places, everything, reached)});
  });
  const Stop start = entrances;
  const auto all = reach.reachedFrom(start, Profile::fastest());
  const auto back = reach.waysTo(start);
  if (token.isCanceled()) return result;
  result.unreachable = lost(places, everything, all);
  result.withoutWayBack = lost(places, all, back);
  addFailures(result, venue, reach, places, start, token);
  return result;
}

}  // namespace orivanta::guidance
