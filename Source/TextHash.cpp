#define XXH_INLINE_ALL
#include <xxhash.h>

#include <cstdint>
#include <random>

#include "Source/Fwd.hpp"
#include "Source/Loading/TextDigest.hpp"

namespace orivanta {

namespace {

std::uint64_t randomSeed() {
  std::random_device device;
  return std::uint64_t{device()} << 32U | device();
}

std::uint64_t seed() {
  static const std::uint64_t value = randomSeed();
  return value;
}

}  // namespace

std::size_t TextHash::operator()(std::string_view text) const {
  return static_cast<std::size_t>(XXH3_64bits_withSeed(text.data(), text.size(), seed()));
}

TextDigest textDigest(std::string_view text) {
  const XXH128_hash_t hash = XXH3_128bits_withSeed(text.data(), text.size(), seed());
  return {hash.high64, hash.low64};
}

}  // namespace orivanta
