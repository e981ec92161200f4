// Draws the names of stacked floors and the marks of a route through them.
// Private header.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Platform/View/Canvas.hpp"
#include "Platform/View/View.hpp"
#include "Source/UI/Display/Styled/RouteMarks.hpp"
#include "Source/UI/Display/Styled/StackContents.hpp"
#include "Source/UI/Display/Styled/StackNames.hpp"
#include "Source/UI/Labels/PlaceLabel.hpp"

namespace orivanta {

class FloorProjection;
class MapView;

/// A view over the scene view of a map view. It receives no touches. Changed on the main thread;
/// `draw` may be called on another one.
class StackView : public view::View {
 public:
  /// `map` must exist as long as the view is a child of it.
  explicit StackView(const MapView& map);

  /// Adds the view to the map view, in front of the scene view and of what a style draws over it.
  void addTo(MapView& map);

  /// Null removes the contents.
  void setContents(std::shared_ptr<const StackContents> contents);

  /// 0: the floors lie in each other, 1: they are stacked.
  void setShare(double share);

  /// Whether frames are needed because floors move or fade.
  void setMoving(bool isMoving);
  void setFading(bool isFading);

  /// Returns how much a floor is raised in the current frame, or nothing if it is not stacked. Call
  /// it under a transaction.
  std::optional<double> riseOf(const Map& floor) const;

  /// Returns the floor whose name is at a point of the last frame, or null.
  std::shared_ptr<Map> nameAt(graphics::Point point) const;

  /// Returns the mark of a route at a point of the last frame, or nothing.
  std::optional<RouteMark> markAt(graphics::Point point) const;

  /// Arranges the names and the marks for the current frame, and adds what the marks
  /// and the routes cover, in points. `scale`: pixels per point. Call it under the transaction in
  /// which a frame is gathered, before `draw`.
  void arrange(double scale, std::vector<graphics::Rect>& covered);

  void draw(view::Canvas& canvas) override;
  bool isAnimating() const override;

 private:
  void showMarks();
  struct Leg {
    ProjectedPlace from;
    ProjectedPlace to;
    bool isRide;  // to another floor
  };

  void placeLegs(const FloorProjection& projection);
  void drawRide(view::Canvas& canvas, graphics::Point from, graphics::Point to) const;
  void placeMarks(const FloorProjection& projection);

  const MapView& map_;
  // Changed and read under transactions.
  std::shared_ptr<const StackContents> contents_;
  double share_ = 0;
  bool isMoving_ = false;
  bool isFading_ = false;
  std::vector<Leg> legs_;  // of the routes, in the current frame
  StackNames names_;
  RouteMarks marks_;
};

}  // namespace orivanta
