#include "Apps/Server/Gzip.hpp"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>

namespace orivanta::server {

namespace {

struct Deflation {
  explicit Deflation(GzipLevel level) {
    constexpr int gzipWindow = MAX_WBITS + 16;  // adding 16 selects gzip instead of zlib's format
    const int effort = level == GzipLevel::fastest ? Z_BEST_SPEED : Z_BEST_COMPRESSION;
    if (deflateInit2(&stream, effort, Z_DEFLATED, gzipWindow, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY) !=
        Z_OK)
      throw std::bad_alloc();
  }
  ~Deflation() { deflateEnd(&stream); }
  Deflation(const Deflation&) = delete;
  Deflation& operator=(const Deflation&) = delete;

  z_stream stream{};
};

}  // namespace

std::string gzipped(const ByteSource& source, GzipLevel level) {
  constexpr std::size_t chunkBytes = 64U << 10U;
  Deflation deflation(level);
  z_stream& stream = deflation.stream;
  std::string output;
  const auto chunks = std::make_unique<std::array<std::array<char, chunkBytes>, 2>>();
  auto& [input, compressed] = *chunks;
  int flush = Z_NO_FLUSH;
  do {
    stream.avail_in = static_cast<uInt>(source(input.data(), input.size()));
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    if (stream.avail_in == 0) flush = Z_FINISH;
    do {
      stream.next_out = reinterpret_cast<Bytef*>(compressed.data());
      stream.avail_out = static_cast<uInt>(compressed.size());
      deflate(&stream, flush);
      output.append(compressed.data(), compressed.size() - stream.avail_out);
    } while (stream.avail_out == 0);
  } while (flush != Z_FINISH);
  return output;
}

std::string gzipped(std::string_view bytes, GzipLevel level) {
  const auto source = [&](char* target, std::size_t count) {
    count = bytes.copy(target, count);
    bytes.remove_prefix(count);
    return count;
  };
  return gzipped(source, level);
}

}  // namespace orivanta::server
