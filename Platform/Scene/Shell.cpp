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

// A place of one or more vertices, and the body that it belongs to.
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

  bool isShell() const { return normalsFaceOutward() && bodiesFaceOutward() && isClosed(); }

 private:
  using Triangle = std::array<std::uint32_t, 3>;

  struct Body {
    float bottom = 0;
    float top = 0;
    double volume = 0;
  };

  Vector3 point(Place place) const { return positionOf(vertices_[first_ + place]); }
  Place placeOf(std::uint32_t vertex) const { return places_[vertex - first_]; }

  // The place of vertices is the first of them.
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

  // Shortens the way for who asks next.
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

  bool normalsFaceOutward() const {
    return std::all_of(triangles_.begin(), triangles_.end(), [&](const Triangle& triangle) {
      const Vector3 face = faceNormal(triangle);
      return face == Vector3(0.0F) ||
             std::all_of(triangle.begin(), triangle.end(), [&](std::uint32_t corner) {
               return glm::dot(face, normalOf(vertices_[corner])) > 0;
             });
    });
  }

  std::vector<Body> measureBodies() const {
    std::vector<Body> bodies(places_.size());
    for (Place place = 0; place < bodies.size(); ++place)
      bodies[place].bottom = bodies[place].top = point(place).z;
    for (Place place = 0; place < bodies.size(); ++place) {
      Body& body = bodies[bodies_[place]];
      body.bottom = std::min(body.bottom, point(place).z);
      body.top = std::max(body.top, point(place).z);
    }
    return bodies;
  }

  // A body's volume is that of the columns between its triangles and its bottom, so what is missing
  // of the bottom has none.
  bool bodiesFaceOutward() const {
    auto bodies = measureBodies();
    for (const Triangle& triangle : triangles_) {
      Body& body = bodies[bodies_[placeOf(triangle[0])]];
      const float up = faceNormal(triangle).z;
      float height = 0;
      bool liesOnTop = true;
      for (const std::uint32_t corner : triangle) {
        const float z = positionOf(vertices_[corner]).z;
        height += z - body.bottom;
        liesOnTop = liesOnTop && z == body.top;
      }
      if (liesOnTop && up < 0) return false;
      body.volume += double{up} * double{height};
    }
    return std::all_of(bodies.begin(), bodies.end(),
                       [](const Body& body) { return body.volume >= 0; });
  }

  // Every edge is used in both directions equally often, but for those of an open bottom.
  bool isClosed() const {
    const auto bodies = measureBodies();
    std::vector<std::uint64_t> edges;  // the two places, the smaller first, and which way they came
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
      const float bottom = bodies[bodies_[a]].bottom;
      if (surplus != 0 && (point(a).z != bottom || point(b).z != bottom)) return false;
    }
    return true;
  }

  std::span<const Batch::Vertex> vertices_;
  std::uint32_t first_ = 0;    // of the vertices in use
  std::vector<Place> places_;  // by vertex, from the first on
  std::vector<Place> bodies_;  // by place: the body's first place
  std::vector<Triangle> triangles_;
};

}  // namespace

bool isShell(std::span<const Batch::Vertex> vertices, std::span<const std::uint32_t> indices) {
  const bool areFinite = std::all_of(indices.begin(), indices.end(), [&](std::uint32_t index) {
    const Vector3 position = positionOf(vertices[index]);
    return std::isfinite(position.x + position.y + position.z);
  });
  return indices.size() >= 3 && areFinite && Surface(vertices, indices).isShell();
}

}  // namespace orivanta::scene
