#include "Platform/Graphics/ImageFile.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
//
#include <jpeglib.h>
#include <png.h>
#include <zlib.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <string>

#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::graphics {
namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::ElementsAreArray;

struct PngForm {
  int colorType;
  int bitDepth;
  bool interlaced;
  Bytes row;  // the samples of two pixels; both rows are the same
};

// With a gamma of 1, which must have no effect, and a palette of green and a translucent red.
Bytes pngOf(const PngForm& form) {
  Bytes bytes;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  const auto append = [](png_structp writer, png_bytep data, std::size_t count) {
    auto& target = *static_cast<Bytes*>(png_get_io_ptr(writer));
    target.insert(target.end(), data, data + count);
  };
  png_set_write_fn(png, &bytes, append, nullptr);
  png_set_IHDR(png, info, 2, 2, form.bitDepth, form.colorType,
               form.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, 0, 0);
  png_set_gAMA(png, info, 1.0);
  if (form.colorType == PNG_COLOR_TYPE_PALETTE) {
    const std::array<png_color, 2> palette = {{{0, 255, 0}, {200, 0, 0}}};
    const std::array<png_byte, 2> alphas = {255, 128};
    png_set_PLTE(png, info, palette.data(), 2);
    png_set_tRNS(png, info, alphas.data(), 2, nullptr);
  }
  png_write_info(png, info);
  Bytes row = form.row;
  std::array<png_bytep, 2> rows = {row.data(), row.data()};
  png_write_image(png, rows.data());
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  return bytes;
}

TEST(ImageFile, EveryFormOfPngBecomesRgba) {
  struct Case {
    PngForm form;
    Bytes pixels;  // of one row
  };
  for (const bool interlaced : {false, true})
    for (const auto& [form, pixels] :
         {Case{{PNG_COLOR_TYPE_GRAY, 1, interlaced, {0x40}}, {0, 0, 0, 255, 255, 255, 255, 255}},
          Case{{PNG_COLOR_TYPE_GRAY, 8, interlaced, {9, 77}}, {9, 9, 9, 255, 77, 77, 77, 255}},
          Case{{PNG_COLOR_TYPE_GRAY_ALPHA, 8, interlaced, {9, 1, 77, 2}},
               {9, 9, 9, 1, 77, 77, 77, 2}},
          Case{{PNG_COLOR_TYPE_PALETTE, 4, interlaced, {0x10}}, {200, 0, 0, 128, 0, 255, 0, 255}},
          Case{{PNG_COLOR_TYPE_RGB, 8, interlaced, {1, 2, 3, 4, 5, 6}},
               {1, 2, 3, 255, 4, 5, 6, 255}},
          Case{{PNG_COLOR_TYPE_RGB, 16, interlaced, {1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6}},
               {1, 2, 3, 255, 4, 5, 6, 255}},
          Case{{PNG_COLOR_TYPE_RGB_ALPHA, 8, interlaced, {1, 2, 3, 4, 5, 6, 7, 8}},
               {1, 2, 3, 4, 5, 6, 7, 8}}}) {
      const auto image = decodeImage(pngOf(form), 2.0);
      ASSERT_TRUE(image) << form.colorType << ' ' << form.bitDepth;
      EXPECT_EQ(image->size(), (Size{1, 1}));
      EXPECT_THAT(image->pixels().subspan(0, 8), ElementsAreArray(pixels)) << form.colorType;
      EXPECT_THAT(image->pixels().subspan(8), ElementsAreArray(pixels)) << form.colorType;
    }
}

TEST(ImageFile, WrittenPngsReadBackAndLeaveOutAnOpaqueAlpha) {
  const test::TemporaryFolder folder;
  constexpr std::size_t colorTypeByte = 25;
  for (const std::uint8_t alpha : Bytes{0, 254, 255}) {
    const auto image = Image::make(2, 1, {1, 2, 3, alpha, 250, 251, 252, 255});
    EXPECT_EQ(encodePng(*image)[colorTypeByte],
              alpha == 255 ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA);
    EXPECT_TRUE(writePng(*image, folder.path() / "a.png"));
    const auto again = readImage(folder.path() / "a.png");
    ASSERT_TRUE(again);
    EXPECT_EQ(again->isOpaque(), alpha == 255);
    EXPECT_THAT(again->pixels(), ElementsAreArray(image->pixels()));
  }
  const auto dot = Image::make(1, 1, {0, 0, 0, 0});
  EXPECT_EQ(writePng(*dot, folder.path() / "missing" / "a.png").error().code, ENOENT);
  EXPECT_FALSE(readImage(folder.path() / "missing.png"));
}

Bytes jpegOf(J_COLOR_SPACE space, int components, bool progressive) {
  constexpr unsigned side = 16;
  jpeg_compress_struct jpeg{};
  jpeg_error_mgr errors{};
  jpeg.err = jpeg_std_error(&errors);
  jpeg_create_compress(&jpeg);
  unsigned char* data = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&jpeg, &data, &size);
  jpeg.image_width = side;
  jpeg.image_height = side;
  jpeg.input_components = components;
  jpeg.in_color_space = space;
  jpeg_set_defaults(&jpeg);
  jpeg_set_quality(&jpeg, 100, TRUE);
  if (progressive) jpeg_simple_progression(&jpeg);
  jpeg_start_compress(&jpeg, TRUE);
  Bytes row;
  for (std::size_t i = 0; i < side * static_cast<std::size_t>(components); ++i)
    row.push_back(static_cast<std::uint8_t>(200 - 40 * (i % static_cast<std::size_t>(components))));
  JSAMPROW rowStart = row.data();
  while (jpeg.next_scanline < side) jpeg_write_scanlines(&jpeg, &rowStart, 1);
  jpeg_finish_compress(&jpeg);
  jpeg_destroy_compress(&jpeg);
  Bytes bytes(data, data + size);
  std::free(data);
  return bytes;
}

TEST(ImageFile, JpegsBecomeRgbaUnlessTheyAreCmyk) {
  for (const bool progressive : {false, true}) {
    const auto colored = decodeImage(jpegOf(JCS_RGB, 3, progressive));
    ASSERT_TRUE(colored);
    EXPECT_EQ(colored->width(), 16U);
    EXPECT_EQ(colored->height(), 16U);
    EXPECT_TRUE(colored->isOpaque());
    for (const auto& [channel, value] : {std::pair{0, 200}, {1, 160}, {2, 120}})
      EXPECT_NEAR(colored->pixels()[static_cast<std::size_t>(channel)], value, 2);
    const auto gray = decodeImage(jpegOf(JCS_GRAYSCALE, 1, progressive));
    ASSERT_TRUE(gray);
    EXPECT_THAT(gray->pixels().subspan(0, 4), ElementsAre(200, 200, 200, 255));
  }
  EXPECT_FALSE(decodeImage(jpegOf(JCS_CMYK, 4, false)));
}

TEST(ImageFile, AreMadeSmallerWhileTheyAreRead) {
  const test::TemporaryFolder folder;
  // All pixels of a square have the same color and some are transparent; the color must be kept.
  constexpr std::uint32_t width = 5;
  constexpr std::uint32_t height = 7;
  Bytes pixels;
  for (std::uint32_t y = 0; y < height; ++y)
    for (std::uint32_t x = 0; x < width; ++x) {
      const bool clear = y == 6 && x == 1;
      const auto column = static_cast<std::uint8_t>(10 * (x / 3));
      const auto row = static_cast<std::uint8_t>(10 * (y / 3));
      const Bytes pixel = clear ? Bytes{255, 255, 255, 0} : Bytes{column, row, 7, 200};
      pixels.insert(pixels.end(), pixel.begin(), pixel.end());
    }
  ASSERT_TRUE(writePng(*Image::make(width, height, pixels), folder.path() / "a.png"));
  const auto size = readImageSize(folder.path() / "a.png");
  EXPECT_EQ(size->width, width);
  EXPECT_EQ(size->height, height);
  for (const auto& [mostPixels, side] : {std::pair{35U, 5U}, {34U, 3U}, {11U, 2U}, {0U, 1U}})
    EXPECT_EQ(readImage(folder.path() / "a.png", 1.0, mostPixels)->width(), side) << mostPixels;
  EXPECT_THAT(readImage(folder.path() / "a.png", 1.0, 6)->pixels(),
              ElementsAre(0, 0, 7, 200, 10, 0, 7, 200,    //
                          0, 10, 7, 200, 10, 10, 7, 200,  //
                          0, 20, 7, 133, 10, 20, 7, 200));

  const auto interlaced =
      decodeImage(pngOf({PNG_COLOR_TYPE_GRAY, 8, true, {9, 77}}), 1.0, /*mostPixels=*/1);
  EXPECT_THAT(interlaced->pixels(), ElementsAre(43, 43, 43, 255));
  for (const auto& [mostPixels, side] : {std::pair{64U, 8U}, {36U, 6U}, {9U, 3U}, {1U, 1U}})
    for (const bool progressive : {false, true}) {
      const Bytes jpeg = jpegOf(JCS_RGB, 3, progressive);
      const auto image = decodeImage(jpeg, 1.0, mostPixels);
      EXPECT_EQ(image->width(), side);
      EXPECT_EQ(image->height(), side);
      EXPECT_NEAR(image->pixels().back() - image->pixels()[0], 255 - 200, 2);
    }
  folder.write("a.jpg", "\xFF\xD8\xFF");
  EXPECT_FALSE(readImageSize(folder.path() / "a.jpg"));
}

TEST(ImageFile, FilesCutAnywhereAreNull) {
  const PngForm form{PNG_COLOR_TYPE_RGB, 8, true, {1, 2, 3, 4, 5, 6}};
  for (const Bytes& whole : {pngOf(form), jpegOf(JCS_RGB, 3, false), jpegOf(JCS_RGB, 3, true)})
    for (std::size_t length = 0; length < whole.size(); ++length)
      for (const std::uint64_t mostPixels : {std::uint64_t{1}, Image::maximumPixels})
        EXPECT_FALSE(decodeImage({whole.data(), length}, 1.0, mostPixels))
            << length << " of " << whole.size();
}

TEST(ImageFile, ClaimsThatTheBytesCannotHoldAreRefused) {
  Bytes png = pngOf({PNG_COLOR_TYPE_RGB, 8, false, {1, 2, 3, 4, 5, 6}});
  for (const std::uint32_t side : {8000U, 16385U, 0U}) {
    for (std::size_t i = 0; i < 4; ++i)
      png[16 + i] = png[20 + i] = static_cast<std::uint8_t>(side >> (24U - 8 * i));
    png_save_uint_32(png.data() + 29, static_cast<png_uint_32>(crc32(0, png.data() + 12, 17)));
    EXPECT_FALSE(decodeImage(png)) << side;
  }
}

TEST(ImageFile, DamagedPngsOfAVenueAreNullWithoutAWord) {
  const auto venues = test::venuesFolder();
  if (!venues) GTEST_SKIP() << "the real venues are not available";
  const auto folder = *venues / "igml-pnu201-hostile" / "models";
  testing::internal::CaptureStderr();
  EXPECT_TRUE(readImage(folder / "sound.png"));
  for (const char* name : {"truncated", "header-only", "bad-checksum", "not-a-png", "zero-size",
                           "huge-size", "short-data", "palette-missing"})
    EXPECT_FALSE(readImage(folder / (std::string(name) + ".png"))) << name;
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Image, TakesOnlyPixelsThatFitItsSides) {
  EXPECT_TRUE(Image::make(1, 2, Bytes(8)));
  EXPECT_FALSE(Image::make(1, 2, Bytes(7)));
  EXPECT_FALSE(Image::make(0, 2, {}));
  EXPECT_FALSE(Image::make(16385, 1, Bytes(std::size_t{16385} * 4)));
  for (const double scale : {0.0, -1.0, std::numeric_limits<double>::infinity()})
    EXPECT_FALSE(Image::make(1, 1, Bytes(4), scale));
}

}  // namespace
}  // namespace orivanta::graphics
