#include "Platform/Graphics/Stb/JpegCheck.hpp"

#include <cstddef>

namespace orivanta::graphics {

namespace {

using Bytes = std::span<const std::uint8_t>;

// A progressive file may contain any number of scans, each as expensive as decoding the whole
// image.
constexpr int mostScans = 200;

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
  int scans = 0;
  while (const auto marker = markers.next()) {
    if (*marker == endOfImage) return scans > 0;
    if (*marker == startOfScan && ++scans > mostScans) return false;
  }
  return false;
}

}  // namespace orivanta::graphics
