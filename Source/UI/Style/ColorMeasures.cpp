#include "Source/UI/Style/ColorMeasures.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace orivanta {

using graphics::Color;

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

constexpr double flare = 0.05;  // light that screens reflect, according to WCAG

double decoded(double component) {
  return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

float encoded(double light) {
  light = std::clamp(light, 0.0, 1.0);
  return static_cast<float>(light <= 0.0031308 ? 12.92 * light
                                               : 1.055 * std::pow(light, 1 / 2.4) - 0.055);
}

Triple lightOf(const Color& color) {
  return {decoded(color.red), decoded(color.green), decoded(color.blue)};
}

Color colorOf(const Triple& light, float alpha) {
  return {encoded(light[0]), encoded(light[1]), encoded(light[2]), alpha};
}

Triple product(const Matrix& matrix, const Triple& vector) {
  Triple result{};
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) result[i] += matrix[i][j] * vector[j];
  return result;
}

struct Lab {
  double lightness;
  double a;
  double b;
};

// CIE 1976 L*a*b* with the white point D65.
Lab labOf(const Color& color) {
  constexpr Matrix toXyz{{{0.4124564, 0.3575761, 0.1804375},
                          {0.2126729, 0.7151522, 0.0721750},
                          {0.0193339, 0.1191920, 0.9503041}}};
  const Triple xyz = product(toXyz, lightOf(color));
  const auto root = [](double t) {
    return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116;
  };
  const double x = root(xyz[0] / 0.95047);
  const double y = root(xyz[1]);
  const double z = root(xyz[2] / 1.08883);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

constexpr double radians(double degrees) { return degrees * std::numbers::pi / 180; }

double seventhPower(double chroma) { return std::pow(chroma, 7); }

// sqrt(C^7 / (C^7 + 25^7)), which occurs twice in the formula.
double chromaShare(double chroma) {
  return std::sqrt(seventhPower(chroma) / (seventhPower(chroma) + seventhPower(25)));
}

double hueOf(double a, double b) {
  if (a == 0.0 && b == 0.0) return 0.0;
  const double degrees = std::atan2(b, a) * 180 / std::numbers::pi;
  return degrees < 0 ? degrees + 360 : degrees;
}

double meanHue(double first, double second, bool anyGray) {
  if (anyGray) return first + second;
  if (std::abs(first - second) <= 180) return (first + second) / 2;
  return (first + second + (first + second < 360 ? 360 : -360)) / 2;
}

double ciede2000(const Lab& first, const Lab& second) {
  const double meanOfChroma = (std::hypot(first.a, first.b) + std::hypot(second.a, second.b)) / 2;
  const double stretch = 1.5 - 0.5 * chromaShare(meanOfChroma);
  const double chroma1 = std::hypot(first.a * stretch, first.b);
  const double chroma2 = std::hypot(second.a * stretch, second.b);
  const double hue1 = hueOf(first.a * stretch, first.b);
  const double hue2 = hueOf(second.a * stretch, second.b);
  const bool anyGray = chroma1 * chroma2 == 0.0;
  const double turn = anyGray ? 0.0 : std::remainder(hue2 - hue1, 360.0);
  const double byHue = 2 * std::sqrt(chroma1 * chroma2) * std::sin(radians(turn / 2));
  const double lightness = (first.lightness + second.lightness) / 2;
  const double chroma = (chroma1 + chroma2) / 2;
  const double hue = meanHue(hue1, hue2, anyGray);
  const double t = 1 - 0.17 * std::cos(radians(hue - 30)) + 0.24 * std::cos(radians(2 * hue)) +
                   0.32 * std::cos(radians(3 * hue + 6)) - 0.20 * std::cos(radians(4 * hue - 63));
  const double middle = (lightness - 50) * (lightness - 50);
  const double dL =
      (second.lightness - first.lightness) / (1 + 0.015 * middle / std::sqrt(20 + middle));
  const double dC = (chroma2 - chroma1) / (1 + 0.045 * chroma);
  const double dH = byHue / (1 + 0.015 * chroma * t);
  const double toBlue = (hue - 275) / 25;
  const double rotation =
      -std::sin(radians(60 * std::exp(-toBlue * toBlue))) * 2 * chromaShare(chroma);
  return std::sqrt(dL * dL + dC * dC + dH * dH + rotation * dC * dH);
}

}  // namespace

double luminanceOf(const Color& color) {
  const Triple light = lightOf(color);
  return 0.2126 * light[0] + 0.7152 * light[1] + 0.0722 * light[2];
}

double contrastOf(const Color& first, const Color& second) {
  const auto [least, most] = std::minmax({luminanceOf(first), luminanceOf(second)});
  return (most + flare) / (least + flare);
}

double distanceOf(const Color& first, const Color& second) {
  return ciede2000(labOf(first), labOf(second));
}

Color asSeen(const Color& color, ColorVision vision) {
  constexpr Matrix protan{{{0.152286, 1.052583, -0.204868},
                           {0.114503, 0.786281, 0.099216},
                           {-0.003882, -0.048116, 1.051998}}};
  constexpr Matrix deutan{{{0.367322, 0.860646, -0.227968},
                           {0.280085, 0.672501, 0.047413},
                           {-0.011820, 0.042940, 0.968881}}};
  constexpr Matrix tritan{{{1.255528, -0.076749, -0.178779},
                           {-0.078411, 0.930809, 0.147602},
                           {0.004733, 0.691367, 0.303900}}};
  switch (vision) {
    case ColorVision::protanope:
      return colorOf(product(protan, lightOf(color)), color.alpha);
    case ColorVision::deuteranope:
      return colorOf(product(deutan, lightOf(color)), color.alpha);
    case ColorVision::tritanope:
      return colorOf(product(tritan, lightOf(color)), color.alpha);
    case ColorVision::normal:
      break;
  }
  return color;
}

Color mixedInLight(const Color& first, const Color& second, double share) {
  const Triple from = lightOf(first);
  const Triple to = lightOf(second);
  Triple light{};
  for (std::size_t i = 0; i < 3; ++i) light[i] = from[i] + (to[i] - from[i]) * share;
  return colorOf(light, first.alpha);
}

Color mixedToContrast(const Color& fill, const Color& ink, double contrast) {
  const double from = luminanceOf(fill);
  const double to = luminanceOf(ink);
  const double wanted =
      to < from ? (from + flare) / contrast - flare : (from + flare) * contrast - flare;
  // The luminance of a mixture is proportional to the share.
  const double share = to == from ? 1.0 : (wanted - from) / (to - from);
  return mixedInLight(fill, ink, std::clamp(share, 0.0, 1.0));
}

}  // namespace orivanta
