#include "Platform/Render/ImageTextures.hpp"

#include <algorithm>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

#include "Platform/Render/Texels.hpp"

// From the extension EXT_texture_filter_anisotropic.
#ifndef GL_TEXTURE_MAX_ANISOTROPY_EXT
#define GL_TEXTURE_MAX_ANISOTROPY_EXT 0x84FE
#endif

namespace orivanta::render {

namespace {

constexpr float anisotropy = 4.0F;

struct Pixels {
  std::uint32_t width;
  std::uint32_t height;
  std::vector<std::uint8_t> bytes;
};

// Software drivers are slow at anisotropic filtering, and one of them distorts magnified images.
bool hasAnisotropy() {
  const auto* renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
  for (const char* software : {"llvmpipe", "softpipe", "SwiftShader"})
    if (std::strstr(renderer, software) != nullptr) return false;
  for (GLint i = 0; i < gl::parameter(GL_NUM_EXTENSIONS); ++i) {
    const auto* name = glGetStringi(GL_EXTENSIONS, static_cast<GLuint>(i));
    if (std::strcmp(reinterpret_cast<const char*>(name), "GL_EXT_texture_filter_anisotropic") == 0)
      return true;
  }
  return false;
}

// Averages up to four pixels to one. A side of one pixel is kept.
Pixels halve(const Pixels& from) {
  Pixels to{std::max(from.width / 2, 1U), std::max(from.height / 2, 1U), {}};
  to.bytes.resize(std::size_t{4} * to.width * to.height);
  const auto at = [&](std::uint32_t x, std::uint32_t y, std::size_t c) -> unsigned {
    x = std::min(x, from.width - 1);
    y = std::min(y, from.height - 1);
    return from.bytes[4 * (std::size_t{y} * from.width + x) + c];
  };
  for (std::uint32_t y = 0; y < to.height; ++y)
    for (std::uint32_t x = 0; x < to.width; ++x)
      for (std::size_t c = 0; c < 4; ++c)
        to.bytes[4 * (std::size_t{y} * to.width + x) + c] =
            static_cast<std::uint8_t>((at(2 * x, 2 * y, c) + at(2 * x + 1, 2 * y, c) +
                                       at(2 * x, 2 * y + 1, c) + at(2 * x + 1, 2 * y + 1, c) + 2) /
                                      4);
  return to;
}

GLint wrapParameter(int mode) { return mode == 0 ? GL_CLAMP_TO_EDGE : GL_REPEAT; }

}  // namespace

ImageTextures::ImageTextures() : largestSide_(gl::parameter(GL_MAX_TEXTURE_SIZE)) {
  static_assert(static_cast<int>(scene::WrapMode::clamp) == 0);
  const bool anisotropic = hasAnisotropy();
  for (int s = 0; s < 2; ++s)
    for (int t = 0; t < 2; ++t) {
      const GLuint sampler = samplers_[s][t].get();
      glSamplerParameteri(sampler, GL_TEXTURE_WRAP_S, wrapParameter(s));
      glSamplerParameteri(sampler, GL_TEXTURE_WRAP_T, wrapParameter(t));
      glSamplerParameteri(sampler, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
      glSamplerParameteri(sampler, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
      if (anisotropic) glSamplerParameterf(sampler, GL_TEXTURE_MAX_ANISOTROPY_EXT, anisotropy);
    }
}

void ImageTextures::bind(const std::shared_ptr<const graphics::Image>& image, TexelSpace space,
                         bool shrinks, FrameStatistics& statistics) {
  const Key key{image.get(), space};
  auto found = entries_.find(key);
  if (found != entries_.end() && found->second.image.expired()) {
    entries_.erase(found);
    found = entries_.end();
  }
  if (found == entries_.end()) {
    found = entries_.try_emplace(key).first;
    found->second.image = image;
    glBindTexture(GL_TEXTURE_2D, found->second.texture.get());
    upload(*image, space, statistics);
  }
  Entry& entry = found->second;
  glBindTexture(GL_TEXTURE_2D, entry.texture.get());
  if (entry.hasMipmaps || (!shrinks && space == TexelSpace::encoded)) return;
  glGenerateMipmap(GL_TEXTURE_2D);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
  entry.hasMipmaps = true;
}

void ImageTextures::upload(const graphics::Image& image, TexelSpace space,
                           FrameStatistics& statistics) const {
  const auto source = image.pixels();
  Pixels pixels{image.width(), image.height(), {source.begin(), source.end()}};
  if (!image.isOpaque())
    space == TexelSpace::linear ? multiplyLinear(pixels.bytes) : multiplyEncoded(pixels.bytes);
  const auto largest = static_cast<std::uint32_t>(largestSide_);
  while (pixels.width > largest || pixels.height > largest) pixels = halve(pixels);

  glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
  glTexImage2D(GL_TEXTURE_2D, 0, space == TexelSpace::linear ? GL_SRGB8_ALPHA8 : GL_RGBA8,
               static_cast<GLsizei>(pixels.width), static_cast<GLsizei>(pixels.height), 0, GL_RGBA,
               GL_UNSIGNED_BYTE, pixels.bytes.data());
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
  statistics.bytesUploaded += static_cast<std::int64_t>(pixels.bytes.size());
}

void ImageTextures::bindSampler(GLuint unit, scene::WrapMode wrapS, scene::WrapMode wrapT) const {
  glBindSampler(unit, samplers_[static_cast<int>(wrapS)][static_cast<int>(wrapT)].get());
}

void ImageTextures::collect() {
  for (auto entry = entries_.begin(); entry != entries_.end();)
    entry = entry->second.image.expired() ? entries_.erase(entry) : std::next(entry);
}

}  // namespace orivanta::render
