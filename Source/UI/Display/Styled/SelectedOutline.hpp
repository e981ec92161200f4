// The outline of the selected place on a styled map.
// Private header.
#pragma once

#include <memory>

#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;

/// Outlines the shapes of a place in the color of pins, also where other shapes hide them. Main
/// thread.
class SelectedOutline {
 public:
  SelectedOutline() = default;
  ~SelectedOutline() { clear(); }
  SelectedOutline(const SelectedOutline&) = delete;
  SelectedOutline& operator=(const SelectedOutline&) = delete;

  /// Outlines a location or a connector on the current floor, instead of the former one. Nothing is
  /// outlined if it has no shape there.
  void show(const MapView& view, const Location& place, const MapTheme& theme);

  void clear();

 private:
  std::shared_ptr<scene::Node> node_;  // in the scene; null if nothing is outlined
};

}  // namespace orivanta
