#include "Platform/Graphics/ImageFile.hpp"

#include <algorithm>
#include <cstddef>
#include <system_error>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Graphics/DecodingRoom.hpp"
#include "Platform/Graphics/ImageCodec.hpp"

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

}  // namespace

std::optional<PixelSize> readImageSize(const std::filesystem::path& file) {
  std::vector<std::uint8_t> bytes;
  foundation::readInBlocks(file, [&](std::string_view block) {
    block = block.substr(0, bytesToSize - bytes.size());
    bytes.insert(bytes.end(), block.begin(), block.end());
    return bytes.size() < bytesToSize;
  });
  return decodeImageSize(bytes);
}

std::shared_ptr<const Image> readImage(const std::filesystem::path& file, double scale,
                                       std::uint64_t mostPixels) {
  const DecodingRoom room(bytesToRead(file));
  const auto bytes = foundation::readFile(file, largestFileBytes);
  if (!bytes) return nullptr;
  return decodeImage({reinterpret_cast<const std::uint8_t*>(bytes->data()), bytes->size()}, scale,
                     mostPixels);
}

foundation::Result<void> writePng(const Image& image, const std::filesystem::path& file,
                                  PngEffort effort) {
  const auto bytes = encodePng(image, effort);
  return foundation::writeFileAtomically(
      file, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

}  // namespace orivanta::graphics
