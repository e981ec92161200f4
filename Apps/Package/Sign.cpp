#include "Apps/Package/Sign.hpp"

#include <cmath>

namespace orivanta::package {

Picture makeSign(Color ground, Color ink, std::span<const Mark> symbol, int width) {
  Picture picture(width, width / 2, ground);
  const double unit = width / 4.0;
  const Point middle = {2 * unit, unit};
  const auto circleOf = [&](double radius, double line, Color look) {
    const double reach = (radius + line) * unit;
    picture.paint(
        middle - Point{reach, reach}, middle + Point{reach, reach},
        [=](Point point) {
          return std::abs(distance(point, middle) - radius * unit) - line * unit;
        },
        look);
  };
  for (const double radius : {1.08, 1.46, 1.9}) circleOf(radius, 0.012, mixed(ground, ink, 0.12));
  const Color paper = mixed(ground, color(0xFFFCF4), 0.78);
  circleOf(0.0, 0.8, paper);
  const double scale = 0.92 * unit;
  for (const Mark& mark : symbol)
    picture.paint(
        middle + mark.least * scale - Point{1.0, 1.0}, middle + mark.most * scale + Point{1.0, 1.0},
        [&](Point point) { return mark.distance((point - middle) * (1.0 / scale)) * scale; },
        mark.tone == Tone::dark ? ink : paper);
  return picture;
}

}  // namespace orivanta::package
