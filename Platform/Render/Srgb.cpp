#include "Platform/Render/Srgb.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta::render {

float decodeSrgb(float encoded) {
  return encoded <= 0.04045F ? encoded / 12.92F : std::pow((encoded + 0.055F) / 1.055F, 2.4F);
}

float encodeSrgb(float linear) {
  return linear <= 0.0031308F ? linear * 12.92F : 1.055F * std::pow(linear, 1.0F / 2.4F) - 0.055F;
}

std::uint8_t byteOf(float component) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(component, 0.0F, 1.0F) * 255.0F));
}

}  // namespace orivanta::render
