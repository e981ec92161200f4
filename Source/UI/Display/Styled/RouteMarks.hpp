// The marks of routes on a styled map.
// Private header.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/UI/Display/MarkPlacement.hpp"
#include "Source/UI/Display/Styled/RouteContents.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class FloorProjection;

/// Places and draws the marks of one floor. Used within transactions.
class RouteMarks {
 public:
  /// Replaces the marks and the lines that they should not cover, which are in scene units. `theme`
  /// is not null.
  void set(std::vector<RouteMark> marks, std::vector<std::vector<graphics::Vector3>> lines,
           std::shared_ptr<const MapTheme> theme);

  /// Places the marks for a frame. `free` is the part of the view in which texts should be.
  void place(const FloorProjection& projection, const graphics::Rect& free);

  /// Removes the marks.
  void clear();

  /// Returns the parts of the view that the marks cover.
  const std::vector<graphics::Rect>& boxes() const { return boxes_; }

  /// Returns the mark at a point of the view, the most important of several, or null.
  const RouteMark* at(graphics::Point point) const;

  /// Draws the marks where they were placed.
  void draw(view::Canvas& canvas);

 private:
  struct Shown {
    RouteMark mark;
    MarkShape shape;
    graphics::Size room;  // for the text
    MarkFrames frames{};
    std::shared_ptr<const graphics::Image> symbol{};  // null until drawn
    std::shared_ptr<const graphics::Image> text{};    // null if there is none
    std::shared_ptr<const graphics::Image> number{};  // null if there is none
    bool isSeen = false;  // in front of the camera, and not hidden by another mark
  };

  void drawImages(double scale);
  Shown shownAs(RouteMark mark) const;
  graphics::Size roomForText(const RouteMark& mark) const;
  void keepStartsClear(std::vector<MarkPlace>& places) const;
  void hideCoveredArrivals();
  void drawBadge(view::Canvas& canvas, const Shown& shown) const;
  std::vector<std::vector<graphics::Point>> linesInView(const FloorProjection& projection) const;

  std::shared_ptr<const MapTheme> theme_;  // null until set
  std::vector<std::vector<graphics::Vector3>> lines_;
  std::vector<Shown> shown_;     // the most important ones last
  std::vector<MarkLook> looks_;  // of the marks; empty until placed
  std::vector<graphics::Rect> boxes_;
  double scale_ = 0;  // of the images
};

}  // namespace orivanta
