// The labels of a styled map view, drawn on a canvas that records them.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <stdexcept>

#include "Platform/Scene/Node.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/TouchDispatcher.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/UI/Display/Styled/LabelView.hpp"
#include "Source/UI/MarkerImages.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

using graphics::Point;
using graphics::Rect;
using namespace std::string_literals;

class RecordingCanvas : public view::Canvas {
 public:
  double time() const override { return now; }
  double scale() const override { return 1; }
  void fill(const Rect&, const graphics::Color&, double) override {}
  void draw(const std::shared_ptr<const graphics::Image>&, const Rect& rect, double,
            double) override {
    images.push_back(rect);
  }
  void draw(view::SceneView&, const Rect&) override {}
  void draw(const std::shared_ptr<graphics::Sheet>& drawn,
            std::span<const view::SheetPiece> all) override {
    sheet = drawn;
    pieces.assign(all.begin(), all.end());
  }

  double now = 0;
  std::shared_ptr<graphics::Sheet> sheet;
  std::vector<view::SheetPiece> pieces;
  std::vector<Rect> images;
};

class StyledLabelsTest : public testing::Test {
 protected:
  StyledLabelsTest() {
    // Shops without an area, in rows of 14.
    for (int i = 0; i < 200; ++i) {
      auto place = Location::make(*RawData::parse(
          fmt::format(R"({{"id": "s{0}", "name": "Shop {0}", "type": "shop"}})", i)));
      place->nodes.push_back(shown.node(20 + i % 14 * 70, 20 + i / 14 * 70, 0));
      shown.venue->locations->push_back(place);
    }
    shown.venue->vortices = {Vortex::make(*RawData::parse(
        R"({"id": "e", "name": "Escalator", "type": "escalator", "polygons": [{"id": "hall"}]})"))};
    view.setStyle(style);
    style->finish();
    view.layoutIfNeeded();
  }

  LabelView& labels() {
    for (const auto& child : view.subviews())
      if (auto* found = dynamic_cast<LabelView*>(child.get())) return *found;
    throw std::logic_error("no labels");
  }

  void draw() {
    canvas.now += 1.0 / 60;
    view.updateMarkerPositions();
    labels().draw(canvas);
    labels().finish();
  }

  // Positions of the visible images that are drawn once, such as names, by their numbers.
  std::map<std::uint64_t, Point> middles() const {
    std::map<std::uint64_t, int> counts;
    std::map<std::uint64_t, Point> found;
    for (const auto& piece : canvas.pieces) {
      ++counts[piece.place.serial];
      if (piece.alpha > 0) found[piece.place.serial] = {piece.rect.midX(), piece.rect.midY()};
    }
    std::erase_if(found, [&](const auto& entry) { return counts[entry.first] > 1; });
    return found;
  }

  ShownVenue shown;
  MapView& view = *shown.mapView;
  std::shared_ptr<MapStyle> style = MapStyle::make();
  RecordingCanvas canvas;
};

TEST_F(StyledLabelsTest, MoveWithTheMapAndStayClearOfTheEdgeOfPanelsMarksAndEachOther) {
  const auto pin = makeImageMarker(makePinImage(graphics::colors::red, 40, 1));
  pin->setPosition({400, 400, 0});
  view.addMarker(pin);
  style->setCovered({{{0, 0}, {200, 100}}});
  view.camera().setLimited(false);
  view.camera().setPose({500, 500, 700, 0, 0});
  std::size_t compared = 0;
  std::map<std::uint64_t, Point> former;
  const auto sheet = [&] {
    draw();
    return canvas.sheet;
  }();
  for (int frame = 0; frame < 1000; ++frame) {
    const bool isPan = frame % 100 < 60;
    const double way = std::round(6 * std::sin(frame * 0.02));
    if (isPan)
      view.camera().drag({400, 400}, {400 + way, 400 - way});
    else if (frame % 100 < 90)
      view.camera().zoomBy(frame / 100 % 2 == 0 ? 1.02 : 0.98, {300, 300});
    draw();
    const auto middles = this->middles();
    for (const auto& [serial, middle] : middles)
      if (const auto before = former.find(serial); isPan && before != former.end()) {
        ++compared;
        ASSERT_NEAR(middle.x - before->second.x, way, 1) << frame;
        ASSERT_NEAR(middle.y - before->second.y, -way, 1) << frame;
      }
    former = middles;
    std::vector<Rect> taken{{{0, 0}, {200, 100}}, {{720, 765}, {70, 30}}};
    const Point at = view.findPositionCameraViewport({400, 400, 0});
    taken.push_back({{at.x - 4, at.y - 4}, {8, 8}});
    for (const auto& piece : canvas.pieces) {
      if (!(piece.alpha > 0)) continue;
      const Rect core{{piece.rect.minX() + 3, piece.rect.minY() + 3},
                      {piece.rect.size.width - 6, piece.rect.size.height - 6}};
      ASSERT_TRUE(core.minX() >= 0 && core.minY() >= 0 && core.maxX() <= 800 && core.maxY() <= 800);
      for (const Rect& other : taken) ASSERT_FALSE(core.intersects(other)) << frame;
      taken.push_back(core);
    }
  }
  EXPECT_GT(compared, 2000U);
  EXPECT_EQ(canvas.sheet, sheet);
  for (int frame = 0; frame < 120 && labels().isAnimating(); ++frame) draw();
  EXPECT_FALSE(labels().isAnimating()) << "at rest";
  for (const auto& piece : canvas.pieces) EXPECT_EQ(piece.alpha, 1);
}

TEST_F(StyledLabelsTest, AreThoseOfTheFloorAndTheThemeAndCompleteInPictures) {
  style->setStill(true);
  draw();
  const auto ground = canvas.pieces.size();
  EXPECT_GT(ground, 40U);
  {
    RouteOverlay route(shown.mapView, {shown.node(20, 20, 0), shown.node(930, 20, 0)});
    route.show(1);
    draw();
    const double y = view.findPositionCameraViewport({20, 20, 0}).y;
    for (const auto& [place, rect, alpha, turn] : canvas.pieces)
      EXPECT_TRUE(rect.maxY() - 3 <= y - 4.5 || rect.minY() + 3 >= y + 4.5) << "over the route";
  }
  draw();
  EXPECT_EQ(canvas.pieces.size(), ground);
  for (const auto& piece : canvas.pieces) EXPECT_EQ(piece.alpha, 1);
  const auto light = canvas.sheet;
  view.changeMap(1);
  canvas.pieces.clear();
  draw();
  EXPECT_TRUE(canvas.pieces.empty()) << "not yet made";
  EXPECT_FALSE(style->isReady());
  style->finish();
  EXPECT_TRUE(style->isReady());
  draw();
  EXPECT_EQ(canvas.pieces.size(), 1U) << "the name of the loft";
  style->setTheme(MapTheme::dark());
  style->finish();
  draw();
  EXPECT_NE(canvas.sheet, light);
  view.setStyle(nullptr);
  EXPECT_THROW(labels(), std::logic_error);
}

TEST_F(StyledLabelsTest, GiveWayToTheSelectedPlaceAndToTheAids) {
  style->setStill(true);
  style->setFurniture({.attribution = true});
  shown.venue->_data = *RawData::parse(R"({"attribution": "© Everybody who has made this map"})");
  view.setStyle(nullptr);
  view.setStyle(style);
  view.layoutIfNeeded();
  const auto cafe = shown.location("cafe-1");
  scene::Node& shape = *shown.floor(0)->mapObject->children().at(1);
  style->setSelected(cafe);
  style->setClosures(guidance::Closures({"cafe-1"}));
  style->finish();
  draw();
  ASSERT_EQ(canvas.images.size(), 3U) << "pin, symbol and name";
  const Point tip = view.findPositionCameraViewport({200, 200, 2});
  EXPECT_NEAR(canvas.images[0].maxY(), tip.y, 4);
  EXPECT_NEAR(canvas.images[0].midX(), tip.x, 1);
  EXPECT_EQ(labels().labelAt({tip.x, tip.y - 20}), cafe);
  const Rect note{{10, 770}, {150, 20}};
  for (const auto& piece : canvas.pieces)
    EXPECT_FALSE(piece.rect.intersects(canvas.images[2]) || piece.rect.intersects(note));
  EXPECT_EQ(shape.displayColor(), style->theme()->fill(FillKind::other)) << "closed";
  style->setClosures({});
  EXPECT_NE(shape.displayColor(), style->theme()->fill(FillKind::other));
  style->setModelColors(true);
  EXPECT_EQ(shape.displayColor(), std::nullopt);
  for (const bool isOtherFloor : {true, false}) {
    isOtherFloor ? view.changeMap(1) : style->setSelected(nullptr);
    style->finish();
    canvas.images.clear();
    draw();
    EXPECT_TRUE(canvas.images.empty());
    view.changeMap(0);
  }
}

TEST_F(StyledLabelsTest, CanBeTapped) {
  view.camera().setPose({500, 500, 1500, 0, 0});
  draw();
  struct Case {
    graphics::Vector3 at;
    const char* place;
    const char* call;
  };
  std::vector<std::string> told;
  std::vector<std::string> tapped;
  view.placeTapped = [&](const auto& place) { told.push_back(place ? *place->name : ""); };
  style->tapped = [&](const MapTap& tap) {
    EXPECT_EQ(tap.floor, view.currentMap());
    tapped.push_back(tap.place ? *tap.place->name : "");
  };
  for (const auto& [at, place, call] :
       {Case{{860, 20, 0}, "Shop 12", "nothing"}, Case{{200, 200, 2}, "Cafe", "cafe"},
        Case{{120, 290, 2}, "Cafe", "cafe"}, Case{{840, 20, 0}, "Shop 12", "nothing"},
        Case{{825, 835, 2}, "Escalator", "nothing"}, Case{{985, 985, 0}, "", "nothing"}}) {
    shown.delegate->calls.clear();
    told.clear();
    tapped.clear();
    const Point point = view.findPositionCameraViewport(at);
    view::TouchDispatcher fingers(shown.mapView);
    fingers.dispatch({1, view::TouchPhase::began, point, 0.0});
    fingers.dispatch({1, view::TouchPhase::ended, point, 0.1});
    EXPECT_THAT(shown.delegate->calls, testing::ElementsAre(call)) << place;
    EXPECT_THAT(told, testing::ElementsAre(place == "Escalator"s ? "" : place));
    EXPECT_THAT(tapped, testing::ElementsAre(place));
  }
}

}  // namespace
}  // namespace orivanta::test
