// Opens imported buildings and real venues as a styled map does.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "Apps/Import/Import.hpp"
#include "Apps/Import/Write/WritePackage.hpp"
#include "Source/UI/Display/FirstViewInput.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Tests/Support/LoadedPackage.hpp"
#include "Tests/Support/ShownVenue.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {
namespace {

// Returns the side of the median room of a floor in scene units.
double medianRoomOf(const FirstViewInput& input, std::size_t floor) {
  std::vector<double> sides;
  for (const FirstViewPlace& place : input.places)
    if (place.floor == floor && place.area > 0) sides.push_back(std::sqrt(place.area));
  if (sides.empty()) return 0;
  std::nth_element(sides.begin(), sides.begin() + sides.size() / 2, sides.end());
  return sides[sides.size() / 2];
}

void checkFirstView(const std::filesystem::path& package) {
  SCOPED_TRACE(package.filename());
  const auto venue = loadRecords(package);
  const auto floor = MapStyle::firstFloor(*venue);
  loadModels(*venue, package);
  ASSERT_NE(floor, nullptr);
  EXPECT_EQ(MapStyle::firstFloor(*venue), floor) << "the models do not matter";
  const auto index = static_cast<std::size_t>(
      std::find(venue->maps->begin(), venue->maps->end(), floor) - venue->maps->begin());
  const FirstViewInput input = firstViewInput(*venue);
  const double room = medianRoomOf(input, index);
  EXPECT_GT(room, 0) << "the floor has places";
  for (const graphics::Size size : {graphics::Size{1280, 800}, graphics::Size{390, 844}}) {
    const auto view = MapView::make({{0, 0}, size});
    view->venue = venue;
    view->layoutIfNeeded();
    view->startScene();
    if (view->currentMap() != floor) view->changeMap(floor);
    const auto style = MapStyle::make();
    view->setStyle(style);
    const CameraPose tilted = view->camera().fittingPose(0.6, 0);
    for (const CameraPose& before : {view->camera().pose(), tilted}) {
      view->camera().setPose(before);
      style->showFirstView();
      const CameraPose pose = view->camera().pose();
      EXPECT_GE(room / (view->camera().lens().slopePerPoint() * pose.distance), 15)
          << size.width << " x " << size.height << ", tilt " << pose.tilt;
      EXPECT_NEAR(pose.tilt, before.tilt, 1e-5);
    }
    style->showFirstView(CameraMotion::glide);
    EXPECT_TRUE(view->camera().isGliding());
    view->setStyle(nullptr);
  }
}

TEST(FirstView, OfTheHouseHasReadableRooms) {
  const DiagnosticLines quiet;
  const TemporaryFolder folder;
  importer::Options options;
  options.sources = {ORIVANTA_EXAMPLES "/House/house.osm"};
  importer::Findings findings;
  importer::writePackage(importer::importBuilding(options, findings), folder.path() / "house");
  checkFirstView(folder.path() / "house");
}

TEST(FirstView, OfRealVenuesHasReadableRooms) {
  const DiagnosticLines quiet;
  if (venueNames().empty()) GTEST_SKIP() << "the real venues are not available";
  for (const std::string& name : venueNames()) checkFirstView(*venuesFolder() / name);
}

}  // namespace
}  // namespace orivanta::test
