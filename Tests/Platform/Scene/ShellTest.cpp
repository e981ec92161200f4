#include "Platform/Scene/Shell.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <glm/geometric.hpp>
#include <limits>
#include <vector>

namespace orivanta::scene {
namespace {

using graphics::Vector3;

/// Faces of their own corners, which run counter-clockwise around the normal.
struct Shape {
  std::vector<Batch::Vertex> vertices;
  std::vector<std::uint32_t> indices;

  void face(const std::vector<Vector3>& corners) {
    const auto first = static_cast<std::uint32_t>(vertices.size());
    const Vector3 n = glm::normalize(glm::cross(corners[1] - corners[0], corners[2] - corners[0]));
    for (const Vector3& at : corners)
      vertices.push_back({{at.x, at.y, at.z}, {n.x, n.y, n.z}, {0, 0}, 0});
    for (std::uint32_t i = 2; i < corners.size(); ++i)
      indices.insert(indices.end(), {first, first + i - 1, first + i});
  }

  // Walls of height 2 upon an outline that runs counter-clockwise, then the ceiling.
  void room(const std::vector<Vector3>& outline) {
    const Vector3 up(0, 0, 2);
    std::vector<Vector3> ceiling;
    for (std::size_t i = 0; i < outline.size(); ++i) {
      const Vector3& next = outline[(i + 1) % outline.size()];
      face({outline[i], next, next + up, outline[i] + up});
      ceiling.push_back(outline[i] + up);
    }
    face(ceiling);
  }

  void turnInsideOut(std::size_t firstIndex) {
    for (std::size_t i = firstIndex; i < indices.size(); i += 3)
      std::swap(indices[i], indices[i + 1]);
    for (std::size_t i = firstIndex; i < indices.size(); ++i)
      for (float& component : vertices[indices[i]].normal) component = -std::abs(component);
  }
};

const std::vector<Vector3> square{{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}};
const std::vector<Vector3> farther{{8, 0, 1}, {9, 0, 1}, {9, 9, 1}};
const std::vector<Vector3> down{{0, 4, 0}, {4, 4, 0}, {4, 0, 0}, {0, 0, 0}};
const std::vector<Vector3> crossing{{0, 0, 0}, {4, 4, 0}, {4, 0, 0}, {0, 3, 0}};

TEST(Shell, IsWhatNobodyAboveSeesFromBehind) {
  const struct {
    const char* name;
    bool expected;
    std::function<void(Shape&)> build;
  } cases[] = {
      {"a room without its floor", true, [](Shape& shape) { shape.room(square); }},
      {"a whole box", true,
       [](Shape& shape) {
         shape.room(square);
         shape.face(down);
       }},
      {"two rooms on different heights", true,
       [](Shape& shape) {
         shape.room(square);
         shape.room(farther);
       }},
      {"a sheet that faces up", true, [](Shape& shape) { shape.face(square); }},
      {"a sheet that faces down", false, [](Shape& shape) { shape.face(down); }},
      {"a ceiling alone above a sheet", false,
       [](Shape& shape) {
         shape.room(square);
         shape.vertices.resize(16);
         shape.indices.resize(18);  // three walls
       }},
      {"a room inside out", false,
       [](Shape& shape) {
         shape.room(square);
         shape.turnInsideOut(0);
       }},
      {"one of two rooms inside out", false,
       [](Shape& shape) {
         shape.room(square);
         const std::size_t first = shape.indices.size();
         shape.room(farther);
         shape.turnInsideOut(first);
       }},
      {"an outline that crosses itself", false, [](Shape& shape) { shape.room(crossing); }},
      {"a normal that is missing", false,
       [](Shape& shape) {
         shape.room(square);
         for (float& component : shape.vertices[5].normal) component = 0;
       }},
      {"a normal that points inward", false,
       [](Shape& shape) {
         shape.room(square);
         for (float& component : shape.vertices[5].normal) component *= -1;
       }},
      {"a corner that is nowhere", false,
       [](Shape& shape) {
         shape.room(square);
         shape.vertices[5].position[0] = std::numeric_limits<float>::quiet_NaN();
       }},
      {"nothing", false, [](Shape&) {}},
  };
  for (const auto& [name, expected, build] : cases) {
    Shape shape;
    build(shape);
    EXPECT_EQ(isShell(shape.vertices, shape.indices), expected) << name;
  }
}

}  // namespace
}  // namespace orivanta::scene
