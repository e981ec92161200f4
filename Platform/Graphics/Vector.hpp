// Vectors, matrices and boxes of space, in single precision.
// Public header.
#pragma once

#include <algorithm>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <glm/vec4.hpp>
#include <limits>

namespace orivanta::graphics {

/// A vector or a point of three components.
using Vector3 = glm::vec3;

/// A vector of four components.
using Vector4 = glm::vec4;

/// Column vectors: the product `a * b` applies b first. Columns are stored one after the other.
using Matrix4 = glm::mat4;

/// An axis-aligned box. The box of nothing has its smallest corner above its largest.
struct Box {
  Vector3 min{std::numeric_limits<float>::max()};     ///< the smallest coordinates
  Vector3 max{std::numeric_limits<float>::lowest()};  ///< the largest coordinates

  /// Whether the box contains no point.
  bool isEmpty() const { return min.x > max.x || min.y > max.y || min.z > max.z; }

  /// The point in the middle. Meaningless if the box is empty.
  Vector3 centre() const { return (min + max) * 0.5F; }

  /// Extends the box to contain a point.
  void add(const Vector3& point) {
    min = {std::min(min.x, point.x), std::min(min.y, point.y), std::min(min.z, point.z)};
    max = {std::max(max.x, point.x), std::max(max.y, point.y), std::max(max.z, point.z)};
  }
  /// Extends the box to contain another one. An empty one changes nothing.
  void add(const Box& box) {
    if (box.isEmpty()) return;
    add(box.min);
    add(box.max);
  }

  friend bool operator==(const Box&, const Box&) = default;
};

}  // namespace orivanta::graphics
