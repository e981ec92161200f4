#include "Apps/Import/Geometry/OrientedBox.hpp"

#include <algorithm>
#include <utility>

namespace orivanta::importer {

namespace {

constexpr std::size_t mostDirections = 64;

std::pair<double, double> reach(const Outline& outline, Point direction) {
  double least = 1e300;
  double most = -1e300;
  for (const Point point : outline) {
    least = std::min(least, package::dot(point, direction));
    most = std::max(most, package::dot(point, direction));
  }
  return {least, most};
}

OrientedBox boxAlong(const Outline& outline, Point along) {
  const Point across = {-along.y, along.x};
  const auto [left, right] = reach(outline, along);
  const auto [bottom, top] = reach(outline, across);
  OrientedBox box;
  box.center = along * ((left + right) / 2.0) + across * ((bottom + top) / 2.0);
  box.along = along;
  box.length = right - left;
  box.width = top - bottom;
  if (box.width > box.length) {
    std::swap(box.width, box.length);
    box.along = across;
  }
  return box;
}

}  // namespace

OrientedBox orientedBox(const Outline& outline) {
  OrientedBox best = boxAlong(outline, {1.0, 0.0});
  std::vector<std::pair<double, std::size_t>> sides;
  for (std::size_t i = 0; i < outline.size(); ++i)
    sides.emplace_back(-package::distance(outline[i], outline[(i + 1) % outline.size()]), i);
  std::sort(sides.begin(), sides.end());
  if (sides.size() > mostDirections) sides.resize(mostDirections);
  for (const auto& [length, i] : sides) {
    if (length > -1e-6) continue;
    const Point side = outline[(i + 1) % outline.size()] - outline[i];
    const OrientedBox box = boxAlong(outline, side * (-1.0 / length));
    if (box.length * box.width < best.length * best.width * (1.0 - 1e-9)) best = box;
  }
  return best;
}

}  // namespace orivanta::importer
