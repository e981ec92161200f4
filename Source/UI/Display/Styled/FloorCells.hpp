// Which parts of floors hide each other when the floors are stacked.
// Private header.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// A grid over all floors. Its columns run away from the viewer.
struct CellFrame {
  /// Encloses points of floors that are seen at a turn; see `CameraPose`.
  CellFrame(std::span<const graphics::Vector3> points, double seenAt);

  double turn;       ///< at which the floors are seen
  double left = 0;   ///< of the turned points, scene units
  double front = 0;  ///< of the turned points, scene units
  double width = 0;  ///< of all columns, scene units
  double depth = 0;  ///< of the columns, scene units
};

/// The cells that a floor covers, of 64 columns with 64 cells each.
class FloorCells {
 public:
  /// `frame` must enclose the shapes of the floor.
  FloorCells(std::span<const std::shared_ptr<scene::Node>> shapes, const CellFrame& frame);

  /// Returns whether a point of the floors lies in a cell that the floor covers. `frame`: the same.
  bool contains(graphics::Point point, const CellFrame& frame) const;

  /// Returns the least share of the columns' length by which another floor must be shifted away
  /// from the viewer so that it, and any larger shift, covers at most a share of these cells.
  double shiftOf(const FloorCells& other, double share) const;

 private:
  void add(const std::array<graphics::Vector3, 3>& triangle, const CellFrame& frame);
  int hiddenBy(const FloorCells& other, int shift) const;

  static constexpr int side = 64;
  std::array<std::uint64_t, side> columns_{};  // bit 0 is nearest to the viewer
  int count_ = 0;
};

/// What stacked floors hide of those below.
struct StackCover {
  struct Level {
    const Map* floor;
    FloorCells cells;
    double height = std::numeric_limits<double>::lowest();  ///< of a floor that hides
  };

  /// Returns the level of a floor, which must be there.
  const Level& of(const Map& floor) const;

  /// Returns whether a floor covers a point that is seen from another one, both in the scene.
  bool hides(const graphics::Vector3& point, const graphics::Vector3& eye) const;

  CellFrame frame;
  std::vector<Level> levels;  ///< of all floors that can be stacked
};

}  // namespace orivanta
