// A touch: the state of one finger at one time.
// Public header.
#pragma once

#include <cstdint>

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta::view {

/// What a finger does.
enum class TouchPhase {
  began,    ///< it landed
  moved,    ///< it moved
  ended,    ///< it left
  canceled  ///< it is no longer tracked, for example because a window lost the input
};

/// The state of one finger at one time.
struct Touch {
  std::uint64_t identifier = 0;          ///< the same from when a finger lands until it leaves
  TouchPhase phase = TouchPhase::began;  ///< what the finger does
  graphics::Point position;              ///< in points of the topmost view
  double time = 0.0;                     ///< seconds; increases
};

}  // namespace orivanta::view
