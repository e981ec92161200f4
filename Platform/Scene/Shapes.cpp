#include "Platform/Scene/Shapes.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <glm/geometric.hpp>
#include <glm/gtc/constants.hpp>
#include <glm/vec2.hpp>
#include <map>
#include <mutex>
#include <utility>

namespace orivanta::scene {

using graphics::Point;
using graphics::Vector3;

namespace {

struct Corner {
  Vector3 position;
  Vector3 normal;
  glm::vec2 textureCoordinate;
};
static_assert(sizeof(Corner) == 8 * sizeof(float));

/// Collects the triangles of a shape with one element.
class Mesh {
 public:
  /// Adds a convex polygon, counterclockwise as seen from outside. It is divided into compact
  /// triangles instead of a fan, whose thin triangles take longer to draw.
  void addPolygon(const std::vector<Corner>& corners) {
    const auto first = static_cast<std::uint32_t>(corners_.size());
    corners_.insert(corners_.end(), corners.begin(), corners.end());
    addTriangles(first, first + static_cast<std::uint32_t>(corners.size()) - 1);
  }

  std::shared_ptr<Geometry> geometry() const {
    return Geometry::make(bytesOf(corners_), {{.data = bytesOf(indices_), .bytesPerIndex = 4}});
  }

 private:
  // Fills the area between a chord and the corners that it skips.
  void addTriangles(std::uint32_t from, std::uint32_t to) {
    if (to < from + 2) return;
    const std::uint32_t middle = (from + to) / 2;
    addTriangles(from, middle);
    indices_.insert(indices_.end(), {from, middle, to});
    addTriangles(middle, to);
  }

  template <class Value>
  static SharedBytes bytesOf(const std::vector<Value>& values) {
    const auto bytes = std::as_bytes(std::span(values));
    return std::make_shared<const std::vector<std::byte>>(bytes.begin(), bytes.end());
  }

  std::vector<Corner> corners_;
  std::vector<std::uint32_t> indices_;
};

/// Twice the area inside the outline; negative if it is clockwise.
double doubleArea(std::span<const Point> outline) {
  double sum = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Point& a = outline[i];
    const Point& b = outline[(i + 1) % outline.size()];
    sum += a.x * b.y - b.x * a.y;
  }
  return sum;
}

Vector3 vector(const Point& point, double z) {
  return {static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(z)};
}

std::vector<Corner> makeFace(std::span<const Point> outline, double z, const Vector3& normal) {
  graphics::Box box;
  for (const Point& point : outline) box.add(vector(point, z));
  const Vector3 size = box.max - box.min;
  const auto share = [](float offset, float length) { return length > 0 ? offset / length : 0; };
  std::vector<Corner> face;
  for (const Point& point : outline) {
    const Vector3 position = vector(point, z);
    const Vector3 offset = position - box.min;
    face.push_back({position, normal, {share(offset.x, size.x), share(offset.y, size.y)}});
  }
  return face;
}

/// The side face below the edge from a to b of a counterclockwise outline.
std::vector<Corner> makeSide(const Point& a, const Point& b, double depth) {
  const double length = std::hypot(b.x - a.x, b.y - a.y);
  const Vector3 normal =
      length > 0 ? vector({(b.y - a.y) / length, (a.x - b.x) / length}, 0) : Vector3(0.0F);
  return {{vector(a, -depth / 2), normal, {0, 0}},
          {vector(b, -depth / 2), normal, {1, 0}},
          {vector(b, depth / 2), normal, {1, 1}},
          {vector(a, depth / 2), normal, {0, 1}}};
}

/// Only the face, halfway between front and back.
std::shared_ptr<Geometry> makeFlat(std::span<const Point> outline) {
  Mesh mesh;
  mesh.addPolygon(makeFace(outline, 0, {0, 0, 1}));
  return mesh.geometry();
}

constexpr int finestCylinder = 48;  // number of sides

Vector3 towardSide(int side, int sides) {
  const double angle = glm::two_pi<double>() * (side % sides) / sides;
  return Vector3(std::sin(angle), 0, std::cos(angle));
}

/// A corner of a cylinder's cap, whose normal points along y.
Corner capCorner(const Vector3& outward, float radius, float y, float normal) {
  return {{outward.x * radius, y, outward.z * radius},
          {0, normal, 0},
          {0.5F + outward.x / 2, 0.5F - outward.z / 2}};
}

std::shared_ptr<Geometry> makeCylinderOf(int sides, float radius, float height) {
  const Vector3 up(0, height / 2, 0);
  Mesh mesh;
  std::vector<Corner> top;
  std::vector<Corner> bottom;
  for (int i = 0; i < sides; ++i) {
    const Vector3 from = towardSide(i, sides);
    const Vector3 to = towardSide(i + 1, sides);
    const float u = static_cast<float>(i) / static_cast<float>(sides);
    const float nextU = static_cast<float>(i + 1) / static_cast<float>(sides);
    mesh.addPolygon({{from * radius - up, from, {u, 0}},
                     {to * radius - up, to, {nextU, 0}},
                     {to * radius + up, to, {nextU, 1}},
                     {from * radius + up, from, {u, 1}}});
    top.push_back(capCorner(from, radius, up.y, 1));
    bottom.push_back(capCorner(towardSide(sides - i, sides), radius, -up.y, -1));
  }
  mesh.addPolygon(top);
  mesh.addPolygon(bottom);
  return mesh.geometry();
}

std::shared_ptr<Geometry> makeDisc(int sides, float radius) {
  Mesh mesh;
  std::vector<Corner> corners;
  corners.reserve(static_cast<std::size_t>(sides));
  for (int i = 0; i < sides; ++i) corners.push_back(capCorner(towardSide(i, sides), radius, 0, 1));
  mesh.addPolygon(corners);
  return mesh.geometry();
}

/// The number of sides for which the distance to the circle stays within the tolerance.
int sidesWithin(float tolerance, float radius) {
  if (!(tolerance < radius)) return 6;
  const double sides = glm::pi<double>() / std::acos(1.0 - tolerance / radius);
  return static_cast<int>(std::clamp(std::ceil(sides), 6.0, double{finestCylinder}));
}

/// A cylinder with the maximum number of sides. Equal consecutive cylinders, such as the caps of a
/// route, share their data.
std::shared_ptr<Geometry> makeSharedCylinder(float radius, float height) {
  static std::mutex mutex;
  static std::map<std::pair<float, float>, std::weak_ptr<Geometry>> last;
  const std::lock_guard lock(mutex);
  for (auto entry = last.begin(); entry != last.end();)
    entry = entry->second.expired() ? last.erase(entry) : std::next(entry);
  auto& known = last[{radius, height}];
  const auto alike = known.lock();
  auto geometry = alike ? Geometry::make(alike->sources(), alike->elements())
                        : makeCylinderOf(finestCylinder, radius, height);
  known = geometry;
  return geometry;
}

}  // namespace

std::shared_ptr<Geometry> makeExtrusion(std::span<const Point> outline, double depth) {
  Mesh mesh;
  if (outline.size() < 3) return mesh.geometry();
  std::vector<Point> points(outline.begin(), outline.end());
  if (doubleArea(points) < 0) std::reverse(points.begin(), points.end());

  mesh.addPolygon(makeFace(points, depth / 2, {0, 0, 1}));
  for (std::size_t i = 0; i < points.size(); ++i)
    mesh.addPolygon(makeSide(points[i], points[(i + 1) % points.size()], depth));
  std::reverse(points.begin(), points.end());
  mesh.addPolygon(makeFace(points, -depth / 2, {0, 0, -1}));
  auto geometry = mesh.geometry();
  std::reverse(points.begin(), points.end());
  geometry->setSimplification([points = std::move(points), depth](float tolerance) {
    return tolerance < depth / 2 ? nullptr : makeFlat(points);
  });
  return geometry;
}

std::shared_ptr<Geometry> makeCylinder(double radius, double height) {
  const auto width = static_cast<float>(radius);
  const auto length = static_cast<float>(height);
  auto geometry = makeSharedCylinder(width, length);
  geometry->setSimplification([width, length](float tolerance) -> std::shared_ptr<const Geometry> {
    const int sides = sidesWithin(tolerance, width);
    if (tolerance >= length / 2) return makeDisc(sides, width);
    return sides < finestCylinder ? makeCylinderOf(sides, width, length) : nullptr;
  });
  return geometry;
}

std::shared_ptr<Geometry> makeFloor() {
  constexpr double end = 10'000;
  const Point corners[] = {{-end, -end}, {end, -end}, {end, end}, {-end, end}};
  Mesh mesh;
  mesh.addPolygon(makeFace(corners, 0, {0, 0, 1}));
  return mesh.geometry();
}

}  // namespace orivanta::scene
