// Compression for transport.
#pragma once

#include <string>
#include <string_view>

namespace orivanta::server {

/// The bytes in the gzip format (RFC 1952), at the fastest level; the same for the same bytes.
std::string gzipped(std::string_view bytes);

}  // namespace orivanta::server
