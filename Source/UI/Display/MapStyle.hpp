// The styled look of a map view, in addition to its plain one.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;
class StyledMap;

/// Draws the floors of a map view in the colors of a theme: places by their kind, with brighter
/// light and weaker shadows. Pass it to `MapView::setStyle`. The materials of the models do not
/// change, and switching the style off restores the plain look exactly.
///
/// A style belongs to at most one map view at a time. Views that show the same `Venue` object share
/// its models, and therefore the colors of the style that was set last. Main thread.
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

 private:
  friend class MapView;

  explicit MapStyle(std::shared_ptr<const MapTheme> theme);

  std::unique_ptr<StyledMap> styled_;
};

}  // namespace orivanta
