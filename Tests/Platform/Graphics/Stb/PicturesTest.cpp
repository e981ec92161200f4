// Compares the decoder of the browser with libpng. The program also runs ImageFileTest.
#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "Platform/Graphics/ImageFile.hpp"

namespace orivanta::graphics {
namespace {

std::vector<std::uint8_t> decodedByLibpng(const std::filesystem::path& file) {
  png_image header{};
  header.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&header, file.c_str()) == 0) return {};
  header.format = PNG_FORMAT_RGBA;
  std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(header));
  png_image_finish_read(&header, nullptr, pixels.data(), 0, nullptr);
  return pixels;
}

TEST(StbPictures, AreThoseOfLibpngAndStayTheSameWhenWritten) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(ORIVANTA_GOLDEN)) {
    if (entry.path().extension() != ".png") continue;
    ++count;
    const auto image = readImage(entry.path());
    ASSERT_TRUE(image) << entry.path();
    const auto expected = decodedByLibpng(entry.path());
    EXPECT_TRUE(std::ranges::equal(image->pixels(), expected)) << entry.path();
    const auto again = decodeImage(encodePng(*image));
    ASSERT_TRUE(again) << entry.path();
    EXPECT_TRUE(std::ranges::equal(again->pixels(), expected)) << entry.path();
  }
  EXPECT_GT(count, 5);
}

// With the address sanitizer, this finds faults of the decoder that the checks must keep away from
// it.
TEST(StbPictures, OfTheFuzzersAreReadOrRefused) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(ORIVANTA_CORPUS)) {
    ++count;
    const auto image = readImage(entry.path());
    const std::string name = entry.path().stem();
    const bool isDamaged = name == "cmyk" || name == "huge-chunk" || name == "many-codes";
    EXPECT_EQ(image == nullptr, isDamaged) << name;
    EXPECT_TRUE(!image || decodeImage(encodePng(*image))) << name;
  }
  EXPECT_GE(count, 10);
}

}  // namespace
}  // namespace orivanta::graphics
