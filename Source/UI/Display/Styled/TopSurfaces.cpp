#include "Source/UI/Display/Styled/TopSurfaces.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace orivanta {

namespace {

constexpr double mostCells = 65536;

// Twice the area of a triangle from above.
double doubledArea(const graphics::Point& a, const graphics::Vector3& b,
                   const graphics::Vector3& c) {
  return (double{b.x} - a.x) * (double{c.y} - a.y) - (double{c.x} - a.x) * (double{b.y} - a.y);
}

// The height of a triangle at a point, or nothing outside of it.
std::optional<double> heightAt(const LabelTriangle& corners, const graphics::Point& point) {
  const auto& [a, b, c] = corners;
  const std::array shares{doubledArea(point, b, c), doubledArea(point, c, a),
                          doubledArea(point, a, b)};
  const double sum = shares[0] + shares[1] + shares[2];
  if (*std::min_element(shares.begin(), shares.end()) < 0 || !(sum > 0)) return std::nullopt;
  return (shares[0] * a.z + shares[1] * b.z + shares[2] * c.z) / sum;
}

struct Extent {
  double low = std::numeric_limits<double>::max();
  double high = std::numeric_limits<double>::lowest();

  void add(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
};

// The extent in x of the part of a triangle between two values of y.
Extent extentBetween(const LabelTriangle& corners, double bottom, double top) {
  Extent extent;
  for (std::size_t i = 0; i < 3; ++i) {
    const graphics::Vector3& from = corners[i];
    const graphics::Vector3& to = corners[(i + 1) % 3];
    if (from.y >= bottom && from.y <= top) extent.add(from.x);
    for (const double y : {bottom, top})
      if ((from.y < y) != (to.y < y))
        extent.add(from.x + (y - from.y) / (double{to.y} - from.y) * (double{to.x} - from.x));
  }
  return extent;
}

}  // namespace

TopSurfaces::TopSurfaces(std::span<const TopFace> faces, double least) : faces_(faces) {
  if (faces.empty()) return;
  Extent x;
  Extent y;
  for (const TopFace& face : faces)
    for (const graphics::Vector3& corner : face.corners) {
      x.add(corner.x);
      y.add(corner.y);
    }
  left_ = x.low;
  bottom_ = y.low;
  const double width = x.high - x.low;
  const double height = y.high - y.low;
  cell_ =
      std::max({least, std::sqrt(width * height / mostCells), std::max(width, height) / mostCells});
  columns_ = static_cast<std::size_t>(width / cell_) + 1;
  rows_ = static_cast<std::size_t>(height / cell_) + 1;
  firsts_.assign(columns_ * rows_ + 1, 0);
  for (const TopFace& face : faces)
    visitCells(face, [&](std::size_t cell) { ++firsts_[cell + 1]; });
  std::partial_sum(firsts_.begin(), firsts_.end(), firsts_.begin());
  entries_.resize(firsts_.back());
  std::vector<std::uint32_t> next = firsts_;
  for (std::uint32_t i = 0; i < faces.size(); ++i)
    visitCells(faces[i], [&](std::size_t cell) { entries_[next[cell]++] = i; });
}

template <class Visit>
void TopSurfaces::visitCells(const TopFace& face, const Visit& visit) const {
  const auto placeOf = [this](double offset, std::size_t count) {
    return std::min(static_cast<std::size_t>(std::max(offset, 0.0) / cell_), count - 1);
  };
  const auto [low, high] = std::minmax({face.corners[0].y, face.corners[1].y, face.corners[2].y});
  for (std::size_t row = placeOf(low - bottom_, rows_); row <= placeOf(high - bottom_, rows_);
       ++row) {
    const double y = bottom_ + static_cast<double>(row) * cell_;
    const Extent x = extentBetween(face.corners, y, y + cell_);
    if (x.low > x.high) continue;
    const std::size_t last = placeOf(x.high - left_, columns_);
    for (std::size_t column = placeOf(x.low - left_, columns_); column <= last; ++column)
      visit(row * columns_ + column);
  }
}

TopSurfaces::Seen TopSurfaces::at(const graphics::Point& point, std::uint32_t shape) const {
  Seen seen;
  const double column = (point.x - left_) / cell_;
  const double row = (point.y - bottom_) / cell_;
  if (!(column >= 0 && row >= 0 && column < static_cast<double>(columns_) &&
        row < static_cast<double>(rows_)))
    return seen;
  const std::size_t cell =
      static_cast<std::size_t>(row) * columns_ + static_cast<std::size_t>(column);
  double highest = std::numeric_limits<double>::lowest();
  for (std::uint32_t i = firsts_[cell]; i < firsts_[cell + 1]; ++i) {
    const TopFace& face = faces_[entries_[i]];
    ++seen.examined;
    const auto height = heightAt(face.corners, point);
    if (!height) continue;
    if (face.shape == shape) {
      seen.isOwn = true;
    } else if (*height >= highest) {
      highest = *height;
      seen.other = face.shape;
    }
  }
  return seen;
}

}  // namespace orivanta
