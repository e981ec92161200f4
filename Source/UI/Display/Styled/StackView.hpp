// Draws the names of stacked floors and the marks of a route through them.
// Private header.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/View.hpp"
#include "Source/UI/Display/Framing.hpp"
#include "Source/UI/Display/Styled/RouteContents.hpp"
#include "Source/UI/Display/Styled/RouteMarks.hpp"
#include "Source/UI/Display/Styled/StackFloors.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class FloorProjection;
class MapView;

/// A view over the scene view of a map view. It receives no touches. Changed on the main thread;
/// `draw` may be called on another one.
class StackView : public view::View {
 public:
  /// What it draws.
  struct Contents {
    StackedFloors stack;
    graphics::Box box;  ///< contains all floors, if they are not stacked
    std::shared_ptr<Map> shown;
    std::vector<RouteContents> routes;
    std::optional<RouteMark> selected;      ///< the mark of the selected place
    std::shared_ptr<const MapTheme> theme;  ///< never null

    /// Returns the height of a floor, or nothing if it is not stacked.
    std::optional<double> offsetOf(const Map& floor) const;
  };

  /// `map` must exist as long as the view is a child of it.
  explicit StackView(const MapView& map);

  /// Adds the view to the map view, in front of the scene view and of what a style draws over it.
  void addTo(MapView& map);

  /// Null removes the contents.
  void setContents(std::shared_ptr<const Contents> contents);

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

  /// Returns the margins of the view in which the names and the attribution have room.
  static Insets roomForNames(const StackedFloors& stack, const MapTheme& theme);

  void draw(view::Canvas& canvas) override;
  bool isAnimating() const override;

 private:
  struct Name {
    std::shared_ptr<Map> floor;  // null for a note
    double y = 0;
    graphics::Rect rect{};
    std::shared_ptr<const graphics::Image> image{};
  };

  void showMarks();
  void drawRides(view::Canvas& canvas, const FloorProjection& projection) const;
  void drawRide(view::Canvas& canvas, graphics::Point from, graphics::Point to) const;
  void drawMarks(view::Canvas& canvas, const FloorProjection& projection);
  void drawNames(view::Canvas& canvas, const FloorProjection& projection);
  std::vector<Name> names(const FloorProjection& projection);
  std::shared_ptr<const graphics::Image> textImage(const std::string& text, bool isShown);
  void drawName(view::Canvas& canvas, const Name& name) const;

  const MapView& map_;
  // Changed and read under transactions.
  std::shared_ptr<const Contents> contents_;
  double share_ = 0;
  bool isMoving_ = false;
  bool isFading_ = false;
  std::vector<Name> drawn_;
  double scale_ = 0;  // of the images
  std::map<std::pair<std::string, bool>, std::shared_ptr<const graphics::Image>> texts_;
  RouteMarks marks_;
};

}  // namespace orivanta
