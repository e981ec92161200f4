#include "Source/UI/Display/MarkPlacement.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace orivanta {

using graphics::Point;
using graphics::Rect;

namespace {

constexpr std::array symbols{MarkSymbol::pin, MarkSymbol::dot};

// The penalties of a look.
constexpr double hidesSymbol = 10;
constexpr double hidesText = 6;
constexpr double hidesRoute = 20;  // times the covered share above `tolerableShare`
constexpr double tolerableShare = 0.1;
constexpr double isDot = 1;
constexpr double isLaterSide = 0.1;
constexpr double change = 0.5;  // minimum improvement for changing a look

Rect symbolFrame(const MarkPlace& mark, MarkSymbol symbol) {
  const Point at = mark.at;
  const MarkShape& shape = mark.shape;
  if (symbol == MarkSymbol::dot)
    return {{at.x - shape.dot / 2, at.y - shape.dot / 2}, {shape.dot, shape.dot}};
  return {{at.x - shape.pin.width / 2, at.y - shape.pin.height}, shape.pin};
}

bool isAllowed(MarkSymbol symbol, const MarkShape& shape) {
  return symbol == MarkSymbol::pin ? shape.hasPin : shape.hasDot;
}

double indexOf(TextSide side, const MarkShape& shape) {
  return static_cast<double>(std::find(shape.sides.begin(), shape.sides.end(), side) -
                             shape.sides.begin());
}

// Returns the length of the part of a segment that is inside a rectangle (Liang and Barsky 1984).
double lengthWithin(const Rect& rect, Point from, Point to) {
  const Point step{to.x - from.x, to.y - from.y};
  double enters = 0;
  double leaves = 1;
  const auto clip = [&](double direction, double room) {
    if (direction == 0) {
      if (room < 0) leaves = -1;
      return;
    }
    const double share = room / direction;
    if (direction < 0)
      enters = std::max(enters, share);
    else
      leaves = std::min(leaves, share);
  };
  clip(-step.x, from.x - rect.minX());
  clip(step.x, rect.maxX() - from.x);
  clip(-step.y, from.y - rect.minY());
  clip(step.y, rect.maxY() - from.y);
  return std::max(0.0, leaves - enters) * std::hypot(step.x, step.y);
}

double lengthWithin(const Rect& rect, std::span<const std::vector<Point>> route) {
  double length = 0;
  for (const auto& line : route)
    for (std::size_t i = 1; i < line.size(); ++i)
      length += lengthWithin(rect, line[i - 1], line[i]);
  return length;
}

bool holds(const Rect& outer, const Rect& inner) {
  return inner.minX() >= outer.minX() && inner.maxX() <= outer.maxX() &&
         inner.minY() >= outer.minY() && inner.maxY() <= outer.maxY();
}

class Placement {
 public:
  Placement(std::span<const MarkPlace> marks, std::span<const std::vector<Point>> route,
            const Rect& view)
      : marks_(marks), route_(route), view_(view), length_(lengthWithin(view, route)) {}

  double cost(std::size_t index, const MarkLook& look, std::span<const MarkLook> looks) const {
    const MarkFrames own = framesOf(marks_[index], look);
    const MarkShape& shape = marks_[index].shape;
    double cost =
        (look.symbol == MarkSymbol::dot ? isDot : 0) + isLaterSide * indexOf(look.side, shape);
    for (std::size_t i = 0; i < marks_.size(); ++i) {
      if (i == index) continue;
      const MarkFrames other = framesOf(marks_[i], looks[i]);
      if (own.symbol.intersects(other.symbol)) cost += hidesSymbol;
      if (own.text.intersects(other.text)) cost += hidesText;
      if (own.symbol.intersects(other.text)) cost += hidesText;
      if (own.text.intersects(other.symbol)) cost += hidesSymbol;
    }
    if (length_ > 0) {
      const double below = lengthWithin(own.text, route_);
      const double hidden = lengthWithin(own.symbol, route_) + below;
      cost += hidesRoute * std::max(0.0, hidden / length_ - tolerableShare);
      cost += shape.overRoute * below;
    }
    if (marks_[index].text.width > 0 && !holds(view_, own.text)) cost += shape.cut;
    return cost;
  }

  MarkLook best(std::size_t index, std::span<const MarkLook> looks) const {
    MarkLook best = looks[index];
    double least = isAllowed(best.symbol, marks_[index].shape) ? cost(index, best, looks) - change
                                                               : std::numeric_limits<double>::max();
    for (const MarkSymbol symbol : symbols)
      for (const TextSide side : marks_[index].shape.sides) {
        if (!isAllowed(symbol, marks_[index].shape)) continue;
        const double other = cost(index, {symbol, side}, looks);
        if (other >= least) continue;
        least = other;
        best = {symbol, side};
      }
    return best;
  }

 private:
  std::span<const MarkPlace> marks_;
  std::span<const std::vector<Point>> route_;
  Rect view_;
  double length_;  // of the visible part of the route
};

// Returns the left edge of a text above or below a place, shifted into the room.
double shiftedInto(const Rect& room, double left, double width, double place) {
  if (!(room.size.width > width)) return left;
  return std::clamp(std::clamp(left, room.minX(), room.maxX() - width), place - width, place);
}

}  // namespace

MarkFrames framesOf(const MarkPlace& mark, const MarkLook& look) {
  const Rect symbol = symbolFrame(mark, look.symbol);
  const double textGap = mark.shape.gap;
  const graphics::Size text = mark.text;
  Point corner{mark.at.x - text.width / 2, symbol.maxY() + textGap};
  if (look.side == TextSide::above) corner.y = symbol.minY() - textGap - text.height;
  if (look.side == TextSide::right || look.side == TextSide::left) {
    // Next to the head of a pin, which is the upper two thirds of the pin.
    const double head =
        look.symbol == MarkSymbol::pin ? mark.shape.pin.height / 3 : mark.shape.dot / 2;
    corner.y = symbol.minY() + head - text.height / 2;
    corner.x = look.side == TextSide::right ? symbol.maxX() + textGap
                                            : symbol.minX() - textGap - text.width;
  } else {
    corner.x = shiftedInto(mark.shape.room, corner.x, text.width, mark.at.x);
  }
  return {symbol, {corner, text}};
}

std::vector<MarkLook> placeMarks(std::span<const MarkPlace> marks,
                                 std::span<const std::vector<Point>> route, const Rect& view,
                                 std::span<const MarkLook> before) {
  std::vector<MarkLook> looks(before.begin(), before.end());
  looks.resize(marks.size());
  const Placement placement(marks, route, view);
  constexpr int rounds = 3;  // a later mark may free space for an earlier one
  for (int round = 0; round < rounds; ++round)
    for (std::size_t i = 0; i < marks.size(); ++i) looks[i] = placement.best(i, looks);
  return looks;
}

}  // namespace orivanta
