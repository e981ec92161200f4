// The appearance of one part of a scene in one frame.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "Platform/Graphics/Image.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Platform/Scene/Material.hpp"

namespace orivanta::render {

/// Red, green, blue and alpha; sRGB values that are not premultiplied.
using Texel = std::array<std::uint8_t, 4>;

/// Two rows of a matrix: the texture coordinate for (u, v) is row * (u, v, 0, 1). Its origin is the
/// upper left corner of the image.
using Placement = std::array<float, 8>;

struct PartLook {
  Texel color{255, 255, 255, 255};  ///< white for an image; the alpha is the total opacity
  bool visible = true;              ///< false if hidden or completely transparent
  bool translucent = false;
  bool castsShadow = true;
  std::uint16_t group = 0;  ///< see SceneSnapshot::groups; 0 unless opaque
  scene::WrapMode wrapS = scene::WrapMode::clamp;
  scene::WrapMode wrapT = scene::WrapMode::clamp;
  std::shared_ptr<const graphics::Image> image;  ///< null for a single color
  Placement placement{1, 0, 0, 0, 0, -1, 0, 1};

  friend bool operator==(const PartLook&, const PartLook&) = default;
};

/// The look of an element of a node's geometry at a time of the frame clock, including the node's
/// own settings. Call within a transaction.
PartLook lookOf(const scene::Node& node, const scene::Geometry& geometry, std::size_t element,
                double time);

}  // namespace orivanta::render
