#include "Apps/Package/Model.hpp"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "Apps/Package/Numbers.hpp"
#include "Apps/Package/Units.hpp"

namespace orivanta::package {

namespace {

constexpr double textureMeters = 4.0;

// Rounds to a multiple of 1 / `steps` and avoids negative zero.
double rounded(double value, double steps) {
  const double near = std::round(value * steps) / steps;
  return near == 0.0 ? 0.0 : near;
}

using Values = std::array<double, 3>;

std::size_t hashOf(const Values& values) {
  std::uint64_t hash = 0;
  for (const double value : values) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    hash = (hash ^ (bits >> 20U)) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 32U;
  }
  return hash;
}

// The slot of a hash table that contains the number of the values, or else the empty one for it.
std::size_t slotOf(const std::vector<std::uint32_t>& numbers, const std::vector<Values>& known,
                   const Values& values) {
  std::size_t slot = hashOf(values) & (numbers.size() - 1);
  while (numbers[slot] != 0 && known[numbers[slot] - 1] != values)
    slot = (slot + 1) & (numbers.size() - 1);
  return slot;
}

}  // namespace

void Model::Lines::grow() {
  constexpr std::size_t first = 64;
  numbers_.assign(std::max(first, 2 * numbers_.size()), 0);
  for (std::size_t i = 0; i < values_.size(); ++i)
    numbers_[slotOf(numbers_, values_, values_[i])] = static_cast<std::uint32_t>(i + 1);
}

std::size_t Model::Lines::number(const Values& values) {
  if (2 * values_.size() >= numbers_.size()) grow();
  std::uint32_t& number = numbers_[slotOf(numbers_, values_, values)];
  if (number != 0) return number;
  values_.push_back(values);
  number = static_cast<std::uint32_t>(values_.size());
  text_ += keyword_;
  for (std::size_t i = 0; i < count_; ++i) {
    text_ += ' ';
    appendNumber(text_, values[i]);
  }
  text_ += '\n';
  return number;
}

void Model::use(const Material& material) {
  const auto [known, isNew] = groupsByName_.emplace(material.name, groups_.size());
  current_ = known->second;
  if (isNew) groups_.push_back({material, {}});
}

// Computes the normal with Newell's method. Coordinates are in units.
void Model::face(std::span<const Corner> corners) {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Corner& a = corners[i];
    const Corner& b = corners[i + 1 < corners.size() ? i + 1 : 0];
    x += (a.plan.y - b.plan.y) * unitsPerMeter_ * (a.height + b.height);
    y += (a.height - b.height) * (a.plan.x + b.plan.x) * unitsPerMeter_;
    z += (a.plan.x - b.plan.x) * (a.plan.y + b.plan.y) * unitsPerMeter_ * unitsPerMeter_;
  }
  const double size = std::sqrt(x * x + y * y + z * z);
  if (size < 1e-9) return;
  const std::size_t normal =
      normals_.number({rounded(x / size, 1e4), rounded(y / size, 1e4), rounded(z / size, 1e4)});
  Group& group = groups_[current_];
  const auto end = std::back_inserter(group.faces);
  group.faces += 'f';
  for (const Corner& corner : corners) {
    const std::size_t vertex = vertices_.number({roundedUnits(corner.plan.x * unitsPerMeter_),
                                                 roundedUnits(corner.plan.y * unitsPerMeter_),
                                                 rounded(corner.height, 1e3)});
    if (group.material.texture.empty()) {
      fmt::format_to(end, FMT_COMPILE(" {}//{}"), vertex, normal);
    } else {
      const std::size_t coordinates =
          textureCoordinates_.number({rounded(corner.plan.x / textureMeters, 1e4),
                                      rounded(corner.plan.y / textureMeters, 1e4), 0.0});
      fmt::format_to(end, FMT_COMPILE(" {}/{}/{}"), vertex, coordinates, normal);
    }
  }
  group.faces += '\n';
}

void Model::wall(Corner from, Corner to, double bottom) {
  face(std::array<Corner, 4>{{{from.plan, bottom}, {to.plan, bottom}, to, from}});
}

void Model::top(const Outline& outline, double height) {
  std::vector<Corner> corners;
  corners.reserve(outline.size());
  for (const Point point : outline) corners.push_back({point, height});
  face(corners);
}

void Model::side(Point from, Point to, double bottom, double top) {
  wall({from, top}, {to, top}, bottom);
}

void Model::walls(const Outline& outline, double from, double to) {
  for (std::size_t i = 0; i < outline.size(); ++i)
    wall({outline[i], to}, {outline[(i + 1) % outline.size()], to}, from);
}

void Model::prism(const Outline& outline, double from, double to) {
  walls(outline, from, to);
  top(outline, to);
}

void Model::slope(const Outline& outline, double from, const Height& height) {
  std::vector<Corner> corners;
  corners.reserve(outline.size());
  for (const Point point : outline) corners.push_back({point, height(point)});
  for (std::size_t i = 0; i < corners.size(); ++i)
    wall(corners[i], corners[(i + 1) % corners.size()], from);
  face(corners);
}

void Model::frustum(const Outline& lower, double from, const Outline& upper, double to) {
  for (std::size_t i = 0; i < lower.size(); ++i) {
    const std::size_t next = (i + 1) % lower.size();
    face(std::array<Corner, 4>{
        {{lower[i], from}, {lower[next], from}, {upper[next], to}, {upper[i], to}}});
  }
}

std::string Model::obj(std::string_view library) const {
  std::string text = fmt::format(
      "# x to the east, y to the north, z up; {} units per meter\n"
      "mtllib {}\n",
      unitsPerMeter_, library);
  text += vertices_.text() + textureCoordinates_.text() + normals_.text();
  for (const Group& group : groups_)
    if (!group.faces.empty())
      text += fmt::format("g {0}\nusemtl {0}\n{1}", group.material.name, group.faces);
  return text;
}

std::string Model::mtl() const {
  std::string text;
  for (const Group& group : groups_) {
    const Color& look = group.material.color;
    text += fmt::format("newmtl {}\nKa 0 0 0\nKd {} {} {}\nKs 0 0 0\nd 1\nillum 1\n",
                        group.material.name, rounded(look.red, 1e3), rounded(look.green, 1e3),
                        rounded(look.blue, 1e3));
    if (!group.material.texture.empty()) text += fmt::format("map_Kd {}\n", group.material.texture);
    text += '\n';
  }
  return text;
}

}  // namespace orivanta::package
