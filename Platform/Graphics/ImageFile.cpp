#include "Platform/Graphics/ImageFile.hpp"

#include <png.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <new>
#include <string_view>
#include <system_error>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Graphics/DecodingRoom.hpp"
#include "Platform/Graphics/JpegReader.hpp"
#include "Platform/Graphics/PngReader.hpp"

namespace orivanta::graphics {

namespace {

constexpr std::size_t largestFileBytes = 256U << 20U;

// The size comes within this many bytes, even after the metadata of a camera.
constexpr std::size_t bytesToSize = 256U << 10U;

// A rough upper bound of the memory for decoding an image. A progressive JPEG or an interlaced PNG
// is held in memory completely.
std::uint64_t bytesToRead(const std::filesystem::path& file) {
  std::error_code failure;
  const std::uint64_t fileBytes = std::filesystem::file_size(file, failure);
  const auto size = readImageSize(file);
  const std::uint64_t pixels = size ? size->pixels() : Image::maximumPixels;
  return (failure ? 0 : fileBytes) + 4 * std::min(pixels, Image::maximumPixels);
}

std::vector<std::uint8_t> withoutAlpha(std::span<const std::uint8_t> pixels) {
  std::vector<std::uint8_t> packed;
  packed.reserve(pixels.size() / 4 * 3);
  for (std::size_t i = 0; i < pixels.size(); ++i)
    if (i % 4 != 3) packed.push_back(pixels[i]);
  return packed;
}

}  // namespace

std::shared_ptr<const Image> decodeImage(std::span<const std::uint8_t> bytes, double scale,
                                         std::uint64_t mostPixels) {
  if (isPng(bytes)) return decodePng(bytes, scale, mostPixels);
  return isJpeg(bytes) ? decodeJpeg(bytes, scale, mostPixels) : nullptr;
}

std::optional<PixelSize> readImageSize(const std::filesystem::path& file) {
  std::vector<std::uint8_t> bytes(bytesToSize);
  std::ifstream stream(file, std::ios::binary);
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  if (isPng(bytes)) return pngSize(bytes);
  return isJpeg(bytes) ? jpegSize(bytes) : std::nullopt;
}

std::shared_ptr<const Image> readImage(const std::filesystem::path& file, double scale,
                                       std::uint64_t mostPixels) {
  const DecodingRoom room(bytesToRead(file));
  const auto bytes = foundation::readFile(file, largestFileBytes);
  if (!bytes) return nullptr;
  return decodeImage({reinterpret_cast<const std::uint8_t*>(bytes->data()), bytes->size()}, scale,
                     mostPixels);
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

foundation::Result<void> writePng(const Image& image, const std::filesystem::path& file,
                                  PngEffort effort) {
  const auto bytes = encodePng(image, effort);
  return foundation::writeFileAtomically(
      file, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

}  // namespace orivanta::graphics
