#include "Apps/Import/Model/Faces.hpp"

#include <algorithm>
#include <cmath>

#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

namespace {

using package::Box;

Box boxOf(const Outline& outline) {
  Box box;
  box.add(outline);
  return box;
}

double medianOf(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

// Two rectangles that cover a polygon and meet in the middle of one of its holes, across the
// direction in which the holes spread.
std::pair<Box, Box> halves(const Polygon& polygon) {
  std::vector<double> x;
  std::vector<double> y;
  Outline middles;
  x.reserve(polygon.holes.size());
  y.reserve(polygon.holes.size());
  middles.reserve(polygon.holes.size());
  for (const Outline& hole : polygon.holes) {
    const Box box = boxOf(hole);
    middles.push_back((box.least + box.most) * 0.5);
    x.push_back(middles.back().x);
    y.push_back(middles.back().y);
  }
  const Box spread = boxOf(middles);
  const Box all = boxOf(polygon.outer);
  const Point low = all.least - Point{1.0, 1.0};
  const Point high = all.most + Point{1.0, 1.0};
  if (spread.most.x - spread.least.x >= spread.most.y - spread.least.y) {
    const double cut = medianOf(x);
    return {{low, {cut, high.y}}, {{cut, low.y}, high}};
  }
  const double cut = medianOf(y);
  return {{low, {high.x, cut}}, {{low.x, cut}, high}};
}

// The parts of a polygon in two rectangles that cover it. Where clipping fails, a part has the
// wrong size.
std::pair<Shape, Shape> cut(const Polygon& polygon, const std::pair<Box, Box>& boxes) {
  std::pair<Shape, Shape> parts{clipped(polygon, boxes.first), clipped(polygon, boxes.second)};
  const double whole = areaOf(polygon);
  if (std::abs(areaOf(parts.first) + areaOf(parts.second) - whole) <= 1e-6 * whole) return parts;
  const auto within = [&](const Box& box) {
    return common({polygon},
                  {{package::rectangle(box.least.x, box.least.y, box.most.x, box.most.y), {}}});
  };
  return {within(boxes.first), within(boxes.second)};
}

void addFaces(const Polygon& polygon, std::vector<Outline>& faces) {
  if (polygon.holes.empty()) {
    faces.push_back(polygon.outer);
    return;
  }
  const auto [first, second] = cut(polygon, halves(polygon));
  for (const Shape* half : {&first, &second})
    for (const Polygon& part : *half) {
      // A part with as many holes was not cut: the operation failed.
      const bool isCut = part.holes.size() < polygon.holes.size();
      addFaces(isCut ? part : Polygon{part.outer, {}}, faces);
    }
}

}  // namespace

std::vector<Outline> facesOf(const Polygon& polygon) {
  std::vector<Outline> faces;
  addFaces(polygon, faces);
  return faces;
}

}  // namespace orivanta::importer
