#include "Platform/Scene/Layers.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <optional>
#include <utility>

#include "Platform/Scene/Coplanar.hpp"

namespace orivanta::scene {

namespace {

using graphics::Box;
using graphics::Vector3;

constexpr std::size_t mostTests = 20'000'000;

constexpr double offPlane = 2.4e-7;          // relative to the largest coordinate: four roundings
constexpr double overlap = 1e-5;             // relative to the extent
constexpr double planeSpacing = 1.0 / 4096;  // relative to the extent

bool touch(const Box& a, const Box& b) {
  return a.min.x <= b.max.x && b.min.x <= a.max.x && a.min.y <= b.max.y && b.min.y <= a.max.y &&
         a.min.z <= b.max.z && b.min.z <= a.max.z;
}

// Returns the same key for nearly equal planes: the axis that the plane faces most (the two highest
// bits), and quantized slopes and height along it. The steps are offset so that common planes do
// not lie on their boundaries.
std::optional<std::uint32_t> planeKey(const std::array<Vector3, 3>& corners, const Vector3& middle,
                                      double spacing) {
  constexpr double stepsOfSlope = 16;
  constexpr double offset = 0.37;
  constexpr double mostSteps = 1 << 17;
  const glm::dvec3 from(corners[0] - middle);
  const glm::dvec3 normal = glm::cross(glm::dvec3(corners[1]) - glm::dvec3(corners[0]),
                                       glm::dvec3(corners[2]) - glm::dvec3(corners[0]));
  const glm::dvec3 size = glm::abs(normal);
  const glm::length_t axis = 1.01 * size.z >= std::max(size.x, size.y) ? 2
                             : 1.01 * size.y >= size.x                 ? 1
                                                                       : 0;
  const glm::dvec3 slope = normal / normal[axis];
  const double height = glm::dot(from, slope) / spacing;
  if (!(std::abs(height) < mostSteps - 1)) return std::nullopt;  // or without area
  const auto step = [&](double value) {
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::floor(value + offset)));
  };
  const std::uint32_t first = step(slope[(axis + 1) % 3] * stepsOfSlope) & 63U;
  const std::uint32_t second = step(slope[(axis + 2) % 3] * stepsOfSlope) & 63U;
  return static_cast<std::uint32_t>(axis) << 30 | first << 24 | second << 18 |
         (step(height) & 0x3FFFFU);
}

class LayerSearch {
 public:
  LayerSearch(std::span<const Batch::Vertex> vertices, std::span<const std::uint32_t> indices,
              std::span<const Batch::Part> parts)
      : vertices_(vertices), indices_(indices), parts_(parts) {
    Box box;
    for (const Batch::Part& part : parts) box.add(part.box);
    const Vector3 size = box.max - box.min;
    extent_ = std::max({size.x, size.y, size.z});
    middle_ = box.center();
    const Vector3 farthest = glm::max(glm::abs(box.min), glm::abs(box.max));
    rounding_ = {std::max({farthest.x, farthest.y, farthest.z}) * offPlane, extent_ * overlap};
  }

  std::vector<std::uint8_t> find() {
    sortByPlane();
    for (std::size_t first = 0; first < triangles_.size();) {
      const std::uint64_t plane = triangles_[first] >> 32;
      std::size_t end = first + 1;
      while (end < triangles_.size() && triangles_[end] >> 32 == plane) ++end;
      if (partOf(first) != partOf(end - 1)) searchPlane(first, end);
      first = end;
    }
    return std::move(layers_);
  }

 private:
  // The triangles of one part in nearly the same plane: a range of `triangles_`.
  struct Patch {
    std::size_t first;
    std::size_t end;
    Box box;
    std::uint8_t layer = 0;
  };
  struct Pair {
    std::size_t later;
    std::size_t earlier;
    friend bool operator<(const Pair& a, const Pair& b) { return a.later < b.later; }
  };

  std::uint32_t triangleAt(std::size_t place) const {
    return static_cast<std::uint32_t>(triangles_[place]);
  }

  std::uint32_t partOf(std::size_t place) const {
    return vertices_[indices_[3 * std::size_t{triangleAt(place)}]].part;
  }

  std::array<Vector3, 3> cornersOf(std::uint32_t triangle) const {
    const auto corner = [&](std::size_t i) {
      const auto& position = vertices_[indices_[3 * std::size_t{triangle} + i]].position;
      return Vector3(position[0], position[1], position[2]);
    };
    return {corner(0), corner(1), corner(2)};
  }

  Box boxAt(std::size_t place) const {
    Box box;
    for (const Vector3& corner : cornersOf(triangleAt(place))) box.add(corner);
    const Vector3 margin(static_cast<float>(rounding_.offPlane));
    return {box.min - margin, box.max + margin};
  }

  // Groups the triangles by plane, and within a plane by part.
  void sortByPlane() {
    triangles_.reserve(indices_.size() / 3);
    for (std::uint32_t triangle = 0; triangle < indices_.size() / 3; ++triangle)
      if (const auto key = planeKey(cornersOf(triangle), middle_, extent_ * planeSpacing))
        triangles_.push_back(std::uint64_t{*key} << 32 | triangle);
    std::sort(triangles_.begin(), triangles_.end());
  }

  void searchPlane(std::size_t first, std::size_t end) {
    std::vector<Patch> patches;
    for (std::size_t place = first; place < end; ++place) {
      if (patches.empty() || partOf(patches.back().first) != partOf(place))
        patches.push_back({place, place, {}});
      patches.back().end = place + 1;
      patches.back().box.add(boxAt(place));
    }
    const bool facesX = triangles_[first] >> 62 == 0;
    std::vector<Pair> pairs = findPairs(patches, facesX ? 1 : 0);
    std::sort(pairs.begin(), pairs.end());
    for (const auto& [later, earlier] : pairs) {
      const int above = std::min(patches[earlier].layer + 1, int{highestLayer});
      patches[later].layer = std::max(patches[later].layer, static_cast<std::uint8_t>(above));
    }
    for (const Patch& patch : patches)
      if (patch.layer > 0) assign(patch);
  }

  void assign(const Patch& patch) {
    layers_.resize(indices_.size() / 3);
    for (std::size_t place = patch.first; place < patch.end; ++place)
      layers_[triangleAt(place)] = patch.layer;
  }

  // Finds patches that overlap, by sweeping along an axis of the plane.
  std::vector<Pair> findPairs(const std::vector<Patch>& patches, glm::length_t axis) {
    std::vector<std::size_t> order(patches.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
      return patches[a].box.min[axis] < patches[b].box.min[axis];
    });
    std::vector<Pair> pairs;
    for (auto one = order.begin(); one != order.end(); ++one)
      for (auto other = one + 1; other != order.end() && isTestLeft(); ++other) {
        if (patches[*other].box.min[axis] > patches[*one].box.max[axis]) break;
        if (coverEachOther(patches[*one], patches[*other]))
          pairs.push_back({std::max(*one, *other), std::min(*one, *other)});
      }
    return pairs;
  }

  bool coverEachOther(const Patch& a, const Patch& b) {
    if (!touch(a.box, b.box)) return false;
    const bool isFirstLarger = a.end - a.first > b.end - b.first;
    const Patch& larger = isFirstLarger ? a : b;
    const Patch& smaller = isFirstLarger ? b : a;
    for (std::size_t place = larger.first; place < larger.end && isTestLeft(); ++place) {
      const Box box = boxAt(place);
      if (touch(box, smaller.box) && isCovered(place, box, smaller)) return true;
    }
    return false;
  }

  bool isCovered(std::size_t place, const Box& box, const Patch& patch) {
    const SpaceTriangle triangle(cornersOf(triangleAt(place)));
    const bool isShell = parts_[partOf(place)].isShell && parts_[partOf(patch.first)].isShell;
    for (std::size_t other = patch.first; other < patch.end && isTestLeft(); ++other) {
      if (!touch(box, boxAt(other))) continue;
      const SpaceTriangle otherTriangle(cornersOf(triangleAt(other)));
      if (isShell && glm::dot(triangle.normal, otherTriangle.normal) < 0) continue;
      if (scene::coverEachOther(triangle, otherTriangle, rounding_)) return true;
    }
    return false;
  }

  bool isTestLeft() { return testsLeft_ > 0 && --testsLeft_ > 0; }

  std::span<const Batch::Vertex> vertices_;
  std::span<const std::uint32_t> indices_;
  std::span<const Batch::Part> parts_;
  double extent_ = 0;
  Vector3 middle_{0.0F};
  Rounding rounding_{};
  std::vector<std::uint64_t> triangles_;  // keys of planes with triangles, sorted
  std::vector<std::uint8_t> layers_;      // indexed by triangle
  std::size_t testsLeft_ = mostTests;
};

}  // namespace

std::vector<std::uint8_t> findLayers(std::span<const Batch::Vertex> vertices,
                                     std::span<const std::uint32_t> indices,
                                     std::span<const Batch::Part> parts) {
  if (parts.size() < 2) return {};
  return LayerSearch(vertices, indices, parts).find();
}

}  // namespace orivanta::scene
