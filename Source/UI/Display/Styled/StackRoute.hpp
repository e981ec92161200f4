// A route through stacked floors.
// Private header.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Ribbons.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/NodeList.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// A point of a floor, in scene units.
struct FloorPoint {
  std::shared_ptr<Map> floor;
  graphics::Vector3 position{};
};

/// The parts of a route.
struct StackRoute {
  /// The line on one floor.
  struct Visit {
    std::shared_ptr<Map> floor;
    std::vector<graphics::Vector3> points;
    double distance = 0;  ///< of the first point from the start of the route, in scene units
  };

  /// The way from one floor to another.
  struct Ride {
    FloorPoint from;
    FloorPoint to;
    PlaceKind kind = PlaceKind::other;  ///< of the connector; other if there is none
  };

  std::vector<Visit> visits;  ///< in route order
  std::vector<Ride> rides;    ///< in route order
  FloorPoint start;           ///< without a floor if the route is empty
  FloorPoint end;

  /// The floors that the route visits; a floor to which it returns is listed again.
  FloorList floors() const;
};

/// Returns the parts of a path, which may be empty.
StackRoute stackRoute(const NodeList& path, const Venue& venue, const KindWords& words);

/// Returns the line of a visit, or null if it has fewer than two points.
std::shared_ptr<const scene::Ribbons> routeRibbons(const StackRoute::Visit& visit);

/// Returns how the lines of routes are drawn.
scene::RibbonLook routeLook(const MapTheme& theme);

}  // namespace orivanta
