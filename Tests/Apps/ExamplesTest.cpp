// The examples as processes, on the demo venue.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "Platform/Graphics/ImageFile.hpp"
#include "Source/UI/Display/MarkColors.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {
namespace {

#ifdef ORIVANTA_MAP_HOST
TEST(Examples, AMapHostSearchesAPlaceAndDrawsTheWayToATappedOne) {
  const TemporaryFolder folder;
  const auto server = serveDemo();
  const std::string command = "cd " + folder.path().string() + " && XDG_CACHE_HOME=. " +
                              "ORIVANTA_ENDPOINT=" + server->root() +
                              " " ORIVANTA_MAP_HOST " kindling";
  std::FILE* const program = popen(command.c_str(), "r");
  ASSERT_NE(program, nullptr);
  std::array<char, 200> line{};
  EXPECT_NE(std::fgets(line.data(), line.size(), program), nullptr);
  EXPECT_EQ(std::string(line.data()).find("Kindling"), 0U) << line.data();
  ASSERT_EQ(pclose(program), 0);
  const auto picture = graphics::readImage((folder.path() / "map.png").string());
  ASSERT_NE(picture, nullptr);
  EXPECT_GT(countPixels(*picture, markColors::start), 50);
  EXPECT_GT(countPixels(*picture, markColors::end), 50);
}
#endif

}  // namespace
}  // namespace orivanta::test
