// The marks of a route in a map view without a style.
// Private header.
#pragma once

#include <memory>
#include <vector>

#include "Source/UI/Display/MarkImages.hpp"
#include "Source/UI/Display/MarkPlacement.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/UI/MapViewMarker2D.hpp"

namespace orivanta {

struct RouteOverlay::Mark {
  graphics::Vector3 position;
  MarkContent content;
  std::shared_ptr<MapViewMarker2D> marker;  // null until arranged
};

struct RouteOverlay::Marks {
  std::vector<Mark> list;
  std::vector<MarkLook> looks;  // of the marks; empty until arranged
};

}  // namespace orivanta
