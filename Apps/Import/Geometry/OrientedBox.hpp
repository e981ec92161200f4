// The narrowest rectangle around an outline, in any direction.
#pragma once

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

struct OrientedBox {
  Point center;
  Point along = {1.0, 0.0};  ///< unit vector of the longer side
  double length = 0.0;
  double width = 0.0;

  /// Unit vector to the left of `along`.
  Point across() const { return {-along.y, along.x}; }
  /// The middle of the short side at the end (+1) or at the start (-1) of the long one.
  Point end(double sign) const { return center + along * (sign * length / 2.0); }
};

/// Of outlines with at least one point. `along` points to the right, or else up.
OrientedBox orientedBox(const Outline& outline);

}  // namespace orivanta::importer
