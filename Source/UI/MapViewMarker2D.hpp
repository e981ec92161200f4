// A marker with an image that stays upright and has the same size at every distance.
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

  /// `size` is in points of the overlay. If the image is null, the marker shows nothing.
  MapViewMarker2D(graphics::Size size, std::shared_ptr<const graphics::Image> image);

  /// Returns the scene point of the marker; the origin until set. Any thread.
  graphics::Vector3 position() const;

  /// Moves the marker to a scene point. Any thread.
  void setPosition(graphics::Vector3 position);

  /// The sprite, centered on the marker's position in the overlay.
  std::shared_ptr<sprite::SpriteNode> node;

  /// Returns whether the frames of the two sprites overlap. It is a fatal error if `other` is not a
  /// `MapViewMarker2D` or one of the two has no sprite.
  bool collidesWithMarker(const MapViewMarker& other) const override;

 private:
  graphics::Vector3 position_{0.0F};
};

}  // namespace orivanta
