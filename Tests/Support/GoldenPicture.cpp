#include "Tests/Support/GoldenPicture.hpp"

#include <fmt/core.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "Platform/Graphics/ImageFile.hpp"

namespace orivanta::test {

namespace {

// White where two images of the same size are equal, black where they differ.
std::vector<std::uint8_t> differences(const graphics::Image& a, const graphics::Image& b,
                                      int component) {
  std::vector<std::uint8_t> pixels(a.pixels().size(), 255);
  for (std::size_t i = 0; i < pixels.size(); ++i)
    if (std::abs(a.pixels()[i] - b.pixels()[i]) > component) {
      const std::size_t pixel = i / 4 * 4;
      pixels[pixel] = pixels[pixel + 1] = pixels[pixel + 2] = 0;
    }
  return pixels;
}

double shareOfBlack(const std::vector<std::uint8_t>& pixels) {
  std::size_t black = 0;
  for (std::size_t i = 0; i < pixels.size(); i += 4) black += pixels[i] == 0 ? 1U : 0U;
  return 4.0 * static_cast<double>(black) / static_cast<double>(pixels.size());
}

}  // namespace

testing::AssertionResult looksAsKept(const graphics::Image& picture, std::string_view name,
                                     GoldenTolerance tolerance) {
  const std::filesystem::path folder = ORIVANTA_GOLDEN;
  const std::filesystem::path kept = folder / fmt::format("{}.png", name);
  if (const char* refresh = std::getenv("ORIVANTA_REFRESH_GOLDEN"); refresh && *refresh == '1') {
    if (const auto written = graphics::writePng(picture, kept); !written)
      return testing::AssertionFailure() << written.error().description;
    return testing::AssertionSuccess();
  }
  const std::filesystem::path output = ORIVANTA_GOLDEN_OUTPUT;
  const auto fail = [&](const std::string& reason) {
    std::filesystem::create_directories(output);
    graphics::writePng(picture, output / fmt::format("{}.actual.png", name));
    return testing::AssertionFailure() << name << ": " << reason << "; see " << output.string();
  };
  const auto expected = graphics::readImage(kept);
  if (!expected) return fail("there is no golden image");
  if (expected->width() != picture.width() || expected->height() != picture.height())
    return fail(fmt::format("{} by {} pixels instead of {} by {}", picture.width(),
                            picture.height(), expected->width(), expected->height()));
  const auto difference = differences(picture, *expected, tolerance.component);
  const double share = shareOfBlack(difference);
  if (share <= tolerance.pixels) return testing::AssertionSuccess();
  const auto failure = fail(fmt::format("{:.2f} % of the pixels differ", 100 * share));
  if (const auto image = graphics::Image::make(picture.width(), picture.height(), difference))
    graphics::writePng(*image, output / fmt::format("{}.diff.png", name));
  return failure;
}

}  // namespace orivanta::test
