#include "Source/RouteNetwork.hpp"

namespace orivanta {

std::shared_ptr<const RouteNetwork> RouteNetwork::make(const NavigationGraph::Adjacency&) {
  return std::make_shared<RouteNetwork>();
}

}  // namespace orivanta
