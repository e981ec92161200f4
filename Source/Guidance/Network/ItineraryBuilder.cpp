#include "Source/Guidance/Network/ItineraryBuilder.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/Distance.hpp"
#include "Source/Guidance/Network/TravelTime.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

ItineraryBuilder::ItineraryBuilder(const GuideData& data, const Profile& profile)
    : data_(data), speed_(speedOf(profile)) {
  itinerary_.hasScale = data.network.hasScale();
}

void ItineraryBuilder::addVisit(std::size_t stop, std::shared_ptr<Location> location) {
  itinerary_.visits.push_back({stop, itinerary_.legs.size(), std::move(location)});
}

void ItineraryBuilder::addPath(const NetworkPath& path, const Ends* from, const Ends* to) {
  from_ = from;
  to_ = to;
  itinerary_.costMilliseconds += path.cost;
  if (path.hops.empty()) {
    const auto& node = nodeOf(path.first);
    itinerary_.legs.push_back({});
    itinerary_.legs.back().nodes.push_back(node);
    itinerary_.legs.back().map = node->map;
  }
  for (std::size_t i = 0; i < path.hops.size(); ++i) addHop(path.hops[i], i == 0);
}

// A leg ends where the connector or, on a walk, the floor changes.
void ItineraryBuilder::addHop(const Hop& hop, bool beginsPath) {
  const auto connector = data_.network.arcs()[hop.arc].connector;
  bool continues = !beginsPath;
  if (continues) {
    const Leg& leg = itinerary_.legs.back();
    continues = connector == GuideNetwork::none
                    ? leg.kind == Leg::Kind::walk && leg.map == nodeOf(hop.from)->map
                    : leg.connector == data_.network.connectors()[connector].record;
  }
  if (!continues) beginLeg(hop);
  itinerary_.legs.back().nodes.push_back(nodeOf(hop.to));
  if (connector == GuideNetwork::none)
    addWalk(hop);
  else
    addRide(hop);
}

void ItineraryBuilder::beginLeg(const Hop& hop) {
  Leg leg;
  leg.nodes.push_back(nodeOf(hop.from));
  leg.map = leg.nodes.front()->map;
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

void ItineraryBuilder::addWalk(const Hop& hop) {
  const bool isPart = std::max(hop.from, hop.to) >= data_.network.size();
  const double meters = isPart ? getEuclideanDistance(*nodeOf(hop.from), *nodeOf(hop.to)) /
                                     data_.network.unitsPerMeter()
                               : data_.network.arcs()[hop.arc].meters;
  itinerary_.legs.back().meters += meters;
  itinerary_.legs.back().seconds += meters / speed_;
}

// A ride over several stops of a connector is one ride from the first to the last.
void ItineraryBuilder::addRide(const Hop& hop) {
  const GuideNetwork& network = data_.network;
  const auto& first = network.vertex(legStart_);
  const auto& last = network.vertex(hop.to);
  const double plan = std::hypot(last.x - first.x, last.y - first.y) / network.unitsPerMeter();
  Leg& leg = itinerary_.legs.back();
  leg.seconds = rideSeconds(leg.connectorKind, plan,
                            network.height(hop.to) - network.height(legStart_), speed_);
  leg.floorsPassed = network.floors()[last.floor].level - network.floors()[first.floor].level;
}

const std::shared_ptr<Node>& ItineraryBuilder::nodeOf(Index vertex) const {
  if (vertex < data_.network.size()) return data_.network.node(vertex);
  return from_ != nullptr && from_->number == vertex ? from_->node : to_->node;
}

std::optional<Itinerary> itineraryAlong(const GuideData& data, const NodeList& nodes,
                                        const std::shared_ptr<Location>& departFrom,
                                        const std::shared_ptr<Location>& arriveAt,
                                        const Profile& profile) {
  if (nodes.empty()) return std::nullopt;
  const auto costs = data.costs.table(profile, {});
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
