#include "Source/UI/Display/Styled/ShapeEdges.hpp"

#include <algorithm>
#include <cstddef>
#include <map>
#include <tuple>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"

namespace orivanta {

namespace {

constexpr float levelTolerance = 1e-3F;
constexpr double leastShareOfLevel = 0.5;

struct Face {
  const LabelTriangle* corners;
  double size;  // twice the area from above
  float low;
  float high;

  bool isLevel() const { return high - low <= levelTolerance; }
};

std::vector<Face> sortedFaces(std::span<const LabelTriangle> triangles) {
  std::vector<Face> faces;
  for (const LabelTriangle& corners : triangles) {
    const auto& [a, b, c] = corners;
    const double size =
        (double{b.x} - a.x) * (double{c.y} - a.y) - (double{c.x} - a.x) * (double{b.y} - a.y);
    const auto [low, high] = std::minmax({a.z, b.z, c.z});
    faces.push_back({&corners, size, low, high});
  }
  foundation::stableSort(faces.begin(), faces.end(),
                         [](const Face& a, const Face& b) { return a.low < b.low; });
  return faces;
}

// The height at which most of the faces lie, if these are half of all; seen from above.
const Face* largestLevel(std::span<const Face> faces) {
  double all = 0;
  double most = 0;
  const Face* largest = nullptr;
  double sum = 0;
  for (std::size_t i = 0, first = 0; i < faces.size(); ++i) {
    all += faces[i].size;
    if (faces[i].low - faces[first].low > levelTolerance) {
      first = i;
      sum = 0;
    }
    if (faces[i].isLevel()) sum += faces[i].size;
    if (sum < most) continue;
    most = sum;
    largest = &faces[first];
  }
  return most >= all * leastShareOfLevel ? largest : nullptr;
}

// Edges in opposite directions cancel each other.
class Boundary {
 public:
  void add(const LabelTriangle& corners) {
    for (std::size_t i = 0; i < 3; ++i) addEdge({corners[i], corners[(i + 1) % 3]});
  }

  std::vector<ShapeEdge> edges() const {
    std::vector<ShapeEdge> found;
    for (const auto& [key, edge] : edges_) found.push_back(edge);
    return found;
  }

 private:
  using Key = std::tuple<float, float, float, float>;

  void addEdge(const ShapeEdge& edge) {
    const auto& [from, to] = edge;
    if (const auto opposite = edges_.find(Key(to.x, to.y, from.x, from.y));
        opposite != edges_.end())
      edges_.erase(opposite);
    else
      edges_.emplace(Key(from.x, from.y, to.x, to.y), edge);
  }

  std::multimap<Key, ShapeEdge> edges_;
};

// Raises the ends of edges that meet at different heights to the highest one. The sides of stairs
// become straight lines along the fronts of the steps.
void joinInHeight(std::vector<ShapeEdge>& edges) {
  std::map<std::pair<float, float>, float> heights;
  for (const ShapeEdge& edge : edges)
    for (const graphics::Vector3& end : {edge.from, edge.to}) {
      const auto height = heights.emplace(std::pair(end.x, end.y), end.z).first;
      height->second = std::max(height->second, end.z);
    }
  for (ShapeEdge& edge : edges) {
    edge.from.z = heights.at({edge.from.x, edge.from.y});
    edge.to.z = heights.at({edge.to.x, edge.to.y});
  }
}

}  // namespace

ShapeEdges shapeEdges(std::span<const LabelTriangle> triangles) {
  const std::vector<Face> faces = sortedFaces(triangles);
  const Face* level = largestLevel(faces);
  Boundary main;
  Boundary above;
  for (const Face& face : faces)
    if (!level ||
        (face.isLevel() && face.low >= level->low && face.low - level->low <= levelTolerance))
      main.add(*face.corners);
    else if (face.low > level->low)
      above.add(*face.corners);
  ShapeEdges edges{main.edges(), above.edges()};
  joinInHeight(edges.main);
  return edges;
}

}  // namespace orivanta
