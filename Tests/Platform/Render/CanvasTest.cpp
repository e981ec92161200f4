#include <gtest/gtest.h>

#include <glm/gtc/constants.hpp>
#include <tuple>

#include "Platform/Render/Gl.hpp"
#include "Platform/Sprite/Node.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/ImageView.hpp"
#include "Tests/Platform/Render/Studio.hpp"
#include "Tests/Support/GoldenPicture.hpp"

namespace orivanta::test {
namespace {

using graphics::Color;
using graphics::Rect;

std::shared_ptr<view::View> makeView(Rect frame, Color color, double alpha = 1) {
  auto made = std::make_shared<view::View>(frame);
  made->setBackgroundColor(color);
  made->setAlpha(alpha);
  return made;
}

TEST(Canvas, AlphaIsMultipliedDownTheTreeAndBlendedAsEncoded) {
  Studio studio(20, 20);
  const auto root =
      makeView({{5, 5}, {20, 20}}, graphics::colors::white);  // its position is ignored
  const auto parent = makeView({{2, 3}, {10, 10}}, graphics::colors::black, 0.5);
  const auto child = makeView({{4, 4}, {4, 4}}, graphics::colors::red, 0.5);
  root->addSubview(parent);
  parent->addSubview(child);
  const auto picture = studio.draw(*root);
  const Pixel expected[] = {{255, 255, 255, 255}, {127, 127, 127, 255}, {159, 95, 95, 255}};
  EXPECT_TRUE(isNear(pixelOf(*picture, 1, 3), expected[0]));
  EXPECT_TRUE(isNear(pixelOf(*picture, 2, 3), expected[1]));
  EXPECT_TRUE(isNear(pixelOf(*picture, 6, 7), expected[2]));
  EXPECT_TRUE(isNear(pixelOf(*picture, 9, 10), expected[2]));
  EXPECT_TRUE(isNear(pixelOf(*picture, 10, 10), expected[1]));
  EXPECT_TRUE(isNear(pixelOf(*picture, 12, 12), expected[0]));
  parent->setHidden(true);
  EXPECT_TRUE(isNear(pixelOf(*studio.draw(*root), 6, 7), expected[0]));
}

TEST(Canvas, WhatNothingCoversIsTransparent) {
  Studio studio(8, 8);
  view::View root({{0, 0}, {8, 8}});
  EXPECT_EQ(pixelOf(*studio.draw(root), 4, 4), (Pixel{0, 0, 0, 0}));
  root.setBackgroundColor(Color{1, 0.5F, 0, 0.25F});
  EXPECT_TRUE(isNear(pixelOf(*studio.draw(root), 4, 4), {255, 128, 0, 64}, 3));
}

// Limits its drawing, and that of its children, to a part of it.
class Clipped : public view::View {
 public:
  using View::View;
  void draw(view::Canvas& canvas) override {
    canvas.clip({{2, 1}, {6, 4}});
    View::draw(canvas);
  }
};

TEST(Canvas, ClipsAViewWithItsChildrenButNotItsSiblings) {
  Studio studio(20, 20);
  const auto root = makeView({{0, 0}, {20, 20}}, graphics::colors::white);
  const auto outer = std::make_shared<Clipped>(Rect{{4, 4}, {12, 12}});  // shows 6..12, 5..9
  outer->setBackgroundColor(graphics::colors::green);
  const auto inner = std::make_shared<Clipped>(Rect{{4, 2}, {12, 12}});  // shows 10..12, 7..9
  inner->setBackgroundColor(graphics::colors::red);
  outer->addSubview(inner);
  root->addSubview(outer);
  root->addSubview(makeView({{0, 12}, {20, 2}}, graphics::colors::blue));
  const auto picture = studio.draw(*root);
  const Pixel white{255, 255, 255, 255};
  const Pixel green{0, 255, 0, 255};
  const Pixel red{255, 0, 0, 255};
  const std::tuple<int, int, Pixel> expected[] = {
      {5, 6, white},  {6, 6, green},  {6, 4, white},
      {9, 8, green},  {10, 6, green}, {10, 8, red},
      {12, 8, white}, {11, 9, white}, {10, 12, {0, 0, 255, 255}}};
  for (const auto& [x, y, color] : expected)
    EXPECT_TRUE(isNear(
        pixelOf(*picture, static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)), color))
        << x << " " << y;
}

class Drawn : public view::View {
 public:
  using View::View;
  void draw(view::Canvas& canvas) override {
    View::draw(canvas);
    canvas.fill({{5, 5}, {60, 30}}, {0.2F, 0.4F, 0.8F}, 10);
    canvas.fill({{15.5, 40.5}, {40, 40}}, {0.8F, 0.2F, 0.2F, 0.7F}, 100);
    canvas.draw(makeQuarters(), {{80, 10}, {40, 40}});
    canvas.draw(makeQuarters(180), {{80, 60}, {40, 20}}, 0.8, glm::pi<double>() / 6);
    canvas.fill({{0, 0}, {-1, 5}}, graphics::colors::red);
  }
};

TEST(Canvas, DrawsViewsAndSprites) {
  Studio studio(200, 150);
  Drawn root({{0, 0}, {200, 150}});
  root.setBackgroundColor(Color{0.95F, 0.95F, 0.9F});
  const auto image = std::make_shared<view::ImageView>(makeQuarters());
  image->setFrame({{140, 10}, {50, 25}});
  root.addSubview(image);

  studio.view->setFrame({{100, 90}, {90, 50}});
  studio.view->setBackgroundColor(Color{0.7F, 0.8F, 0.7F});
  studio.add(makeSlab(40, 20), scene::Material::make(graphics::colors::purple));
  const auto overlay = sprite::Scene::make({90, 50});
  studio.view->setOverlayScene(overlay);
  const auto label = sprite::LabelNode::make("Exit");
  label->setFontSize(16);
  label->setPosition({25, 12});
  label->setColor(graphics::colors::black);
  overlay->addChild(label);
  root.addSubview(studio.view);
  const auto picture = studio.draw(root);
  EXPECT_TRUE(looksAsKept(*picture, "views", {.component = 24, .pixels = 0.01}));
}

TEST(Canvas, SpritesLieByDepthThenByTheirOrder) {
  Studio studio(40, 20);
  const auto overlay = sprite::Scene::make({20, 20});  // stretched to twice its width
  studio.view->setOverlayScene(overlay);
  const auto add = [&](sprite::Node& parent, Color color, graphics::Point position, double z) {
    const auto byte = [](float level) { return static_cast<std::uint8_t>(255 * level); };
    auto sprite = sprite::SpriteNode::make(
        graphics::Image::make(1, 1, {byte(color.red), byte(color.green), byte(color.blue), 255}),
        {4, 4});
    sprite->setPosition(position);
    sprite->setZPosition(z);
    parent.addChild(sprite);
    return sprite;
  };
  const auto red = add(*overlay, graphics::colors::red, {5, 15}, 1);
  add(*overlay, graphics::colors::green, {5, 15}, 0);
  const auto parent = sprite::Node::make();
  parent->setAlpha(0.5);
  overlay->addChild(parent);
  parent->setPosition({10, 0});
  add(*parent, graphics::colors::blue, {5, 5}, 0);
  add(*parent, graphics::colors::black, {5, 5}, 0);

  EXPECT_TRUE(isNear(pixelOf(*studio.draw(), 10, 5), {255, 0, 0, 255}));
  red->setZPosition(0);
  const auto picture = studio.draw();
  EXPECT_TRUE(isNear(pixelOf(*picture, 10, 5), {0, 255, 0, 255}));
  EXPECT_TRUE(isNear(pixelOf(*picture, 30, 15), {64, 64, 127, 255}));  // black over blue over white
  EXPECT_TRUE(isNear(pixelOf(*picture, 27, 15), {64, 64, 127, 255}));
  EXPECT_TRUE(isNear(pixelOf(*picture, 25, 15), {255, 255, 255, 255}));
}

TEST(Canvas, ScalesPointsToPixels) {
  Studio studio(16, 16);
  view::View root({{0, 0}, {8, 8}});
  root.addSubview(makeView({{1, 1}, {1.5, 1}}, graphics::colors::red));
  const auto picture = studio.draw(root, 0, 2);
  EXPECT_EQ(pixelOf(*picture, 1, 2)[3], 0);
  EXPECT_EQ(pixelOf(*picture, 2, 2), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(pixelOf(*picture, 4, 3), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(pixelOf(*picture, 5, 2)[3], 0);
}

TEST(Canvas, PicturesThatShrinkAreAveraged) {
  Studio studio(16, 16);
  std::vector<std::uint8_t> stripes;
  for (int i = 0; i < 64 * 64; ++i) {
    const std::uint8_t level = i % 4 == 0 ? 255 : 0;
    stripes.insert(stripes.end(), {level, level, level, 255});
  }
  view::ImageView root(graphics::Image::make(64, 64, std::move(stripes)));
  root.setFrame({{0, 0}, {16, 16}});
  EXPECT_TRUE(isNear(pixelOf(*studio.draw(root), 8, 8), {64, 64, 64, 255}, 2));
}

// A toolkit may share the context and use its own vertices and textures.
TEST(Canvas, IsTheSameAfterOthersUsedTheContext) {
  Studio studio(16, 16);
  const auto useOtherwise = [] {
    for (GLuint attribute = 0; attribute < 5; ++attribute) glDisableVertexAttribArray(attribute);
    for (const GLenum skip : {GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_PIXELS, GL_UNPACK_SKIP_ROWS})
      glPixelStorei(skip, 3);
    for (const GLenum capability : {GL_CULL_FACE, GL_SCISSOR_TEST}) glEnable(capability);
    glBlendEquation(GL_FUNC_REVERSE_SUBTRACT);
    glColorMask(GL_FALSE, GL_TRUE, GL_TRUE, GL_TRUE);
  };
  for (int frame = 0; frame < 2; ++frame) {
    useOtherwise();
    view::ImageView root(makeQuarters());
    root.setFrame({{0, 0}, {16, 16}});
    const auto picture = studio.draw(root);
    EXPECT_EQ(pixelOf(*picture, 1, 1), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(pixelOf(*picture, 14, 1), (Pixel{0, 255, 0, 255}));
    EXPECT_EQ(pixelOf(*picture, 1, 14), (Pixel{0, 0, 255, 255}));
  }
}

TEST(OffscreenSurface, SaysWhatIsNotPossible) {
  for (const auto& [width, height] : {std::pair(0U, 5U), {5U, 0U}, {1U << 20U, 5U}}) {
    const auto surface = render::OffscreenSurface::make(width, height);
    ASSERT_FALSE(surface) << width << " x " << height;
    EXPECT_NE(surface.error().description.find("pixels"), std::string::npos);
  }
}

TEST(OffscreenSurface, SeveralLiveSideBySide) {
  Studio first(8, 8);
  Studio second(4, 4);
  first.view->setBackgroundColor(graphics::colors::red);
  first.surface->makeCurrent();
  EXPECT_EQ(pixelOf(*first.draw(), 7, 7), (Pixel{255, 0, 0, 255}));
  second.surface->makeCurrent();
  EXPECT_EQ(pixelOf(*second.draw(), 3, 3), (Pixel{255, 255, 255, 255}));
}

}  // namespace
}  // namespace orivanta::test
