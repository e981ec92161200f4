// Counts the changes of everything that frames show.
#pragma once

#include <cstdint>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::graphics {

/// The number of changes of scenes, sprites and views in this process. While it stays the same, a
/// frame looks as the last one did, apart from what is animated. Any thread.
ORIVANTA_API std::uint64_t changeCount();

/// Counts one change. Every operation that changes a scene, a sprite or a view calls it. Any
/// thread.
ORIVANTA_API void noteChange();

}  // namespace orivanta::graphics
