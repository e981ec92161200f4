// One finger at one moment.
#pragma once

#include <cstdint>

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta::view {

enum class TouchPhase { began, moved, ended, cancelled };

struct Touch {
  std::uint64_t identifier = 0;  ///< the same from a finger's landing to its leaving
  TouchPhase phase = TouchPhase::began;
  graphics::Point position;  ///< points of the topmost view
  double time = 0.0;         ///< seconds, rising
};

}  // namespace orivanta::view
