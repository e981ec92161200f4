// Marks of what is closed on the shown floor.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Source/Guidance/Closures.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta::viewer {

/// Pins on the closed places and connectors of a venue. Main thread only.
class ClosureMarks {
 public:
  /// `word` is shown below the name of what is closed, see `labelName`.
  ClosureMarks(std::shared_ptr<MapView> mapView, std::string word)
      : mapView_(std::move(mapView)), word_(std::move(word)) {}

  /// Replaces the marks by those of the current floor. `scale` is in pixels per point.
  void show(const guidance::Closures& closures, double scale);

  /// The places that have a mark.
  const std::vector<std::shared_ptr<Location>>& places() const { return places_; }

 private:
  void add(std::string name, graphics::Vector3 position, double scale);

  std::shared_ptr<MapView> mapView_;
  std::string word_;
  std::vector<std::shared_ptr<MapViewMarker2D>> marks_;
  std::vector<std::shared_ptr<Location>> places_;
};

}  // namespace orivanta::viewer
