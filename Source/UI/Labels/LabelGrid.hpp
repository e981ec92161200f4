// The occupied rectangles of a view, found by position.
// Private header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta {

/// A grid of cells of 64 points. Rectangles outside the view are ignored. One thread.
class LabelGrid {
 public:
  /// The owner of rectangles that belong to no label.
  static constexpr std::size_t nobody = SIZE_MAX;

  /// Removes all rectangles and sets the size of the view.
  void reset(graphics::Size view);

  /// Adds a rectangle.
  void add(const graphics::Rect& rect, std::size_t owner);

  /// Returns whether a rectangle of another owner is nearer than `gap`, which may be negative.
  bool isOccupied(const graphics::Rect& rect, double gap, std::size_t owner) const;

 private:
  struct Box {
    graphics::Rect rect;
    std::size_t owner;
  };
  struct Cells {
    int left, top, right, bottom;  // inclusive; empty if right < left
  };

  Cells cellsOf(const graphics::Rect& rect) const;
  std::size_t indexOf(int x, int y) const;

  int columns_ = 0;
  int rows_ = 0;
  std::vector<Box> boxes_;
  std::vector<std::vector<std::uint32_t>> cells_;  // keep their memory
};

}  // namespace orivanta
