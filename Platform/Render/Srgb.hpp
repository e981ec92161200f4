// The encoding of sRGB.
#pragma once

#include <cstdint>

namespace orivanta::render {

/// Amount of light of an encoded component, and back; both 0 to 1.
float decodeSrgb(float encoded);
float encodeSrgb(float linear);

/// A component from 0 to 1, others cut off, as a byte.
std::uint8_t byteOf(float component);

}  // namespace orivanta::render
