#include "Source/UI/Display/MapStyle.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Style/ColorMeasures.hpp"
#include "Tests/Platform/Render/Studio.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

class MapStyleTest : public testing::Test {
 protected:
  ~MapStyleTest() override { surface_->makeCurrent(); }  // for the renderer's destructor

  std::shared_ptr<const graphics::Image> draw() {
    renderer_.render(*shown.mapView, {800, 800}, 1, 0, surface_->framebuffer());
    return surface_->read();
  }

  testing::AssertionResult shows(graphics::Vector3 point, const graphics::Color& color) {
    const auto at = view.findPositionCameraViewport(point);
    const auto byte = [](float value) { return static_cast<int>(std::lround(value * 255)); };
    return isNear(
        pixelOf(*draw(), static_cast<std::uint32_t>(at.x), static_cast<std::uint32_t>(at.y)),
        {byte(color.red), byte(color.green), byte(color.blue), 255}, 2);
  }

  std::shared_ptr<scene::Node> cafe() { return shown.floor(0)->mapObject->childNode("cafe"); }

  ShownVenue shown;
  MapView& view = *shown.mapView;
  std::shared_ptr<MapStyle> style = MapStyle::make();

 private:
  std::unique_ptr<render::OffscreenSurface> surface_ =
      render::OffscreenSurface::make(800, 800).value();
  render::Renderer renderer_;
};

constexpr graphics::Vector3 inCafe{200, 200, 2};
constexpr graphics::Vector3 inHall{750, 750, 2};

TEST_F(MapStyleTest, ShowsTheColorsOfEachThemeAndNothingOfItWhenSwitchedOff) {
  const auto before = draw();
  view.setStyle(style);
  for (const auto& theme : {MapTheme::light(), MapTheme::dark()}) {
    style->setTheme(theme);
    EXPECT_TRUE(shows(inCafe, theme->fill(FillKind::shop))) << theme->name;
    EXPECT_TRUE(shows(inHall, theme->fill(FillKind::other))) << theme->name;
    EXPECT_TRUE(shows({500, 900, 0}, theme->colors.slab)) << theme->name;
    const CameraPose pose = view.camera().pose();
    view.camera().setPose({200, 300, 100, 0, 0});
    EXPECT_TRUE(
        shows({200, 301.6F, 0}, mixedInLight(theme->colors.slab, graphics::colors::black, 0.25)))
        << "in the shadow of the cafe, " << theme->name;
    view.camera().setPose(pose);
    view.changeMap(1);
    EXPECT_TRUE(shows({150, 150, 2}, theme->fill(FillKind::shop))) << theme->name;
    EXPECT_TRUE(shows({150, 700, 0}, theme->colors.backdrop)) << theme->name;
    EXPECT_FALSE(view.needsFrame());
    view.changeMap(0);
  }
  view.setStyle(nullptr);
  EXPECT_TRUE(std::ranges::equal(draw()->pixels(), before->pixels()));
}

TEST_F(MapStyleTest, HighlightsReplaceFillsUntilTheyAreCleared) {
  view.highlightPolygon(shown.polygon("cafe"), graphics::colors::blue);
  view.setStyle(style);
  view.highlightPolygon(shown.polygon("hall"), graphics::colors::green);
  style->setTheme(MapTheme::dark());
  EXPECT_TRUE(shows(inCafe, graphics::colors::blue));
  EXPECT_TRUE(shows(inHall, graphics::colors::green));
  view.clearHighlightedPolygons();
  EXPECT_TRUE(shows(inCafe, style->theme()->fill(FillKind::shop)));
}

TEST_F(MapStyleTest, StylesNewModelsAndScenesAndLeavesNoTrace) {
  view.setStyle(style);
  const auto former = cafe();
  bool isLoaded = false;
  FloorLoadHandlers handlers;
  handlers.ended = [&](const auto&) { isLoaded = true; };
  view.loadFloors(handlers);
  while (!isLoaded) {
    foundation::mainQueue::wait(1.0);
    foundation::mainQueue::drain();
  }
  EXPECT_NE(cafe(), former);
  const auto fill = style->theme()->fill(FillKind::shop);
  EXPECT_TRUE(shows(inCafe, fill));
  EXPECT_EQ(shown.floor(1)->mapObject->childNode("loft")->displayColor(), fill);

  view.sceneView->setBackgroundColor(graphics::colors::yellow);
  auto other = MapView::make({{0, 0}, {100, 100}});
  other->venue = shown.venue;
  other->setStyle(style);
  EXPECT_EQ(view.style(), nullptr) << "belongs to the other view";
  EXPECT_EQ(view.light->light()->color, graphics::colors::darkGray);
  EXPECT_EQ(view.sceneView->backgroundColor(), graphics::colors::yellow)
      << "not the style's own any more";
  EXPECT_EQ(cafe()->displayColor(), fill);
  other.reset();
  EXPECT_EQ(cafe()->displayColor(), std::nullopt);
}

}  // namespace
}  // namespace orivanta::test
