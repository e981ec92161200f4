#include "Benchmarks/WrittenModel.hpp"

#include <fmt/format.h>

#include <cmath>
#include <iterator>
#include <vector>

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
  std::vector<graphics::Point> outline;
  for (int side = 0; side < sides; ++side) {
    const double angle = 2.0 * 3.14159265 * side / sides;
    const double radius = (side % 2 == 0 ? 4.0 : 2.5) + jitter_(random_);
    outline.push_back({10.0 * (room % 50) + radius * std::cos(angle),
                       10.0 * static_cast<int>(room / 50) + radius * std::sin(angle)});
  }
  for (const double height : {0.0, 2.5})
    for (const auto& corner : outline) addCorner(corner, 4.0 * floor + height);
  for (int side = 0; side < sides; ++side)
    addWallNormal(outline[static_cast<std::size_t>(side)],
                  outline[static_cast<std::size_t>((side + 1) % sides)]);
  text_ += "vn 0 0 -1\nvn 0 0 1\n";
  addFaces();
}

void WrittenModel::addCorner(const graphics::Point& at, double height) {
  fmt::format_to(out(text_), "v {:.3f} {:.3f} {:.3f}\nvt {:.4f} {:.4f}\n", at.x, at.y, height,
                 at.x / 10, at.y / 10);
}

void WrittenModel::addWallNormal(const graphics::Point& from, const graphics::Point& to) {
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  fmt::format_to(out(text_), "vn {:.5f} {:.5f} 0\n", (to.y - from.y) / length,
                 (from.x - to.x) / length);
}

// Adds walls, then floor and ceiling.
void WrittenModel::addFaces() {
  const auto corner = [&](int vertex, int normal) {
    return fmt::format(" {0}/{0}/{1}", firstVertex_ + vertex, firstNormal_ + normal);
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
      text_ += corner(end == 0 ? sides - 1 - side : sides + side, sides + end);
    text_ += '\n';
  }
  firstVertex_ += 2 * sides;
  firstNormal_ += sides + 2;
}

}  // namespace orivanta::benchmarks
