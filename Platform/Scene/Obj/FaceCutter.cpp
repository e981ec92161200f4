#include "Platform/Scene/Obj/FaceCutter.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace orivanta::scene::obj {

namespace {

constexpr std::size_t mostStepsPerCorner = 2'000;
constexpr std::size_t mostSteps = 1'000'000'000;

}  // namespace

std::array<double, 3> areaVector(std::span<const Point> corners) {
  // Relative to the first corner, so that a face far from the origin loses no precision.
  const Point& origin = corners.front();
  const auto relative = [&](const Point& point) {
    return std::array<double, 3>{static_cast<double>(point[0]) - static_cast<double>(origin[0]),
                                 static_cast<double>(point[1]) - static_cast<double>(origin[1]),
                                 static_cast<double>(point[2]) - static_cast<double>(origin[2])};
  };
  std::array<double, 3> sum{};
  auto from = relative(corners[1]);
  for (const Point& corner : corners.subspan(2)) {
    const auto to = relative(corner);
    sum[0] += from[1] * to[2] - from[2] * to[1];
    sum[1] += from[2] * to[0] - from[0] * to[2];
    sum[2] += from[0] * to[1] - from[1] * to[0];
    from = to;
  }
  return sum;
}

std::span<const std::uint32_t> FaceCutter::cut(std::span<const Point> corners) {
  triangles_.clear();
  if (corners.size() < 3) return triangles_;
  const auto normal = areaVector(corners);
  if (normal == std::array<double, 3>{}) return triangles_;
  if (corners.size() == 3) {
    triangles_ = {0, 1, 2};
    return triangles_;
  }
  project(corners, normal);
  if (corners.size() == 4)
    cutQuadrilateral();
  else
    cutPolygon();
  return triangles_;
}

// Drops the coordinate for which the projected face is largest.
void FaceCutter::project(std::span<const Point> corners, const std::array<double, 3>& normal) {
  std::size_t axis = 2;
  if (std::abs(normal[0]) > std::abs(normal[axis])) axis = 0;
  if (std::abs(normal[1]) > std::abs(normal[axis])) axis = 1;
  std::size_t x = (axis + 1) % 3;
  std::size_t y = (axis + 2) % 3;
  if (normal[axis] < 0.0) std::swap(x, y);
  points_.clear();
  for (const Point& corner : corners) points_.push_back({corner[x], corner[y]});
}

void FaceCutter::add(Index first, Index second, Index third) {
  if (turnAt(first, second, third) == 0.0) return;
  triangles_.insert(triangles_.end(), {first, second, third});
}

void FaceCutter::cutQuadrilateral() {
  const bool isFirstDiagonalInside = turnAt(0, 1, 2) > 0.0 && turnAt(2, 3, 0) > 0.0;
  if (!isFirstDiagonalInside && turnAt(1, 2, 3) >= 0.0 && turnAt(3, 0, 1) >= 0.0) {
    add(0, 1, 3);
    add(1, 2, 3);
  } else {
    add(0, 1, 2);
    add(0, 2, 3);
  }
}

// Each round cuts all ears that do not touch the previously cut one, which removes about half of
// the corners.
void FaceCutter::cutPolygon() {
  makeRing();
  makeTree();
  while (leftCount_ > 3) {
    if (queueCount_ == 0) {
      cutEar(leastHarmful());
      continue;
    }
    const Index corner = queue_[queueBegin_];
    queueBegin_ = queueBegin_ + 1 == queue_.size() ? 0 : queueBegin_ + 1;
    --queueCount_;
    const bool isToWait = waiting_[corner] == Waiting::again;
    waiting_[corner] = Waiting::no;
    if (next_[corner] == corner) continue;
    if (isToWait)
      enqueue(corner);
    else if (isEar(corner))
      cutEar(corner);
  }
  if (leftCount_ == 3) add(previous_[some_], some_, next_[some_]);
}

void FaceCutter::makeRing() {
  const std::size_t count = points_.size();
  next_.resize(count);
  previous_.resize(count);
  std::iota(next_.begin(), next_.end(), Index{1});
  next_.back() = 0;
  std::iota(previous_.begin() + 1, previous_.end(), Index{0});
  previous_.front() = static_cast<Index>(count - 1);
  leftCount_ = count;
  some_ = 0;
  waiting_.assign(count, Waiting::no);
  queue_.resize(count);
  queueBegin_ = queueCount_ = 0;
  tree_.build(points_, {});
  for (Index corner = 0; corner < count; ++corner)
    if (next_[corner] != corner) removeSpikes(corner);
}

void FaceCutter::makeTree() {
  candidates_.clear();
  for (Index corner = 0; corner < points_.size(); ++corner) {
    if (next_[corner] == corner) continue;
    enqueue(corner);
    if (!isConvex(corner)) candidates_.push_back(corner);
  }
  tree_.build(points_, candidates_);
}

void FaceCutter::enqueue(Index corner) {
  if (waiting_[corner] != Waiting::no) {
    waiting_[corner] = Waiting::again;
    return;
  }
  waiting_[corner] = Waiting::yes;
  const std::size_t end = queueBegin_ + queueCount_;
  queue_[end < queue_.size() ? end : end - queue_.size()] = corner;
  ++queueCount_;
}

void FaceCutter::remove(Index corner) {
  next_[previous_[corner]] = next_[corner];
  previous_[next_[corner]] = previous_[corner];
  some_ = next_[corner];
  next_[corner] = corner;
  --leftCount_;
  tree_.remove(corner);
}

// Removes corners around `around` where the outline turns back onto itself. No area is lost.
void FaceCutter::removeSpikes(Index around) {
  while (leftCount_ > 3 && isSpike(around)) {
    const Index before = previous_[around];
    const Index after = next_[around];
    remove(around);
    around = isSpike(before) ? before : after;
    enqueue(before);
    enqueue(after);
  }
}

bool FaceCutter::isSpike(Index corner) const {
  const PlanePoint& before = points_[previous_[corner]];
  const PlanePoint& at = points_[corner];
  const PlanePoint& after = points_[next_[corner]];
  if (before == at || at == after) return true;
  const double forward =
      (at.x - before.x) * (after.x - at.x) + (at.y - before.y) * (after.y - at.y);
  return forward < 0.0 && turn(before, at, after) == 0.0;
}

bool FaceCutter::isConvex(Index corner) const {
  return turnAt(previous_[corner], corner, next_[corner]) > 0.0;
}

// Whether the triangle at a corner can be cut off: its third side lies inside the angles at both
// ends, and the outline does not pass through it.
bool FaceCutter::isEar(Index corner) {
  const Index before = previous_[corner];
  const Index after = next_[corner];
  if (turnAt(before, corner, after) <= 0.0) return false;
  if (isConvex(before) && turnAt(previous_[before], before, after) < 0.0) return false;
  if (isConvex(after) && turnAt(after, next_[after], before) < 0.0) return false;
  if (tree_.steps() > std::min(mostStepsPerCorner * points_.size(), mostSteps)) return true;
  const std::array<Index, 3> ear{before, corner, after};
  return !tree_.anyWithin({points_[before], points_[corner], points_[after]},
                          [&](Index other) { return isInTheWay(other, ear); });
}

// A corner is in the way if it lies inside the ear or on the side that is cut: the triangle beyond
// that side would only touch the ear at the corner, and rounding could open a gap there. A corner
// on another side is in the way if the outline continues into the ear from there.
bool FaceCutter::isInTheWay(Index corner, const std::array<Index, 3>& ear) const {
  constexpr std::size_t cutSide = 2;
  std::size_t sidesTouched = 0;
  bool isOnCut = false;
  bool comesFromInside = true;
  bool goesInside = true;
  for (std::size_t side = 0; side < 3; ++side) {
    const Index from = ear[side];
    const Index to = ear[(side + 1) % 3];
    const double left = turnAt(from, to, corner);
    if (left < 0.0) return false;
    if (left > 0.0) continue;
    ++sidesTouched;
    isOnCut = isOnCut || side == cutSide;
    comesFromInside = comesFromInside && turnAt(from, to, previous_[corner]) > 0.0;
    goesInside = goesInside && turnAt(from, to, next_[corner]) > 0.0;
  }
  const bool isBetweenEnds = isOnCut && sidesTouched == 1;
  return isBetweenEnds || comesFromInside || goesInside;
}

void FaceCutter::cutEar(Index corner) {
  const Index before = previous_[corner];
  const Index after = next_[corner];
  add(before, corner, after);
  remove(corner);
  for (const Index neighbor : {before, after}) {
    if (next_[neighbor] == neighbor) continue;
    enqueue(neighbor);
    removeSpikes(neighbor);
  }
  for (const Index neighbor : {before, after})
    if (next_[neighbor] != neighbor && isConvex(neighbor)) tree_.remove(neighbor);
}

// If a self-intersecting outline has no ear left, returns the convex corner with the smallest area
// among the next corners, or else the least inverted one.
FaceCutter::Index FaceCutter::leastHarmful() {
  constexpr int lookedAt = 64;
  const auto harm = [&](Index corner) {
    const double area = turnAt(previous_[corner], corner, next_[corner]);
    return area >= 0.0 ? area : std::numeric_limits<double>::max() / 2 - area;
  };
  Index best = some_;
  double least = harm(best);
  for (int i = 0; i < lookedAt; ++i) {
    some_ = next_[some_];
    const double found = harm(some_);
    if (found < least) {
      least = found;
      best = some_;
    }
  }
  return best;
}

}  // namespace orivanta::scene::obj
