// The styled look of a map view, in addition to its plain one.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Source/Fwd.hpp"
#include <optional>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapFurniture.hpp"
#include "Source/UI/Display/MapPosition.hpp"
#include "Source/UI/Style/KindWords.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;
class RouteOverlay;
class StyledMap;

/// A tap on a styled map.
struct MapTap {
  std::shared_ptr<Location> place;  ///< a location or a connector; null if nothing was hit
  std::shared_ptr<Map> floor;       ///< the floor that is shown; null if there is none
};

/// Draws the floors of a map view in the colors of a theme: places by their kind and with outlines,
/// in brighter light and with weaker shadows, with the names and icons of the places. Pass it to
/// `MapView::setStyle`. The materials of the models do not change, and switching the style off
/// restores the plain look exactly.
///
/// A style belongs to at most one map view at a time. Views that show the same `Venue` object share
/// its models, and therefore the colors and outlines of the style that was set last. Main thread.
class ORIVANTA_API MapStyle {
 public:
  /// Creates a style. A null theme is a fatal error.
  static std::shared_ptr<MapStyle> make(std::shared_ptr<const MapTheme> theme = MapTheme::light());
  ~MapStyle();
  MapStyle(const MapStyle&) = delete;
  MapStyle& operator=(const MapStyle&) = delete;

  /// Changes the theme, also while the style is shown. Null is a fatal error.
  void setTheme(std::shared_ptr<const MapTheme> theme);

  /// Returns the theme, which is never null.
  const std::shared_ptr<const MapTheme>& theme() const;

  /// Sets whether each frame is a separate picture: names and icons are placed anew and neither
  /// fade nor wait for their images. Call `finish` before drawing. The default is false.
  void setStill(bool isStill);

  /// Sets the parts of the map view that are covered, in points. No name or icon is placed there.
  /// Children of the map view need not be included.
  void setCovered(std::vector<graphics::Rect> covered);

  /// Returns whether the current floor is drawn completely. Its outlines, names and icons are
  /// computed in the background and appear later than its colors. True if no floor is shown.
  bool isReady() const;

  /// Completes the current floor, for single pictures: computes what is missing or waits for it.
  void finish();

  /// Called after each tap, after the delegate and `MapView::placeTapped`. Names and icons can be
  /// tapped as well as shapes. May be empty.
  std::function<void(const MapTap& tap)> tapped;

 private:
  friend class MapView;
  friend class RouteOverlay;

  explicit MapStyle(std::shared_ptr<const MapTheme> theme);

  std::unique_ptr<StyledMap> styled_;
};

}  // namespace orivanta
