#define XXH_INLINE_ALL
#include "Source/Collections.hpp"

#include <xxhash.h>

#include <cstdint>
#include <random>

namespace orivanta {

namespace {

std::uint64_t seed() {
  static const std::uint64_t value = [] {
    std::random_device device;
    return std::uint64_t{device()} << 32U | device();
  }();
  return value;
}

}  // namespace

std::size_t TextHash::operator()(std::string_view text) const {
  return static_cast<std::size_t>(XXH3_64bits_withSeed(text.data(), text.size(), seed()));
}

}  // namespace orivanta
