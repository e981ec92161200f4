#include "Platform/Scene/Shell.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <glm/geometric.hpp>
#include <numeric>
#include <tuple>
#include <vector>

namespace orivanta::scene {

namespace {

using graphics::Vector3;

// Vertices at the same position, identified by the first of them.
using Place = std::uint32_t;

Vector3 positionOf(const Batch::Vertex& vertex) {
  return {vertex.position[0], vertex.position[1], vertex.position[2]};
}

Vector3 normalOf(const Batch::Vertex& vertex) {
  return {vertex.normal[0], vertex.normal[1], vertex.normal[2]};
}

class Surface {
 public:
  Surface(std::span<const Batch::Vertex> vertices, std::span<const std::uint32_t> indices)
      : vertices_(vertices) {
    const auto [lowest, highest] = std::minmax_element(indices.begin(), indices.end());
    first_ = *lowest;
    joinVertices(*highest - *lowest + 1);
    for (std::size_t i = 0; i + 2 < indices.size(); i += 3)
      triangles_.push_back({indices[i], indices[i + 1], indices[i + 2]});
    joinBodies();
  }

  bool isShell() const {
    auto bottoms = bottomsOfBodies();
    return normalsAreThoseOfFaces() && facesLookOutward(bottoms) && areClosed(bottoms);
  }

 private:
  using Triangle = std::array<std::uint32_t, 3>;

  struct Bottom {
    float height;
    bool isDrawn = false;  ///< whether it has faces of its own, which look downward
  };

  Vector3 point(Place place) const { return positionOf(vertices_[first_ + place]); }
  Place placeOf(std::uint32_t vertex) const { return places_[vertex - first_]; }

  // Maps vertices at the same position to the first of them.
  void joinVertices(std::size_t count) {
    const auto key = [&](Place place) {
      const auto& position = vertices_[first_ + place].position;
      return std::tie(position[0], position[1], position[2]);
    };
    std::vector<Place> order(count);
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(), [&](Place a, Place b) { return key(a) < key(b); });
    places_.resize(count);
    for (std::size_t i = 0; i < count; ++i)
      places_[order[i]] =
          i > 0 && key(order[i]) == key(order[i - 1]) ? places_[order[i - 1]] : order[i];
  }

  // Shortens the path for later calls.
  Place bodyOf(Place place) {
    while (bodies_[place] != place) place = bodies_[place] = bodies_[bodies_[place]];
    return place;
  }

  void joinBodies() {
    bodies_.resize(places_.size());
    std::iota(bodies_.begin(), bodies_.end(), 0U);
    for (const Triangle& triangle : triangles_)
      for (const std::uint32_t corner : triangle) {
        const Place a = bodyOf(placeOf(triangle[0]));
        const Place b = bodyOf(placeOf(corner));
        bodies_[std::max(a, b)] = std::min(a, b);
      }
    for (Place place = 0; place < bodies_.size(); ++place) bodies_[place] = bodyOf(place);
  }

  Vector3 faceNormal(const Triangle& triangle) const {
    const Vector3 a = positionOf(vertices_[triangle[0]]);
    return glm::cross(positionOf(vertices_[triangle[1]]) - a,
                      positionOf(vertices_[triangle[2]]) - a);
  }

  bool normalsAreThoseOfFaces() const {
    constexpr float cosine = 0.966F;  // of 15 degrees
    return std::all_of(triangles_.begin(), triangles_.end(), [&](const Triangle& triangle) {
      const Vector3 face = faceNormal(triangle);
      if (face == Vector3(0.0F)) return true;
      return std::all_of(triangle.begin(), triangle.end(), [&](std::uint32_t corner) {
        const Vector3 normal = normalOf(vertices_[corner]);
        return std::abs(glm::length(normal) - 1) < 0.01F &&
               glm::dot(face, normal) > cosine * glm::length(face);
      });
    });
  }

  // Indexed by the body's first place.
  std::vector<Bottom> bottomsOfBodies() const {
    std::vector<Bottom> bottoms;
    bottoms.reserve(places_.size());
    for (Place place = 0; place < places_.size(); ++place) bottoms.push_back({point(place).z});
    for (Place place = 0; place < bottoms.size(); ++place) {
      float& height = bottoms[bodies_[place]].height;
      height = std::min(height, point(place).z);
    }
    return bottoms;
  }

  bool facesLookOutward(std::vector<Bottom>& bottoms) const {
    return std::all_of(triangles_.begin(), triangles_.end(), [&](const Triangle& triangle) {
      if (faceNormal(triangle).z >= 0) return true;
      Bottom& bottom = bottoms[bodies_[placeOf(triangle[0])]];
      bottom.isDrawn = true;
      return std::all_of(triangle.begin(), triangle.end(), [&](std::uint32_t corner) {
        return vertices_[corner].position[2] == bottom.height;
      });
    });
  }

  // Every edge is used equally often in both directions, except around a completely open bottom.
  bool areClosed(const std::vector<Bottom>& bottoms) const {
    std::vector<std::uint64_t> edges;  // both places, the smaller one first, and the direction
    edges.reserve(3 * triangles_.size());
    for (const Triangle& triangle : triangles_)
      for (std::size_t i = 0; i < 3; ++i) {
        const std::uint64_t a = placeOf(triangle[i]);
        const std::uint64_t b = placeOf(triangle[(i + 1) % 3]);
        if (a != b) edges.push_back(a < b ? (a << 33 | b << 1) : (b << 33 | a << 1 | 1));
      }
    std::sort(edges.begin(), edges.end());
    for (std::size_t i = 0; i < edges.size();) {
      const std::uint64_t edge = edges[i] >> 1;
      int surplus = 0;
      for (; i < edges.size() && edges[i] >> 1 == edge; ++i)
        surplus += (edges[i] & 1) != 0 ? 1 : -1;
      const auto a = static_cast<Place>(edge >> 32);
      const auto b = static_cast<Place>(edge);
      const Bottom& bottom = bottoms[bodies_[a]];
      if (surplus != 0 &&
          (bottom.isDrawn || point(a).z != bottom.height || point(b).z != bottom.height))
        return false;
    }
    return true;
  }

  std::span<const Batch::Vertex> vertices_;
  std::uint32_t first_ = 0;    // of the vertices in use
  std::vector<Place> places_;  // by vertex, from `first_`
  std::vector<Place> bodies_;  // by place: the first place of its body
  std::vector<Triangle> triangles_;
};

}  // namespace

bool isShell(std::span<const Batch::Vertex> vertices, std::span<const std::uint32_t> indices) {
  constexpr std::size_t mostIndices = 6'000'000;
  if (indices.size() < 3 || indices.size() > mostIndices) return false;
  const bool areFinite = std::all_of(indices.begin(), indices.end(), [&](std::uint32_t index) {
    const Vector3 position = positionOf(vertices[index]);
    return std::isfinite(position.x + position.y + position.z);
  });
  return areFinite && Surface(vertices, indices).isShell();
}

}  // namespace orivanta::scene
