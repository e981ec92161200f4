#include "Platform/Render/PartLook.hpp"

#include <algorithm>
#include <cmath>

#include "Platform/Render/Srgb.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Node.hpp"

namespace orivanta::render {

namespace {

// Image rows are counted from the top, but v from the bottom.
Placement placementOf(const graphics::Matrix4& matrix) {
  return {matrix[0][0],  matrix[1][0],  matrix[2][0],  matrix[3][0],
          -matrix[0][1], -matrix[1][1], -matrix[2][1], 1.0F - matrix[3][1]};
}

std::shared_ptr<scene::Material> materialOf(const scene::Geometry& geometry, std::size_t element) {
  if (element == 0) return geometry.firstMaterial();
  const auto materials = geometry.materials();
  return materials.empty() ? nullptr : materials[element % materials.size()];
}

void paint(PartLook& look, const graphics::Color& color, float opacity) {
  look.color = {byteOf(color.red), byteOf(color.green), byteOf(color.blue),
                byteOf(opacity * color.alpha)};
}

void paint(PartLook& look, scene::Material& material, double time) {
  scene::MaterialProperty diffuse = material.presentedDiffuse(time);
  if (const auto* color = std::get_if<graphics::Color>(&diffuse.contents))
    return paint(look, *color, material.opacity());
  look.color[3] = byteOf(material.opacity());
  look.image = std::move(std::get<std::shared_ptr<const graphics::Image>>(diffuse.contents));
  look.wrapS = diffuse.wrapS;
  look.wrapT = diffuse.wrapT;
  look.placement = placementOf(diffuse.contentsTransform);
}

}  // namespace

PartLook lookOf(const scene::Node& node, const scene::Geometry& geometry, std::size_t element,
                double time) {
  PartLook look;
  if (node.isHidden()) {
    look.visible = false;
    return look;
  }
  look.castsShadow = node.castsShadow();
  const auto material = materialOf(geometry, element);
  if (const auto color = node.displayColor())
    paint(look, *color, material ? material->opacity() : 1.0F);
  else if (material)
    paint(look, *material, time);
  look.translucent = look.color[3] < 255 || (look.image && !look.image->isOpaque());
  look.visible = look.color[3] > 0;
  return look;
}

}  // namespace orivanta::render
