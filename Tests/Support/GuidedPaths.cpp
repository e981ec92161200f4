#include "Tests/Support/GuidedPaths.hpp"

#include <cmath>
#include <map>
#include <utility>

#include "Source/Guidance/PathWalk.hpp"
#include "Source/Loading/VenueJoin.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::test {

namespace {

using guidance::ConnectorKind;
using guidance::Leg;

ConnectorKind kindOf(const Vortex& connector) {
  static const std::map<std::string, ConnectorKind> kinds{{"elevator", ConnectorKind::lift},
                                                          {"lift", ConnectorKind::lift},
                                                          {"escalator", ConnectorKind::escalator},
                                                          {"stairs", ConnectorKind::stairs},
                                                          {"ramp", ConnectorKind::ramp}};
  const auto found = kinds.find(connector.type.value_or(""));
  return found == kinds.end() ? ConnectorKind::other : found->second;
}

Leg startOf(const std::shared_ptr<Node>& node, const std::shared_ptr<Vortex>& connector) {
  Leg leg;
  leg.nodes = {node};
  leg.map = node->map;
  leg.connector = connector;
  if (!connector) return leg;
  leg.kind = Leg::Kind::ride;
  leg.connectorKind = kindOf(*connector);
  leg.seconds = 30.0;
  return leg;
}

void extend(Leg& leg, const std::shared_ptr<Node>& node, double metersPerUnit) {
  const Node& before = *leg.nodes.back();
  if (leg.kind == Leg::Kind::walk) {
    const double units = std::hypot(node->x - before.x, node->y - before.y, node->z - before.z);
    leg.meters += units * metersPerUnit;
    leg.seconds = leg.meters;
  }
  leg.nodes.push_back(node);
  if (leg.kind == Leg::Kind::walk || !node->map || !leg.map) return;
  const double rise = node->map->elevation - leg.map->elevation;
  leg.floorsPassed = (rise > 0.0) - (rise < 0.0);
}

}  // namespace

std::shared_ptr<Venue> guidedVenue(std::string_view name) {
  const auto folder = venuesFolder();
  if (!folder) return nullptr;
  const auto record = RawData::parse(contentsOf(*folder / name / "venue.json"));
  const auto venue = record ? Venue::make(*record) : nullptr;
  if (!venue) return nullptr;
  CollectionDictionary collections = readPackage(*folder / name);
  for (const auto& join : {linkCategoryParents, linkLocationCategories, linkPolygonMaps,
                           linkNodeMaps, linkPolygonEntrances})
    join(collections);
  linkVortexNodes(collections, false);
  linkLocationNodes(collections);
  linkLocationPolygons(collections);
  return publishVenue(
      collections, [&](VenueContents contents) { return fillVenue(venue, std::move(contents)); });
}

guidance::Itinerary itineraryOf(const NodeList& path, const NavigationGraph& graph,
                                std::optional<double> unitsPerMeter, std::shared_ptr<Location> from,
                                std::shared_ptr<Location> to) {
  guidance::Itinerary itinerary;
  itinerary.hasScale = unitsPerMeter.has_value();
  auto& legs = itinerary.legs;
  for (std::size_t i = 1; i < path.size(); ++i) {
    const Edge* edge = cheapestEdge(graph, *path[i - 1], *path[i]);
    const auto connector = edge == nullptr ? nullptr : edge->vortex();
    if (legs.empty() || legs.back().connector != connector)
      legs.push_back(startOf(path[i - 1], connector));
    extend(legs.back(), path[i], 1.0 / unitsPerMeter.value_or(1.0));
  }
  if (path.size() == 1) legs.push_back(startOf(path.front(), nullptr));
  itinerary.visits = {{0, 0, std::move(from)}, {1, legs.size(), std::move(to)}};
  return itinerary;
}

}  // namespace orivanta::test
