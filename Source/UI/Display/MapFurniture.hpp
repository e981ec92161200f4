// What a styled map shows in addition to the map.
#pragma once

namespace orivanta {

/// Which aids a styled map shows over the map. All of them are drawn within `MapCamera::insets`, in
/// the colors of the theme.
struct MapFurniture {
  /// A compass at the upper right. It is hidden while the y axis points up; a tap turns the map
  /// back with a glide, for which the host calls `MapCamera::advance`.
  bool compass = false;
  /// A bar with its length on the ground, at the lower left. It is hidden if the venue does not
  /// state its scale.
  bool scaleBar = false;
  /// The venue's attribution at the lower left, see `attributionText`.
  bool attribution = false;

  friend bool operator==(const MapFurniture&, const MapFurniture&) = default;
};

}  // namespace orivanta
