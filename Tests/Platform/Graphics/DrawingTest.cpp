#include "Platform/Graphics/Drawing.hpp"

#include <gtest/gtest.h>

namespace orivanta::graphics {
namespace {

// A letter for each pixel of a drawing of 4 by 4 units: "#" where it is opaque, "." where it is
// not.
std::string drawn(std::string_view path, double strokeWidth = 0.0) {
  const DrawingPart part{path, colors::red, strokeWidth};
  const auto image = makeDrawingImage({&part, 1}, 4, 2, 2);
  if (!image) return "null";
  std::string text;
  for (std::size_t i = 0; i < image->pixels().size(); i += 4) {
    if (i > 0 && i / 4 % image->width() == 0) text += '/';
    text += image->pixels()[i + 3] > 127 ? '#' : '.';
  }
  return text;
}

TEST(Drawing, UnderstandsPaths) {
  const std::pair<const char*, const char*> paths[] = {
      {"", "..../..../..../...."},
      {"M-2 -2 L0 -2 0 2 -2 2 Z", "##../##../##../##.."},
      {"B-1 -1 1 1 0", "..../.##./.##./...."},
      {"O0 0 2.1 B-1 -1 1 1 0", ".##./#..#/#..#/.##."},
      {"M-2-2 C-2-2 2-2 2-2 L2 0 L-2 0 Z", "####/####/..../...."},
      {"1 2", "null"},
      {"M1", "null"},
      {"X1 1", "null"},
      {"L1 nan", "null"},
      {"m1 1", "null"},
  };
  for (const auto& [path, text] : paths) EXPECT_EQ(drawn(path), text) << path;
  EXPECT_EQ(drawn("M-2 0.5 L2 0.5", 1), "..../..../####/....");
}

}  // namespace
}  // namespace orivanta::graphics
