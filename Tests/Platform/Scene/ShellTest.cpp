#include "Platform/Scene/Shell.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <glm/geometric.hpp>
#include <limits>
#include <vector>

namespace orivanta::scene {
namespace {

using graphics::Vector3;

/// Triangles without shared corners, counterclockwise around the normal.
struct Shape {
  std::vector<Batch::Vertex> vertices;
  std::vector<std::uint32_t> indices;

  void triangle(const Vector3& a, const Vector3& b, const Vector3& c) {
    const Vector3 n = glm::normalize(glm::cross(b - a, c - a));
    for (const Vector3& at : {a, b, c}) {
      indices.push_back(static_cast<std::uint32_t>(vertices.size()));
      vertices.push_back({{at.x, at.y, at.z}, {n.x, n.y, n.z}, {0, 0}, 0});
    }
  }

  Shape& face(const std::vector<Vector3>& corners) {
    for (std::size_t i = 2; i < corners.size(); ++i)
      triangle(corners[0], corners[i - 1], corners[i]);
    return *this;
  }

  // Walls of height 2 on a counterclockwise outline, and the ceiling.
  Shape& room(const std::vector<Vector3>& outline) {
    const Vector3 up(0, 0, 2);
    std::vector<Vector3> ceiling;
    for (std::size_t i = 0; i < outline.size(); ++i) {
      const Vector3& next = outline[(i + 1) % outline.size()];
      face({outline[i], next, next + up, outline[i] + up});
      ceiling.push_back(outline[i] + up);
    }
    return face(ceiling);
  }

  void turnInsideOut(std::size_t firstIndex) {
    for (std::size_t i = firstIndex; i < indices.size(); i += 3)
      std::swap(indices[i], indices[i + 1]);
    for (std::size_t i = firstIndex; i < indices.size(); ++i)
      for (float& component : vertices[i].normal) component *= -1;
  }
};

const std::vector<Vector3> square{{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}};
const std::vector<Vector3> farther{{8, 0, 1}, {9, 0, 1}, {9, 9, 1}};
const std::vector<Vector3> touching{{4, 4, 0}, {5, 4, 0}, {5, 5, 0}, {4, 5, 0}};
const std::vector<Vector3> down{{0, 4, 0}, {4, 4, 0}, {4, 0, 0}, {0, 0, 0}};
const std::vector<Vector3> downBeside{{4, 4, 0}, {4, 8, 0}, {8, 8, 0}, {8, 4, 0}};
const std::vector<Vector3> crossing{{0, 0, 0}, {4, 4, 0}, {4, 0, 0}, {0, 3, 0}};
constexpr std::size_t indicesOfRoom = 30;  // on a square: four walls and the ceiling
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

TEST(Shell, IsWhatNobodyAboveSeesFromBehind) {
  const struct {
    const char* name;
    bool expected;
    std::function<void(Shape&)> build;
  } cases[] = {
      {"a room without its floor", true, [](Shape& shape) { shape.room(square); }},
      {"a whole box", true, [](Shape& shape) { shape.room(square).face(down); }},
      {"two rooms on different heights", true,
       [](Shape& shape) { shape.room(square).room(farther); }},
      {"a sheet that faces up", true, [](Shape& shape) { shape.face(square); }},
      {"a sheet that faces down", false, [](Shape& shape) { shape.face(down); }},
      {"three walls", false, [](Shape& shape) { shape.room(square).indices.resize(18); }},
      {"a room inside out", false, [](Shape& shape) { shape.room(square).turnInsideOut(0); }},
      {"one of two rooms inside out", false,
       [](Shape& shape) { shape.room(square).room(farther).turnInsideOut(indicesOfRoom); }},
      {"a low room inside out that touches another", false,
       [](Shape& shape) {
         shape.room(square);
         const std::size_t first = shape.vertices.size();
         shape.room(touching).turnInsideOut(indicesOfRoom);
         for (std::size_t i = first; i < shape.vertices.size(); ++i)
           shape.vertices[i].position[2] /= 2;
       }},
      {"a sheet that faces down beside a room without its floor", false,
       [](Shape& shape) { shape.room(square).face(downBeside); }},
      {"a box that widens upwards", false,
       [](Shape& shape) {
         shape.room(square).face(down);
         for (Batch::Vertex& vertex : shape.vertices)
           if (vertex.position[2] > 0)
             for (int axis : {0, 1}) vertex.position[axis] = 1.05F * vertex.position[axis] - 0.1F;
       }},
      {"an outline that crosses itself", false, [](Shape& shape) { shape.room(crossing); }},
      {"a hole in a wall at the bottom", false,
       [](Shape& shape) {
         shape.room(square);
         shape.indices.erase(shape.indices.begin(), shape.indices.begin() + 3);
       }},
      {"a normal that is missing", false,
       [](Shape& shape) {
         shape.room(square);
         for (float& component : shape.vertices[5].normal) component = 0;
       }},
      {"a normal that points elsewhere", false,
       [](Shape& shape) { shape.room(square).vertices[5].normal[2] = 1; }},
      {"a corner that is nowhere", false,
       [](Shape& shape) { shape.room(square).vertices[5].position[0] = notANumber; }},
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
