// Images as textures, each uploaded once.
#pragma once

#include <map>
#include <memory>
#include <utility>

#include "Platform/Graphics/Image.hpp"
#include "Platform/Render/FrameStatistics.hpp"
#include "Platform/Render/Gl.hpp"
#include "Platform/Scene/Material.hpp"

namespace orivanta::render {

/// In which space the texels of a texture are mixed; they are multiplied by their alpha in both.
enum class TexelSpace {
  encoded,  ///< sRGB values as they are, for 2D
  linear    ///< decoded by the texture unit, for 3D; always with mipmaps
};

/// Keyed by the image's identity. An image with a side beyond what the driver allows is halved
/// until it fits.
class ImageTextures {
 public:
  ImageTextures();

  /// Binds to the active texture unit.
  void bind(const std::shared_ptr<const graphics::Image>& image, TexelSpace space, bool shrinks,
            FrameStatistics& statistics);

  /// Makes a texture unit sample as a material says.
  void bindSampler(GLuint unit, scene::WrapMode wrapS, scene::WrapMode wrapT) const;

  /// Lets go of the textures of images that are gone.
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
