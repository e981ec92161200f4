// What a map style changes in the map view that it belongs to.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/UI/Display/MapFurniture.hpp"
#include "Source/UI/Display/MapPosition.hpp"
#include "Source/UI/Display/Styled/FloorFade.hpp"
#include "Source/UI/Display/Styled/FloorFills.hpp"
#include "Source/UI/Display/Styled/FloorStack.hpp"
#include "Source/UI/Display/Styled/FloorWork.hpp"
#include "Source/UI/Display/Styled/FollowedPosition.hpp"
#include "Source/UI/Display/Styled/LogoLook.hpp"
#include "Source/UI/Display/Styled/SceneLook.hpp"
#include "Source/UI/Display/Styled/SelectedOutline.hpp"
#include "Source/UI/Display/Styled/StyleView.hpp"
#include "Source/UI/Display/Styled/StyledLabels.hpp"
#include "Source/UI/Display/Styled/StyledRoute.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;

/// What a map view passes to its style.
struct StyleHost {
  MapView* view = nullptr;
  std::shared_ptr<scene::Node> sun;  ///< the node of the light that casts shadows; null if no scene
  std::shared_ptr<view::ImageView> logo;  ///< null if there is none
};

/// The parts of a style. Main thread.
class StyledMap {
 public:
  /// A null theme is a fatal error.
  explicit StyledMap(std::shared_ptr<const MapTheme> theme);

  const std::shared_ptr<const MapTheme>& theme() const { return theme_; }
  void setTheme(std::shared_ptr<const MapTheme> theme);

  /// The view that the style belongs to, or null.
  MapView* view() const { return host_.view; }

  // See `MapStyle`.
  StyledLabels& labels() { return labels_; }
  const StyledLabels& labels() const { return labels_; }
  StyledRoute& route() { return route_; }
  const StyledRoute& route() const { return route_; }
  bool isReady() const;
  void finish();
  void setFurniture(const MapFurniture& furniture);
  const MapFurniture& furniture() const { return furniture_; }
  void setPosition(std::optional<MapPosition> position);
  void setFollowing(bool isFollowing);
  bool isFollowing() const;
  void setStill(bool isStill);
  void setReducedMotion(bool isReduced);
  void setStacked(bool isStacked);
  bool isStacked() const { return stack_.isOn(); }
  void frameStack(CameraMotion motion) { stack_.frame(motion); }
  const FloorStack& stack() const { return stack_; }

  /// Advances the motion of stacked floors to the time of the next frame, in seconds.
  void advance(double time);
  void setTexts(const guidance::InterfaceTexts& texts);
  void setSelected(std::shared_ptr<Location> place);
  void setClosures(const guidance::Closures& closures);
  void setModelColors(bool hasModelColors);

  // Called by the map view.

  /// Shows the style in a view. The style must not belong to a view.
  void attach(StyleHost host);

  /// Restores everything that the style has changed.
  void detach();

  /// Styles the floors that are loaded, after the view got another venue.
  void venueChanged();

  /// The scene has new lights.
  void sceneStarted(std::shared_ptr<scene::Node> sun);

  /// Another floor of the scene is shown. `former` is not null.
  void floorChanged(const std::shared_ptr<Map>& former);

  /// Styles a floor's model if it is new.
  void addFloor(const Map& map);

  void setHighlighted(scene::Node& shape, bool isHighlighted);

  /// A frame begins. Called by the thread that draws, under a transaction. `time`: seconds.
  void prepareFrame(double time);

 private:
  void restyle();
  void styleFloor(const Map& map);
  CameraMotion motion() const;
  void stackChanged();
  void routesChanged();
  void colorFloor(const Map& map, const std::vector<ShapeRole>& roles);
  void applyLook();
  void showSelected();
  void showClosures();

  std::shared_ptr<const MapTheme> theme_;
  StyleHost host_;
  FloorFills fills_;
  FloorWork work_;
  SceneLook look_;
  StyledLabels labels_;
  StyledRoute route_;
  LogoLook logo_;
  MapFurniture furniture_;
  std::optional<MapPosition> position_;
  FollowedPosition followed_;
  FloorStack stack_;
  FloorFade fade_;
  bool isStill_ = false;
  bool isReduced_ = false;
  guidance::InterfaceTexts texts_;
  std::shared_ptr<Location> selected_;  // null if nothing is selected
  SelectedOutline selectedOutline_;
  guidance::Closures closures_;
  bool hasModelColors_ = false;
  std::shared_ptr<StyleView> overlay_;  // null if the style belongs to no view
};

}  // namespace orivanta
