// The styled look of a map view, in addition to its plain one.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapFurniture.hpp"
#include "Source/UI/Display/MapPosition.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;
class RouteLayer;
class RouteOverlay;
class StyledMap;

/// A tap on a styled map.
struct MapTap {
  std::shared_ptr<Location> place;  ///< a location or a connector; null if nothing was hit
  /// The floor that is shown or, if floors are stacked, the one that was hit; null if there is
  /// none.
  std::shared_ptr<Map> floor;
  /// Whether a mark was hit where a route changes the floor, or the name of a stacked floor. The
  /// map view then shows `floor`, the floor to which the mark leads, unless its model is not
  /// loaded. The delegate is not called.
  bool isFloorChange = false;
};

/// Draws the floors of a map view in the colors of a theme: places by their kind and with outlines,
/// in brighter light and with weaker shadows. It can also show the first view of a venue, aids such
/// as a compass, and a visitor's position. Pass it to `MapView::setStyle`. The materials of the
/// models do not change, and switching the style off restores the plain look exactly.
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

  /// Returns whether the current floor is drawn completely. Its outlines, names and icons are
  /// computed in the background and appear later than its colors. True if no floor is shown.
  bool isReady() const;

  /// Completes the current floor, for single pictures: computes what is missing or waits for it.
  void finish();

  /// Sets whether floors have the colors and the light of their models, without outlines, as in a
  /// map view without a style. Everything else stays: names, icons, marks and the background. The
  /// default is false.
  void setModelColors(bool hasModelColors);

  /// Sets the texts on the map that are no names, such as the word for what is closed. The default
  /// is English.
  void setTexts(const guidance::InterfaceTexts& texts);

  // --- Names and icons --------------------------------------------------------------------------

  /// Shows or hides names and icons. The default is true.
  void setLabels(bool areShown);

  /// Sets whether each frame is a separate picture: names and icons are placed anew and neither
  /// fade nor wait for their images, and the view requests no frames for arrows of routes. Call
  /// `finish` before drawing. The default is false.
  void setStill(bool isStill);

  /// Sets the parts of the map view that are covered, in points. No name or icon is placed there.
  /// Children of the map view and what `setFurniture` shows need not be included.
  void setCovered(std::vector<graphics::Rect> covered);

  /// Called after each tap, after the delegate and `MapView::placeTapped`. Names and icons can be
  /// tapped as well as shapes. May be empty.
  std::function<void(const MapTap& tap)> tapped;

  // --- Routes -----------------------------------------------------------------------------------
  // `RouteOverlay` and `MapView::drawPath` draw routes in the style. The functions that draw single
  // segments do not.

  /// Sets whether the arrows of routes stand still, so that the view rests while a route is shown.
  /// The default is false.
  void setReducedMotion(bool isReduced);

  // --- Marks ------------------------------------------------------------------------------------

  /// Selects a location or a connector of the venue while a floor that it is on is shown: outlines
  /// its area, and marks it with a pin and its name. Null, the default, selects nothing. The camera
  /// does not move.
  void setSelected(std::shared_ptr<Location> place);

  /// Marks the closed places and connectors with gray icons, and says so below their names. Areas
  /// of closed places have the color of places of no particular kind. The default is that nothing
  /// is closed.
  void setClosures(const guidance::Closures& closures);

  // --- First view -------------------------------------------------------------------------------

  /// Returns the floor to open a loaded venue with: where most places, entrances and connectors
  /// are; see `orivanta::firstFloor`. Floors with a model are preferred. Needs no models, so pass
  /// the floor to `MapView::loadFloors`. Returns null if the venue has no floors.
  static std::shared_ptr<Map> firstFloor(const Venue& venue, const KindWords& words = {});

  /// Moves the camera to the part of the current floor where most places are, so that their rooms
  /// are large enough to be told apart; see `firstRegion`. Keeps tilt and turn. If floors are
  /// stacked, shows all of them. Does nothing before the map view shows a floor.
  void showFirstView(CameraMotion motion = CameraMotion::atOnce);

  // --- Stacked floors ---------------------------------------------------------------------------

  /// Shows all floors above each other, seen at an angle, with the whole route; or returns to the
  /// former view of the shown floor. This takes 0.35 seconds, during which the host must call
  /// `MapCamera::advance`. If the style is still or motion is reduced, it happens immediately. Does
  /// nothing before the map view shows a floor.
  ///
  /// At most seven floors are stacked. With a route, those that it does not visit are faded and
  /// show the connectors alone. The floors, apart from the shown one, are drawn from copies that
  /// share the geometry of the models. Floors that are loaded later are added. Names of places are
  /// hidden, except that of the selected place, which is shown with its pin also on other floors,
  /// as is the position. Floors that are not faded have icons at connectors, toilets, entrances and
  /// exits that no such floor above covers; fewer where the floors are small. The names of the
  /// floors can be tapped: the map view then shows the floor. Changing the floor, loading floors
  /// and starting a scene end the stacking.
  void setStacked(bool isStacked);

  /// Returns whether the floors are stacked.
  bool isStacked() const;

  // --- Over the map -----------------------------------------------------------------------------

  /// Sets which aids are shown over the map. The default is none.
  void setFurniture(const MapFurniture& furniture);

  /// Returns what `setFurniture` has set.
  const MapFurniture& furniture() const;

  /// Shows a visitor's position while its floor is shown. Nothing, the default, removes it. A
  /// position without a floor is a fatal error.
  void setPosition(std::optional<MapPosition> position);

  /// Keeps the position in the middle of the view. The camera first frames its surroundings, 30
  /// meters, and then moves whenever the position is set and its floor is shown. This ends when the
  /// user, or anything else, moves the map; zooming, turning and tilting about the middle of the
  /// view do not end it. The default is false.
  void setFollowing(bool isFollowing);

  /// Returns whether the camera follows the position.
  bool isFollowing() const;

 private:
  friend class MapCamera;
  friend class MapView;
  friend class RouteLayer;
  friend class RouteOverlay;

  explicit MapStyle(std::shared_ptr<const MapTheme> theme);

  std::unique_ptr<StyledMap> styled_;
};

}  // namespace orivanta
