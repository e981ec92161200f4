// Collects the contents of a 2D scene in drawing order.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Sprite/Scene.hpp"

namespace orivanta::render {

/// An image in a sprite scene, with its frame in the scene's coordinates.
struct PlacedSprite {
  std::shared_ptr<const graphics::Image> image;
  graphics::Rect frame;
  double zPosition;
  double alpha;
};

/// Sorted from back to front: by z position, and in tree order where it is equal. Texts are
/// rendered with `scale` pixels per point. Call within a transaction.
std::vector<PlacedSprite> gatherSprites(const sprite::Scene& scene, double scale);

}  // namespace orivanta::render
