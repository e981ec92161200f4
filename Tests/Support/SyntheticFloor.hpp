// A floor and a route to draw that are made of numbers alone.
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

/// Rooms in a grid of cells of 30 by 30 units in the x-y plane, from the origin on, one child each:
/// prisms of 4 * sides - 4 triangles, in eight colors, which share their vertex data.
std::shared_ptr<scene::Node> makeSyntheticFloor(int columns, int rows, int sides = 6);

/// Segments of 15 units one after the other above such a floor, to and fro over its columns; each
/// two strips of a ribbon and two caps, and a ribbon with an image, which moves, and two dots. None
/// casts a shadow.
std::shared_ptr<scene::Node> makeSyntheticRoute(int segments, int columns);

struct LightAndCamera {
  std::shared_ptr<scene::Node> sun;    ///< a light that casts shadows
  std::shared_ptr<scene::Node> orbit;  ///< in the middle of the floor; turning it turns the camera
  std::shared_ptr<scene::Node> eye;    ///< the camera, straight above the orbit's own plane
};

/// A light from above that casts shadows, some light from everywhere, and a camera above the
/// middle of a floor of that size, tilted by `tilt` radians.
LightAndCamera lightAndWatch(scene::Scene& scene, int columns, int rows, float tilt = 0.5F);

}  // namespace orivanta::test
