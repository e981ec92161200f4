#include "Source/UI/Display/MapStyle.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/Styled/OutlineColors.hpp"
#include "Source/UI/Style/ColorMeasures.hpp"
#include "Tests/Platform/Render/Studio.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

class MapStyleTest : public testing::Test {
 protected:
  MapStyleTest() { style->setReducedMotion(true); }      // floors change at once
  ~MapStyleTest() override { surface_->makeCurrent(); }  // for the renderer's destructor

  // 800 x 800 pixels.
  std::shared_ptr<const graphics::Image> draw(double scale = 1, double time = 0) {
    const graphics::Size size{800 / scale, 800 / scale};
    view.setFrame({{0, 0}, size});
    renderer_.render(view, size, scale, time, surface_->framebuffer());
    return surface_->read();
  }

  static void drainUntil(const std::function<bool()>& isDone) {
    while (!isDone()) {
      foundation::mainQueue::wait(1.0);
      foundation::mainQueue::drain();
    }
  }

  // Replaces the model of the roof and shows it: rooms of 10 x 10 in a row.
  void showRooms(const std::vector<std::string>& names) {
    const auto model = scene::Node::make();
    for (std::size_t i = 0; i < names.size(); ++i) {
      const double left = 10.0 * static_cast<double>(i);
      const auto room = scene::Node::make(scene::makeExtrusion(
          std::vector<graphics::Point>{{left, 0}, {left + 10, 0}, {left + 10, 10}, {left, 10}}, 2));
      room->setName(names[i]);
      model->addChild(room);
    }
    shown.floor(2)->mapObject = model;
    view.changeMap(2);
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
    style->finish();
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
    style->finish();
    for (int i = 1; i < 200 && view.needsFrame(); ++i) {
      draw(1, i / 60.0);
      style->finish();
    }
    EXPECT_FALSE(view.needsFrame()) << "with labels, at rest";
    style->setStill(true);
    EXPECT_FALSE(shows(inCafe, theme->fill(FillKind::shop))) << "the name covers it";
    style->setStill(false);
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
  drainUntil([&] { return isLoaded; });
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

TEST_F(MapStyleTest, OutlinesContrastWithTheRoomsOnBothSides) {
  const auto colorAt = [](const graphics::Image& image, double x, double y) {
    const Pixel pixel =
        pixelOf(image, static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y));
    const auto component = [&](std::size_t i) { return static_cast<float>(pixel[i]) / 255; };
    return graphics::Color{component(0), component(1), component(2)};
  };
  view.setStyle(style);
  showRooms({"cafe", "cafe", "Stand", "hall"});  // shops, except the hall
  style->finish();
  for (const auto& theme : {MapTheme::light(), MapTheme::dark()})
    for (const auto& [scale, turn] : {std::pair{1.0, 0.05}, {1.0, 0.8}, {2.0, 0.05}}) {
      style->setTheme(theme);
      view.camera().setPose({20, 5, 50, 0, turn});  // so that the edges cross pixels everywhere
      const auto image = draw(scale);
      const auto slope = static_cast<float>(std::tan(turn));
      // At a distance from an edge, on the row of pixels that crosses it at y.
      const auto seenAt = [&](float edge, float y, float beyond) {
        const auto at = view.findPositionCameraViewport({edge + beyond, y + beyond * slope, 1});
        return colorAt(*image, at.x * scale, at.y * scale);
      };
      for (const float edge : {10.0F, 20.0F, 30.0F}) {
        double least = 100;
        for (float y = 2; y < 8; y += 0.05F) {
          double most = 0;
          for (float beyond = -0.5F; beyond < 0.5F; beyond += 0.02F) {
            const auto color = seenAt(edge, y, beyond);
            most = std::max(most, std::min(contrastOf(color, seenAt(edge, y, -1)),
                                           contrastOf(color, seenAt(edge, y, 1))));
          }
          least = std::min(least, most);
        }
        EXPECT_GE(least, 1.6) << theme->name << ", " << scale << ", " << turn << ", " << edge;
      }
    }
}

TEST_F(MapStyleTest, OutlinesAppearLaterAndOnlyOnModelsThatAreStillShown) {
  const auto model = [&] { return shown.floor(0)->mapObject; };
  view.setStyle(style);
  EXPECT_FALSE(style->isReady());
  EXPECT_EQ(model()->ribbons(), nullptr) << "the first frame does not wait for them";
  drainUntil([&] { return style->isReady(); });
  const auto outlines = model()->ribbons();
  ASSERT_FALSE(outlines->parts().empty());
  style->setTheme(MapTheme::dark());
  EXPECT_EQ(model()->ribbons(), outlines) << "another theme only changes colors";
  EXPECT_EQ(model()->ribbonLook().colors, outlineColors(*MapTheme::dark()));

  view.setStyle(nullptr);
  EXPECT_EQ(model()->ribbons(), nullptr);
  view.setStyle(style);
  view.setStyle(nullptr);
  while (foundation::mainQueue::wait(0.2)) foundation::mainQueue::drain();
  EXPECT_EQ(model()->ribbons(), nullptr) << "switched off meanwhile";
}

}  // namespace
}  // namespace orivanta::test
