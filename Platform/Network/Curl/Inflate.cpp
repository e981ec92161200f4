#include "Platform/Network/Curl/Inflate.hpp"

#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace orivanta::network {

namespace {

// A gzip member ends with the size of its contents, low byte first. The value may be wrong, so it
// is limited to what the compressed bytes can expand to.
std::uint64_t expectedBytes(std::string_view compressed) {
  constexpr std::uint64_t greatestRatio = 1032;
  constexpr std::uint64_t least = 64;
  if (compressed.size() < 4) return least;
  std::uint64_t size = 0;
  for (const char byte : {compressed.rbegin()[0], compressed.rbegin()[1], compressed.rbegin()[2],
                          compressed.rbegin()[3]})
    size = size << 8U | static_cast<unsigned char>(byte);
  return std::max(least, std::min(size, compressed.size() * greatestRatio));
}

}  // namespace

std::optional<std::string> gunzipped(std::string_view compressed, std::size_t largestBytes,
                                     foundation::BudgetShare* share) {
  z_stream stream{};
  if (inflateInit2(&stream, 15 + 16) != Z_OK) return std::nullopt;
  const std::unique_ptr<z_stream, decltype(&inflateEnd)> owner(&stream, inflateEnd);
  // zlib's pointer is not const, but zlib does not write through it.
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(compressed.data()));
  stream.avail_in = static_cast<uInt>(compressed.size());

  std::string bytes;
  // While the text grows, the old and the new buffer exist at the same time. `std::string` itself
  // would at least double its memory, more than the budget counts.
  const auto grow = [&](std::size_t size) {
    const std::size_t former = bytes.size();
    if (share != nullptr) share->take(size);
    std::string larger;
    larger.reserve(size);
    larger = bytes;
    larger.resize(size);
    bytes.swap(larger);
    if (share != nullptr) share->giveBack(former);
  };
  grow(static_cast<std::size_t>(std::min<std::uint64_t>(largestBytes, expectedBytes(compressed))));
  std::size_t length = 0;
  for (;;) {
    stream.next_out = reinterpret_cast<Bytef*>(bytes.data() + length);
    stream.avail_out = static_cast<uInt>(bytes.size() - length);
    const int outcome = inflate(&stream, Z_NO_FLUSH);
    length = bytes.size() - stream.avail_out;
    if (outcome == Z_STREAM_END) {
      if (stream.avail_in == 0) break;
      if (inflateReset(&stream) != Z_OK) return std::nullopt;
    } else if (outcome != Z_OK || (stream.avail_in == 0 && stream.avail_out > 0)) {
      return std::nullopt;
    }
    if (stream.avail_out == 0) {
      if (bytes.size() >= largestBytes) return std::nullopt;
      grow(std::min(largestBytes, bytes.size() * 2));
    }
  }
  bytes.resize(length);
  return bytes;
}

}  // namespace orivanta::network
