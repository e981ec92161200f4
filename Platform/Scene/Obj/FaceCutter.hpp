// Cuts faces with any number of corners into triangles.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Scene/Obj/CornerTree.hpp"
#include "Platform/Scene/Obj/ModelStatements.hpp"

namespace orivanta::scene::obj {

/// A vector perpendicular to the face, toward the side from which it is counterclockwise. Its
/// length is twice the face's area (Newell's method). Zero for a face without area.
std::array<double, 3> areaVector(std::span<const Point> corners);

/// Reuse one object for many faces to reuse its memory. Not thread-safe.
class FaceCutter {
 public:
  /// Returns triangles that cover the face exactly once: three corner numbers per triangle, with
  /// the face's orientation. The face is assumed to be flat and is projected along the axis nearest
  /// to its normal. The outline may touch itself: it may have straight and repeated corners,
  /// spikes, and holes that are connected to the outline by an edge in both directions. If it
  /// crosses itself, the areas of the triangles still add up to its area, with inverted triangles
  /// counting as negative. A face without area has no triangles. The result is valid until the next
  /// call.
  ///
  /// No corner of the outline lies on a side shared by two triangles, since rounding would open a
  /// gap there. The exception is a side along which the outline runs twice, with the corner on only
  /// one of the runs.
  ///
  /// The algorithm is ear clipping (Meisters 1975), going around the outline. A tree finds the
  /// corners that are in the way, so n corners take about n * sqrt(n) steps: at most about a second
  /// for 100,000 corners. If an outline takes more than 2,000 n steps, such as one that returns to
  /// the same point tens of thousands of times, or more than 10^9 steps, the rest is cut without
  /// checking for corners in the way.
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

  std::vector<PlanePoint> points_;  // counterclockwise overall
  std::vector<Index> triangles_;

  // The remaining outline. A removed corner is its own successor.
  std::vector<Index> next_;
  std::vector<Index> previous_;
  std::size_t leftCount_ = 0;
  Index some_ = 0;  // one of the remaining corners
  CornerTree tree_;
  std::vector<Index> candidates_;

  // A circular queue of corners to check, each at most once.
  enum class Waiting : std::uint8_t { no, yes, again };
  std::vector<Waiting> waiting_;
  std::vector<Index> queue_;
  std::size_t queueBegin_ = 0;
  std::size_t queueCount_ = 0;
};

}  // namespace orivanta::scene::obj
