#include "Source/UI/Display/Styled/RouteContents.hpp"

#include <algorithm>

#include "Source/Guidance/FloorVisits.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

// Returns the connector that has both nodes, or null.
std::shared_ptr<Vortex> connectorBetween(const Venue* venue, const std::shared_ptr<Node>& from,
                                         const std::shared_ptr<Node>& to) {
  if (venue == nullptr || !venue->vortices) return nullptr;
  const auto has = [](const Vortex& connector, const std::shared_ptr<Node>& node) {
    return std::find(connector.nodes.begin(), connector.nodes.end(), node) != connector.nodes.end();
  };
  for (const auto& connector : *venue->vortices)
    if (has(*connector, from) && has(*connector, to)) return connector;
  return nullptr;
}

}  // namespace

std::vector<RoutePoint> routePoints(const NodeList& path) {
  std::vector<RoutePoint> points;
  points.reserve(path.size());
  for (const auto& node : path) points.push_back({scenePosition(*node), node->map});
  return points;
}

std::vector<RouteMark> floorChangeMarks(const NodeList& path, std::size_t first, std::size_t end,
                                        const Venue* venue, const KindWords& words) {
  std::vector<RouteMark> marks;
  const auto isShown = [&](std::size_t index) { return index >= first && index < end; };
  for (const FloorChange& change : floorChanges(path)) {
    const Node& before = *path[change.begin];
    const Node& after = *path[change.end];
    RouteMark mark{RouteMark::Form::floorChange, {scenePosition(before), before.map}};
    mark.place = connectorBetween(venue, path[change.begin], path[change.begin + 1]);
    if (mark.place) mark.kind = words.kindOf(*mark.place);
    mark.text = floorChangeMark(*before.map, *after.map);
    mark.leadsTo = after.map;
    if (isShown(change.begin)) marks.push_back(mark);
    mark.at = {scenePosition(after), after.map};
    mark.text.clear();
    mark.leadsTo = before.map;
    if (isShown(change.end)) marks.push_back(mark);
  }
  return marks;
}

}  // namespace orivanta
