// A digest of long texts that are only compared.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

namespace orivanta {

using TextDigest = std::pair<std::uint64_t, std::uint64_t>;

/// Equal texts have the same digest. Different texts have different ones, except with a probability
/// of 1 in 2^128. The digest differs from process to process. Any thread.
TextDigest textDigest(std::string_view text);

}  // namespace orivanta
