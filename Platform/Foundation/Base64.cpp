#include "Platform/Foundation/Base64.hpp"

#include <cstdint>

namespace orivanta::foundation {

std::string base64Encoded(std::string_view bytes) {
  static constexpr char alphabet[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t start = 0; start < bytes.size(); start += 3) {
    const std::string_view group = bytes.substr(start, 3);
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < 3; ++i)
      bits = bits << 8 | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0U);
    for (std::size_t i = 0; i < 4; ++i)
      text += i <= group.size() ? alphabet[bits >> (18 - 6 * i) & 63U] : '=';
  }
  return text;
}

}  // namespace orivanta::foundation
