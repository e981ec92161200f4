// How one part of a scene looks in one frame.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Platform/Scene/Material.hpp"

namespace orivanta::render {

/// Red, green, blue and alpha as sRGB has them, not multiplied by the alpha.
using Texel = std::array<std::uint8_t, 4>;

/// Two rows of a matrix: the texture point of (u, v) is row * (u, v, 0, 1). Texture points have
/// their origin at the upper left corner of the image.
using Placement = std::array<float, 8>;

struct PartLook {
  Texel color{255, 255, 255, 255};  ///< white for an image; the alpha is the whole opacity
  bool visible = true;              ///< false for what is hidden or wholly transparent
  bool translucent = false;
  bool castsShadow = true;
  scene::WrapMode wrapS = scene::WrapMode::clamp;
  scene::WrapMode wrapT = scene::WrapMode::clamp;
  std::shared_ptr<const graphics::Image> image;  ///< null for one color
  Placement placement{1, 0, 0, 0, 0, -1, 0, 1};

  friend bool operator==(const PartLook&, const PartLook&) = default;
};

/// How an element of a node's geometry looks at a time of the frames' clock, its node's own
/// switches included. Under a transaction.
PartLook lookOf(const scene::Node& node, const scene::Geometry& geometry, std::size_t element,
                double time);

}  // namespace orivanta::render
