#include "Source/UI/Display/Styled/StackView.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/Styled/FloorProjection.hpp"
#include "Source/UI/Display/Styled/RouteBoxes.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

using graphics::Point;
using graphics::Rect;
using graphics::Transaction;

namespace {

// Lengths in points.
constexpr double nameGap = 4;  // to the marks
constexpr double dotSize = 4;
constexpr double dotSpacing = 8;
constexpr double dotCasing = 1;

Rect around(Point middle, double size) {
  return {{middle.x - size / 2, middle.y - size / 2}, {size, size}};
}

// Whether a route only rides through the floor of a point.
bool isPassedInRide(std::span<const RoutePoint> points, std::size_t i) {
  return i > 0 && i + 1 < points.size() && points[i - 1].floor != points[i].floor &&
         points[i + 1].floor != points[i].floor;
}

}  // namespace

StackView::StackView(const MapView& map) : map_(map) { setUserInteractionEnabled(false); }

void StackView::addTo(MapView& map) {
  const Transaction transaction;
  const auto others = map.subviews();
  map.addSubview(shared_from_this());
  boundInside(*this, map);
  for (const auto& child : others)
    if (child->isUserInteractionEnabled() && child != map.sceneView)
      map.bringSubviewToFront(*child);
}

void StackView::setContents(std::shared_ptr<const StackContents> contents) {
  const Transaction transaction;
  contents_ = std::move(contents);
  names_.clear();
  contents_ ? showMarks() : marks_.clear();
  setNeedsFrame();
}

void StackView::setShare(double share) {
  const Transaction transaction;
  if (share == share_) return;
  share_ = share;
  setNeedsFrame();
}

void StackView::setMoving(bool isMoving) {
  const Transaction transaction;
  isMoving_ = isMoving;
}

void StackView::setFading(bool isFading) {
  const Transaction transaction;
  isFading_ = isFading;
}

bool StackView::isAnimating() const {
  const Transaction transaction;
  return isMoving_ || isFading_;
}

std::shared_ptr<Map> StackView::nameAt(Point point) const {
  const Transaction transaction;
  return names_.at(point);
}

std::optional<RouteMark> StackView::markAt(Point point) const {
  const Transaction transaction;
  const RouteMark* const mark = contents_ && share_ >= 1 ? marks_.at(point) : nullptr;
  return mark == nullptr ? std::nullopt : std::optional(*mark);
}

std::optional<double> StackView::riseOf(const Map& floor) const {
  const auto offset = contents_ ? contents_->offsetOf(floor) : std::nullopt;
  return offset ? std::optional(*offset * share_) : std::nullopt;
}

void StackView::arrange(double scale, std::vector<Rect>& covered) {
  names_.hide();
  legs_.clear();
  const auto viewpoint = map_.sceneView->viewpoint();
  if (!contents_ || !viewpoint) return;
  const FloorProjection projection(*viewpoint, bounds().size);
  placeLegs(projection);
  names_.arrange(*contents_, projection, {bounds().size, map_.camera().insets()}, share_, scale);
  if (share_ < 1) return;
  placeMarks(projection);
  covered.insert(covered.end(), marks_.boxes().begin(), marks_.boxes().end());
  for (const Leg& leg : legs_)
    addRouteBoxes(leg.from, leg.to, bounds().size, contents_->theme->sizes.route, covered);
}

void StackView::draw(view::Canvas& canvas) {
  if (!contents_) return;
  for (const Leg& leg : legs_)
    if (leg.isRide) drawRide(canvas, leg.from.point, leg.to.point);
  names_.draw(canvas, *contents_, share_);
  if (share_ >= 1) marks_.draw(canvas);
}

// Raises the marks and the lines of the routes to their floors.
void StackView::showMarks() {
  const StackContents& contents = *contents_;
  std::vector<RouteMark> marks;
  std::vector<std::vector<graphics::Vector3>> lines;
  const auto add = [&](RouteMark mark) {
    const auto offset = contents.offsetOf(*mark.at.floor);
    if (!offset) return;
    mark.at.position.z += static_cast<float>(*offset);
    marks.push_back(std::move(mark));
  };
  for (const RouteContents& route : contents.routes) {
    for (const RouteMark& mark : route.wholeMarks.empty() ? route.marks : route.wholeMarks)
      add(mark);
    for (const StackedFloor& floor : contents.stack.floors)
      for (auto& line : route.line->linesOn(*floor.floor, 0, route.line->size())) {
        for (graphics::Vector3& point : line.points) point.z += static_cast<float>(floor.offset);
        lines.push_back(std::move(line.points));
      }
  }
  const auto isMarked = [&](const RouteMark& mark) {
    return mark.place == contents.selected->place && mark.form != RouteMark::Form::floorChange;
  };
  if (contents.selected && std::none_of(marks.begin(), marks.end(), isMarked))
    add(*contents.selected);
  marks_.set(std::move(marks), std::move(lines), contents.theme);
}

void StackView::placeMarks(const FloorProjection& projection) {
  Insets insets = map_.camera().insets();
  insets.left = names_.rightEdge(insets.left - nameGap) + nameGap;
  const graphics::Size size = bounds().size;
  marks_.place(projection, {{insets.left, insets.top},
                            {size.width - insets.left - insets.right,
                             size.height - insets.top - insets.bottom}});
}

// Places the parts of the routes between points that are in front of the camera.
void StackView::placeLegs(const FloorProjection& projection) {
  for (const RouteContents& route : contents_->routes) {
    const auto points = route.line->points();
    const Map* floor = nullptr;
    ProjectedPlace from;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const auto offset = contents_->offsetOf(*points[i].floor);
      if (!offset || isPassedInRide(points, i)) continue;
      graphics::Vector3 position = points[i].position;
      position.z += static_cast<float>(*offset * share_);
      const ProjectedPlace to = projection.of(position);
      if (!(to.pointsPerUnit > 0)) continue;
      const Map* const former = std::exchange(floor, points[i].floor.get());
      if (former != nullptr) legs_.push_back({from, to, former != floor});
      from = to;
    }
  }
}

void StackView::drawRide(view::Canvas& canvas, Point from, Point to) const {
  const MapTheme& theme = *contents_->theme;
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  const int count = static_cast<int>(std::min(length, 1e4) / dotSpacing);
  for (const double margin : {dotCasing, 0.0})
    for (int i = 1; i <= count; ++i) {
      const double share = i * dotSpacing / length;
      const Point place{from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
      canvas.fill(around(place, dotSize + 2 * margin),
                  margin > 0 ? theme.colors.casing : theme.colors.route, dotSize / 2 + margin);
    }
}

}  // namespace orivanta
