// The areas of the shapes of a floor's model.
// Private header.
#pragma once

#include "Platform/Scene/Geometry.hpp"
#include "Source/UI/Labels/LabelArea.hpp"

namespace orivanta {

/// Returns the area of a shape, see `shapeArea`. It is empty if the geometry has no vertices. Any
/// thread.
LabelArea areaOf(const scene::Geometry& geometry);

}  // namespace orivanta
