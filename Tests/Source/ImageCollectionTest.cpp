#include "Source/ImageCollection.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "Platform/Foundation/Screen.hpp"
#include "Source/RawData.hpp"

namespace orivanta {
namespace {

std::shared_ptr<const ImageCollection> imagesOf(const std::string& json) {
  return (*RawData::parse("{\"value\": " + json + "}"))["value"].imageCollection();
}

TEST(ImageCollection, ChoosesTheSmallestRenditionThatIsLargeEnough) {
  struct Case {
    const char* json;
    std::int64_t size;
    const char* url;
  };
  // The screen of a test process has one pixel per point.
  const Case cases[] = {
      {R"("http://h/one.png")", 4096, "http://h/one.png"},
      {R"("http://h/one.png")", -1, "http://h/one.png"},
      {R"({"small": "s", "large": "l"})", 200, "s"},
      {R"({"small": "s", "large": "l"})", 256, "s"},
      {R"({"small": "s", "large": "l"})", 257, "l"},
      {R"({"small": "s", "large": "l"})", 1200, "l"},
      {R"({"small": "s", "large": "l", "original": "o"})", 1200, "o"},
      {R"({"small": "s", "large": "l"})", -5, "s"},
      {R"({"original": "o"})", 1, "o"},
      {R"({"xxsmall": "1", "xsmall": "2", "medium": "3", "xlarge": "4", "xxlarge": "5"})", 65, "2"},
      {R"({"xxsmall": "1", "xsmall": "2", "medium": "3", "xlarge": "4", "xxlarge": "5"})", 300,
       "3"},
      {R"({"xxsmall": "1", "xsmall": "2", "medium": "3", "xlarge": "4", "xxlarge": "5"})", 2049,
       "5"},
      {R"({"small": "not a url", "large": "l"})", 10, "l"},
      {R"({"small": 7, "large": "l", "original": null})", 10, "l"},
  };
  for (const auto& [json, size, url] : cases) {
    SCOPED_TRACE(json);
    const auto images = imagesOf(json);
    ASSERT_TRUE(images);
    EXPECT_EQ((*images)[size].absoluteString(), url);
  }
}

TEST(ImageCollection, NeedsAtLeastOneUrl) {
  for (const char* json : {"null", "7", "{}", R"("two words")", R"({"small": null, "huge": "h"})",
                           R"(["http://h/one.png"])"})
    EXPECT_FALSE(imagesOf(json)) << json;
}

TEST(ImageCollectionDeathTest, PixelsOfTheScreenAreRoundedUpAndChecked) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // in a new process: the scale is read once
  const auto chosenOnDenseScreen = [] {
    foundation::setMainScreenScale(2.6);
    const auto images = imagesOf(R"({"small": "s", "medium": "m", "original": "o"})");
    const bool right = (*images)[85].absoluteString() == "s" &&
                       (*images)[86].absoluteString() == "m" &&
                       (*images)[171].absoluteString() == "o";
    _exit(right ? 0 : 1);
  };
  EXPECT_EXIT(chosenOnDenseScreen(), testing::ExitedWithCode(0), "");
  const auto overflow = [] {
    foundation::setMainScreenScale(2.0);
    (*imagesOf(R"({"original": "o"})"))[std::numeric_limits<std::int64_t>::max()];
  };
  EXPECT_DEATH(overflow(), "fatal error: .*overflow");
}

}  // namespace
}  // namespace orivanta
