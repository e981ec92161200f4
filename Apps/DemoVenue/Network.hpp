// The walking network of the demo venue: nodes along the walking lines, a door and an inside for
// every place, a node for every stop of a connector.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/DemoVenue/Plan.hpp"

namespace orivanta::demo {

struct NetworkNode {
  std::string id;
  std::string_view floor;
  Point position;                  ///< meters
  double weight = 0.0;             ///< 0 for none
  std::vector<std::string> paths;  ///< the nodes one can walk to from here
};

struct PlaceNodes {
  std::string inside;
  std::vector<std::string> doors;
};

struct Network {
  std::vector<NetworkNode> nodes;
  /// By floor and place. A place without doors has its inside on the walking lines.
  std::map<std::pair<std::string_view, std::string_view>, PlaceNodes> places;
  /// By connector, a node for each stop.
  std::map<std::string_view, std::vector<std::string>> stops;
};

/// Throws `std::logic_error` for a place or a stop of a floor without walking lines.
Network makeNetwork(const Plan& plan);

}  // namespace orivanta::demo
