#include "Benchmarks/WrittenModel.hpp"

#include <fmt/format.h>

#include <cmath>
#include <iterator>

namespace orivanta::benchmarks {

namespace {

std::back_insert_iterator<std::string> out(std::string& text) { return std::back_inserter(text); }

}  // namespace

WrittenModel::WrittenModel(int floors) {
  for (int floor = 0; floor < floors; ++floor)
    for (int room = 0; room < roomsOfFloor; ++room) addRoom(floor, room);
  file_ = folder_.write("model.obj", text_);
  folder_.write("model.mtl", library_);
  bytes_ = static_cast<std::int64_t>(text_.size() + library_.size());
  text_ = {};
}

void WrittenModel::addRoom(int floor, int room) {
  const std::string name = fmt::format("room-{}-{}", floor, room);
  fmt::format_to(out(library_), "newmtl {}\nKd 0.8 0.{} 0.7\n", name, room % 10);
  fmt::format_to(out(text_), "usemtl {}\n", name);
  for (const double height : {0.0, 2.5})
    for (int side = 0; side < sides; ++side) addCorner(10.0 * room, 4.0 * floor + height, side);
  addFaces();
}

void WrittenModel::addCorner(double x, double z, int side) {
  const double angle = 2.0 * 3.14159265 * side / sides;
  const double radius = side % 2 == 0 ? 4.0 : 2.5;
  fmt::format_to(out(text_), "v {:.3f} {:.3f} {:.3f}\n",
                 x + radius * std::cos(angle) + jitter_(random_), radius * std::sin(angle), z);
  fmt::format_to(out(text_), "vt {:.4f} {:.4f}\nvn {:.3f} {:.3f} 0\n", radius, angle,
                 std::cos(angle), std::sin(angle));
}

void WrittenModel::addFaces() {
  const auto corner = [&](int side, int normal) {
    return fmt::format(" {0}/{0}/{1}", first_ + side, first_ + normal);
  };
  for (int side = 0; side < sides; ++side) {
    const int next = (side + 1) % sides;
    text_ += 'f';
    for (const int at : {side, next, next + sides, side + sides}) text_ += corner(at, side);
    text_ += '\n';
  }
  for (int end = 0; end < 2; ++end) {
    text_ += 'f';
    for (int side = 0; side < sides; ++side)
      text_ += corner(end == 0 ? sides - 1 - side : sides + side, 0);
    text_ += '\n';
  }
  first_ += 2 * sides;
}

}  // namespace orivanta::benchmarks
