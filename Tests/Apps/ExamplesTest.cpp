// The examples as processes, on the demo venue.
#include <gtest/gtest.h>

#include <cstdlib>

#include "Platform/Graphics/ImageFile.hpp"
#include "Source/UI/Display/MarkColors.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {
namespace {

#ifdef ORIVANTA_MAP_HOST
TEST(Examples, AMapHostSearchesAPlaceAndDrawsTheWayToItWhenItIsTapped) {
  const TemporaryFolder folder;
  const auto server = serveDemo();
  const std::string command = "cd " + folder.path().string() + " && XDG_CACHE_HOME=. " +
                              "ORIVANTA_ENDPOINT=" + server->root() +
                              " " ORIVANTA_MAP_HOST " kindling";
  ASSERT_EQ(std::system(command.c_str()), 0);
  const auto picture = graphics::readImage((folder.path() / "map.png").string());
  ASSERT_NE(picture, nullptr);
  EXPECT_GT(countPixels(*picture, markColors::start), 50);
  EXPECT_GT(countPixels(*picture, markColors::end), 50);
}
#endif

}  // namespace
}  // namespace orivanta::test
