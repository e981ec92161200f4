#include "Apps/DemoVenue/Pictures.hpp"

#include <cmath>
#include <numbers>
#include <string>

#include "Apps/DemoVenue/Palette.hpp"
#include "Apps/Package/Picture.hpp"
#include "Apps/Package/Sign.hpp"
#include "Apps/Package/Symbols.hpp"

namespace orivanta::demo {

namespace {

using package::Picture;

// A pseudorandom number from 0 to 1 that depends only on the arguments.
double noise(int x, int y) {
  unsigned bits = static_cast<unsigned>(x) * 0x9E3779B1U ^ static_cast<unsigned>(y) * 0x85EBCA77U;
  bits = (bits ^ (bits >> 15U)) * 0x2C1B3C6DU;
  bits = (bits ^ (bits >> 12U)) * 0x297A2D39U;
  return static_cast<double>((bits ^ (bits >> 15U)) & 0xFFFFU) / 65535.0;
}

// Stone slabs, four per side, with thin joints.
Color tile(int x, int y) {
  constexpr int slab = 32;
  if (x % slab == 0 || y % slab == 0) return color(0xE0DBD1);
  const double tone = 0.65 * noise(x / slab, y / slab) + 0.35 * noise(x, y);
  return mixed(color(0xF1EEE7), color(0xEAE5DB), tone);
}

// Planks along x, with dark gaps and butt joints.
Color plank(int x, int y) {
  constexpr int width = 16;
  const int row = y / width;
  const int joint = (row * 40) % 128;
  if (y % width == 0 || (x % 128) == joint) return color(0xA88763);
  const double grain = 0.5 * noise(row, 7) + 0.3 * noise(x / 16, y) + 0.2 * noise(x, y);
  return mixed(color(0xD9BB93), color(0xC4A178), grain);
}

// The edges of escalator steps, half a meter apart, for an escalator along x.
Color step(int x, int) {
  const int across = x % 16;
  if (across < 2) return color(0x7F8791);
  return mixed(color(0xC9CED4), color(0xB4BBC3), across / 15.0);
}

// The venue's logo: the rings of an astrolabe, its star pointer and the arc of the horizon.
Picture logo(int size) {
  Picture picture(size, size, palette::night, 0.0);
  const double radius = size / 2.0;
  const Point middle = {radius, radius};
  const auto ring = [&](Point center, double outer, double inner, Color look) {
    picture.paint(
        [=](Point point) {
          const double away = distance(point, center) / radius;
          return away < outer && away >= inner && distance(point, middle) < radius * 0.98;
        },
        look);
  };
  ring(middle, 0.98, 0.0, palette::night);
  ring(middle, 0.90, 0.82, palette::brass);
  ring(middle, 0.58, 0.53, palette::brass);
  ring({radius, radius * 1.28}, 0.62, 0.575, mixed(palette::brass, palette::night, 0.35));
  const auto star = [&](double reach, double waist, double turn) {
    Outline points;
    for (int i = 0; i < 8; ++i) {
      const double angle = turn + std::numbers::pi * i / 4.0;
      const double away = radius * (i % 2 == 0 ? reach : waist);
      points.push_back(middle + Point{away * std::sin(angle), -away * std::cos(angle)});
    }
    return points;
  };
  picture.fill(star(0.40, 0.10, std::numbers::pi / 4.0), color(0xE9D6A4));
  picture.fill(star(0.80, 0.12, 0.0), color(0xFBF3DC));
  ring(middle, 0.09, 0.0, palette::night);
  return picture;
}

// The ground floor seen from above, at night.
Picture cover(const Plan& plan) {
  constexpr int width = 1024;
  constexpr int height = 512;
  Picture picture(width, height, palette::night);
  picture.shade([](int x, int y) {
    const Color sky = mixed(color(0x16213B), color(0x35507A), y / double{height});
    const bool star = noise(x, y) > 0.9985;
    return star ? mixed(sky, color(0xFBF3DC), 0.7) : sky;
  });
  constexpr double scale = 2.75;
  const auto onPicture = [&](const Outline& outline) {
    Outline moved;
    for (const Point point : outline)
      moved.push_back({width / 2.0 + (point.x + 6.0) * scale, height / 2.0 - point.y * scale});
    return moved;
  };
  const Floor& floor = plan.floors.front();
  for (const Walkway& walkway : floor.walkways)
    picture.fill(onPicture(walkway.outline), color(0xEFE7D6));
  for (const Outline& inlay : floor.inlays) picture.fill(onPicture(inlay), palette::brass);
  for (const Place& place : floor.places)
    picture.fill(onPicture(place.shape.outline), placeColor(plan, place));
  for (const Connector& connector : plan.connectors)
    for (const Stop& stop : connector.stops)
      if (stop.floor == floor.id) picture.fill(onPicture(stop.outline), palette::shaft);
  return picture;
}

}  // namespace

void writeTextures(const std::filesystem::path& folder) {
  constexpr int size = 128;
  Picture picture(size, size, palette::paving);
  picture.shade(tile);
  picture.write(folder / "tiles.png");
  picture.shade(plank);
  picture.write(folder / "deck.png");
  picture.shade(step);
  picture.write(folder / "steps.png");
}

void writeImages(const Plan& plan, const std::filesystem::path& folder) {
  for (const int size : {64, 128, 256})
    logo(size).write(folder / ("logo-" + std::to_string(size) + ".png"));
  cover(plan).write(folder / "cover.png");
}

std::string signName(std::string_view category, const Rendition& rendition) {
  return std::string(category) + '-' + std::to_string(rendition.width) + ".png";
}

void writeSigns(const Plan& plan, const std::filesystem::path& folder) {
  for (const Category& category : plan.categories) {
    const auto symbol = package::symbolOf(category.id);
    if (symbol.empty()) continue;
    for (const Rendition& rendition : renditions)
      package::makeSign(categoryColor(plan, category.id), palette::night, symbol, rendition.width)
          .write(folder / signName(category.id, rendition));
  }
}

}  // namespace orivanta::demo
