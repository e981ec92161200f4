// FNV-1a, the 64-bit form (Fowler, Noll, Vo): a checksum that is the same on every machine. It
// detects damage, not forgery.
#pragma once

#include <cstdint>
#include <string_view>

namespace orivanta::foundation {

class Fnv {
 public:
  static std::uint64_t of(std::string_view bytes) {
    Fnv checksum;
    checksum.add(bytes);
    return checksum.value();
  }

  void add(std::string_view bytes) {
    for (const char byte : bytes)
      value_ = (value_ ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
  }

  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 0xcbf29ce484222325U;
};

}  // namespace orivanta::foundation
