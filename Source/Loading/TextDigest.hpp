// A short stand-in for long texts that are only compared.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

namespace orivanta {

using TextDigest = std::pair<std::uint64_t, std::uint64_t>;

/// The same for equal texts and, but for a chance of 1 in 2^128, different for different ones. Like
/// `TextHash` it differs from process to process. Any thread.
TextDigest textDigest(std::string_view text);

}  // namespace orivanta
