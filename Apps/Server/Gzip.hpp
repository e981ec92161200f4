// Gzip compression of response bodies.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace orivanta::server {

/// Fills the buffer with at most `count` further bytes and returns their number; 0 at the end.
using ByteSource = std::function<std::size_t(char* bytes, std::size_t count)>;

/// The bytes in gzip format (RFC 1952) at the fastest level. The output depends only on the input.
std::string gzipped(const ByteSource& source);
std::string gzipped(std::string_view bytes);

}  // namespace orivanta::server
