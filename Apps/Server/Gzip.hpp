// Gzip compression of response bodies.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace orivanta::server {

/// Fills the buffer with at most `count` further bytes and returns their number; 0 at the end.
using ByteSource = std::function<std::size_t(char* bytes, std::size_t count)>;

/// Compressing smaller texts saves too little.
constexpr std::size_t smallestCompressed = 1024;

enum class GzipLevel { fastest, smallest };

/// The bytes in gzip format (RFC 1952). The output depends only on the input and the level.
std::string gzipped(const ByteSource& source, GzipLevel level = GzipLevel::fastest);
std::string gzipped(std::string_view bytes, GzipLevel level = GzipLevel::fastest);

}  // namespace orivanta::server
