#include "Source/UI/Parts/FloorShapes.hpp"

#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Polygon.hpp"

namespace orivanta {

using foundation::unwrap;

namespace {

scene::Material& firstMaterialOf(const scene::Node& shape) {
  return unwrap(unwrap(shape.geometry()).firstMaterial());
}

}  // namespace

void FloorShapes::add(const scene::Node& floor) {
  for (const auto& shape : floor.children())
    shapes_.insert_or_assign(shape->name().value_or(""), shape);
}

void FloorShapes::clear() {
  clearHighlights();
  shapes_.clear();
}

std::shared_ptr<scene::Node> FloorShapes::shapeOf(const Polygon& polygon) const {
  const auto entry = shapes_.find(polygon.id.value_or(""));
  return entry == shapes_.end() ? nullptr : entry->second;
}

void FloorShapes::highlight(const std::shared_ptr<Polygon>& polygon, graphics::Color color) {
  const auto shape = shapeOf(unwrap(polygon));
  if (!shape) return;
  scene::Material& material = firstMaterialOf(*shape);
  highlights_.insert_or_assign(polygon, material.diffuse().contents);
  const graphics::Transaction transaction;
  material.setDiffuseContents(color);
  if (highlightChanged) highlightChanged(*shape, true);
}

void FloorShapes::clearHighlights() {
  const graphics::Transaction transaction;
  for (const auto& [polygon, contents] : highlights_)
    if (const auto shape = shapeOf(*polygon)) {
      firstMaterialOf(*shape).setDiffuseContents(contents);
      if (highlightChanged) highlightChanged(*shape, false);
    }
  highlights_.clear();
}

std::vector<std::shared_ptr<scene::Node>> FloorShapes::highlightedShapes() const {
  std::vector<std::shared_ptr<scene::Node>> shapes;
  for (const auto& [polygon, contents] : highlights_)
    if (auto shape = shapeOf(*polygon)) shapes.push_back(std::move(shape));
  return shapes;
}

}  // namespace orivanta
