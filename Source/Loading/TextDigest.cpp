#define XXH_INLINE_ALL
#include "Source/Loading/TextDigest.hpp"

#include <xxhash.h>

#include <random>

namespace orivanta {

TextDigest textDigest(std::string_view text) {
  static const std::uint64_t seed = [] {
    std::random_device device;
    return std::uint64_t{device()} << 32U | device();
  }();
  const XXH128_hash_t hash = XXH3_128bits_withSeed(text.data(), text.size(), seed);
  return {hash.high64, hash.low64};
}

}  // namespace orivanta
