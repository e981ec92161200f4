// A navigation graph in the compact form that the route search walks.
#pragma once

#include <memory>

#include "Source/NavigationGraph.hpp"

namespace orivanta {

class RouteNetwork {
 public:
  static std::shared_ptr<const RouteNetwork> make(const NavigationGraph::Adjacency& graph);
};

}  // namespace orivanta
