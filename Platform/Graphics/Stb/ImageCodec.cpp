// Decodes and encodes images with stb_image and stb_image_write, which consist of headers only.
#include "Platform/Graphics/ImageCodec.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "Platform/Graphics/BoxFilter.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Graphics/Stb/JpegCheck.hpp"
#include "Platform/Graphics/Stb/PngCheck.hpp"

namespace {

constexpr std::size_t largestWorkBytes = std::size_t{512} << 20U;

// The decoder would allocate whatever compressed data grows to. It reads tables that a damaged file
// does not define, so the memory is cleared.
void* allocateWork(std::size_t bytes) {
  return bytes <= largestWorkBytes ? std::calloc(bytes, 1) : nullptr;
}
void* reallocateWork(void* memory, std::size_t bytes) {
  return bytes <= largestWorkBytes ? std::realloc(memory, bytes) : nullptr;
}

}  // namespace

#define STBI_MALLOC(bytes) allocateWork(bytes)
#define STBI_REALLOC(memory, bytes) reallocateWork(memory, bytes)
#define STBI_FREE(memory) std::free(memory)
#define STBI_MAX_DIMENSIONS 16384  // Image::maximumSide
#define STBI_ONLY_JPEG
#define STBI_ONLY_PNG
#define STBI_NO_FAILURE_STRINGS
#define STBI_NO_STDIO
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#include <stb/stb_image.h>
#define STBI_WRITE_NO_STDIO
#define STB_IMAGE_WRITE_STATIC
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb/stb_image_write.h>

namespace orivanta::graphics {

namespace {

static_assert(STBI_MAX_DIMENSIONS == Image::maximumSide);

struct ReleasePixels {
  void operator()(stbi_uc* pixels) const { stbi_image_free(pixels); }
};

// The decoder makes the image in its full size, which is then reduced.
std::shared_ptr<const Image> reduced(const stbi_uc* pixels, PixelSize size, std::uint32_t factor,
                                     double scale) {
  BoxFilter filter(size.width, size.height, factor);
  for (std::uint32_t y = 0; y < size.height; ++y)
    filter.addRow(pixels + std::size_t{4} * size.width * y);
  return Image::make(filter.width(), filter.height(), filter.takePixels(), scale);
}

bool isSound(std::span<const std::uint8_t> bytes) {
  if (hasPngSignature(bytes)) return isSoundPng(bytes);
  return isJpeg(bytes) && isSoundJpeg(bytes);
}

void append(void* target, void* data, int count) {
  const auto* bytes = static_cast<const std::uint8_t*>(data);
  auto& all = *static_cast<std::vector<std::uint8_t>*>(target);
  all.insert(all.end(), bytes, bytes + count);
}

}  // namespace

std::optional<PixelSize> decodeImageSize(std::span<const std::uint8_t> bytes) {
  if (hasPngSignature(bytes)) return sizeOfPng(bytes);
  return isJpeg(bytes) ? jpegSize(bytes) : std::nullopt;
}

std::shared_ptr<const Image> decodeImage(std::span<const std::uint8_t> bytes, double scale,
                                         std::uint64_t mostPixels) {
  constexpr int channels = 4;
  if (bytes.size() > std::numeric_limits<int>::max()) return nullptr;
  const auto size = decodeImageSize(bytes);
  if (!size || !Image::allows(size->width, size->height) || !isSound(bytes)) return nullptr;
  int width = 0;
  int height = 0;
  const std::unique_ptr<stbi_uc, ReleasePixels> pixels(stbi_load_from_memory(
      bytes.data(), static_cast<int>(bytes.size()), &width, &height, nullptr, channels));
  if (!pixels || std::cmp_not_equal(width, size->width) || std::cmp_not_equal(height, size->height))
    return nullptr;
  const std::uint32_t factor = reductionFor(size->width, size->height, mostPixels);
  if (factor > 1) return reduced(pixels.get(), *size, factor, scale);
  const std::size_t count = size->pixels() * channels;
  return Image::make(size->width, size->height, {pixels.get(), pixels.get() + count}, scale);
}

// The encoder's levels of compression hardly differ in time, so the effort has no effect.
std::vector<std::uint8_t> encodePng(const Image& image, PngEffort) {
  const std::size_t channels = image.isOpaque() ? 3 : 4;
  const std::uint8_t* pixels = image.pixels().data();
  std::vector<std::uint8_t> packed;
  if (image.isOpaque()) {
    packed.reserve(image.pixels().size() / 4 * 3);
    for (std::size_t i = 0; i < image.pixels().size(); i += 4)
      packed.insert(packed.end(), pixels + i, pixels + i + 3);
    pixels = packed.data();
  }
  std::vector<std::uint8_t> bytes;
  if (stbi_write_png_to_func(append, &bytes, static_cast<int>(image.width()),
                             static_cast<int>(image.height()), static_cast<int>(channels), pixels,
                             static_cast<int>(image.width() * channels)) == 0)
    throw std::bad_alloc();  // no other error is possible here
  return bytes;
}

}  // namespace orivanta::graphics
