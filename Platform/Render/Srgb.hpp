// sRGB encoding.
#pragma once

#include <cstdint>

namespace orivanta::render {

/// Converts an sRGB component to linear light and back; both from 0 to 1.
float decodeSrgb(float encoded);
float encodeSrgb(float linear);

/// Converts a component, clamped to 0 to 1, to a byte.
std::uint8_t byteOf(float component);

}  // namespace orivanta::render
