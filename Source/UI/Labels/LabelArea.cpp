#include "Source/UI/Labels/LabelArea.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"
#include "Source/UI/Labels/SharedEdges.hpp"

namespace orivanta {

namespace {

constexpr float levelTolerance = 1e-3F;  // scene units
constexpr double leastShareOfLevel = 0.5;

bool isFinite(graphics::Point point) { return std::isfinite(point.x) && std::isfinite(point.y); }

bool isFinite(const LabelTriangle& triangle) {
  return std::all_of(triangle.begin(), triangle.end(), [](const graphics::Vector3& corner) {
    return std::isfinite(corner.x) && std::isfinite(corner.y) && std::isfinite(corner.z);
  });
}

// Twice the area of the triangle from above, positive if it faces up.
double doubledArea(const LabelTriangle& triangle) {
  const auto& [a, b, c] = triangle;
  return (double{b.x} - a.x) * (double{c.y} - a.y) - (double{c.x} - a.x) * (double{b.y} - a.y);
}

void addEdges(const LabelTriangle& triangle, std::vector<LabelEdge>& edges) {
  for (std::size_t i = 0; i < 3; ++i) {
    const graphics::Vector3& first = triangle[i];
    const graphics::Vector3& second = triangle[(i + 1) % 3];
    edges.push_back({{first.x, first.y}, {second.x, second.y}});
  }
}

// A triangle that faces up.
struct Face {
  const LabelTriangle* triangle;
  double size;   // seen from above
  float height;  // half way between the lowest and the highest corner
  bool isSloped;
};

using Faces = std::span<const Face>;

std::vector<Face> facesUp(std::span<const LabelTriangle> triangles) {
  std::vector<Face> faces;
  for (const LabelTriangle& triangle : triangles) {
    const double doubled = isFinite(triangle) ? doubledArea(triangle) : 0;
    if (!(doubled > 0)) continue;
    const auto [low, high] = std::minmax({triangle[0].z, triangle[1].z, triangle[2].z});
    faces.push_back({&triangle, doubled / 2, low + (high - low) / 2, high - low > levelTolerance});
  }
  return faces;
}

double sizeOf(Faces faces) {
  return std::accumulate(faces.begin(), faces.end(), 0.0,
                         [](double sum, const Face& face) { return sum + face.size; });
}

// Returns the faces at the height at which they are largest together. Sorts the faces.
Faces largestLevel(std::vector<Face>& faces) {
  foundation::sort(faces.begin(), faces.end(), [](const Face& left, const Face& right) {
    return std::tie(left.isSloped, left.height) < std::tie(right.isSloped, right.height);
  });
  Faces largest;
  for (std::size_t start = 0, end = 1; start < faces.size() && !faces[start].isSloped;
       start = end++) {
    while (end < faces.size() && !faces[end].isSloped &&
           faces[end].height - faces[start].height <= levelTolerance)
      ++end;
    const Faces level = Faces(faces).subspan(start, end - start);
    if (sizeOf(level) >= sizeOf(largest)) largest = level;
  }
  return largest;
}

}  // namespace

void LabelArea::addRing(std::span<const graphics::Point> corners, bool isHole) {
  if (corners.size() < 3) return;
  if (!std::all_of(corners.begin(), corners.end(), [](auto corner) { return isFinite(corner); }))
    return;
  double doubled = 0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const graphics::Point from = corners[i];
    const graphics::Point to = corners[(i + 1) % corners.size()];
    edges.push_back({from, to});
    doubled += from.x * to.y - to.x * from.y;
  }
  size += (isHole ? -1 : 1) * std::abs(doubled) / 2;
}

bool LabelArea::contains(graphics::Point point) const {
  bool isInside = false;
  for (const auto& [from, to] : edges)
    if ((from.y > point.y) != (to.y > point.y) &&
        point.x < from.x + (point.y - from.y) / (to.y - from.y) * (to.x - from.x))
      isInside = !isInside;
  return isInside;
}

graphics::Rect LabelArea::bounds() const {
  if (edges.empty()) return {};
  graphics::Point least = edges.front().from;
  graphics::Point most = least;
  for (const auto& [from, to] : edges) {
    least = {std::min({least.x, from.x, to.x}), std::min({least.y, from.y, to.y})};
    most = {std::max({most.x, from.x, to.x}), std::max({most.y, from.y, to.y})};
  }
  return {least, {most.x - least.x, most.y - least.y}};
}

LabelArea shapeArea(std::span<const LabelTriangle> triangles) {
  std::vector<Face> faces = facesUp(triangles);
  Faces chosen = largestLevel(faces);
  if (sizeOf(chosen) < sizeOf(faces) * leastShareOfLevel) chosen = faces;
  LabelArea area;
  std::vector<LabelEdge> edges;
  for (const Face& face : chosen) {
    area.size += face.size;
    area.height += face.size * double{face.height};
    addEdges(*face.triangle, edges);
  }
  if (area.size > 0) area.height /= area.size;
  area.edges = withoutShared(std::move(edges));
  return area;
}

}  // namespace orivanta
