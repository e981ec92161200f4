#include "Source/UI/SdkBundle.hpp"

#include <gtest/gtest.h>

#include "Platform/Graphics/ImageFile.hpp"

namespace orivanta {
namespace {

TEST(SdkBundle, HoldsItsPicturesWhole) {
  const auto& bundle = sdkBundle();
  EXPECT_EQ(foundation::ResourceBundle::find("org.orivanta.sdk"), &bundle);
  for (const auto& [name, width, height] :
       {std::tuple{"MapLogo", 210U, 90U}, {"Heading", 128U, 128U}}) {
    const auto picture = graphics::decodeImage(*bundle.bytes(name, "png"));
    ASSERT_TRUE(picture) << name;
    EXPECT_EQ(picture->width(), width);
    EXPECT_EQ(picture->height(), height);
  }
}

}  // namespace
}  // namespace orivanta
