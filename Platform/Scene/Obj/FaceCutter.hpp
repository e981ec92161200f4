// Cuts faces with any number of corners into triangles.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Scene/Obj/CornerTree.hpp"
#include "Platform/Scene/Obj/ModelStatements.hpp"

namespace orivanta::scene::obj {

/// Perpendicular to the face, towards the side from which it is counterclockwise, and as long as
/// twice its area (Newell's method). All zero for a face without area.
std::array<double, 3> areaVector(std::span<const Point> corners);

/// Keep one for many faces: it keeps its memory. Calls must not overlap.
class FaceCutter {
 public:
  /// Triangles that cover the face exactly once, as corner numbers, three a triangle, wound as the
  /// face is. The face is taken to be flat and is looked at along the axis that its normal is
  /// nearest to. Its outline may be of any shape and may touch itself: straight and repeated
  /// corners, spikes, holes that are joined to the outline by an edge there and back. Where it
  /// crosses itself the triangles still add up to its area, those of inverted parts counting as
  /// negative. A face without area gives none. Valid until the next call.
  ///
  /// No corner of the outline lies inside a side that two triangles share: such a side would come
  /// apart at that corner by rounding, and show what lies behind the face. An exception is a side
  /// along which the outline runs twice, with a corner there one time and without it the other.
  ///
  /// Ears are cut off one after the other (Meisters 1975) all around the outline in turn, corners
  /// in the way being found with a tree: for n corners about n * sqrt(n) steps, a second for some
  /// 100,000 corners at the worst. An outline that takes more than 2,000 n steps, such as one that
  /// comes back to the same point tens of thousands of times, or more than 10^9, is cut from there
  /// on without looking for what is in the way.
  std::span<const std::uint32_t> cut(std::span<const Point> corners);

 private:
  using Index = std::uint32_t;

  void project(std::span<const Point> corners, const std::array<double, 3>& normal);
  void cutQuadrilateral();
  void cutPolygon();
  void makeRing();
  void makeTree();
  void removeSpikes(Index around);
  bool isSpike(Index corner) const;
  bool isConvex(Index corner) const;
  bool isEar(Index corner);
  bool isInTheWay(Index corner, const std::array<Index, 3>& ear) const;
  void cutEar(Index corner);
  Index leastHarmful();
  void remove(Index corner);
  void enqueue(Index corner);
  void add(Index first, Index second, Index third);
  double turnAt(Index first, Index second, Index third) const {
    return turn(points_[first], points_[second], points_[third]);
  }

  std::vector<PlanePoint> points_;  // counterclockwise in all
  std::vector<Index> triangles_;

  // The outline that is left. A removed corner is its own next one.
  std::vector<Index> next_;
  std::vector<Index> previous_;
  std::size_t leftCount_ = 0;
  Index some_ = 0;  // one of the corners left
  CornerTree tree_;
  std::vector<Index> candidates_;

  // Corners to look at, each at most once, in a circle.
  enum class Waiting : std::uint8_t { no, yes, again };
  std::vector<Waiting> waiting_;
  std::vector<Index> queue_;
  std::size_t queueBegin_ = 0;
  std::size_t queueCount_ = 0;
};

}  // namespace orivanta::scene::obj
