#include "Source/Guidance/Guide.hpp"

#include <fmt/format.h>

#include "Source/Category.hpp"
#include "Source/Guidance/Network/BackwardSearch.hpp"
#include "Source/Guidance/Network/CostMatrix.hpp"
#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Network/ItineraryBuilder.hpp"
#include "Source/Guidance/Network/Planner.hpp"
#include "Source/Guidance/Network/Snapping.hpp"
#include "Source/Guidance/Steps/StepBuilder.hpp"
#include "Source/Guidance/Steps/Surroundings.hpp"
#include "Source/Venue.hpp"

namespace orivanta::guidance {

class Guide::Implementation {
 public:
  explicit Implementation(const Venue& venue) : data(venue), surroundings(venue, data) {}

  GuideData data;
  Surroundings surroundings;
};

std::shared_ptr<const Guide> Guide::make(const Venue& venue) {
  if (!venue.nodes || !venue.navigationGraph) return nullptr;
  return std::shared_ptr<const Guide>(new Guide(std::make_unique<Implementation>(venue)));
}

Guide::Guide(std::unique_ptr<Implementation> implementation)
    : implementation_(std::move(implementation)) {}

Guide::~Guide() = default;

Plan Guide::plan(const Request& request, const foundation::CancellationToken& token) const {
  return Planner(implementation_->data, request, token).plan();
}

Plan Guide::nearest(const Stop& from, const Stop& to, const Profile& profile,
                    const Closures& closures, std::optional<LocalTime> at, int limit,
                    const foundation::CancellationToken& token) const {
  Request request;
  request.stops = {from, to};
  request.profile = profile;
  request.closures = closures;
  request.at = at;
  return Planner(implementation_->data, request, token).nearest(limit);
}

foundation::Result<CostRows> Guide::costs(const std::vector<Stop>& from,
                                          const std::vector<Stop>& to, const Profile& profile,
                                          const Closures& closures,
                                          const foundation::CancellationToken& token) const {
  if (from.size() > mostCostStarts || to.size() > mostCostDestinations ||
      from.size() * to.size() > mostCosts)
    return foundation::failure(
        "guide", 0,
        fmt::format(
            "{} times {} costs are too many; at most {} are possible, with {} starts and {} "
            "destinations at most.",
            from.size(), to.size(), mostCosts, mostCostStarts, mostCostDestinations));
  return costMatrix(implementation_->data, from, to, profile, closures, mostCostNodes, token);
}

std::vector<bool> Guide::leadToAny(const std::vector<Stop>& from, const std::vector<Stop>& to,
                                   const Profile& profile, const Closures& closures,
                                   const foundation::CancellationToken& token) const {
  return guidance::leadToAny(implementation_->data, from, to, profile, closures, token);
}

std::optional<Snap> Guide::snap(const Position& position) const {
  const auto snapped = snapTo(implementation_->data, position);
  return snapped ? std::optional(snapped->snap) : std::nullopt;
}

std::optional<Itinerary> Guide::itinerary(const NodeList& path,
                                          const std::shared_ptr<Location>& departFrom,
                                          const std::shared_ptr<Location>& arriveAt,
                                          const Profile& profile) const {
  return itineraryAlong(implementation_->data, path, departFrom, arriveAt, profile);
}

double Guide::unitsPerMeter() const { return implementation_->data.network.unitsPerMeter(); }

std::string Guide::spokenName(const Stop& stop) const {
  if (const auto* place = std::get_if<std::shared_ptr<Location>>(&stop))
    return *place ? implementation_->surroundings.spokenName(**place) : std::string();
  const auto* category = std::get_if<std::shared_ptr<Category>>(&stop);
  return category != nullptr && *category ? (*category)->name.value_or("") : std::string();
}

std::vector<Step> Guide::steps(const Itinerary& itinerary,
                               const foundation::CancellationToken& token) const {
  return stepsOf(itinerary, implementation_->surroundings, token);
}

}  // namespace orivanta::guidance
