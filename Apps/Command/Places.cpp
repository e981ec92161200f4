#include "Apps/Command/Places.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_set>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Table.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

using foundation::label;
using foundation::printable;

using Locations = std::vector<std::shared_ptr<Location>>;

namespace {

constexpr std::size_t mostCandidatesListed = 20;

std::string ambiguity(const std::string& text, const Locations& candidates) {
  Table table({Alignment::left, Alignment::left, Alignment::left});
  for (std::size_t i = 0; i < std::min(candidates.size(), mostCandidatesListed); ++i) {
    const Location& location = *candidates[i];
    table.add({printable(*location.id), label(*location.name), floorLabels(floorsOf(location))});
  }
  std::string message =
      fmt::format("\"{}\" matches {} locations; specify the identifier of one:\n{}", text,
                  candidates.size(), table.text(2));
  if (candidates.size() > mostCandidatesListed)
    message += fmt::format("  and {} more\n", candidates.size() - mostCandidatesListed);
  message.pop_back();
  return message;
}

RouteEnd findPlace(const Venue& venue, const std::string& text) {
  if (text.empty()) throw CommandError(ExitCode::wrongUse, "a place must not be empty");
  const auto [locations, node] = placesNamed(venue, text);
  if (node) return NodeList{node};
  if (locations.empty())
    throw CommandError(
        ExitCode::notFound,
        fmt::format("no location or node \"{}\" in the venue; `orivanta venue {} --locations` "
                    "lists its locations",
                    text, *venue.slug));
  if (locations.size() > 1) throw CommandError(ExitCode::wrongUse, ambiguity(text, locations));
  return {locations.front()->nodes, locations.front()};
}

}  // namespace

RouteEnd findRouteEnd(const Venue& venue, const std::vector<std::string>& texts) {
  RouteEnd end = NodeList();
  std::unordered_set<const Node*> seen;
  for (const std::string& text : texts) {
    const RouteEnd part = findPlace(venue, text);
    for (const auto& node : part.nodes)
      if (seen.insert(node.get()).second) end.nodes.push_back(node);
    end.location = texts.size() == 1 ? part.location : nullptr;
  }
  return end;
}

}  // namespace orivanta::command
