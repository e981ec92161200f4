// The navigation graph of the demo venue: nodes along the walking lines, a door node and an inside
// node for each place, and a node for each stop of a connector.
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
  std::vector<std::string> paths;  ///< the nodes that can be reached from here
};

struct PlaceNodes {
  std::string inside;
  std::vector<std::string> doors;
};

struct Network {
  std::vector<NetworkNode> nodes;
  /// By floor and place. A place without doors has its inside node on the walking lines.
  std::map<std::pair<std::string_view, std::string_view>, PlaceNodes> places;
  /// By connector; a node for each stop.
  std::map<std::string_view, std::vector<std::string>> stops;
};

/// Throws `std::logic_error` if a floor with places or stops has no walking lines.
Network makeNetwork(const Plan& plan);

}  // namespace orivanta::demo
