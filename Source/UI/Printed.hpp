// Formats points and vectors for diagnostic lines.
// Private header.
#pragma once

#include <fmt/format.h>

#include <string>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta {

inline std::string printed(graphics::Point point) {
  return fmt::format("({}, {})", point.x, point.y);
}

inline std::string printed(const graphics::Vector3& vector) {
  return fmt::format("({}, {}, {})", vector.x, vector.y, vector.z);
}

}  // namespace orivanta
