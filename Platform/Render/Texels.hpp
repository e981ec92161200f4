// Multiplying pixels by their alpha, as textures store them.
#pragma once

#include <cstdint>
#include <vector>

namespace orivanta::render {

/// Multiplies sRGB values by the alpha, for blending sRGB values. `bytes`: red, green, blue and
/// alpha of each pixel.
void multiplyEncoded(std::vector<std::uint8_t>& bytes);

/// Multiplies the light by the alpha, for blending in linear light. The result is sRGB again.
void multiplyLinear(std::vector<std::uint8_t>& bytes);

}  // namespace orivanta::render
