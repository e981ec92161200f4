// Undoing gzip compression (RFC 1952) of a received body.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace orivanta::network {

/// The uncompressed bytes of one or more gzip members; nothing when they are damaged, end early or
/// would take more than `largestBytes`.
std::optional<std::string> gunzipped(std::string_view compressed, std::size_t largestBytes);

}  // namespace orivanta::network
