// Pictures held against those that Tests/Golden keeps.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::test {

/// Drivers differ in what they make of edges and filtered texels.
struct GoldenTolerance {
  int component = 6;       ///< a pixel differs when one of its four does by more than this, of 255
  double pixels = 0.0075;  ///< the share of pixels that may differ
};

/// Whether the picture looks like Tests/Golden/NAME.png. If not, NAME.actual.png and NAME.diff.png
/// (what differs, in black on white) lie in the folder of the build that the message names. With
/// ORIVANTA_REFRESH_GOLDEN=1 in the environment, the picture becomes the kept one instead.
testing::AssertionResult looksAsKept(const graphics::Image& picture, std::string_view name,
                                     GoldenTolerance tolerance = {});

}  // namespace orivanta::test
