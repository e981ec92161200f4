// Faces that lie over others in the same plane are visible from every angle, but do not show
// through faces that lie a small fraction of a pixel above both.
#include <gtest/gtest.h>

#include "Platform/Scene/Batch.hpp"
#include "Tests/Platform/Render/Studio.hpp"
#include "Tests/Support/SyntheticFloor.hpp"

namespace orivanta::test {
namespace {

using graphics::Color;

std::shared_ptr<scene::Node> makeFan(float radius, float turnBy, float height, Color color) {
  constexpr int corners = 17;
  std::vector<std::array<float, 8>> vertices{{0.3F * radius, 0, height, 0, 0, 1, 0, 0}};
  std::vector<std::uint32_t> indices;
  for (int i = 0; i < corners; ++i) {
    const float angle = turnBy + 6.2831853F * static_cast<float>(i) / corners;
    vertices.push_back({radius * std::cos(angle), radius * std::sin(angle), height, 0, 0, 1, 0, 0});
    const auto corner = static_cast<std::uint32_t>(i);
    indices.insert(indices.end(), {0, corner + 1, (corner + 1) % corners + 1});
  }
  auto geometry = scene::Geometry::make(bytesOf(vertices), {{.data = bytesOf(indices)}});
  geometry->setMaterials({scene::Material::make(color)});
  return scene::Node::make(std::move(geometry));
}

class LayerDrawing : public testing::Test {
 protected:
  LayerDrawing() {
    const auto floor = scene::Node::make();
    for (const auto& part : {slab, carpet, rug, plate}) floor->addChild(part);
    floor->setPreparedBatch(scene::Batch::make(*floor));
    for (const auto& node : {floor, orbit}) studio.scene->rootNode()->addChild(node);
    studio.eye->removeFromParent();
    studio.eye->setPosition({0, 0, 500});
    orbit->addChild(studio.eye);
  }

  /// Counts the pixels that show the part when it is drawn alone, except at its edge, but show
  /// another part when all are drawn.
  int pixelsThatShowOthers(const std::shared_ptr<scene::Node>& part, const Pixel& color,
                           const std::vector<std::shared_ptr<scene::Node>>& over) {
    const auto all = studio.draw();
    for (const auto& each : {slab, carpet, rug, plate}) each->setHidden(each != part);
    for (const auto& each : over) each->setHidden(false);
    const auto expected = studio.draw();
    for (const auto& each : {slab, carpet, rug, plate}) each->setHidden(false);
    int count = 0;
    for (std::uint32_t y = 0; y < all->height(); ++y)
      for (std::uint32_t x = 0; x < all->width(); ++x)
        count += pixelOf(*expected, x, y) == color && pixelOf(*all, x, y) != color ? 1 : 0;
    return count;
  }

  Studio studio{160, 160};
  const std::shared_ptr<scene::Node> slab = makeFan(350, 0, 2, graphics::colors::red);
  const std::shared_ptr<scene::Node> carpet = makeFan(230, 1, 2, graphics::colors::green);
  const std::shared_ptr<scene::Node> rug = makeFan(120, 2, 2, graphics::colors::blue);
  const std::shared_ptr<scene::Node> plate = makeFan(60, 3, 2.3F, graphics::colors::yellow);
  const std::shared_ptr<scene::Node> orbit = scene::Node::make();
};

TEST_F(LayerDrawing, LaterPartsOfAPlaneHideEarlierOnesFromEverywhere) {
  int wrong = 0;
  for (int view = 0; view < 60; ++view) {
    const float tilt = 1.5F * static_cast<float>(view % 10) / 10;  // up to 86 degrees
    orbit->setEulerAngles({tilt, 0, 0.11F * static_cast<float>(view)});
    wrong += pixelsThatShowOthers(carpet, {0, 255, 0, 255}, {rug, plate});
    wrong += pixelsThatShowOthers(rug, {0, 0, 255, 255}, {plate});
    wrong += pixelsThatShowOthers(plate, {255, 255, 0, 255}, {});
  }
  EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace orivanta::test
