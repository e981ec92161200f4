#include "Source/UI/Floors/PictureBudget.hpp"

#include <gtest/gtest.h>

#include "Platform/Graphics/ImageFile.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {
namespace {

class PictureBudgetTest : public testing::Test {
 protected:
  std::filesystem::path square(const std::string& name, std::uint32_t side) const {
    const auto image = graphics::Image::make(
        side, side, std::vector<std::uint8_t>(std::size_t{4} * side * side, 255));
    EXPECT_TRUE(graphics::writePng(*image, folder.path() / name));
    return folder.path() / name;
  }

  const TemporaryFolder folder;
};

TEST_F(PictureBudgetTest, SmallPicturesStayAndLeaveTheirShareToOthers) {
  const auto budget = std::make_shared<PictureBudget>(2, 2000);
  const auto small = square("small.png", 10);
  const auto broken = folder.write("broken.png", "none");
  const auto first = FloorPictures(budget).read({small, broken});
  EXPECT_EQ(first.at(small)->width(), 10U);
  EXPECT_EQ(first.at(broken), nullptr);

  // 1900 pixels remain, 800 for each large image.
  FloorPictures pictures(budget);
  const auto large = square("large.png", 50);
  const auto other = square("other.png", 60);
  const auto medium = square("medium.png", 17);
  const auto second = pictures.read({large, other, medium, small});
  EXPECT_EQ(second.at(medium)->width(), 17U);
  EXPECT_EQ(second.at(large)->width(), 25U);
  EXPECT_EQ(second.at(other)->width(), 20U);
  EXPECT_EQ(second.at(small), first.at(small));
  EXPECT_EQ(
      pictures.remarks(),
      (std::vector<std::string>{"large.png was reduced to 25 x 25 pixels (original: 50 x 50)",
                                "other.png was reduced to 20 x 20 pixels (original: 60 x 60)"}));
}

}  // namespace
}  // namespace orivanta::test
