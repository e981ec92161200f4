#include "Source/UI/Display/Styled/StackView.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Platform/Graphics/Text.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Framing.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/Styled/FloorProjection.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

using graphics::Point;
using graphics::Rect;
using graphics::Transaction;

namespace {

// Lengths in points.
constexpr double fontSize = 14;  // where names of places have their usual size
constexpr double heightOfName = 30;
constexpr double namePadding = 10;
constexpr double nameGap = 4;
constexpr double nameMargin = 12;  // to the edge of the view and to the floors
constexpr double leastNameWidth = 44;
constexpr double tapMargin = 7;
constexpr double attributionHeight = 48;  // at the lower edge
constexpr double dotSize = 4;
constexpr double dotSpacing = 8;
constexpr double dotCasing = 1;

constexpr float groundAlpha = 0.88F;

double grown(double length, const MapTheme& theme) {
  return length * theme.sizes.name / MapSizes().name;
}

double nameHeightIn(const MapTheme& theme) { return grown(heightOfName, theme); }

graphics::TextStyle styleOf(const MapTheme& theme, bool isShown) {
  graphics::TextStyle style;
  style.fontFamily = theme.fontFamily;
  style.fontSize = grown(fontSize, theme);
  style.bold = isShown;
  style.color = isShown ? theme.colors.iconSymbol : theme.colors.text;
  return style;
}

Rect around(Point middle, double size) {
  return {{middle.x - size / 2, middle.y - size / 2}, {size, size}};
}

// Whether a route only rides through the floor of a point.
bool isPassedInRide(std::span<const RoutePoint> points, std::size_t i) {
  return i > 0 && i + 1 < points.size() && points[i - 1].floor != points[i].floor &&
         points[i + 1].floor != points[i].floor;
}

std::string noteText(std::size_t count) { return "+" + std::to_string(count); }

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

void StackView::setContents(std::shared_ptr<const Contents> contents) {
  const Transaction transaction;
  contents_ = std::move(contents);
  drawn_.clear();
  texts_.clear();
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
  std::shared_ptr<Map> nearest;
  double least = std::numeric_limits<double>::max();
  for (const Name& name : drawn_) {
    const Rect reach{{name.rect.minX() - tapMargin, name.rect.minY() - tapMargin},
                     {name.rect.size.width + 2 * tapMargin, name.rect.size.height + 2 * tapMargin}};
    const double away = std::abs(name.rect.midY() - point.y);
    if (!name.floor || !reach.contains(point) || away >= least) continue;
    least = away;
    nearest = name.floor;
  }
  return nearest;
}

Insets StackView::roomForNames(const StackedFloors& stack, const MapTheme& theme) {
  double width = leastNameWidth;
  for (const StackedFloor& floor : stack.floors) {
    const auto size = graphics::measureText(floorLabel(*floor.floor), styleOf(theme, true));
    width = std::max(width, size.width + 2 * namePadding);
  }
  const double note = nameHeightIn(theme) + nameGap;
  return {width + 2 * nameMargin, nameMargin + (stack.floors.back().hidden > 0 ? note : 0), 0,
          attributionHeight + (stack.hiddenBelow > 0 ? note : 0)};
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

std::optional<double> StackView::Contents::offsetOf(const Map& floor) const {
  for (const StackedFloor& stacked : stack.floors)
    if (*stacked.floor == floor) return stacked.offset;
  return std::nullopt;
}

void StackView::draw(view::Canvas& canvas) {
  drawn_.clear();
  const auto viewpoint = map_.sceneView->viewpoint();
  if (!contents_ || !viewpoint) return;
  if (canvas.scale() != scale_) texts_.clear();
  scale_ = canvas.scale();
  const FloorProjection projection(*viewpoint, bounds().size);
  drawRides(canvas, projection);
  drawNames(canvas, projection);
  if (share_ >= 1) drawMarks(canvas, projection);
}

// Raises the marks and the lines of the routes to their floors.
void StackView::showMarks() {
  const Contents& contents = *contents_;
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

void StackView::drawMarks(view::Canvas& canvas, const FloorProjection& projection) {
  Insets insets = map_.camera().insets();
  if (!drawn_.empty()) insets.left = drawn_.front().rect.maxX() + nameGap;
  const graphics::Size size = bounds().size;
  marks_.place(projection, {{insets.left, insets.top},
                            {size.width - insets.left - insets.right,
                             size.height - insets.top - insets.bottom}});
  marks_.draw(canvas);
}

void StackView::drawRides(view::Canvas& canvas, const FloorProjection& projection) const {
  const auto placeOf = [&](const RoutePoint& point) -> std::optional<Point> {
    const auto offset = contents_->offsetOf(*point.floor);
    if (!offset) return std::nullopt;
    graphics::Vector3 position = point.position;
    position.z += static_cast<float>(*offset * share_);
    const ProjectedPlace place = projection.of(position);
    return place.pointsPerUnit > 0 ? std::optional(place.point) : std::nullopt;
  };
  for (const RouteContents& route : contents_->routes) {
    const auto points = route.line->points();
    std::optional<RoutePoint> before;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const auto to = placeOf(points[i]);
      if (!to || isPassedInRide(points, i)) continue;
      if (before && before->floor != points[i].floor) drawRide(canvas, *placeOf(*before), *to);
      before = points[i];
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

std::shared_ptr<const graphics::Image> StackView::textImage(const std::string& text, bool isShown) {
  auto& image = texts_[{text, isShown}];
  if (!image) image = graphics::makeTextImage(text, styleOf(*contents_->theme, isShown), scale_);
  return image;
}

// The names stand in a column at the left of the floors, or at the edge of the view if there is no
// room. They keep a distance from each other.
std::vector<StackView::Name> StackView::names(const FloorProjection& projection) {
  const Contents& contents = *contents_;
  const double nameHeight = nameHeightIn(*contents.theme);
  std::vector<Name> names;
  double left = std::numeric_limits<double>::max();
  const auto add = [&](const std::shared_ptr<Map>& floor, std::string text, double offset) {
    graphics::Box box = contents.box;
    box.min.z = box.max.z = static_cast<float>(offset * share_);
    for (const graphics::Vector3& corner : cornersOf(box))
      if (const auto place = projection.of(corner); place.pointsPerUnit > 0)
        left = std::min(left, place.point.x);
    const ProjectedPlace middle = projection.of(box.center());
    if (!(middle.pointsPerUnit > 0)) return;
    const bool isShown = floor != nullptr && floor == contents.shown;
    names.push_back({floor, middle.point.y, {}, textImage(text, isShown)});
  };
  const auto& floors = contents.stack.floors;
  for (auto floor = floors.rbegin(); floor != floors.rend(); ++floor) {
    if (floor->hidden > 0) {
      const double above = floor == floors.rbegin() ? floor->offset : (floor - 1)->offset;
      add(nullptr, noteText(floor->hidden), (floor->offset + above) / 2);
      if (floor == floors.rbegin()) names.back().y -= nameHeight + nameGap;
    }
    add(floor->floor, floorLabel(*floor->floor), floor->offset);
  }
  if (contents.stack.hiddenBelow > 0) {
    add(nullptr, noteText(contents.stack.hiddenBelow), floors.front().offset);
    names.back().y += nameHeight + nameGap;
  }
  for (std::size_t i = 1; i < names.size(); ++i)
    names[i].y = std::max(names[i].y, names[i - 1].y + nameHeight + nameGap);
  double lowest =
      bounds().size.height - map_.camera().insets().bottom - attributionHeight - nameHeight / 2;
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    if (name->y > bounds().size.height) continue;  // the floor is below the view
    name->y = std::min(name->y, lowest);
    lowest = name->y - nameHeight - nameGap;
  }
  double width = leastNameWidth;
  for (const Name& name : names)
    if (name.image) width = std::max(width, name.image->size().width + 2 * namePadding);
  const double x = std::max(map_.camera().insets().left + nameMargin, left - nameMargin - width);
  for (Name& name : names) name.rect = {{x, name.y - nameHeight / 2}, {width, nameHeight}};
  return names;
}

void StackView::drawNames(view::Canvas& canvas, const FloorProjection& projection) {
  drawn_ = names(projection);
  for (const Name& name : drawn_) drawName(canvas, name);
}

void StackView::drawName(view::Canvas& canvas, const Name& name) const {
  const MapTheme& theme = *contents_->theme;
  if (name.floor) {
    const bool isShown = name.floor == contents_->shown;
    graphics::Color ground = isShown        ? theme.colors.iconInfo
                             : theme.isDark ? theme.walkableOutline()
                                            : theme.colors.halo;
    ground.alpha = groundAlpha * static_cast<float>(share_);
    canvas.fill(name.rect, ground, name.rect.size.height / 2);
  }
  if (!name.image) return;
  const graphics::Size size = name.image->size();
  canvas.draw(name.image,
              {{name.rect.midX() - size.width / 2, name.rect.midY() - size.height / 2}, size},
              share_);
}

}  // namespace orivanta
