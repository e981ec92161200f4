#include "Platform/Render/SpriteGatherer.hpp"

#include <algorithm>

#include "Platform/Foundation/Sorting.hpp"
#include "Platform/Sprite/Node.hpp"

namespace orivanta::render {

namespace {

graphics::Rect centered(graphics::Point center, graphics::Size size) {
  return {{center.x - size.width / 2, center.y - size.height / 2}, size};
}

struct Walk {
  double scale;
  std::vector<PlacedSprite>& sprites;

  void visit(const sprite::Node& node, graphics::Point parent, double parentZ, double parentAlpha) {
    const double alpha = parentAlpha * node.alpha();
    if (node.isHidden() || alpha <= 0) return;
    const graphics::Point own = node.position();
    const graphics::Point position{parent.x + own.x, parent.y + own.y};
    const double z = parentZ + node.zPosition();
    if (const auto* sprite = dynamic_cast<const sprite::SpriteNode*>(&node))
      add(sprite->texture(), centered(position, sprite->size()), z, alpha);
    else if (const auto* label = dynamic_cast<const sprite::LabelNode*>(&node))
      if (const auto image = label->image(scale))
        add(image, centered(position, image->size()), z, alpha);
    for (const auto& child : node.children()) visit(*child, position, z, alpha);
  }

  void add(std::shared_ptr<const graphics::Image> image, graphics::Rect frame, double z,
           double alpha) {
    if (image) sprites.push_back({std::move(image), frame, z, alpha});
  }
};

}  // namespace

std::vector<PlacedSprite> gatherSprites(const sprite::Scene& scene, double scale) {
  std::vector<PlacedSprite> sprites;
  Walk walk{scale, sprites};
  if (!scene.isHidden())
    for (const auto& child : scene.children()) walk.visit(*child, {0, 0}, 0, scene.alpha());
  foundation::stableSort(sprites.begin(), sprites.end(),
                         [](const auto& a, const auto& b) { return a.zPosition < b.zPosition; });
  return sprites;
}

}  // namespace orivanta::render
