#include "Source/UI/Labels/LabelGrid.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta {

namespace {

constexpr double cellSize = 64;    // points
constexpr double mostCells = 512;  // in each direction

int cellCount(double length) {
  return static_cast<int>(std::clamp(std::ceil(length / cellSize), 1.0, mostCells));
}

// Positions slightly outside the view count as inside.
int cellAt(double position, int count) {
  return static_cast<int>(std::clamp(position / cellSize, -1.0, double(count)));
}

graphics::Rect grown(const graphics::Rect& rect, double gap) {
  return {{rect.origin.x - gap, rect.origin.y - gap},
          {rect.size.width + 2 * gap, rect.size.height + 2 * gap}};
}

}  // namespace

void LabelGrid::reset(graphics::Size view) {
  columns_ = cellCount(view.width);
  rows_ = cellCount(view.height);
  boxes_.clear();
  for (auto& cell : cells_) cell.clear();
  cells_.resize(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_));
}

// The comparison is false if a coordinate is not a number.
LabelGrid::Cells LabelGrid::cellsOf(const graphics::Rect& rect) const {
  if (!(rect.maxX() >= rect.minX() && rect.maxY() >= rect.minY())) return {0, 0, -1, -1};
  return {std::max(0, cellAt(rect.minX(), columns_)), std::max(0, cellAt(rect.minY(), rows_)),
          std::min(columns_ - 1, cellAt(rect.maxX(), columns_)),
          std::min(rows_ - 1, cellAt(rect.maxY(), rows_))};
}

std::size_t LabelGrid::indexOf(int x, int y) const {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(columns_) +
         static_cast<std::size_t>(x);
}

void LabelGrid::add(const graphics::Rect& rect, std::size_t owner) {
  const Cells cells = cellsOf(rect);
  if (cells.right < cells.left || cells.bottom < cells.top) return;
  for (int y = cells.top; y <= cells.bottom; ++y)
    for (int x = cells.left; x <= cells.right; ++x)
      cells_[indexOf(x, y)].push_back(static_cast<std::uint32_t>(boxes_.size()));
  boxes_.push_back({rect, owner});
}

bool LabelGrid::isOccupied(const graphics::Rect& rect, double gap, std::size_t owner) const {
  const graphics::Rect room = grown(rect, gap);
  const Cells cells = cellsOf(room);
  for (int y = cells.top; y <= cells.bottom; ++y)
    for (int x = cells.left; x <= cells.right; ++x)
      for (const std::uint32_t box : cells_[indexOf(x, y)])
        if (boxes_[box].owner != owner && boxes_[box].rect.intersects(room)) return true;
  return false;
}

}  // namespace orivanta
