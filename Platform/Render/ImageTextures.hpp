// Uploads images as textures, each image once.
#pragma once

#include <map>
#include <memory>
#include <utility>

#include "Platform/Graphics/Image.hpp"
#include "Platform/Render/FrameStatistics.hpp"
#include "Platform/Render/Gl.hpp"
#include "Platform/Scene/Material.hpp"

namespace orivanta::render {

/// The color space in which the texels of a texture are interpolated. Texels are premultiplied by
/// their alpha in both.
enum class TexelSpace {
  encoded,  ///< sRGB values, for 2D
  linear    ///< decoded to linear light by the texture unit, for 3D; always has mipmaps
};

/// Keyed by the image's identity. Images larger than the driver's limit are halved until they fit.
class ImageTextures {
 public:
  ImageTextures();

  /// Binds the image's texture to the active texture unit.
  void bind(const std::shared_ptr<const graphics::Image>& image, TexelSpace space, bool shrinks,
            FrameStatistics& statistics);

  /// Sets the wrap modes of a texture unit as in a material.
  void bindSampler(GLuint unit, scene::WrapMode wrapS, scene::WrapMode wrapT) const;

  /// Deletes the textures of images that no longer exist.
  void collect();

 private:
  struct Entry {
    std::weak_ptr<const graphics::Image> image;
    gl::Texture texture;
    bool hasMipmaps = false;
  };
  using Key = std::pair<const graphics::Image*, TexelSpace>;

  void upload(const graphics::Image& image, TexelSpace space, FrameStatistics& statistics) const;

  std::map<Key, Entry> entries_;
  gl::Sampler samplers_[2][2];
  GLint largestSide_;
};

}  // namespace orivanta::render
