// Reads the input as an image file. An image that can be decoded must survive a PNG round trip
// unchanged.
#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "Fuzz/Fuzzer.hpp"
#include "Platform/Graphics/ImageFile.hpp"

namespace orivanta::graphics {
namespace {

constexpr std::size_t headBytes = 8;  // of a PNG file, and of each of its chunks

// Without this, mutated PNG files would be rejected because of their checksums.
std::vector<std::uint8_t> withRightChecksums(std::vector<std::uint8_t> bytes) {
  std::span<std::uint8_t> left = bytes;
  left = left.subspan(std::min(left.size(), headBytes));
  while (left.size() >= headBytes + 4) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < 4; ++i) length = length << 8U | left[i];
    if (length > left.size() - headBytes - 4) break;
    const uLong checksum = crc32(0, left.data() + 4, static_cast<uInt>(length + 4));
    for (std::size_t i = 0; i < 4; ++i)
      left[headBytes + length + i] = static_cast<std::uint8_t>(checksum >> (24 - 8 * i));
    left = left.subspan(headBytes + length + 4);
  }
  return bytes;
}

void check(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t mostPixelBytes = 1U << 20U;  // writing larger ones takes long
  const auto image = decodeImage(bytes);
  if (!image || image->pixels().size() > mostPixelBytes) return;
  const auto again = decodeImage(encodePng(*image));
  ORIVANTA_REQUIRE(again && std::equal(image->pixels().begin(), image->pixels().end(),
                                       again->pixels().begin(), again->pixels().end()));
}

void checkPicture(std::string_view input) {
  const std::vector<std::uint8_t> bytes(input.begin(), input.end());
  check(bytes);
  if (!bytes.empty() && bytes[0] == 0x89) check(withRightChecksums(bytes));
}

}  // namespace
}  // namespace orivanta::graphics

ORIVANTA_FUZZER(Image, orivanta::graphics::checkPicture)
