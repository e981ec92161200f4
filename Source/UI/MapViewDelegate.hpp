// The delegate that receives the events of a map view.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// Receives the events of a map view. Called on the main thread.
class ORIVANTA_API MapViewDelegate {
 public:
  virtual ~MapViewDelegate() = default;

  /// Called when the scene is built: after `loadScene`, when all floors are prepared; after
  /// `loadFloors`, when the first floor is ready. Called again for each further load.
  virtual void mapViewDidLoad() = 0;

  /// Called when a tap hit a polygon that has at least one location.
  virtual void polygonSelected(const std::shared_ptr<Polygon>& polygon) = 0;

  /// Called when a tap hit nothing, the ground, or something without a location.
  virtual void nothingSelected() = 0;
};

}  // namespace orivanta
