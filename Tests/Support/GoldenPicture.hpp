// Compares images with those in Tests/Golden.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::test {

/// Drivers differ in how they render edges and filter textures.
struct GoldenTolerance {
  int component = 6;       ///< a pixel differs if a component differs by more than this, out of 255
  double pixels = 0.0075;  ///< the fraction of pixels that may differ
};

/// Whether the image matches Tests/Golden/NAME.png. If not, NAME.actual.png and NAME.diff.png (the
/// differences in black on white) are written to the build folder that the message names. If the
/// environment variable ORIVANTA_REFRESH_GOLDEN is 1, the image replaces the golden one instead.
testing::AssertionResult looksAsKept(const graphics::Image& picture, std::string_view name,
                                     GoldenTolerance tolerance = {});

}  // namespace orivanta::test
