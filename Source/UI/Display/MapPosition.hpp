// A visitor's position on a map.
#pragma once

#include <memory>
#include <optional>

#include "Source/Fwd.hpp"

namespace orivanta {

/// A position on a floor.
struct MapPosition {
  std::shared_ptr<Map> floor;  ///< never null
  double x = 0;                ///< scene units
  double y = 0;                ///< scene units
  double z = 0;                ///< scene units; the height at which the position is drawn
  double accuracyMeters = 0;   ///< radius of the disc in which the visitor is; 0 for no disc
  /// The direction in which the visitor looks: radians, counterclockwise from the y axis, as in
  /// `CameraPose::turn`. Nothing if it is not known.
  std::optional<double> heading = {};

  friend bool operator==(const MapPosition&, const MapPosition&) = default;
};

}  // namespace orivanta
