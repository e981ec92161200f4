#include "Apps/Web/RouteNumbers.hpp"

#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/RouteSearch.hpp"
#include "Source/Venue.hpp"

namespace orivanta::web {

namespace {

NodeList nodesAt(const Venue& venue, std::span<const std::int32_t> indices) {
  NodeList nodes;
  nodes.reserve(indices.size());
  for (const std::int32_t index : indices)
    if (index >= 0 && static_cast<std::size_t>(index) < venue.nodes->size())
      nodes.push_back((*venue.nodes)[static_cast<std::size_t>(index)]);
  return nodes;
}

}  // namespace

std::vector<double> nodeNumbers(const LoadedVenue& venue) {
  std::vector<double> numbers;
  numbers.reserve(venue.venue().nodes->size() * 4);
  for (const auto& node : *venue.venue().nodes)
    for (const double number :
         {node->x, node->y, node->z, static_cast<double>(venue.indexOf(node->map))})
      numbers.push_back(number);
  return numbers;
}

std::vector<double> routeNumbers(const LoadedVenue& venue, std::span<const std::int32_t> from,
                                 std::span<const std::int32_t> to) {
  if (!venue.venue().navigationGraph) return {};
  const auto route = searchRoute(nodesAt(venue.venue(), from), nodesAt(venue.venue(), to),
                                 *venue.venue().navigationGraph);
  if (!route) return {};
  std::vector<double> numbers = {route->cost, static_cast<double>(route->takenNodes)};
  numbers.reserve(route->path.size() + 2);
  for (const auto& node : route->path) numbers.push_back(venue.indexOf(*node));
  return numbers;
}

}  // namespace orivanta::web
