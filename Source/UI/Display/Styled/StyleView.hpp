// What a style draws over the scene of a map view.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/View/View.hpp"
#include "Source/UI/Display/MapFurniture.hpp"
#include "Source/UI/Display/MapPosition.hpp"
#include "Source/UI/Display/Styled/AttributionNote.hpp"
#include "Source/UI/Display/Styled/CompassView.hpp"
#include "Source/UI/Display/Styled/PositionDot.hpp"
#include "Source/UI/Display/Styled/ScaleBar.hpp"

namespace orivanta {

class MapView;
class StackView;
class StyledRoute;

/// Covers the map view, directly above its scene. Touches pass through, except those of the
/// compass, which is a view of its own. `draw` may be called on another thread.
class StyleView : public view::View {
 public:
  /// Adds a new view to a map view, which must outlive it.
  static std::shared_ptr<StyleView> addTo(MapView& view);

  /// Called by `addTo`.
  explicit StyleView(MapView& view) : view_(view) {}

  /// Removes it and the compass from the map view.
  void remove();

  void setTheme(std::shared_ptr<const MapTheme> theme);
  void setFurniture(const MapFurniture& furniture);
  void setPosition(const std::optional<MapPosition>& position);

  /// Adapts to the venue of the map view.
  void venueChanged();

  /// The routes to draw below the other things. Null, the default, for none.
  void setRoute(StyledRoute* route);

  /// The stacked floors, in which the position is raised. Null, the default, for none.
  void setStack(StackView* stack);

  /// Arranges the aids and the stacked floors' names and marks for the current frame and returns
  /// what they and routes through stacked floors cover, in points. The labels,
  /// which are drawn before this view, call it. `scale`: pixels per point. Call it under the
  /// transaction in which a frame is gathered.
  std::vector<graphics::Rect> arrangeFurniture(double scale);

  void draw(view::Canvas& canvas) override;
  bool isAnimating() const override;

 private:
  void drawPosition(view::Canvas& canvas);

  MapView& view_;
  StyledRoute* route_ = nullptr;
  StackView* stack_ = nullptr;
  std::shared_ptr<CompassView> compass_;
  std::shared_ptr<const MapTheme> theme_;  // null until set
  MapFurniture furniture_;
  std::optional<MapPosition> position_;
  double unitsPerMeter_ = 0;  // 0 if the venue has no scale
  PositionDot dot_;
  ScaleBar scaleBar_;
  AttributionNote attribution_;
};

}  // namespace orivanta
