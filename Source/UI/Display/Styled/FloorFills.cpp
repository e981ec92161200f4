#include "Source/UI/Display/Styled/FloorFills.hpp"

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"

namespace orivanta {

void FloorFills::set(const Map& map, std::span<const ShapeRole> roles, const MapTheme& theme) {
  const graphics::Transaction transaction;
  std::erase_if(fills_, [](const auto& entry) { return entry.first.expired(); });
  const auto& shapes = map.mapObject->children(transaction);
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    Fill& fill = fills_[shapes[i]];
    fill.color = colorOf(roles[i], theme);
    if (!fill.isHighlighted) shapes[i]->setDisplayColor(fill.color);
  }
}

bool FloorFills::contains(const Map& map) const {
  const graphics::Transaction transaction;
  if (!map.mapObject || map.mapObject->children(transaction).empty()) return true;
  const auto entry = fills_.find(map.mapObject->children(transaction).front());
  return entry != fills_.end() && entry->second.color.has_value();
}

void FloorFills::setHighlighted(scene::Node& shape, bool isHighlighted) {
  Fill& fill = fills_[shape.weak_from_this()];
  fill.isHighlighted = isHighlighted;
  shape.setDisplayColor(isHighlighted ? std::nullopt : fill.color);
}

void FloorFills::clear() {
  const graphics::Transaction transaction;
  for (const auto& [node, fill] : fills_)
    if (const auto shape = node.lock(); shape && shape->displayColor() == fill.color)
      shape->setDisplayColor(std::nullopt);
  fills_.clear();
}

}  // namespace orivanta
