#include <algorithm>
#include <functional>
#include <glm/geometric.hpp>
#include <glm/mat4x4.hpp>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Rigid.hpp"
#include "Platform/Scene/Scene.hpp"
#include "Platform/Scene/Walk.hpp"

namespace orivanta::scene {

using graphics::Matrix4;
using graphics::Vector3;

namespace {

/// Positions along a ray are fractions of its direction, from 0 to 1.
struct PreciseRay {
  glm::dvec3 origin;
  glm::dvec3 direction;
};

/// How far a point may lie outside a triangle or a box, relative to its size or to the ray's
/// length, so that a ray through the shared edge of two triangles hits one of them.
constexpr double tolerance = 1e-9;

PreciseRay toLocal(const Ray& ray, const Matrix4& transform) {
  const glm::dmat4 toLocal(inverseOfRigid(transform));
  return {toLocal * glm::dvec4(ray.origin, 1.0), toLocal * glm::dvec4(ray.direction, 0.0)};
}

/// The slab method of Kay and Kajiya.
bool meets(const PreciseRay& ray, const graphics::Box& box) {
  if (box.isEmpty()) return false;
  double first = 0;
  double last = 1;
  for (glm::length_t axis = 0; axis < 3; ++axis) {
    const double before = static_cast<double>(box.min[axis]) - ray.origin[axis];
    const double behind = static_cast<double>(box.max[axis]) - ray.origin[axis];
    if (ray.direction[axis] == 0) {
      if (before > 0 || behind < 0) return false;
      continue;
    }
    const auto [enter, leave] =
        std::minmax({before / ray.direction[axis], behind / ray.direction[axis]});
    first = std::max(first, enter);
    last = std::min(last, leave);
  }
  return first <= last + tolerance;
}

/// Intersects the ray with a triangle from either side (Möller and Trumbore).
std::optional<double> distance(const PreciseRay& ray, const glm::dvec3& a, const glm::dvec3& b,
                               const glm::dvec3& c) {
  const glm::dvec3 ab = b - a;
  const glm::dvec3 ac = c - a;
  const glm::dvec3 across = glm::cross(ray.direction, ac);
  const double determinant = glm::dot(ab, across);
  if (determinant == 0) return std::nullopt;
  const glm::dvec3 fromA = ray.origin - a;
  const double u = glm::dot(fromA, across) / determinant;
  if (!(u >= -tolerance && u <= 1 + tolerance)) return std::nullopt;
  const glm::dvec3 turned = glm::cross(fromA, ab);
  const double v = glm::dot(ray.direction, turned) / determinant;
  if (!(v >= -tolerance && u + v <= 1 + tolerance)) return std::nullopt;
  const double t = glm::dot(ac, turned) / determinant;
  if (!(t >= 0 && t <= 1)) return std::nullopt;
  return t;
}

std::optional<double> nearest(const PreciseRay& ray, const GeometrySource& vertices,
                              const GeometryElement& element) {
  std::optional<double> result;
  const auto corner = [&](std::size_t i) { return glm::dvec3(vertices.vector(element.index(i))); };
  for (std::size_t i = 0, count = element.indexCount(); i + 2 < count; i += 3) {
    const auto t = distance(ray, corner(i), corner(i + 1), corner(i + 2));
    if (t && (!result || *t < *result)) result = t;
  }
  return result;
}

void addHits(std::vector<Hit>& hits, const Ray& ray, Node& node, const Matrix4& transform) {
  const auto geometry = node.geometry();
  if (!geometry) return;
  const PreciseRay local = toLocal(ray, transform);
  if (!meets(local, geometry->boundingBox())) return;
  const GeometrySource& vertices = *geometry->source(Semantic::vertex);
  for (std::size_t i = 0; i < geometry->elements().size(); ++i)
    if (const auto t = nearest(local, vertices, geometry->elements()[i])) {
      const auto distance = static_cast<float>(*t);
      hits.push_back({node.shared_from_this(), i, ray.origin + ray.direction * distance, distance});
    }
}

// Sorts by distance. Among hits at the same distance within rounding, later nodes come first,
// because they are drawn over earlier ones.
std::vector<Hit> inOrderOfSight(std::vector<Hit> hits) {
  constexpr float rounding = 2 * std::numeric_limits<float>::epsilon();
  std::vector<std::size_t> places(hits.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  foundation::stableSort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) {
    return hits[a].distance < hits[b].distance;
  });
  for (auto first = places.begin(); first != places.end();) {
    const float farthest = hits[*first].distance + rounding;
    const auto end = std::find_if(
        first, places.end(), [&](std::size_t place) { return hits[place].distance > farthest; });
    std::sort(first, end, std::greater<>());
    first = end;
  }
  std::vector<Hit> ordered;
  ordered.reserve(hits.size());
  for (const std::size_t place : places) ordered.push_back(std::move(hits[place]));
  return ordered;
}

}  // namespace

std::vector<Hit> hitTest(const Scene& scene, const Ray& ray) {
  std::vector<Hit> hits;
  Node& root = *scene.rootNode();
  walk(root, root.transform(), [&](Node& node, const Matrix4& transform) {
    if (node.isHidden()) return false;
    addHits(hits, ray, node, transform);
    return true;
  });
  return inOrderOfSight(std::move(hits));
}

}  // namespace orivanta::scene
