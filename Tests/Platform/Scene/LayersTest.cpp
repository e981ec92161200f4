#include "Platform/Scene/Layers.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Platform/Scene/Batch.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Node.hpp"
#include "Tests/Support/SyntheticFloor.hpp"

namespace orivanta::scene {
namespace {

using graphics::Vector3;
using Plane = std::function<Vector3(Vector3)>;

struct Square {
  float x, y, size;
  float height = 0;
};
using Part = std::vector<Square>;

std::shared_ptr<Node> makePart(const Part& squares, const Plane& plane) {
  std::vector<std::array<float, 8>> corners;
  std::vector<std::uint32_t> indices;
  for (const auto& [x, y, size, height] : squares) {
    const auto first = static_cast<std::uint32_t>(corners.size());
    for (const auto& [dx, dy] : {std::pair(0.0F, 0.0F), {1.0F, 0.0F}, {1.0F, 1.0F}, {0.0F, 1.0F}}) {
      const Vector3 at = plane({x + dx * size, y + dy * size, height});
      corners.push_back({at.x, at.y, at.z, 0, 0, 0, 0, 0});
    }
    for (const std::uint32_t corner : {0U, 1U, 2U, 0U, 2U, 3U}) indices.push_back(first + corner);
  }
  return Node::make(
      Geometry::make(test::bytesOf(corners), {{.data = test::bytesOf(indices)}}, {false, false}));
}

// Lists the squares by part and layer.
std::string layersOf(const std::vector<Part>& parts, const Plane& plane) {
  const auto floor = Node::make();
  for (const Part& part : parts) floor->addChild(makePart(part, plane));
  const auto batch = Batch::make(*floor);
  const auto children = floor->children();
  std::string result;
  for (std::uint32_t i = 0; i < batch->parts().size(); ++i) {
    const Batch::Part& part = batch->parts()[i];
    const auto child = std::find(children.begin(), children.end(), part.node);
    result += fmt::format("{}{}:{}", result.empty() ? "" : " ", child - children.begin(),
                          std::string(part.indexCount / 6, static_cast<char>('0' + part.layer)));
    for (std::uint32_t index = 0; index < part.indexCount; ++index)
      EXPECT_EQ(batch->vertices()[batch->indices()[part.firstIndex + index]].part, i);
  }
  return result;
}

TEST(Layers, EachPartLiesOverThoseBeforeItInTheSamePlane) {
  const struct {
    const char* what;
    std::vector<Part> parts;
    std::string expected;
  } cases[] = {
      {"side by side", {{{0, 0, 10}}, {{10, 0, 10}}, {{3, 10, 10}}}, "0:0 1:0 2:0"},
      {"one over another", {{{0, 0, 90}}, {{7, 8, 9}}, {{20, 8, 9}}}, "0:0 1:1 2:1"},
      {"the small one first", {{{7, 8, 9}}, {{0, 0, 90}}}, "0:0 1:1"},
      {"three", {{{0, 0, 10}}, {{5, 0, 10}}, {{12, 0, 10}, {9, 9, 3}}}, "0:0 1:1 2:22"},
      {"the same twice", {{{0, 0, 10}}, {{0, 0, 10}}}, "0:0 1:1"},
      {"above", {{{0, 0, 90}}, {{7, 8, 9, 0.01F}}}, "0:0 1:0"},
      {"above and in the plane", {{{0, 0, 90}}, {{7, 8, 9}, {7, 8, 9, 2}}}, "0:0 1:0 1:1"},
      {"in two planes",
       {{{0, 0, 90}}, {{0, 0, 9, 2}, {7, 8, 9}}, {{0, 0, 9, 2}, {60, 60, 9}}},
       "0:0 1:0 1:1 2:11"},
  };
  const Plane planes[] = {
      [](Vector3 p) { return p; },
      [](Vector3 p) { return Vector3(p.z - 700, p.x, p.y); },
      [](Vector3 p) { return Vector3(p.x, p.z, p.y); },
      [](Vector3 p) { return Vector3(p.x * 0.8F, p.y, p.x * 0.6F + p.z); },
      [](Vector3 p) { return Vector3(p.x * 0.28F + p.z, p.x * 0.96F, p.y + 11); },
  };
  for (const auto& [what, parts, expected] : cases)
    for (const Plane& plane : planes)
      EXPECT_EQ(layersOf(parts, plane), expected) << what << ' ' << &plane - planes;
}

}  // namespace
}  // namespace orivanta::scene
