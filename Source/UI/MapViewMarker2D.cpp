#include "Source/UI/MapViewMarker2D.hpp"

#include <string>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Guarded.hpp"

namespace orivanta {

MapViewMarker2D::MapViewMarker2D(graphics::Size size, std::shared_ptr<const graphics::Image> image)
    : node(sprite::SpriteNode::make(std::move(image), size)) {
  node->setName(std::string(MARKER_NAME));
}

graphics::Vector3 MapViewMarker2D::position() const { return graphics::read(position_); }

void MapViewMarker2D::setPosition(graphics::Vector3 position) {
  graphics::swapGuarded(position_, position);
}

bool MapViewMarker2D::collidesWithMarker(const MapViewMarker& other) const {
  const auto* marker = dynamic_cast<const MapViewMarker2D*>(&other);
  if (marker == nullptr) foundation::fatalError("a 2D marker collides with 2D markers only");
  return foundation::unwrap(node).frame().intersects(foundation::unwrap(marker->node).frame());
}

}  // namespace orivanta
