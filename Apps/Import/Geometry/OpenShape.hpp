// The part of a room in which nothing else is drawn.
#pragma once

#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

/// The room without the smaller areas of `contents` that lie mostly in it. A building that is drawn
/// as one room around all others is what is left between them. If nothing is left, the room.
Shape openShape(const Area& room, const AreaIndex& contents);

/// Whether most of the second area lies in the first, which is larger.
bool isAround(const Area& larger, const Area& smaller);

}  // namespace orivanta::importer
