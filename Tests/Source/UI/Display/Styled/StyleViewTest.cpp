#include "Source/UI/Display/Styled/StyleView.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numbers>

#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Tests/Platform/Render/Studio.hpp"
#include "Tests/Support/Fingers.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

constexpr double pi = std::numbers::pi;

// A venue with four units per meter.
class StyleViewTest : public testing::Test {
 protected:
  StyleViewTest() {
    shown.venue->_data = *RawData::parse(R"({"unitsPerMetre": 4, "attribution": "Surveyed"})");
    camera.setPose({500, 500, 900, 0, 0});
    plain = draw();
    view.setStyle(style);
    shown.delegate->calls.clear();
  }
  ~StyleViewTest() override { surface_->makeCurrent(); }  // for the renderer's destructor

  std::shared_ptr<const graphics::Image> draw() {
    renderer_.render(*shown.mapView, {800, 800}, 1, 0, surface_->framebuffer());
    return surface_->read();
  }

  int drawCalls() {
    draw();
    return renderer_.statistics().drawCalls;
  }

  // Returns the middles of the pixels of a color within a rectangle.
  std::vector<graphics::Point> pixels(const graphics::Rect& rect, const graphics::Color& color) {
    const auto image = draw();
    const auto byte = [](float value) { return static_cast<int>(std::lround(value * 255)); };
    const std::array wanted{byte(color.red), byte(color.green), byte(color.blue)};
    const auto isWanted = [&](double x, double y) {
      const auto* pixel = &image->pixels()[4 * std::size_t(y * 800 + x)];
      return std::abs(pixel[0] - wanted[0]) <= 3 && std::abs(pixel[1] - wanted[1]) <= 3 &&
             std::abs(pixel[2] - wanted[2]) <= 3;
    };
    std::vector<graphics::Point> found;
    for (double y = rect.minY(); y < rect.maxY(); ++y)
      for (double x = rect.minX(); x < rect.maxX(); ++x)
        if (isWanted(x, y)) found.push_back({x + 0.5, y + 0.5});
    return found;
  }

  static graphics::Point middleOf(const std::vector<graphics::Point>& points) {
    graphics::Point sum;
    for (const graphics::Point& point : points) sum = {sum.x + point.x, sum.y + point.y};
    return {sum.x / double(points.size()), sum.y / double(points.size())};
  }

  MapPosition at(double x, double y, std::size_t floor = 0) const {
    return {shown.floor(floor), x, y, 0, 0, std::nullopt};
  }

  graphics::Point projected(double x, double y) const {
    return view.findPositionCameraViewport({static_cast<float>(x), static_cast<float>(y), 0});
  }

  ShownVenue shown;
  MapView& view = *shown.mapView;
  MapCamera& camera = view.camera();
  Fingers fingers{shown.mapView};
  std::shared_ptr<MapStyle> style = MapStyle::make();
  std::shared_ptr<const graphics::Image> plain;

 private:
  std::unique_ptr<render::OffscreenSurface> surface_ =
      render::OffscreenSurface::make(800, 800).value();
  render::Renderer renderer_;
};

// The ground of the logo over the slab.
graphics::Color logoOver(const MapPalette& colors) {
  const auto mix = [](float logo, float slab) { return 0.7F * logo + 0.3F * slab; };
  return {mix(colors.halo.red, colors.slab.red), mix(colors.halo.green, colors.slab.green),
          mix(colors.halo.blue, colors.slab.blue)};
}

constexpr graphics::Rect compassArea{{740, 0}, {60, 60}};
constexpr graphics::Rect lowerLeftArea{{0, 700}, {300, 100}};

TEST_F(StyleViewTest, CompassPointsNorthAndATapTurnsTheMapBack) {
  const auto needle = style->theme()->colors.pin;
  style->setFurniture({.compass = true});
  EXPECT_TRUE(pixels(compassArea, needle).empty());
  fingers.tap(1, {772, 28}, 0);
  EXPECT_THAT(shown.delegate->calls, testing::ElementsAre("nothing")) << "the map was tapped";
  for (const double turn : {pi / 2, -2.0, 3.0}) {
    camera.setPose({500, 500, 900, 0, turn});
    const auto red = middleOf(pixels(compassArea, needle));
    const auto origin = projected(500, 500);
    const auto north = projected(500, 600);
    EXPECT_NEAR(std::atan2(red.y - 28, red.x - 772),
                std::atan2(north.y - origin.y, north.x - origin.x), 0.1)
        << turn;
  }
  camera.setInsets({0, 300, 200, 0});
  EXPECT_TRUE(pixels(compassArea, needle).empty()) << "within the insets";
  camera.setInsets({});
  draw();
  fingers.tap(1, {772, 28}, 1);
  EXPECT_EQ(shown.delegate->calls.size(), 1U) << "the map was not tapped";
  camera.advance(10);
  camera.advance(11);
  EXPECT_EQ(camera.pose().turn, 0);
  EXPECT_TRUE(pixels(compassArea, needle).empty());
}

TEST_F(StyleViewTest, ScaleBarIsAsLongAsItsText) {
  const struct {
    double pointsPerMeter;
    BarLength expected;
  } cases[] = {{1, {100, "100 m"}},  {2.2, {110, "50 m"}},  {6, {60, "10 m"}},
               {5.5, {110, "20 m"}}, {0.02, {100, "5 km"}}, {300, {60, "20 cm"}},
               {0, {0, ""}},         {1e12, {0, ""}},       {1e-12, {5e-6, "5000 km"}},
               {NAN, {0, ""}},       {INFINITY, {0, ""}}};
  for (const auto& [scale, expected] : cases) {
    const BarLength length = barLength(scale, 110);
    EXPECT_NEAR(length.points, expected.points, 1e-9) << scale;
    EXPECT_EQ(length.text, expected.text) << scale;
  }

  const auto text = style->theme()->colors.text;
  EXPECT_TRUE(pixels(lowerLeftArea, text).empty());
  style->setFurniture({.scaleBar = true});
  const auto bar = pixels({{0, 788}, {300, 2}}, text);
  ASSERT_FALSE(bar.empty());
  const double shownPoints = bar.back().x - bar.front().x + 1;
  const double pointsPerMeter = projected(504, 500).x - projected(500, 500).x;
  EXPECT_NEAR(shownPoints, barLength(pointsPerMeter, 110).points, 1.5);
  shown.venue->_data = *RawData::parse("{}");
  style->setTheme(MapTheme::dark());
  EXPECT_TRUE(pixels(lowerLeftArea, style->theme()->colors.text).empty()) << "without a scale";
}

TEST_F(StyleViewTest, PositionIsShownOnItsFloorWithoutDrawingTheSceneAgain) {
  const auto blue = style->theme()->colors.iconInfo;
  draw();
  style->setPosition(at(450, 520));
  const int calls = drawCalls();
  style->setPosition(at(550, 480));
  EXPECT_EQ(drawCalls(), calls);
  camera.panBy(5, 0);
  EXPECT_GT(drawCalls(), calls) << "the scene is drawn again";

  for (const CameraPose& pose : {CameraPose{500, 500, 900, 0, 0}, {450, 600, 700, 0.9, 2}}) {
    camera.setPose(pose);
    const auto dot = pixels({{0, 0}, {800, 800}}, blue);
    ASSERT_GT(dot.size(), 100U);
    EXPECT_NEAR(middleOf(dot).x, projected(550, 480).x, 1);
    EXPECT_NEAR(middleOf(dot).y, projected(550, 480).y, 1);
  }
  camera.setPose({500, 500, 900, 0.5, 1});
  const auto before = draw();
  auto looking = at(550, 480);
  looking.accuracyMeters = 20;
  looking.heading = -0.7;
  style->setPosition(looking);
  const auto after = draw();
  const auto isChanged = [&](double x, double y) {
    const auto point = projected(x, y);
    const auto pixel = [&](const auto& image) {
      return pixelOf(*image, std::uint32_t(point.x), std::uint32_t(point.y));
    };
    return pixel(before) != pixel(after);
  };
  for (double angle = 0; angle < 6; ++angle) {
    EXPECT_TRUE(isChanged(550 + 70 * std::cos(angle), 480 + 70 * std::sin(angle))) << angle;
    EXPECT_FALSE(isChanged(550 + 92 * std::cos(angle), 480 + 92 * std::sin(angle))) << angle;
  }
  looking.accuracyMeters = 0;
  style->setPosition(looking);
  const auto cone = draw();
  const auto pixelAt = [&](double angle) {
    const auto point = projected(550 - 22 * std::sin(angle), 480 + 22 * std::cos(angle));
    return pixelOf(*cone, std::uint32_t(point.x), std::uint32_t(point.y)) !=
           pixelOf(*before, std::uint32_t(point.x), std::uint32_t(point.y));
  };
  EXPECT_TRUE(pixelAt(-0.7));
  EXPECT_FALSE(pixelAt(-0.7 + pi));

  view.changeMap(1);
  EXPECT_TRUE(pixels({{0, 0}, {800, 800}}, blue).empty()) << "on another floor";
}

TEST_F(StyleViewTest, CameraFollowsThePositionUntilTheUserMovesTheMap) {
  const auto isInTheMiddle = [&](double x, double y) {
    return std::hypot(projected(x, y).x - 400, projected(x, y).y - 400) < 1;
  };
  style->setFollowing(true);
  EXPECT_TRUE(style->isFollowing());
  style->setPosition(at(300, 300));
  EXPECT_TRUE(isInTheMiddle(300, 300));
  EXPECT_NEAR(projected(420, 300).x - projected(300, 300).x, 800, 8) << "30 meters";
  camera.zoomBy(0.25, {400, 400});
  camera.rotateBy(0.5);
  style->setPosition(at(2000, 300));  // beyond the limits of the camera
  style->setPosition(at(400, 350));
  EXPECT_TRUE(isInTheMiddle(400, 350));
  EXPECT_NEAR(std::hypot(projected(520, 350).x - 400, projected(520, 350).y - 400), 200, 4);
  EXPECT_TRUE(style->isFollowing());

  style->setPosition(at(100, 100, 1));
  EXPECT_TRUE(isInTheMiddle(400, 350)) << "on another floor";
  view.changeMap(1);
  EXPECT_TRUE(isInTheMiddle(100, 100));

  fingers.down(1, {500, 500}, 0);
  fingers.move(1, {520, 500}, 0.1);
  fingers.move(1, {560, 500}, 0.2);
  EXPECT_FALSE(style->isFollowing());
  const CameraPose moved = camera.pose();
  style->setPosition(at(150, 100, 1));
  EXPECT_EQ(camera.pose(), moved);
  style->setFollowing(true);
  EXPECT_TRUE(isInTheMiddle(150, 100));
}

TEST_F(StyleViewTest, RestsWithAllThatIsShownAndLeavesNoTrace) {
  style->setFurniture({true, true, true});
  style->setPosition(at(500, 500));
  for (const auto& theme : {MapTheme::light(), MapTheme::dark()}) {
    style->setTheme(theme);
    camera.rotateBy(1);
    EXPECT_TRUE(view.needsFrame());
    EXPECT_GT(pixels(lowerLeftArea, theme->colors.text).size(), 100U) << "the attribution";
    EXPECT_FALSE(view.needsFrame()) << theme->name;
    EXPECT_FALSE(pixels({{725, 770}, {60, 20}}, logoOver(theme->colors)).empty()) << theme->name;
  }
  const auto insets = [&] { camera.setInsets({10, 20, 30, 40}); };
  insets();
  EXPECT_TRUE(view.needsFrame());
  draw();
  insets();
  EXPECT_FALSE(view.needsFrame());
  camera.setPose({500, 500, 900, 0, 0});
  view.setStyle(nullptr);
  EXPECT_TRUE(std::ranges::equal(draw()->pixels(), plain->pixels()));
}

}  // namespace
}  // namespace orivanta::test
