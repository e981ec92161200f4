#include "Source/UI/Display/Styled/RouteMarks.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"
#include "Platform/Graphics/Text.hpp"
#include "Source/UI/Display/Styled/FloorProjection.hpp"
#include "Source/UI/Display/Styled/RouteMarkImages.hpp"

namespace orivanta {

using graphics::Point;
using graphics::Rect;
using graphics::Size;

namespace {

using Form = RouteMark::Form;

constexpr double nameGap = 1;      // points, between a symbol and its name
constexpr double overRoute = 0.1;  // the cost of a point of the route below a text
constexpr double cutText = 8;      // the cost; more than a text on the route
constexpr double touchMargin = 4;  // points
constexpr double besideBadge = 8;  // points, from the start of a route to a badge
constexpr double badgeRing = 1.6;  // points, around badges

Rect centeredAt(Point middle, Size size) {
  return {{middle.x - size.width / 2, middle.y - size.height / 2}, size};
}

Rect unionOf(const Rect& first, const Rect& second) {
  const Point corner{std::min(first.minX(), second.minX()), std::min(first.minY(), second.minY())};
  return {corner,
          {std::max(first.maxX(), second.maxX()) - corner.x,
           std::max(first.maxY(), second.maxY()) - corner.y}};
}

Rect expanded(const Rect& rect, double by) {
  return {{rect.minX() - by, rect.minY() - by},
          {rect.size.width + 2 * by, rect.size.height + 2 * by}};
}

}  // namespace

void RouteMarks::set(std::vector<RouteMark> marks,
                     std::vector<std::vector<graphics::Vector3>> lines,
                     std::shared_ptr<const MapTheme> theme) {
  foundation::stableSort(marks.begin(), marks.end(), [](const auto& left, const auto& right) {
    return left.form < right.form;
  });
  const bool isSame =
      theme == theme_ &&
      std::equal(marks.begin(), marks.end(), shown_.begin(), shown_.end(),
                 [](const RouteMark& mark, const Shown& shown) { return mark == shown.mark; });
  lines_ = std::move(lines);
  if (isSame) return;
  clear();
  theme_ = std::move(theme);
  shown_.reserve(marks.size());
  for (RouteMark& mark : marks) shown_.push_back(shownAs(std::move(mark)));
}

void RouteMarks::clear() {
  shown_.clear();
  looks_.clear();
  boxes_.clear();
  scale_ = 0;
}

RouteMarks::Shown RouteMarks::shownAs(RouteMark mark) const {
  const bool isBadge = mark.form == Form::floorChange;
  const double size = theme_->sizes.selectedIcon;
  MarkShape shape;
  shape.hasPin = isRoutePin(mark.form);
  shape.hasDot = !shape.hasPin;
  shape.pin = {size * routeMarkShares::pinWidth, size * routeMarkShares::pin};
  shape.dot = isBadge ? size : size * routeMarkShares::dot;
  shape.gap = isBadge ? 0 : nameGap;
  if (isBadge) shape.sides = {TextSide::right, TextSide::left, TextSide::above, TextSide::below};
  shape.overRoute = overRoute;
  shape.cut = cutText;
  const Size room = roomForText(mark);
  return {std::move(mark), shape, room};
}

Size RouteMarks::roomForText(const RouteMark& mark) const {
  if (mark.text.empty()) return {};
  const Size text = graphics::measureText(mark.text, routeMarkTextStyle(mark, *theme_));
  if (mark.form != Form::floorChange) return text;
  const double size = theme_->sizes.selectedIcon;
  return {text.width + 2 * size * routeMarkShares::padding, size};
}

void RouteMarks::drawImages(double scale) {
  if (scale == scale_) return;
  scale_ = scale;
  for (Shown& each : shown_) {
    each.symbol = makeRouteMarkSymbol(each.mark, *theme_, scale);
    each.text =
        graphics::makeTextImage(each.mark.text, routeMarkTextStyle(each.mark, *theme_), scale);
    each.number = graphics::makeTextImage(each.mark.number, routeMarkNumberStyle(*theme_), scale);
  }
}

std::vector<std::vector<Point>> RouteMarks::linesInView(const FloorProjection& projection) const {
  std::vector<std::vector<Point>> seen;
  for (const auto& line : lines_) {
    bool continues = false;
    for (const graphics::Vector3& point : line) {
      const ProjectedPlace place = projection.of(point);
      const bool isInFront = place.pointsPerUnit > 0;
      if (isInFront && !continues) seen.emplace_back();
      if (isInFront) seen.back().push_back(place.point);
      continues = isInFront;
    }
  }
  return seen;
}

void RouteMarks::place(const FloorProjection& projection, const Rect& free) {
  boxes_.clear();
  if (shown_.empty()) return;
  std::vector<MarkPlace> places;
  places.reserve(shown_.size());
  for (Shown& each : shown_) {
    const ProjectedPlace place = projection.of(each.mark.at.position);
    each.isSeen = place.pointsPerUnit > 0;
    each.shape.room = free;
    places.push_back({place.point, each.room, each.shape});
  }
  keepStartsClear(places);
  looks_ = placeMarks(places, linesInView(projection), free, looks_);
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    shown_[i].frames = framesOf(places[i], looks_[i]);
    if (shown_[i].shape.hasDot)
      shown_[i].frames.symbol =
          centeredAt(places[i].at, {shown_[i].shape.dot, shown_[i].shape.dot});
  }
  hideCoveredArrivals();
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    if (!shown_[i].isSeen) continue;
    boxes_.push_back(shown_[i].frames.symbol);
    if (shown_[i].room.width > 0) boxes_.push_back(shown_[i].frames.text);
  }
}

// A start on the badge of a floor change is as large as the badge, so that its name is beside both.
// One right beside a badge is as high, so that there is space for its name above and below.
void RouteMarks::keepStartsClear(std::vector<MarkPlace>& places) const {
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    if (shown_[i].mark.form != Form::start) continue;
    for (std::size_t j = 0; j < shown_.size(); ++j) {
      if (shown_[j].mark.form != Form::floorChange) continue;
      const double away =
          std::hypot(places[i].at.x - places[j].at.x, places[i].at.y - places[j].at.y);
      const double badge = places[j].shape.dot;
      if (2 * away < badge)
        places[i].shape.dot = badge + 2 * away;
      else if (2 * (away - besideBadge) < badge + shown_[i].shape.dot)
        places[i].shape.dot =
            std::max(places[i].shape.dot, badge + 2 * std::abs(places[i].at.y - places[j].at.y));
    }
  }
}

// Where a ride ends right beside the next one, only the next one is marked.
void RouteMarks::hideCoveredArrivals() {
  const auto isChange = [](const Shown& each) { return each.mark.form == Form::floorChange; };
  for (Shown& arrival : shown_) {
    if (!isChange(arrival) || arrival.room.width > 0) continue;
    for (const Shown& other : shown_)
      if (isChange(other) && other.room.width > 0 && other.isSeen &&
          other.frames.symbol.intersects(arrival.frames.symbol))
        arrival.isSeen = false;
  }
}

const RouteMark* RouteMarks::at(Point point) const {
  for (auto each = shown_.rbegin(); each != shown_.rend(); ++each) {
    if (!each->isSeen) continue;
    if (expanded(each->frames.symbol, touchMargin).contains(point) ||
        each->frames.text.contains(point))
      return &each->mark;
  }
  return nullptr;
}

// The symbol and the text share a ground if the text is beside the symbol.
void RouteMarks::drawBadge(view::Canvas& canvas, const Shown& shown) const {
  const auto& [symbol, text] = shown.frames;
  const bool isBeside = text.midY() == symbol.midY();
  const Rect ground = isBeside ? unionOf(symbol, text) : text;
  const double radius = ground.size.height / 2;
  canvas.fill(ground, theme_->colors.iconSymbol, radius);
  canvas.fill(expanded(ground, -badgeRing), theme_->disc(shown.mark.kind), radius - badgeRing);
}

void RouteMarks::draw(view::Canvas& canvas) {
  drawImages(canvas.scale());
  for (const Shown& each : shown_) {
    if (!each.isSeen || !each.symbol) continue;
    const auto& [symbol, text] = each.frames;
    const Point symbolMiddle{symbol.midX(),
                             isRoutePin(each.mark.form) ? symbol.maxY() : symbol.midY()};
    if (each.text && each.mark.form == Form::floorChange) drawBadge(canvas, each);
    canvas.draw(each.symbol, centeredAt(symbolMiddle, each.symbol->size()));
    if (each.number) {
      const double height = theme_->sizes.selectedIcon * routeMarkShares::pinHead;
      canvas.draw(each.number,
                  centeredAt({symbolMiddle.x, symbolMiddle.y - height}, each.number->size()));
    }
    if (each.text)
      canvas.draw(each.text, centeredAt({text.midX(), text.midY()}, each.text->size()));
  }
}

}  // namespace orivanta
