// The point of the walking network next to a position.
#pragma once

#include <memory>

#include "Source/Fwd.hpp"

namespace orivanta::guidance {

/// A point of the walking network.
struct Snap {
  std::shared_ptr<Node> from;  ///< one end of the edge
  std::shared_ptr<Node> to;    ///< the other end
  double share = 0.0;          ///< the position on the edge: 0 is `from`, 1 is `to`
  double x = 0.0;              ///< the point, in the venue's units
  double y = 0.0;              ///< the point, in the venue's units
  double distance = 0.0;       ///< from the given position, in the venue's units
};

}  // namespace orivanta::guidance
