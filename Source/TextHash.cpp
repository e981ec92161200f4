#define XXH_INLINE_ALL
#include <xxhash.h>

#include <cstdint>
#include <random>

#include "Source/Fwd.hpp"

namespace orivanta {

namespace {

std::uint64_t randomSeed() {
  std::random_device device;
  return std::uint64_t{device()} << 32U | device();
}

}  // namespace

std::size_t TextHash::operator()(std::string_view text) const {
  static const std::uint64_t seed = randomSeed();
  return static_cast<std::size_t>(XXH3_64bits_withSeed(text.data(), text.size(), seed));
}

}  // namespace orivanta
