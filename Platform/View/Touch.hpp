// One finger at one moment.
// Public header.
#pragma once

#include <cstdint>

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta::view {

/// What a finger does.
enum class TouchPhase {
  began,     ///< it landed
  moved,     ///< it moved
  ended,     ///< it left
  cancelled  ///< it counts no longer, such as when a window loses the input
};

/// One finger at one moment.
struct Touch {
  std::uint64_t identifier = 0;          ///< the same from a finger's landing to its leaving
  TouchPhase phase = TouchPhase::began;  ///< what the finger does
  graphics::Point position;              ///< points of the topmost view
  double time = 0.0;                     ///< seconds, rising
};

}  // namespace orivanta::view
