// Counts changes of what frames show.
#pragma once

#include <cstdint>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::graphics {

/// The number of changes of scenes, sprites and views in this process. While it stays the same,
/// frames are equal, except for animations and for fields of cameras and lights, whose changes are
/// not counted. Thread-safe.
ORIVANTA_API std::uint64_t changeCount();

/// Counts a change. Called by every operation that changes a scene, a sprite or a view.
/// Thread-safe.
ORIVANTA_API void noteChange();

}  // namespace orivanta::graphics
