#include "Source/UI/Display/Styled/FloorCells.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/UI/Display/Turned.hpp"

namespace orivanta {

using graphics::Point;
using graphics::Vector3;

CellFrame::CellFrame(std::span<const Vector3> points, double seenAt) : turn(seenAt) {
  if (points.empty()) return;
  double right = std::numeric_limits<double>::lowest();
  double back = right;
  left = front = std::numeric_limits<double>::max();
  for (const Vector3& point : points) {
    const Point place = turned({point.x, point.y}, -turn);
    left = std::min(left, place.x);
    right = std::max(right, place.x);
    front = std::min(front, place.y);
    back = std::max(back, place.y);
  }
  width = right - left;
  depth = back - front;
}

FloorCells::FloorCells(std::span<const std::shared_ptr<scene::Node>> shapes,
                       const CellFrame& frame) {
  for (const auto& shape : shapes) {
    const auto geometry = shape->geometry();
    const auto* const source = geometry ? geometry->source(scene::Semantic::vertex) : nullptr;
    if (source == nullptr) continue;
    const graphics::Matrix4 toFloor = shape->transform();
    const auto corner = [&](const scene::GeometryElement& element, std::size_t i) {
      return Vector3(toFloor * graphics::Vector4(source->vector(element.index(i)), 1.0F));
    };
    for (const scene::GeometryElement& element : geometry->elements())
      for (std::size_t i = 0; i + 2 < element.indexCount(); i += 3)
        add({corner(element, i), corner(element, i + 1), corner(element, i + 2)}, frame);
  }
  for (const std::uint64_t column : columns_) count_ += std::popcount(column);
}

// Adds the cells along the sides of a triangle and those between them.
void FloorCells::add(const std::array<Vector3, 3>& triangle, const CellFrame& frame) {
  std::array<Point, 3> corners;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point place = turned({triangle[i].x, triangle[i].y}, -frame.turn);
    corners[i] = {frame.width > 0 ? (place.x - frame.left) / frame.width * side : 0,
                  frame.depth > 0 ? (place.y - frame.front) / frame.depth * side : 0};
  }
  const auto cell = [](double place) {
    return static_cast<int>(std::clamp(std::floor(place), 0.0, side - 1.0));
  };
  const auto [least, most] = std::minmax({corners[0].x, corners[1].x, corners[2].x});
  for (int column = cell(least); column <= cell(most); ++column) {
    double front = side;
    double back = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const Point& from = corners[i];
      const Point& to = corners[(i + 1) % 3];
      const auto [first, last] = std::minmax({from.x, to.x});
      for (const double x : {static_cast<double>(column), column + 1.0, from.x}) {
        if (x < std::max<double>(first, column) || x > std::min<double>(last, column + 1)) continue;
        const double share = to.x == from.x ? 0 : (x - from.x) / (to.x - from.x);
        const double y = from.y + (to.y - from.y) * share;
        front = std::min(front, y);
        back = std::max(back, y);
      }
    }
    if (front > back) continue;
    const int count = cell(back) - cell(front) + 1;
    const std::uint64_t ones = count >= side ? ~std::uint64_t{0} : (std::uint64_t{1} << count) - 1;
    columns_[static_cast<std::size_t>(column)] |= ones << cell(front);
  }
}

bool FloorCells::contains(Point point, const CellFrame& frame) const {
  const Point place = turned(point, -frame.turn);
  const double column = (place.x - frame.left) / frame.width * side;
  const double row = (place.y - frame.front) / frame.depth * side;
  return column >= 0 && column < side && row >= 0 && row < side &&
         (columns_[static_cast<std::size_t>(column)] >> static_cast<int>(row) & 1U) != 0;
}

const StackCover::Level& StackCover::of(const Map& floor) const {
  return *std::find_if(levels.begin(), levels.end(),
                       [&](const Level& level) { return level.floor == &floor; });
}

bool StackCover::hides(const Vector3& point, const Vector3& eye) const {
  constexpr double leastShare = 1e-3;  // of the way to the eye; a floor does not hide what is on it
  for (const Level& level : levels) {
    const double share = (level.height - point.z) / (double{eye.z} - point.z);
    if (!(share > leastShare && share < 1)) continue;
    const Vector3 at = point + (eye - point) * static_cast<float>(share);
    if (level.cells.contains({at.x, at.y}, frame)) return true;
  }
  return false;
}

int FloorCells::hiddenBy(const FloorCells& other, int shift) const {
  int hidden = 0;
  for (std::size_t i = 0; i < columns_.size(); ++i)
    hidden += std::popcount(columns_[i] & (other.columns_[i] << shift));
  return hidden;
}

double FloorCells::shiftOf(const FloorCells& other, double share) const {
  int shift = side - 1;
  while (shift > 0 && hiddenBy(other, shift - 1) <= share * count_) --shift;
  return static_cast<double>(shift) / side;
}

}  // namespace orivanta
