#include "Platform/Render/Texels.hpp"

#include <array>
#include <cstddef>

#include "Platform/Render/Srgb.hpp"

namespace orivanta::render {

void multiplyEncoded(std::vector<std::uint8_t>& bytes) {
  for (std::size_t i = 0; i < bytes.size(); i += 4)
    for (std::size_t c = i; c < i + 3; ++c)
      bytes[c] = static_cast<std::uint8_t>((bytes[c] * bytes[i + 3] + 127) / 255);
}

void multiplyLinear(std::vector<std::uint8_t>& bytes) {
  std::array<float, 256> light{};
  for (std::size_t i = 0; i < light.size(); ++i)
    light[i] = decodeSrgb(static_cast<float>(i) / 255.0F);
  for (std::size_t i = 0; i < bytes.size(); i += 4) {
    if (bytes[i + 3] == 255) continue;
    const float alpha = static_cast<float>(bytes[i + 3]) / 255.0F;
    for (std::size_t c = i; c < i + 3; ++c) bytes[c] = byteOf(encodeSrgb(light[bytes[c]] * alpha));
  }
}

}  // namespace orivanta::render
