#include "Source/UI/Display/Styled/ShapeAreas.hpp"

#include <vector>

namespace orivanta {

LabelArea areaOf(const scene::Geometry& geometry) {
  const scene::GeometrySource* const source = geometry.source(scene::Semantic::vertex);
  if (source == nullptr) return {};
  std::vector<LabelTriangle> triangles;
  for (const scene::GeometryElement& element : geometry.elements())
    for (std::size_t i = 0; i + 2 < element.indexCount(); i += 3)
      triangles.push_back({source->vector(element.index(i)), source->vector(element.index(i + 1)),
                           source->vector(element.index(i + 2))});
  return shapeArea(triangles);
}

}  // namespace orivanta
