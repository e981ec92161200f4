// Compression for transport.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace orivanta::server {

/// Fills the buffer with at most `count` further bytes and returns how many; 0 at the end.
using ByteSource = std::function<std::size_t(char* bytes, std::size_t count)>;

/// The bytes in the gzip format (RFC 1952), at the fastest level; the same for the same bytes.
std::string gzipped(const ByteSource& source);
std::string gzipped(std::string_view bytes);

}  // namespace orivanta::server
