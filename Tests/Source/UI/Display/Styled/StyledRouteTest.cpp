// Routes in styled map views.
#include "Source/UI/Display/Styled/StyledRoute.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "Platform/View/TouchDispatcher.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/UI/Display/Styled/FloorProjection.hpp"
#include "Source/UI/Display/Styled/RouteMarks.hpp"
#include "Source/UI/MapViewDirections.hpp"
#include "Source/UI/Style/ColorMeasures.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Platform/Render/Studio.hpp"
#include "Tests/Support/CountedPixels.hpp"
#include "Tests/Support/GoldenPicture.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

// A route from the ground floor to the loft, by an elevator at (500, 560).
class StyledRouteTest : public testing::Test {
 protected:
  explicit StyledRouteTest(graphics::Size size = {800, 800}) : size_(size) {
    shown.venue->_data = *RawData::parse(R"({"unitsPerMetre": 20})");
    const auto lift =
        Vortex::make(*RawData::parse(R"({"id": "l", "name": "Lift", "type": "elevator"})"));
    lift->nodes = {path[3], path[4]};
    shown.venue->vortices = {lift};
    style->setReducedMotion(true);
    view.setFrame({{0, 0}, size});
    view.layoutIfNeeded();
  }
  ~StyledRouteTest() override { surface_->makeCurrent(); }  // for the renderer's destructor

  std::shared_ptr<const graphics::Image> draw() {
    style->finish();
    renderer_.render(view, size_, 1, time_ += 0.25, surface_->framebuffer());
    return surface_->read();
  }

  graphics::Color colorAt(const graphics::Image& image, graphics::Vector3 position, double down) {
    const auto at = view.findPositionCameraViewport(position);
    const Pixel pixel = pixelOf(image, std::uint32_t(at.x), std::uint32_t(at.y + down));
    const auto part = [&](std::size_t i) { return static_cast<float>(pixel[i]) / 255; };
    return {part(0), part(1), part(2)};
  }

  ShownVenue shown;
  MapView& view = *shown.mapView;
  std::shared_ptr<MapStyle> style = MapStyle::make();
  const NodeList path{shown.node(200, 80, 0),     shown.node(450, 80, 0),
                      shown.node(450, 560, 0),    shown.node(500, 560, 0),
                      shown.node(500, 560, 0, 1), shown.node(150, 300, 0, 1)};

 private:
  graphics::Size size_;
  std::unique_ptr<render::OffscreenSurface> surface_ =
      render::OffscreenSurface::make(std::uint32_t(size_.width), std::uint32_t(size_.height))
          .value();
  render::Renderer renderer_;
  double time_ = 0;
};

TEST_F(StyledRouteTest, StandsOutFromItsCasingInEachThemeAndRests) {
  view.setStyle(style);
  RouteOverlay route(shown.mapView, path, shown.location("cafe-1"), shown.location("loft-1"));
  route.show(1);
  style->setLabels(false);
  for (const auto& theme : {MapTheme::light(), MapTheme::dark()}) {
    style->setTheme(theme);
    view.camera().setPose({325, 80, 250, 0.3, 0});
    const auto image = draw();
    const auto core = colorAt(*image, {305, 80, 0}, 0);
    const auto casing = colorAt(*image, {305, 80, 0}, -3.7);
    EXPECT_GE(contrastOf(core, casing), 3) << theme->name;
    route.setPassed(*shown.floor(0), {450, 70, 0});
    EXPECT_GE(contrastOf(colorAt(*draw(), {305, 80, 0}, 0), casing), 3)
        << "passed, " << theme->name;
    EXPECT_FALSE(view.needsFrame());
    route.clearPassed();
  }
  draw();
  style->setReducedMotion(false);
  draw();
  EXPECT_TRUE(view.needsFrame()) << "arrows move";
  route.hide();
  draw();
  EXPECT_FALSE(view.needsFrame());
}

TEST_F(StyledRouteTest, FramedEndsHaveSpaceForTheirMarks) {
  view.setStyle(style);
  RouteOverlay route(shown.mapView, path);
  view.camera().setLimited(false);
  view.camera().setInsets({400, 400, 0, 20});
  for (const double turn : {0.0, 0.7, 2.0}) {
    view.camera().setPose({500, 500, 900, 0.5, turn});
    view.camera().frame(route.pointsOn(*shown.floor(0)), aroundRoute(view));
    for (const std::size_t end : {0U, 3U}) {
      const auto at =
          view.findPositionCameraViewport({float(path[end]->x), float(path[end]->y), 0});
      EXPECT_TRUE(at.x >= 439.9 && at.x <= 760.1 && at.y >= 439.9 && at.y <= 740.1) << at.x << at.y;
    }
  }
}

TEST_F(StyledRouteTest, NamesLieBesideBadgesAndGrowWithTheTextSize) {
  view.setStyle(style);
  view.camera().setPose({500, 560, 900, 0, 0});
  draw();
  const FloorProjection projection(*view.sceneView->viewpoint(), view.bounds().size);
  const auto boxes = [&](double textScale) {
    RouteMark start{RouteMark::Form::start, {{500, 560, 0}, shown.floor(0)}};
    RouteMark ride{RouteMark::Form::floorChange, start.at};
    start.text = "Start";
    ride.text = "Up";
    RouteMarks marks;
    marks.set({start, ride}, {},
              std::make_shared<const MapTheme>(MapTheme::light()->withTextScale(textScale)));
    marks.place(projection, view.bounds());
    return marks.boxes();  // symbol and text of the badge, then of the start
  };
  const auto usual = boxes(1);
  ASSERT_EQ(usual.size(), 4U);
  EXPECT_FALSE(usual[3].intersects(usual[0]) || usual[3].intersects(usual[1]));
  EXPECT_NEAR(boxes(2)[3].size.width / usual[3].size.width, 2, 0.1);
}

TEST_F(StyledRouteTest, MarksLeadToPlacesAndFloors) {
  view.setStyle(style);
  RouteOverlay route(shown.mapView, path, nullptr, shown.location("loft-1"));
  route.show(1);
  view.camera().setPose({450, 320, 900, 0, 0});
  draw();
  struct Told {
    std::string place;
    const Map* floor;
    bool isFloorChange;
    bool operator==(const Told&) const = default;
  };
  std::vector<Told> told;
  style->tapped = [&](const MapTap& tap) {
    told.push_back({tap.place ? *tap.place->id : "", tap.floor.get(), tap.isFloorChange});
  };
  view::TouchDispatcher fingers(shown.mapView);
  const auto tap = [&](graphics::Vector3 position, double up) {
    auto point = view.findPositionCameraViewport(position);
    point.y -= up;
    shown.delegate->calls.clear();
    fingers.dispatch({1, view::TouchPhase::began, point, 0.0});
    fingers.dispatch({1, view::TouchPhase::ended, point, 0.1});
  };
  tap({500, 560, 0}, 0);
  EXPECT_TRUE(shown.delegate->calls.empty());
  EXPECT_EQ(view.currentMap(), shown.floor(1));
  draw();
  tap({150, 300, 0}, 20);  // the head of the pin
  EXPECT_THAT(shown.delegate->calls, testing::ElementsAre("loft"));
  tap({500, 560, 0}, 0);
  EXPECT_EQ(view.currentMap(), shown.floor(0));
  EXPECT_EQ(told, (std::vector<Told>{{"l", shown.floor(1).get(), true},
                                     {"loft-1", shown.floor(1).get(), false},
                                     {"l", shown.floor(0).get(), true}}));
}

TEST_F(StyledRouteTest, ReplacesThePlainRouteOnlyWhileTheStyleIsOn) {
  const DiagnosticLines quiet;
  view.drawPath(path);
  RouteOverlay overlay(shown.mapView, {path[0], shown.node(900, 80, 0)});
  overlay.show(1);
  const auto plain = draw();
  view.setStyle(style);
  overlay.arrange();
  const auto look = [&] {
    const auto image = draw();
    return std::pair{countPixels(*image, graphics::colors::green),
                     countPixels(*image, style->theme()->colors.route) > 500};
  };
  EXPECT_EQ(look(), std::pair(0, true)) << "without the dots";
  view.drawPathSegment({100, 900, 0}, {400, 900, 0});
  EXPECT_GT(look().first, 0) << "single segments are plain";
  view.clearPaths();
  overlay.hide();
  EXPECT_EQ(look(), std::pair(0, false));
  view.drawPath(path);
  overlay.show(1);
  EXPECT_EQ(look(), std::pair(0, true));
  view.setStyle(nullptr);
  overlay.arrange();
  EXPECT_TRUE(std::ranges::equal(draw()->pixels(), plain->pixels()));
}

class StyledPictures : public StyledRouteTest {
 protected:
  StyledPictures() : StyledRouteTest({320, 200}) {}
};

TEST_F(StyledPictures, AreAsKept) {
  view.setStyle(style);
  style->setStill(true);
  view.camera().setPose({450, 400, 1250, 0.6, 0.2});
  EXPECT_TRUE(looksAsKept(*draw(), "style-light"));
  style->setTheme(MapTheme::dark());
  EXPECT_TRUE(looksAsKept(*draw(), "style-dark"));
  style->setTheme(MapTheme::light());
  RouteOverlay route(shown.mapView, path, shown.location("cafe-1"), shown.location("loft-1"));
  route.show(1);
  route.setPassed(*shown.floor(0), {450, 200, 0});
  EXPECT_TRUE(looksAsKept(*draw(), "style-route"));
}

}  // namespace
}  // namespace orivanta::test
