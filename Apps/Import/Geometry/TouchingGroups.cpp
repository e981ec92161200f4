#include "Apps/Import/Geometry/TouchingGroups.hpp"

#include <cmath>

#include "Apps/Import/DisjointSets.hpp"

namespace orivanta::importer {

namespace {

using package::Box;
using package::Point;

bool isUsable(const Box& box) { return !box.isEmpty() && std::isfinite(box.longestSide()); }

bool touch(const Box& first, const Box& second) {
  return first.least.x <= second.most.x && second.least.x <= first.most.x &&
         first.least.y <= second.most.y && second.least.y <= first.most.y;
}

// Square cells over all boxes.
class Cells {
 public:
  explicit Cells(const std::vector<Box>& boxes) {
    Box all;
    double surface = 0.0;
    double sides = 0.0;
    for (const Box& box : boxes) {
      if (!isUsable(box)) continue;
      all.add(box.least);
      all.add(box.most);
      surface += box.size().x * box.size().y;
      sides += box.size().x + box.size().y;
    }
    if (all.isEmpty()) return;
    // So large that a box lies in few cells on average, and that there are not many more cells
    // than boxes.
    const double count = 4.0 * static_cast<double>(boxes.size());
    low_ = all.least;
    size_ =
        std::max({std::sqrt(surface / count), sides / count,
                  std::sqrt(all.size().x * all.size().y / count), all.longestSide() / count, 1e-6});
    columns_ = static_cast<std::size_t>(all.size().x / size_) + 1;
    cells_.resize(columns_ * (static_cast<std::size_t>(all.size().y / size_) + 1));
  }

  // Adds a box to all cells in which it lies, after calling `meet` with the others there.
  template <typename Meet>
  void add(std::size_t item, const Box& box, const Meet& meet) {
    for (std::size_t y = index(box.least.y - low_.y); y <= index(box.most.y - low_.y); ++y)
      for (std::size_t x = index(box.least.x - low_.x); x <= index(box.most.x - low_.x); ++x) {
        std::vector<std::size_t>& cell = cells_[y * columns_ + x];
        meet(cell);
        cell.push_back(item);
      }
  }

 private:
  std::size_t index(double offset) const { return static_cast<std::size_t>(offset / size_); }

  Point low_;
  double size_ = 1.0;
  std::size_t columns_ = 1;
  std::vector<std::vector<std::size_t>> cells_;
};

}  // namespace

std::vector<std::vector<std::size_t>> touchingGroups(const std::vector<Box>& boxes) {
  DisjointSets sets(boxes.size());
  Cells cells(boxes);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (!isUsable(boxes[i])) continue;
    cells.add(i, boxes[i], [&](const std::vector<std::size_t>& others) {
      // A full cell is one group.
      constexpr std::size_t full = 24;
      if (others.size() > full) return sets.join(i, others.front());
      for (const std::size_t other : others)
        if (others.size() == full || touch(boxes[i], boxes[other])) sets.join(i, other);
    });
  }
  return sets.all();
}

}  // namespace orivanta::importer
