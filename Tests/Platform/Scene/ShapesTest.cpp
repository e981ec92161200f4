#include "Platform/Scene/Shapes.hpp"

#include <gtest/gtest.h>

#include <glm/geometric.hpp>

#include "Tests/Support/Vectors.hpp"

namespace orivanta::scene {
namespace {

using graphics::Point;
using graphics::Vector3;
using test::areNear;

struct Triangle {
  Vector3 corners[3];
  Vector3 normals[3];

  Vector3 doubleArea() const {
    return glm::cross(corners[1] - corners[0], corners[2] - corners[0]);
  }
};

std::vector<Triangle> trianglesOf(const Geometry& geometry) {
  std::vector<Triangle> triangles;
  const GeometryElement& element = geometry.elements().at(0);
  for (std::size_t i = 0; i < element.indexCount(); ++i) {
    if (i % 3 == 0) triangles.emplace_back();
    triangles.back().corners[i % 3] = geometry.source(Semantic::vertex)->vector(element.index(i));
    triangles.back().normals[i % 3] = geometry.source(Semantic::normal)->vector(element.index(i));
  }
  return triangles;
}

/// By the divergence theorem, which is valid only if the surface is closed and consistently
/// oriented outward.
float volumeInside(const Geometry& geometry) {
  float sum = 0;
  for (const Triangle& triangle : trianglesOf(geometry))
    sum += glm::dot(triangle.corners[0], triangle.doubleArea()) / 6;
  return sum;
}

void expectNormalsOfLength1ToAgreeWithTheWinding(const Geometry& geometry) {
  for (const Triangle& triangle : trianglesOf(geometry))
    for (const Vector3& normal : triangle.normals) {
      EXPECT_NEAR(glm::length(normal), 1, 1e-5);
      EXPECT_GT(glm::dot(normal, glm::normalize(triangle.doubleArea())), 0.99F);
    }
}

TEST(Shapes, AnExtrusionIsClosedWhicheverWayItsOutlineRuns) {
  const std::vector<Point> outline{{1, 1}, {5, 1}, {5, 3}, {3, 4}, {1, 3}};  // area 8 + 2
  for (const auto& corners : {outline, std::vector<Point>(outline.rbegin(), outline.rend())}) {
    const auto geometry = makeExtrusion(corners, 0.5);
    EXPECT_NEAR(volumeInside(*geometry), 5, 1e-5);
    EXPECT_EQ(geometry->boundingBox(), (graphics::Box{{1, 1, -0.25F}, {5, 4, 0.25F}}));
    expectNormalsOfLength1ToAgreeWithTheWinding(*geometry);
  }
  EXPECT_TRUE(makeExtrusion(std::vector<Point>{{0, 0}, {1, 1}}, 1)->boundingBox().isEmpty());
}

TEST(Shapes, ACylinderIsClosedAndSmooth) {
  const auto geometry = makeCylinder(2, 3);
  // A regular polygon of 48 corners has an area of 48/2 sin(7.5 degrees) = 3.13263 times its radius
  // squared.
  EXPECT_NEAR(volumeInside(*geometry), 3.13263 * 4 * 3, 1e-3);
  expectNormalsOfLength1ToAgreeWithTheWinding(*geometry);
  EXPECT_TRUE(areNear(geometry->boundingBox().min, {-2, -1.5F, -2}));
  EXPECT_TRUE(areNear(geometry->boundingBox().max, {2, 1.5F, 2}));
  for (const Triangle& triangle : trianglesOf(*geometry))
    for (int i = 0; i < 3; ++i) {
      if (triangle.normals[i].y != 0) continue;
      const Vector3 outwards = triangle.corners[i] * Vector3(0.5F, 0, 0.5F);
      EXPECT_TRUE(areNear(triangle.normals[i], outwards));
    }
}

TEST(Shapes, AFloorFacesUpwards) {
  const auto geometry = makeFloor();
  EXPECT_EQ(geometry->boundingBox(), (graphics::Box{{-1e4F, -1e4F, 0}, {1e4F, 1e4F, 0}}));
  expectNormalsOfLength1ToAgreeWithTheWinding(*geometry);
}

}  // namespace
}  // namespace orivanta::scene
