#include "Platform/Scene/Shapes.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <glm/geometric.hpp>
#include <glm/gtc/constants.hpp>
#include <glm/vec2.hpp>
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

/// Collects the triangles of a shape that has one element.
class Mesh {
 public:
  /// A convex polygon, its corners counter-clockwise as seen from outside.
  void addPolygon(const std::vector<Corner>& corners) {
    const auto first = static_cast<std::uint32_t>(corners_.size());
    corners_.insert(corners_.end(), corners.begin(), corners.end());
    for (std::uint32_t i = 2; i < corners.size(); ++i)
      indices_.insert(indices_.end(), {first, first + i - 1, first + i});
  }

  std::shared_ptr<Geometry> geometry() const {
    return Geometry::make(bytesOf(corners_), {{.data = bytesOf(indices_), .bytesPerIndex = 4}});
  }

 private:
  template <class Value>
  static SharedBytes bytesOf(const std::vector<Value>& values) {
    const auto bytes = std::as_bytes(std::span(values));
    return std::make_shared<const std::vector<std::byte>>(bytes.begin(), bytes.end());
  }

  std::vector<Corner> corners_;
  std::vector<std::uint32_t> indices_;
};

/// Twice the area that the outline surrounds; negative when it runs clockwise.
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

/// The side below the edge from a to b of a counter-clockwise outline.
std::vector<Corner> makeSide(const Point& a, const Point& b, double depth) {
  const double length = std::hypot(b.x - a.x, b.y - a.y);
  const Vector3 normal =
      length > 0 ? vector({(b.y - a.y) / length, (a.x - b.x) / length}, 0) : Vector3(0.0F);
  return {{vector(a, -depth / 2), normal, {0, 0}},
          {vector(b, -depth / 2), normal, {1, 0}},
          {vector(b, depth / 2), normal, {1, 1}},
          {vector(a, depth / 2), normal, {0, 1}}};
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
  return mesh.geometry();
}

std::shared_ptr<Geometry> makeCylinder(double radius, double height) {
  constexpr int segments = 48;
  const auto outwards = [](int segment) {
    const double angle = glm::two_pi<double>() * (segment % segments) / segments;
    return Vector3(std::sin(angle), 0, std::cos(angle));
  };
  const auto width = static_cast<float>(radius);
  const Vector3 up(0, height / 2, 0);
  Mesh mesh;
  std::vector<Corner> top;
  std::vector<Corner> bottom;
  for (int i = 0; i < segments; ++i) {
    const Vector3 from = outwards(i);
    const Vector3 to = outwards(i + 1);
    const float u = static_cast<float>(i) / segments;
    const float nextU = static_cast<float>(i + 1) / segments;
    mesh.addPolygon({{from * width - up, from, {u, 0}},
                     {to * width - up, to, {nextU, 0}},
                     {to * width + up, to, {nextU, 1}},
                     {from * width + up, from, {u, 1}}});
    const Vector3 opposite = outwards(segments - i);
    top.push_back({from * width + up, {0, 1, 0}, {0.5F + from.x / 2, 0.5F - from.z / 2}});
    bottom.push_back(
        {opposite * width - up, {0, -1, 0}, {0.5F + opposite.x / 2, 0.5F + opposite.z / 2}});
  }
  mesh.addPolygon(top);
  mesh.addPolygon(bottom);
  return mesh.geometry();
}

std::shared_ptr<Geometry> makeFloor() {
  constexpr double end = 10'000;
  const Point corners[] = {{-end, -end}, {end, -end}, {end, end}, {-end, end}};
  Mesh mesh;
  mesh.addPolygon(makeFace(corners, 0, {0, 0, 1}));
  return mesh.geometry();
}

}  // namespace orivanta::scene
