#include "Apps/Import/Network/OuterBorder.hpp"

namespace orivanta::importer {

std::optional<Point> outerBorder(const Space& space, const AreaIndex& areas, Point from) {
  constexpr double within = 4.0;
  constexpr double narrowest = 0.8;
  std::optional<Point> nearest;
  double best = within;
  space.walls().eachNear(from, within, [&](std::size_t i) {
    const auto& [a, b] = space.walls().segments()[i];
    const double length = package::distance(a, b);
    const Point border = a + (b - a) * package::nearestFraction(a, b, from);
    const double away = package::distance(border, from);
    if (length < narrowest || away >= best) return;
    const Point outward = Point{(b - a).y, (a - b).x} * (1.0 / length);
    for (const double depth : {0.4, 1.0, 2.0})
      if (areas.smallestAt(border + outward * depth) != nullptr) return;
    if (!space.isFree(from, border - outward * 0.05, 0.0)) return;
    best = away;
    nearest = border;
  });
  return nearest;
}

}  // namespace orivanta::importer
