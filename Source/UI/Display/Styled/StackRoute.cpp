#include "Source/UI/Display/Styled/StackRoute.hpp"

#include <algorithm>
#include <glm/geometric.hpp>

#include "Source/Guidance/FloorVisits.hpp"
#include "Source/Node.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

bool hasNode(const Vortex& connector, const std::shared_ptr<Node>& node) {
  return std::ranges::find(connector.nodes, node) != connector.nodes.end();
}

PlaceKind kindOfRide(const Venue& venue, const KindWords& words, const std::shared_ptr<Node>& from,
                     const std::shared_ptr<Node>& to) {
  if (venue.vortices)
    for (const auto& connector : *venue.vortices)
      if (hasNode(*connector, from) && hasNode(*connector, to)) return words.kindOf(*connector);
  return PlaceKind::other;
}

FloorPoint floorPoint(const Node& node) { return {node.map, scenePosition(node)}; }

}  // namespace

FloorList StackRoute::floors() const {
  FloorList floors;
  for (const Visit& visit : visits) floors.push_back(visit.floor);
  return floors;
}

StackRoute stackRoute(const NodeList& path, const Venue& venue, const KindWords& words) {
  StackRoute route;
  if (path.empty()) return route;
  double distance = 0;
  for (const FloorVisit& visit : floorVisits(path)) {
    StackRoute::Visit line{visit.floor, {}, distance};
    for (std::size_t i = visit.first; i <= visit.last; ++i) {
      line.points.push_back(scenePosition(*path[i]));
      if (i > visit.first)
        distance += glm::distance(line.points[i - visit.first - 1], line.points.back());
    }
    route.visits.push_back(std::move(line));
  }
  for (const FloorChange& change : floorChanges(path))
    route.rides.push_back({floorPoint(*path[change.begin]), floorPoint(*path[change.end]),
                           kindOfRide(venue, words, path[change.begin], path[change.begin + 1])});
  route.start = floorPoint(*path[0]);
  route.end = floorPoint(*path[path.size() - 1]);
  return route;
}

std::shared_ptr<const scene::Ribbons> routeRibbons(const StackRoute::Visit& visit) {
  if (visit.points.size() < 2) return nullptr;
  scene::Ribbons::Line line;
  line.points = visit.points;
  line.hasRoundEnds = true;
  line.distance = static_cast<float>(visit.distance);
  return scene::Ribbons::make({&line, 1}, 0);
}

scene::RibbonLook routeLook(const MapTheme& theme) {
  scene::RouteRibbon route;
  route.casing = theme.colors.casing;
  route.passed = theme.colors.passed;
  route.casingWidth = static_cast<float>(theme.sizes.casing);
  return {{{theme.colors.route, static_cast<float>(theme.sizes.route)}}, route};
}

}  // namespace orivanta
