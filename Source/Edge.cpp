#include "Source/Edge.hpp"

#include <cmath>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Source/Distance.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

Edge::Edge(const Node& origin, std::shared_ptr<Node> destination)
    : node_(std::move(destination)),
      distance_(getEuclideanDistance(origin, *node_)),
      weight_(distance_ * node_->multiplierWeight + node_->constantWeight) {}

Edge::Edge(const Node& origin, std::shared_ptr<Node> destination, std::shared_ptr<Vortex> vortex)
    : node_(std::move(destination)),
      vortex_(std::move(vortex)),
      distance_(0.0),
      weight_(std::abs(foundation::unwrap(origin.map).elevation -
                       foundation::unwrap(node_->map).elevation) *
                  vortex_->multiplierWeight +
              vortex_->constantWeight) {}

}  // namespace orivanta
