// A picture that stays upright over a point of the map, the same size at every distance.
#pragma once

#include <memory>
#include <string_view>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Sprite/Node.hpp"
#include "Source/UI/MapViewMarker.hpp"

namespace orivanta {

/// A marker that shows an image upright at a point of the scene.
class ORIVANTA_API MapViewMarker2D : public MapViewMarker {
 public:
  /// The name of every marker's sprite.
  static constexpr std::string_view MARKER_NAME = "LOCATION_MARKER";

  /// `size` in points of the overlay. A null image shows nothing.
  MapViewMarker2D(graphics::Size size, std::shared_ptr<const graphics::Image> image);

  /// The point of the scene that the marker stands for; the origin until set. Any thread.
  graphics::Vector3 position() const;

  /// Moves the marker to a point of the scene. Any thread.
  void setPosition(graphics::Vector3 position);

  /// The sprite, centerd where the position shows.
  std::shared_ptr<sprite::SpriteNode> node;

  /// Whether the frames of the two sprites share an area. `other` is a `MapViewMarker2D` and both
  /// have a sprite; anything else is a fatal error.
  bool collidesWithMarker(const MapViewMarker& other) const override;

 private:
  graphics::Vector3 position_{0.0F};
};

}  // namespace orivanta
