// A digest of long texts, for comparison only.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

namespace orivanta {

using TextDigest = std::pair<std::uint64_t, std::uint64_t>;

/// Equal texts have the same digest. Different texts have different digests, except with a
/// probability of 1 in 2^128. The digest differs between processes. Thread-safe.
TextDigest textDigest(std::string_view text);

}  // namespace orivanta
