#include "Source/UI/Display/LabelLayer.hpp"

#include <gtest/gtest.h>

#include "Source/Location.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

TEST(LabelLayer, NamesThePlacesOfTheFloorThatHaveRoom) {
  const DiagnosticLines quiet;
  const ShownVenue shown;
  MapView& mapView = *shown.mapView;
  {
    LabelLayer labels(shown.mapView, 1);
    const auto count = [&] {
      while (labels.arrange()) {
      }
      return mapView.markers().size();
    };
    EXPECT_EQ(count(), 1U) << "the cafe; no record assigns the stand to a floor";
    labels.setMarked({shown.location("cafe-1")});
    EXPECT_EQ(count(), 0U);
    labels.setMarked({});
    labels.setCovered({{{0, 400}, {400, 400}}});
    EXPECT_EQ(count(), 0U) << "another view covers it";
    labels.setCovered({});
    EXPECT_EQ(count(), 1U);
    mapView.camera().setPose({950, 950, 100, 0, 0});
    EXPECT_EQ(count(), 0U) << "out of sight";
    mapView.changeMap(1);
    mapView.camera().fit();
    EXPECT_EQ(count(), 1U) << "the loft";
  }
  EXPECT_TRUE(mapView.markers().empty());
}

}  // namespace
}  // namespace orivanta::test
