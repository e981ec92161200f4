// Who is told what happens on a map view.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// Called on the main thread.
class ORIVANTA_API MapViewDelegate {
 public:
  virtual ~MapViewDelegate() = default;

  /// The scene is built: after `loadScene` with all floors prepared, after `loadFloors` with the
  /// first one that is ready, again for each further load.
  virtual void mapViewDidLoad() = 0;

  /// A tap hit a polygon that has at least one location.
  virtual void polygonSelected(const std::shared_ptr<Polygon>& polygon) = 0;

  /// A tap hit nothing, the ground, or something without a location.
  virtual void nothingSelected() = 0;
};

}  // namespace orivanta
