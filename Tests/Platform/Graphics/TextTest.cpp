#include "Platform/Graphics/Text.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <limits>
#include <thread>

namespace orivanta::graphics {
namespace {

using testing::ElementsAreArray;

std::shared_ptr<const Image> picture(std::string_view text, const TextStyle& style = {}) {
  return makeTextImage(text, style, 2.0);
}

void expectSamePictures(const Image& left, const Image& right) {
  ASSERT_EQ(left.width(), right.width());
  ASSERT_EQ(left.height(), right.height());
  EXPECT_TRUE(std::equal(left.pixels().begin(), left.pixels().end(), right.pixels().begin()));
}

// Whether a row or column of pixels at an edge contains ink, given its alpha values.
bool edgesHoldInk(const Image& image) {
  bool left = false;
  bool right = false;
  bool top = false;
  bool bottom = false;
  for (std::uint32_t y = 0; y < image.height(); ++y)
    for (std::uint32_t x = 0; x < image.width(); ++x) {
      if (image.pixels()[(std::size_t{y} * image.width() + x) * 4 + 3] == 0) continue;
      left = left || x == 0;
      right = right || x + 1 == image.width();
      top = top || y == 0;
      bottom = bottom || y + 1 == image.height();
    }
  return left && right && top && bottom;
}

TEST(Text, EveryScriptMakesInkThatFillsItsPicture) {
  for (const char* text : {"Platform 9", "東京駅", "بوابة", "☺ 🚉", "नमस्ते", "Ä\nq"}) {
    const auto image = picture(text, {.color = {1, 0, 0, 1}});
    ASSERT_TRUE(image) << text;
    EXPECT_EQ(image->scale(), 2.0);
    EXPECT_TRUE(edgesHoldInk(*image)) << text;
    for (std::size_t i = 0; i < image->pixels().size(); i += 4)
      ASSERT_EQ(image->pixels()[i], image->pixels()[i + 3] > 0 ? 255 : 0) << "not straight alpha";
  }
  for (const std::string_view text : {std::string_view(), {" "}, {"\t \n"}, {"\u00A0\u200F"}})
    EXPECT_FALSE(picture(text)) << text;
}

TEST(Text, AnOutlineGrowsThePictureByItsWidthAndLiesBelowTheFill) {
  const auto plain = picture("l", {.fontSize = 40});
  const auto outlined =
      picture("l", {.fontSize = 40, .outlineColor = colors::white, .outlineWidth = 3});
  EXPECT_NEAR(outlined->width(), plain->width() + 12.0, 1.0);
  EXPECT_NEAR(outlined->height(), plain->height() + 12.0, 1.0);
  const auto pixelAt = [&](std::uint32_t x) {
    return outlined->pixels().subspan(
        (std::size_t{outlined->height() / 2} * outlined->width() + x) * 4, 4);
  };
  EXPECT_THAT(pixelAt(3), ElementsAreArray({255, 255, 255, 255}));
  EXPECT_THAT(pixelAt(outlined->width() / 2), ElementsAreArray({0, 0, 0, 255}));
}

TEST(Text, LongTextBreaksAndEndsInAnEllipsis) {
  const std::string words = "one two three four five six seven eight nine ten";
  const auto line = picture(words);
  const auto broken = picture(words, {.maximumWidth = 80});
  const auto cut = picture(words, {.maximumWidth = 80, .maximumLines = 2});
  EXPECT_LE(broken->width(), 160U);
  EXPECT_LE(cut->width(), 160U);
  EXPECT_GT(broken->height(), 2 * cut->height());
  EXPECT_GT(cut->height(), line->height());
  expectSamePictures(*picture("a\nb\nc", {.maximumLines = 1}), *picture("a b c"));
  expectSamePictures(*picture("a\nb", {.maximumLines = 2}), *picture("a\nb"));
  EXPECT_LT(picture("iiiiiiiiii", {.maximumWidth = 20, .maximumLines = 1})->height(), 40U);
}

TEST(Text, MeasuredLinesAreThoseOfThePicture) {
  const std::string words = "One two three four five six";
  for (TextStyle style :
       {TextStyle{}, TextStyle{.fontSize = 20, .bold = true}, TextStyle{.maximumWidth = 80},
        TextStyle{.maximumWidth = 80, .maximumLines = 2}}) {
    style.wholeLines = true;
    const Size drawn = picture(words, style)->size();
    style.outlineWidth = 3;
    EXPECT_NEAR(measureText(words, style).width, drawn.width, 3.0);
    EXPECT_NEAR(measureText(words, style).height, drawn.height, 1.0);
  }
  EXPECT_EQ(measureText("a", {.fontSize = -1}), Size());
}

// Threads that still run when the process ends may be in their very first text.
TEST(TextDeathTest, AProcessEndsWhileAnotherThreadLaysOutTexts) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // in a new process: no text was laid out yet
  const auto end = [](int milliseconds) {
    std::thread([] {
      while (true) picture("a");
    }).detach();
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    std::exit(0);
  };
  for (const int milliseconds : {0, 2, 5, 10, 20, 40})
    EXPECT_EXIT(end(milliseconds), testing::ExitedWithCode(0), "");
}

TEST(Text, BrokenBytesAndControlCharactersHaveStandIns) {
  expectSamePictures(*picture("a\xFF\xC3z"), *picture("a\uFFFD\uFFFDz"));
  expectSamePictures(*picture({"a\0z", 3}), *picture("a\uFFFDz"));
  expectSamePictures(*picture("a\x01\u0085z"), *picture("a  z"));
  expectSamePictures(*picture("a\r\nz"), *picture("a\u2028z"));
}

TEST(Text, IsCutAtTenThousandBytesBetweenCharacters) {
  const std::string most = "i" + std::string(9'998, ' ');
  expectSamePictures(*picture(most + "ä"), *picture(most));
  const std::string fewer = most.substr(0, 9'998);
  expectSamePictures(*picture(fewer + "äi"), *picture(fewer + "ä"));
  EXPECT_GT(picture(fewer + "ä")->width(), picture(most)->width());
}

TEST(Text, RightToLeftParagraphsRunFromTheRight) {
  // The period follows the word: in Hebrew it is on the left, in Latin text on the right.
  const auto stopAtLeft = [](const char* text) {
    const auto image = picture(text, {.fontSize = 40});
    std::size_t left = 0;
    std::size_t right = 0;
    const std::size_t side = 6;
    for (std::uint32_t y = 0; y < image->height(); ++y)
      for (std::size_t x = 0; x < side; ++x) {
        const std::size_t row = std::size_t{y} * image->width();
        left += image->pixels()[(row + x) * 4 + 3];
        right += image->pixels()[(row + image->width() - 1 - x) * 4 + 3];
      }
    return left < right;
  };
  EXPECT_TRUE(stopAtLeft("ווו."));
  EXPECT_FALSE(stopAtLeft("lll."));
}

TEST(Text, MeasuresOutOfRangeGiveNothing) {
  constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
  for (const TextStyle& style :
       {TextStyle{.fontSize = 0}, TextStyle{.fontSize = notANumber}, TextStyle{.fontSize = 1e9},
        TextStyle{.outlineWidth = -1}, TextStyle{.outlineWidth = 1e9},
        TextStyle{.maximumWidth = notANumber}})
    EXPECT_FALSE(picture("a", style));
  for (const double scale : {0.0, -1.0, notANumber, 1e-300, 1e300})
    EXPECT_FALSE(makeTextImage("a", {}, scale));
  EXPECT_FALSE(picture("a\nb\nc", {.fontSize = 8000}));
  const auto widest = picture(std::string(9'000, 'm'));
  ASSERT_TRUE(widest);
  EXPECT_LE(widest->width(), Image::maximumSide);
}

TEST(Text, ThreadsMakeTheSamePictures) {
  const auto expected = picture("東京 Ag");
  std::array<std::thread, 4> threads;
  for (std::thread& thread : threads)
    thread = std::thread([&] {
      for (int j = 0; j < 10; ++j) expectSamePictures(*picture("東京 Ag"), *expected);
    });
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace orivanta::graphics
