// The corners of a line that are needed to draw it.
#pragma once

#include <vector>

#include "Platform/Scene/Ribbons.hpp"

namespace orivanta::scene {

/// A corner of a line.
struct RibbonCorner {
  graphics::Vector3 point;
  float distance;      ///< along the line
  std::uint8_t color;  ///< of the edge after the corner
};

/// Returns the corners of a line without those that `Ribbons::make` leaves out. The corners of a
/// closed line end with the first one. Adjacent corners are apart in the level plane.
std::vector<RibbonCorner> ribbonCorners(const Ribbons::Line& line, float mergeWithin);

}  // namespace orivanta::scene
