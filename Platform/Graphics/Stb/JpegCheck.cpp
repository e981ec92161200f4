#include "Platform/Graphics/Stb/JpegCheck.hpp"

#include <array>
#include <cstddef>

namespace orivanta::graphics {

namespace {

using Bytes = std::span<const std::uint8_t>;

// A progressive file may contain any number of scans, each as expensive as decoding the whole
// image.
constexpr int mostScans = 200;

constexpr std::uint8_t progressiveFrame = 0xC2;
constexpr std::uint8_t huffmanTables = 0xC4;
constexpr std::uint8_t endOfImage = 0xD9;
constexpr std::uint8_t startOfScan = 0xDA;

bool isStartOfFrame(std::uint8_t marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// Markers that stand alone or inside the data of a scan.
bool hasNoSegment(std::uint8_t marker) {
  return marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

// Visits the markers of a file. Data of scans and stray bytes are skipped.
class Markers {
 public:
  explicit Markers(Bytes bytes) : left_(bytes) {}

  // Returns the next marker that has a segment or ends the image, and nothing at the end of the
  // bytes.
  std::optional<std::uint8_t> next() {
    while (left_.size() >= 2) {
      const bool isMarker = left_[0] == 0xFF && left_[1] != 0xFF && !hasNoSegment(left_[1]);
      const std::uint8_t marker = left_[1];
      left_ = left_.subspan(isMarker || (left_[0] == 0xFF && left_[1] != 0xFF) ? 2 : 1);
      if (!isMarker) continue;
      if (marker == endOfImage) return marker;
      if (!takeSegment()) break;
      return marker;
    }
    return std::nullopt;
  }

  // The contents of the last segment.
  Bytes segment() const { return segment_; }

 private:
  bool takeSegment() {
    if (left_.size() < 2) return false;
    const std::size_t length = std::size_t{left_[0]} << 8U | left_[1];
    if (length < 2 || length > left_.size()) return false;
    segment_ = left_.subspan(2, length - 2);
    left_ = left_.subspan(length);
    return true;
  }

  Bytes left_;
  Bytes segment_;
};

// The Huffman tables of a file. The decoder trusts their sizes, and that they come before the scans
// that use them.
class HuffmanTables {
 public:
  // Adds the tables of a segment. Returns false if one has too many codes or does not fit.
  bool add(Bytes segment) {
    constexpr std::size_t headBytes = 17;
    constexpr std::size_t mostCodes = 256;
    while (segment.size() >= headBytes) {
      std::size_t codes = 0;
      for (std::size_t length = 1; length < headBytes; ++length) codes += segment[length];
      if (codes > mostCodes || codes > segment.size() - headBytes) return false;
      known_.at(segment[0] >> 4U & 1U).at(segment[0] & 3U) = true;
      segment = segment.subspan(headBytes + codes);
    }
    return segment.empty();
  }

  // Returns whether the tables of a scan, given the contents of its segment, are known.
  bool serve(Bytes scan, bool isProgressive) const {
    const std::size_t channels = scan.empty() ? 0 : scan[0];
    if (channels == 0 || scan.size() != 2 * channels + 4) return false;
    // The first coefficient has tables of its own. Only progressive files decode fewer than all.
    const bool hasFirst = !isProgressive || scan[2 * channels + 1] == 0;
    const bool hasOthers = !isProgressive || scan[2 * channels + 2] > 0;
    for (std::size_t i = 0; i < channels; ++i) {
      const std::uint8_t tables = scan[2 + 2 * i];
      if (hasFirst && !known_[0].at(tables >> 4U & 3U)) return false;
      if (hasOthers && !known_[1].at(tables & 3U)) return false;
    }
    return true;
  }

 private:
  std::array<std::array<bool, 4>, 2> known_{};
};

// The contents of the segment that describes the image, which has at least 6 bytes.
std::optional<Bytes> frameOf(Bytes bytes) {
  Markers markers(bytes);
  while (const auto marker = markers.next())
    if (isStartOfFrame(*marker) && markers.segment().size() >= 6) return markers.segment();
  return std::nullopt;
}

}  // namespace

bool isJpeg(Bytes bytes) {
  return bytes.size() >= 3 && bytes[0] == 0xFF && bytes[1] == 0xD8 && bytes[2] == 0xFF;
}

std::optional<PixelSize> jpegSize(Bytes bytes) {
  const auto frame = frameOf(bytes);
  if (!frame) return std::nullopt;
  const auto side = [&](std::size_t at) {
    return std::uint32_t{(*frame)[at]} << 8U | (*frame)[at + 1];
  };
  const PixelSize size{side(3), side(1)};
  return Image::allows(size.width, size.height) ? std::optional(size) : std::nullopt;
}

bool isSoundJpeg(Bytes bytes) {
  constexpr std::size_t channelsAt = 5;
  const auto frame = frameOf(bytes);
  if (!frame || ((*frame)[channelsAt] != 1 && (*frame)[channelsAt] != 3)) return false;
  Markers markers(bytes);
  HuffmanTables tables;
  bool isProgressive = false;
  int scans = 0;
  while (const auto marker = markers.next()) {
    const Bytes segment = markers.segment();
    if (*marker == endOfImage) return scans > 0;
    if (*marker == huffmanTables && !tables.add(segment)) return false;
    isProgressive = isProgressive || *marker == progressiveFrame;
    if (*marker != startOfScan) continue;
    if (++scans > mostScans || !tables.serve(segment, isProgressive)) return false;
  }
  return false;
}

}  // namespace orivanta::graphics
