// A computed floor and route to draw.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "Platform/Scene/Fwd.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Scene.hpp"

namespace orivanta::test {

template <class Value>
scene::SharedBytes bytesOf(const std::vector<Value>& values) {
  const auto bytes = std::as_bytes(std::span(values));
  return std::make_shared<const std::vector<std::byte>>(bytes.begin(), bytes.end());
}

/// Rooms in a grid of 30 by 30 units in the x-y plane, starting at the origin, as one child each:
/// prisms of 4 * sides - 4 triangles in eight colors, which share their vertex data.
std::shared_ptr<scene::Node> makeSyntheticFloor(int columns, int rows, int sides = 6);

/// Consecutive segments of 15 units above such a floor, back and forth over its columns. Each has
/// two ribbon strips with two caps, a ribbon with a moving image, and two dots. None casts a
/// shadow.
std::shared_ptr<scene::Node> makeSyntheticRoute(int segments, int columns);

struct LightAndCamera {
  std::shared_ptr<scene::Node> sun;    ///< a light that casts shadows
  std::shared_ptr<scene::Node> orbit;  ///< at the center of the floor; rotating it turns the camera
  std::shared_ptr<scene::Node> eye;    ///< the camera, directly above the orbit's plane
};

/// Adds a light from above that casts shadows, some ambient light, and a camera above the center of
/// a floor of that size, tilted by `tilt` radians.
LightAndCamera lightAndWatch(scene::Scene& scene, int columns, int rows, float tilt = 0.5F);

}  // namespace orivanta::test
