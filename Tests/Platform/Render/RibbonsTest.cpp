// Lines of constant width, routes, and nodes that are blended as one.
#include <gtest/gtest.h>

#include "Platform/Scene/Batch.hpp"
#include "Platform/Scene/Ribbons.hpp"
#include "Tests/Platform/Render/Studio.hpp"

namespace orivanta::test {
namespace {

using graphics::Color;
using graphics::Vector3;
using scene::Ribbons;
using Lines = std::vector<Ribbons::Line>;
namespace colors = graphics::colors;

class RibbonDrawing : public testing::Test {
 protected:
  RibbonDrawing() {
    studio.view->setBackgroundColor(colors::black);
    studio.eye->removeFromParent();
    for (const auto& node : {orbit, lines}) studio.scene->rootNode()->addChild(node);
    orbit->addChild(studio.eye);
  }

  void look(float tilt, float turn, double scale) {
    orbit->setEulerAngles({tilt, 0, turn});
    studio.view->setFrame({{0, 0}, {side / scale, side / scale}});
    scale_ = scale;
  }

  std::shared_ptr<const graphics::Image> draw() { return studio.draw(*studio.view, 0, scale_); }

  /// The sum of a color component, in fully colored pixels.
  double area(std::size_t component) {
    const auto image = draw();
    double sum = 0;
    for (std::uint32_t y = 0; y < side; ++y)
      for (std::uint32_t x = 0; x < side; ++x) sum += pixelOf(*image, x, y)[component] / 255.0;
    return sum;
  }

  /// The length in pixels on the screen.
  double lengthOf(const Ribbons::Line& line) {
    double sum = 0;
    const std::size_t edges = line.points.size() - (line.isClosed ? 0 : 1);
    for (std::size_t i = 0; i < edges; ++i) {
      const Vector3 from = studio.view->project(line.points[i]);
      const Vector3 to = studio.view->project(line.points[(i + 1) % line.points.size()]);
      sum += std::hypot(to.x - from.x, to.y - from.y) * scale_;
    }
    return sum;
  }

  static constexpr std::uint32_t side = 240;
  Studio studio{side, side};
  const std::shared_ptr<scene::Node> orbit = scene::Node::make();
  const std::shared_ptr<scene::Node> lines = scene::Node::make();
  double scale_ = 1;
};

struct Sight {
  float tilt, turn;
  double scale;
};
constexpr std::array sights{Sight{0, 0, 1},    Sight{0, 0.7F, 2},     Sight{0.6F, 0, 1},
                            Sight{0.6F, 1, 2}, Sight{1.0F, -0.4F, 1}, Sight{1.0F, 2, 2}};

TEST_F(RibbonDrawing, HaveTheirWidthFromEverywhere) {
  const Lines single{{.points = {{-60, -10, 0}, {50, 40, 0}}}};
  const Lines bent{{.points = {{-50, -40, 0}, {10, -45, 0}, {55, -10, 0}, {-20, 40, 0}}}};
  // Ends behind the camera when it is tilted.
  const Lines endless{{.points = {{3, -4000, 0}, {-3, 2000, 0}}}};
  for (const auto& [tilt, turn, scale] : sights)
    for (const double width : {1.25, 6.0}) {
      look(tilt, turn, scale);
      const scene::RibbonLook plain{{{colors::red, static_cast<float>(width)}}, {}};
      for (const Lines& each : {single, bent}) {
        lines->setRibbons(Ribbons::make(each, 0), plain);
        EXPECT_NEAR(area(0) / lengthOf(each[0]), width * scale, 0.05 * width * scale)
            << tilt << " " << turn << " " << scale;
      }
      if (turn != 0) continue;
      lines->setRibbons(Ribbons::make(endless, 0), plain);
      EXPECT_NEAR(area(0), width * side, 0.04 * width * side) << tilt;
    }
}

TEST_F(RibbonDrawing, AreVisibleOnBothSidesOfTheEdgesOfABlock) {
  studio.add(makeSlab(90, 70, 20), scene::Material::make(colors::blue));
  const Ribbons::Line edge{.points = {{-45, -35, 0}, {45, -35, 0}, {45, 35, 0}, {-45, 35, 0}},
                           .isClosed = true};
  const graphics::Box box = studio.scene->rootNode()->boundingBox();
  lines->setPosition({0, 0, box.max.z});
  lines->setRibbons(Ribbons::make({&edge, 1}, 0), {{{colors::red, 4}}, {}});
  Ribbons::Line raised = edge;
  for (Vector3& point : raised.points) point.z = box.max.z;
  for (const auto& [tilt, turn, scale] : sights) {
    look(tilt, turn, scale);
    EXPECT_NEAR(area(0) / lengthOf(raised), 4 * scale, 0.12 * scale) << tilt << " " << turn;
  }
}

TEST_F(RibbonDrawing, ShowHiddenPartsOfARouteEvenlyDimmed) {
  studio.add(makeSlab(300, 300), scene::Material::make(colors::blue), {0, 0, -5});
  studio.add(makeSlab(120, 300), scene::Material::make(colors::green), {0, 0, 10});
  // Crosses itself, and has short edges, sharp corners and one that turns back below the block.
  const Ribbons::Line line{.points = {{-80, -30, 0},
                                      {30, 30, 0},
                                      {30, 32, 0},
                                      {28, 33, 0},
                                      {-20, -40, 0},
                                      {-40, 30, 0},
                                      {-38, -10, 0},
                                      {80, -20, 0},
                                      {40, -20, 0},
                                      {80, -20, 0}},
                           .hasRoundEnds = true};
  const scene::RouteRibbon route{.casing = colors::red, .casingWidth = 2, .hiddenAlpha = 0.35F};
  lines->setRibbons(Ribbons::make({&line, 1}, 0), {{{colors::red, 6}}, route});
  for (const float tilt : {0.0F, 0.4F}) {
    look(tilt, 0, 1);
    const auto image = draw();
    int dimmed = 0;
    int darker = 0;
    for (std::uint32_t y = 0; y < side; ++y)
      for (std::uint32_t x = 0; x < side; ++x) {
        const Pixel pixel = pixelOf(*image, x, y);
        dimmed += isNear(pixel, {89, 166, 0, 255}, 2) ? 1 : 0;
        darker += pixel[1] > 40 && pixel[1] < 163 && pixel[2] < 20 && pixel[0] > 92 ? 1 : 0;
      }
    EXPECT_GT(dimmed, 1500) << tilt;
    EXPECT_LT(darker, 60) << tilt;  // at the edges of the block
    const Vector3 start = studio.view->project(line.points.front());
    EXPECT_EQ(
        pixelOf(*image, static_cast<std::uint32_t>(start.x), static_cast<std::uint32_t>(start.y)),
        (Pixel{255, 0, 0, 255}));
  }
}

TEST_F(RibbonDrawing, RoutesHaveACasingAPassedPartAndArrowsThatMove) {
  const Ribbons::Line line{.points = {{-100, 0, 0}, {100, 0, 0}}, .distance = 500};
  scene::RibbonLook route{{{colors::red, 10}},
                          scene::RouteRibbon{.casing = colors::white,
                                             .passed = colors::blue,
                                             .casingWidth = 3,
                                             .passedTo = 540,
                                             .arrowSpacing = 40,
                                             .arrowPhase = 30}};
  const auto ribbons = Ribbons::make({&line, 1}, 0);
  lines->setRibbons(ribbons, route);
  auto image = draw();
  const auto at = [&](int x, int y) { return pixelOf(*image, side / 2 + x, side / 2 - y); };
  EXPECT_EQ(at(-70, 0), (Pixel{0, 0, 255, 255}));
  EXPECT_EQ(at(20, 3), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(at(20, 6), (Pixel{255, 255, 255, 255}));
  EXPECT_EQ(at(20, 9), (Pixel{0, 0, 0, 255}));
  const auto arrows = [&] {
    std::vector<int> found;
    for (int x = -100; x < 100; ++x)
      if (at(x, 0)[1] > 150 && (found.empty() || x > found.back() + 5)) found.push_back(x);
    return found;
  };
  const auto before = arrows();  // at -50, -10, 30 and 70
  ASSERT_EQ(before.size(), 4U);
  EXPECT_NEAR(before[0], -50, 4);
  EXPECT_LT(at(before[0] + 2, 0)[2], 60 + at(before[0], 0)[2]);
  route.route->arrowPhase += 13;
  lines->setRibbons(ribbons, route);
  image = draw();
  const auto after = arrows();
  ASSERT_EQ(after.size(), 4U);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(after[i] - before[i], 13);
}

TEST_F(RibbonDrawing, ChangeTheirColorsWithAnUploadOfTwoKilobytes) {
  Lines many;
  for (std::uint8_t i = 0; i < 200; ++i)
    many.push_back({.points = {{-90, -100.0F + i, 0}, {90, -100.0F + i, 0}}, .colors = {i}});
  const auto ribbons = Ribbons::make(many, 0);
  lines->setRibbons(ribbons, {std::vector<scene::RibbonColor>(200, {colors::red, 1}), {}});
  const double red = area(0);
  EXPECT_GT(red, 0.9 * 180 * 200);
  studio.view->setBackgroundColor(colors::blue);
  draw();
  const auto least = studio.statistics().bytesUploaded;
  lines->setRibbons(ribbons, {std::vector<scene::RibbonColor>(200, {colors::green, 1}), {}});
  EXPECT_NEAR(area(1), red, 1);
  EXPECT_LE(studio.statistics().bytesUploaded, least + 2048);
}

TEST_F(RibbonDrawing, ANodeWithAnOpacityIsBlendedAsOne) {
  const auto floor = scene::Node::make();
  const auto add = [&](scene::Node& parent, double size, Color color, float z) {
    auto slab = makeSlab(size, size, 4);
    slab->setMaterials({scene::Material::make(color)});
    auto node = scene::Node::make(std::move(slab));
    node->setPosition({0, 0, z});
    parent.addChild(node);
    return node;
  };
  add(*floor, 160, colors::red, 0);
  const auto block = add(*floor, 80, colors::green, 4);
  add(*block, 40, colors::blue, 4);  // outside of the batch
  const auto top = floor->boundingBox().max.z;
  const Ribbons::Line line{.points = {{-100, 0, top}, {100, 0, top}}};
  studio.scene->rootNode()->addChild(floor);
  const auto check = [&](float share) {
    const auto image = draw();
    const auto blended = [&](const Color& color) {
      return Pixel{static_cast<int>(std::lround(255 * color.red * share)),
                   static_cast<int>(std::lround(255 * color.green * share)),
                   static_cast<int>(std::lround(255 * color.blue * share)), 255};
    };
    for (const auto& [x, color] :
         {std::pair{65U, colors::red}, {35U, colors::green}, {10U, colors::blue}}) {
      EXPECT_TRUE(isNear(pixelOf(*image, side / 2 + x, side / 2 + 10), blended(color), 2)) << share;
      EXPECT_TRUE(isNear(pixelOf(*image, side / 2 + x, side / 2), blended(colors::white), 2));
    }
  };
  floor->setRibbons(Ribbons::make({&line, 1}, 0), {{{colors::white, 6}}, {}});
  for (const auto& batch : {std::shared_ptr<const scene::Batch>(), scene::Batch::make(*floor)}) {
    floor->setPreparedBatch(batch);
    for (const float tilt : {0.0F, 0.1F})
      for (const float share : {1.0F, 0.5F, 0.25F, 0.0F}) {
        look(tilt, 0, 1);
        floor->setOpacity(share);
        check(share);
      }
  }
}

}  // namespace
}  // namespace orivanta::test
