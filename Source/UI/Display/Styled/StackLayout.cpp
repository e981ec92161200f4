#include "Source/UI/Display/Styled/StackLayout.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Styled/FloorCells.hpp"
#include "Source/UI/Display/Turned.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

constexpr double hiddenShare = 0.22;  // of a floor, by another one
// From one floor to the next, of the depth of all floors.
constexpr double leastShift = 0.3;
constexpr double mostShift = 1.6;       // where there is room
constexpr double fadedDistance = 0.55;  // of a distance, in the mean; see `stackFloors`
// Of the height of the view. Less is used because the names of the floors need width.
constexpr double usedShare = 0.9;

using Points = std::vector<graphics::Vector3>;
using ShapesOfFloors = std::map<const Map*, StackShapes>;

// The extent of points along a direction, which is turned counterclockwise from the y axis.
double depthAlong(const Points& points, double turn) {
  double least = 0;
  double most = 0;
  bool isFirst = true;
  for (const graphics::Vector3& point : points) {
    const double place = turned({point.x, point.y}, -turn).y;
    least = isFirst ? place : std::min(least, place);
    most = isFirst ? place : std::max(most, place);
    isFirst = false;
  }
  return most - least;
}

// Returns the turn nearest to another one at which the longer side of the floors is across the
// view. Among turns that are equally good but for rounding, the first one is taken.
double broadestTurn(const Points& points, double former) {
  constexpr double pi = std::numbers::pi;
  constexpr int steps = 36;  // of half a turn
  constexpr double betterShare = 0.999;
  double best = 0;
  double least = depthAlong(points, 0);
  for (int i = 1; i < steps; ++i) {
    const double depth = depthAlong(points, i * pi / steps);
    if (depth > least * betterShare) continue;
    least = depth;
    best = i * pi / steps;
  }
  return former + std::remainder(best - former, pi);
}

FloorList floorsWithModels(const Venue& venue, const std::shared_ptr<Map>& shown) {
  FloorList floors;
  for (const auto& map : *venue.maps)
    if (map->mapObject && !map->mapObject->boundingBox().isEmpty()) floors.push_back(map);
  if (std::find(floors.begin(), floors.end(), shown) == floors.end()) floors.push_back(shown);
  return floors;
}

// At most a share of each floor is hidden by another one, as far as the grid can tell. The floors
// are further apart if the view is high enough for a number of distances.
FloorSpacing spacingOf(const StackCover& cover, graphics::Size view, double count) {
  const CellFrame& frame = cover.frame;
  const double upright = std::cos(stackTilt) / std::sin(stackTilt);
  const double most = frame.width * view.height / std::max(1.0, view.width) * usedShare;
  const double flat = frame.depth * std::cos(stackTilt);
  const double room = flat > 0 ? (most - flat) / flat / std::max(1.0, count) : 0;
  const double least = std::clamp(room, leastShift, mostShift);
  return [&cover, depth = frame.depth * upright, least](const Map& lower, const Map& upper) {
    const double shift = cover.of(lower).cells.shiftOf(cover.of(upper).cells, hiddenShare);
    return std::max(shift, least) * depth;
  };
}

}  // namespace

StackLayout::StackLayout(const StackInput& input) {
  FloorList floors;
  graphics::Box contents;
  double distances = 0;
  for (const auto& floor : floorsWithModels(input.venue, input.shown)) {
    StackShapes own(*floor, input.venue, input.words);
    const bool isNeeded =
        floor == input.shown ||
        std::find(input.onRoute.begin(), input.onRoute.end(), floor) != input.onRoute.end();
    if (own.contents().isEmpty() && !isNeeded) continue;
    distances += isNeeded || input.onRoute.empty() ? 1 : fadedDistance;
    contents.add(own.contents());
    shapes.emplace(floor.get(), std::move(own));
    floors.push_back(floor);
  }
  Points flat;
  for (auto& [floor, own] : shapes) {
    own.choose(contents);
    flat.insert(flat.end(), own.corners.begin(), own.corners.end());
  }
  turn = broadestTurn(flat, input.turn);
  auto covered = std::make_shared<StackCover>(StackCover{CellFrame(flat, turn), {}});
  for (const auto& [floor, own] : shapes)
    covered->levels.push_back({floor, FloorCells(own.shapes, covered->frame)});
  cover = covered;
  stack = stackFloors(
      floors, input.onRoute, input.shown,
      spacingOf(*cover, input.view, std::min<double>(distances, mostStackedFloors) - 1));
  for (const StackedFloor& floor : stack.floors) {
    const StackShapes& each = shapes.at(floor.floor.get());
    for (StackCover::Level& level : covered->levels)
      if (level.floor == floor.floor.get() && floor.isWhole) level.height = floor.offset;
    if (each.box.isEmpty()) continue;
    box.add(each.box);
    extent.add(raised(each.box, floor.offset));
    for (graphics::Vector3 corner : each.corners) {
      corner.z += static_cast<float>(floor.offset);
      corners.push_back(corner);
    }
  }
}

graphics::Box raised(graphics::Box box, double offset) {
  box.min.z += static_cast<float>(offset);
  box.max.z += static_cast<float>(offset);
  return box;
}

}  // namespace orivanta
