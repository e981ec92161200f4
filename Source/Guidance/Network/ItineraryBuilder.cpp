#include "Source/Guidance/Network/ItineraryBuilder.hpp"

#include <utility>

#include "Source/Guidance/Network/TravelTime.hpp"

namespace orivanta::guidance {

ItineraryBuilder::ItineraryBuilder(const GuideData& data, const Profile& profile)
    : data_(data), speed_(speedOf(profile)) {
  itinerary_.hasScale = data.network.hasScale();
}

void ItineraryBuilder::addVisit(std::size_t stop, std::shared_ptr<Location> location,
                                bool isClosed) {
  itinerary_.visits.push_back({stop, itinerary_.legs.size(), std::move(location), isClosed});
}

void ItineraryBuilder::addPath(const NetworkPath& path, const Ends* from, const Ends* to) {
  const PathMeasure measure(data_.network, speed_, from, to);
  itinerary_.costMilliseconds += path.cost;
  if (path.hops.empty()) {
    itinerary_.legs.push_back({});
    itinerary_.legs.back().nodes.push_back(measure.nodeOf(path.first));
    itinerary_.legs.back().map = measure.mapOf(path.first);
  }
  for (std::size_t i = 0; i < path.hops.size(); ++i) addHop(path.hops[i], i == 0, measure);
}

// A leg ends where the connector or, on a walk, the floor changes.
void ItineraryBuilder::addHop(const Hop& hop, bool beginsPath, const PathMeasure& measure) {
  const auto connector = data_.network.arcs()[hop.arc].connector;
  bool continues = !beginsPath;
  if (continues) {
    const Leg& leg = itinerary_.legs.back();
    continues = connector == GuideNetwork::none
                    ? leg.kind == Leg::Kind::walk && leg.map == measure.mapOf(hop.from)
                    : leg.connector == data_.network.connectors()[connector].record;
  }
  if (!continues) beginLeg(hop, measure);
  Leg& leg = itinerary_.legs.back();
  leg.nodes.push_back(measure.nodeOf(hop.to));
  if (connector == GuideNetwork::none) {
    const double meters = measure.meters(hop);
    leg.meters += meters;
    leg.seconds += meters / speed_;
    return;
  }
  // A ride over several stops of a connector is one ride from the first to the last.
  leg.seconds = measure.rideSeconds(connector, legStart_, hop.to);
  leg.floorsPassed = data_.floors.between(data_.network.vertex(legStart_).floor,
                                          data_.network.vertex(hop.to).floor);
}

void ItineraryBuilder::beginLeg(const Hop& hop, const PathMeasure& measure) {
  Leg leg;
  leg.nodes.push_back(measure.nodeOf(hop.from));
  leg.map = measure.mapOf(hop.from);
  const auto connector = data_.network.arcs()[hop.arc].connector;
  if (connector != GuideNetwork::none) {
    leg.kind = Leg::Kind::ride;
    leg.connector = data_.network.connectors()[connector].record;
    leg.connectorKind = data_.network.connectors()[connector].kind;
    leg.sign = data_.network.connectors()[connector].sign;
  }
  legStart_ = hop.from;
  itinerary_.legs.push_back(std::move(leg));
}

std::optional<Itinerary> itineraryAlong(const GuideData& data, const NodeList& nodes,
                                        const std::shared_ptr<Location>& departFrom,
                                        const std::shared_ptr<Location>& arriveAt,
                                        const Profile& profile) {
  if (nodes.empty()) return std::nullopt;
  const auto costs = data.costs.table(profile);
  NetworkPath path;
  const auto first = data.network.find(nodes.front().get());
  if (!first) return std::nullopt;
  path.first = *first;
  const auto startRoom = data.network.vertex(*first).room;
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    const auto target = data.network.find(nodes[i].get());
    const auto& here = data.network.vertex(path.last());
    auto best = GuideNetwork::none;
    for (auto arc = here.firstArc; target && arc != here.endArc; ++arc)
      if (data.network.targets()[arc] == *target &&
          (best == GuideNetwork::none || (*costs)[arc] < (*costs)[best]))
        best = arc;
    if (best == GuideNetwork::none) return std::nullopt;
    const bool isFree =
        here.room == startRoom && data.network.leavesRoom(data.network.arcs()[best]);
    if ((*costs)[best] != CostTable::unusable)
      path.cost += (*costs)[best] - (isFree ? CostTable::roomPenalty : 0);
    path.hops.push_back({path.last(), *target, best});
  }
  ItineraryBuilder builder(data, profile);
  builder.addVisit(0, departFrom);
  builder.addPath(path, nullptr, nullptr);
  builder.addVisit(1, arriveAt);
  return builder.take();
}

}  // namespace orivanta::guidance
