// Finding the places of a venue that people name.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::command {

/// One end of a route.
struct RouteEnd {
  NodeList nodes;                   ///< each once
  std::shared_ptr<Location> place;  ///< where all of them belong; null when that is no one location
};

/// The places that the texts name, together. Each text is taken as the first of these that it fits:
/// a location's identifier, a node's identifier, a location's name, a name without regard to case,
/// a part of a name without regard to case. The venue has been loaded.
///
/// Throws `CommandError`: `notFound` for a text that fits nothing, `wrongUse` for an empty one and
/// for one that fits several locations in the same way, which are listed then.
RouteEnd findRouteEnd(const Venue& venue, const std::vector<std::string>& texts);

/// The locations with the text in their name, without regard to case, or in their identifier, in
/// the venue's order; all of them for an empty text.
std::vector<std::shared_ptr<Location>> searchLocations(const Venue& venue, std::string_view text);

/// The floors on which a location has nodes or polygons, each once.
std::vector<std::shared_ptr<Map>> floorsOf(const Location& location);

/// A short name of a floor for people; never empty unless all of its texts are.
std::string floorLabel(const Map& map);

/// The labels of several floors, separated by commas.
std::string floorLabels(const std::vector<std::shared_ptr<Map>>& maps);

}  // namespace orivanta::command
