#include "Platform/Graphics/Stb/PngCheck.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace orivanta::graphics {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::array<std::uint8_t, 8> signature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t sizesAt = 16;
constexpr std::size_t depthAt = 24;
constexpr std::size_t colorTypeAt = 25;
constexpr std::size_t headerBytes = 13;

// The maximum compression ratio of deflate (RFC 1951).
constexpr std::uint64_t greatestInflation = 1032;

constexpr std::array<std::uint32_t, 256> makeChecksumTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < table.size(); ++i) {
    std::uint32_t value = i;
    for (int bit = 0; bit < 8; ++bit) value = value >> 1U ^ ((value & 1U) != 0 ? 0xEDB88320U : 0U);
    table[i] = value;
  }
  return table;
}

constexpr auto checksumTable = makeChecksumTable();

std::uint32_t checksum(Bytes bytes) {
  std::uint32_t value = 0xFFFFFFFFU;
  for (const std::uint8_t byte : bytes) value = checksumTable[(value ^ byte) & 255U] ^ value >> 8U;
  return ~value;
}

std::uint32_t numberAt(Bytes bytes, std::size_t place) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) value = value << 8U | bytes[place + i];
  return value;
}

// Returns 0 if the color type is unknown.
std::uint64_t bitsPerPixel(Bytes bytes) {
  constexpr std::array<std::uint64_t, 7> channels = {1, 0, 3, 1, 2, 0, 4};  // by color type
  const std::size_t colorType = bytes[colorTypeAt];
  return colorType < channels.size() ? bytes[depthAt] * channels[colorType] : 0;
}

bool mayHoldPixels(Bytes bytes) {
  const PixelSize size = *sizeOfPng(bytes);
  const std::uint64_t rowBytes = (size.width * bitsPerPixel(bytes) + 7) / 8;
  return rowBytes > 0 && rowBytes * size.height / greatestInflation <= bytes.size();
}

}  // namespace

bool hasPngSignature(Bytes bytes) {
  return bytes.size() >= signature.size() &&
         std::equal(signature.begin(), signature.end(), bytes.begin());
}

std::optional<PixelSize> sizeOfPng(Bytes bytes) {
  if (bytes.size() < sizesAt + 8) return std::nullopt;
  return PixelSize{numberAt(bytes, sizesAt), numberAt(bytes, sizesAt + 4)};
}

bool isSoundPng(Bytes bytes) {
  constexpr std::size_t typeBytes = 4;
  Bytes left = bytes.subspan(signature.size());
  for (bool isFirst = true; left.size() >= 3 * typeBytes; isFirst = false) {
    const std::size_t length = numberAt(left, 0);
    if (length > left.size() - 3 * typeBytes) return false;
    const Bytes chunk = left.subspan(typeBytes, typeBytes + length);
    const std::string_view type(reinterpret_cast<const char*>(chunk.data()), typeBytes);
    if (isFirst && (type != "IHDR" || length != headerBytes)) return false;
    const bool isUsed = type == "tRNS" || (type[0] >= 'A' && type[0] <= 'Z');
    if (isUsed && checksum(chunk) != numberAt(left, 2 * typeBytes + length)) return false;
    if (type == "IEND") return mayHoldPixels(bytes);
    left = left.subspan(3 * typeBytes + length);
  }
  return false;
}

}  // namespace orivanta::graphics
