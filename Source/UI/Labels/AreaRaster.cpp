#include "Source/UI/Labels/AreaRaster.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace orivanta {

namespace {

constexpr double mostCells = 1024;
constexpr std::uint32_t empty = UINT32_MAX;
constexpr int samplesAcross = 6;
constexpr int samplesDown = 4;

graphics::Point between(graphics::Point from, graphics::Point to, double share) {
  return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

graphics::Rect joined(const graphics::Rect& left, const graphics::Rect& right) {
  const graphics::Point least{std::min(left.minX(), right.minX()),
                              std::min(left.minY(), right.minY())};
  return {least,
          {std::max(left.maxX(), right.maxX()) - least.x,
           std::max(left.maxY(), right.maxY()) - least.y}};
}

}  // namespace

AreaRaster::AreaRaster(std::span<const LabelArea> areas, std::span<const std::uint32_t> owners) {
  bool isFirst = true;
  for (const LabelArea& area : areas) {
    if (area.edges.empty()) continue;
    bounds_ = isFirst ? area.bounds() : joined(bounds_, area.bounds());
    isFirst = false;
  }
  const double longer = std::max(bounds_.size.width, bounds_.size.height);
  if (!(longer > 0) || !std::isfinite(longer)) return;
  cell_ = longer / mostCells;
  columns_ = static_cast<std::size_t>(bounds_.size.width / cell_) + 1;
  rows_ = static_cast<std::size_t>(bounds_.size.height / cell_) + 1;
  cells_.assign(columns_ * rows_, empty);
  crossings_.resize(rows_);
  for (std::size_t i = 0; i < std::min(areas.size(), owners.size()); ++i) draw(areas[i], owners[i]);
  crossings_ = {};
}

// Fills the cells whose middle is inside, row by row.
void AreaRaster::draw(const LabelArea& area, std::uint32_t owner) {
  std::size_t first = rows_;
  std::size_t last = 0;
  for (auto [from, to] : area.edges) {
    if (from.y > to.y) std::swap(from, to);
    const auto row = [&](double y) {
      return static_cast<std::size_t>(
          std::clamp(std::ceil((y - bounds_.minY()) / cell_ - 0.5), 0.0, double(rows_)));
    };
    const std::size_t end = row(to.y);
    for (std::size_t y = row(from.y); y < end; ++y) {
      const double middle = bounds_.minY() + (static_cast<double>(y) + 0.5) * cell_;
      crossings_[y].push_back(from.x + (middle - from.y) / (to.y - from.y) * (to.x - from.x));
      first = std::min(first, y);
      last = std::max(last, y);
    }
  }
  for (std::size_t y = first; y <= last && y < rows_; ++y) {
    std::vector<double>& row = crossings_[y];
    std::sort(row.begin(), row.end());
    for (std::size_t i = 0; i + 1 < row.size(); i += 2) {
      const auto column = [&](double x) {
        return static_cast<std::ptrdiff_t>(
            std::clamp(std::ceil((x - bounds_.minX()) / cell_ - 0.5), 0.0, double(columns_)));
      };
      const auto start = cells_.begin() + static_cast<std::ptrdiff_t>(y * columns_);
      std::fill(start + column(row[i]), start + std::max(column(row[i]), column(row[i + 1])),
                owner);
    }
    row.clear();
  }
}

std::uint32_t AreaRaster::at(graphics::Point point) const {
  const double x = std::floor((point.x - bounds_.minX()) / cell_);
  const double y = std::floor((point.y - bounds_.minY()) / cell_);
  if (!(x >= 0 && y >= 0 && x < double(columns_) && y < double(rows_))) return empty;
  return cells_[static_cast<std::size_t>(y) * columns_ + static_cast<std::size_t>(x)];
}

double AreaRaster::shareOnOthers(const std::array<graphics::Point, 4>& corners,
                                 std::uint32_t owner) const {
  int covered = 0;
  for (int down = 0; down < samplesDown; ++down)
    for (int across = 0; across < samplesAcross; ++across) {
      const double share = (across + 0.5) / samplesAcross;
      const graphics::Point point =
          between(between(corners[0], corners[1], share), between(corners[3], corners[2], share),
                  (down + 0.5) / samplesDown);
      const std::uint32_t found = at(point);
      if (found != empty && found != owner) ++covered;
    }
  return static_cast<double>(covered) / (samplesAcross * samplesDown);
}

}  // namespace orivanta
