// Single-precision vectors, matrices and boxes in 3D space.
// Public header.
#pragma once

#include <algorithm>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <glm/vec4.hpp>
#include <limits>

namespace orivanta::graphics {

/// A vector or a point with three components.
using Vector3 = glm::vec3;

/// A vector with four components.
using Vector4 = glm::vec4;

/// A matrix for column vectors: the product `a * b` applies `b` first. Stored by columns.
using Matrix4 = glm::mat4;

/// An axis-aligned box. In an empty box, `min` is greater than `max`.
struct Box {
  Vector3 min{std::numeric_limits<float>::max()};     ///< the smallest coordinates
  Vector3 max{std::numeric_limits<float>::lowest()};  ///< the largest coordinates

  /// Returns whether the box contains no point.
  bool isEmpty() const { return min.x > max.x || min.y > max.y || min.z > max.z; }

  /// Returns the center. The result is meaningless if the box is empty.
  Vector3 center() const { return (min + max) * 0.5F; }

  /// Extends the box to contain a point.
  void add(const Vector3& point) {
    min = {std::min(min.x, point.x), std::min(min.y, point.y), std::min(min.z, point.z)};
    max = {std::max(max.x, point.x), std::max(max.y, point.y), std::max(max.z, point.z)};
  }
  /// Extends the box to contain another box. An empty box has no effect.
  void add(const Box& box) {
    if (box.isEmpty()) return;
    add(box.min);
    add(box.max);
  }

  friend bool operator==(const Box&, const Box&) = default;
};

}  // namespace orivanta::graphics
