// What a 2D scene shows, in the order in which it is drawn.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Sprite/Scene.hpp"

namespace orivanta::render {

/// A picture of a sprite scene, its frame in the scene's coordinates.
struct PlacedSprite {
  std::shared_ptr<const graphics::Image> image;
  graphics::Rect frame;
  double zPosition;
  double alpha;
};

/// From the back to the front: by z position and, where it is the same, in the order of the tree.
/// Texts are made with `scale` pixels per point. Under a transaction.
std::vector<PlacedSprite> gatherSprites(const sprite::Scene& scene, double scale);

}  // namespace orivanta::render
