// Colors of materials and pictures.
#pragma once

namespace orivanta::package {

/// Red, green and blue from 0 to 1.
struct Color {
  double red;
  double green;
  double blue;
};

/// A color from 0xRRGGBB.
constexpr Color color(unsigned hex) {
  return {((hex >> 16U) & 0xFFU) / 255.0, ((hex >> 8U) & 0xFFU) / 255.0, (hex & 0xFFU) / 255.0};
}

/// The first color with a share, from 0 to 1, of the second one.
Color mixed(Color first, Color second, double share);

}  // namespace orivanta::package
