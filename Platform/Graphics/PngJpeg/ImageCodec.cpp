// Decodes and encodes images with libpng and libjpeg-turbo.
#include "Platform/Graphics/ImageCodec.hpp"

#include <png.h>

#include <algorithm>
#include <new>
#include <vector>

#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Graphics/PngJpeg/JpegReader.hpp"
#include "Platform/Graphics/PngJpeg/PngReader.hpp"

namespace orivanta::graphics {

namespace {

std::vector<std::uint8_t> withoutAlpha(std::span<const std::uint8_t> pixels) {
  std::vector<std::uint8_t> packed(pixels.size() / 4 * 3);
  std::uint8_t* to = packed.data();
  for (std::size_t i = 0; i + 4 <= pixels.size(); i += 4, to += 3) std::copy_n(&pixels[i], 3, to);
  return packed;
}

}  // namespace

std::optional<PixelSize> decodeImageSize(std::span<const std::uint8_t> bytes) {
  if (isPng(bytes)) return pngSize(bytes);
  return isJpeg(bytes) ? jpegSize(bytes) : std::nullopt;
}

std::shared_ptr<const Image> decodeImage(std::span<const std::uint8_t> bytes, double scale,
                                         std::uint64_t mostPixels) {
  if (isPng(bytes)) return decodePng(bytes, scale, mostPixels);
  return isJpeg(bytes) ? decodeJpeg(bytes, scale, mostPixels) : nullptr;
}

std::vector<std::uint8_t> encodePng(const Image& image, PngEffort effort) {
  png_image header{};
  header.version = PNG_IMAGE_VERSION;
  header.width = image.width();
  header.height = image.height();
  header.format = image.isOpaque() ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
  if (effort == PngEffort::low) header.flags = PNG_IMAGE_FLAG_FAST;
  const auto packed = image.isOpaque() ? withoutAlpha(image.pixels()) : std::vector<std::uint8_t>();
  const void* const pixels = image.isOpaque() ? packed.data() : image.pixels().data();
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(header);
  std::vector<std::uint8_t> bytes(size);
  if (png_image_write_to_memory(&header, bytes.data(), &size, 0, pixels, 0, nullptr) == 0)
    throw std::bad_alloc();  // no other error is possible here
  bytes.resize(size);
  return bytes;
}

}  // namespace orivanta::graphics
