#include <gtest/gtest.h>

#include <cmath>
#include <glm/ext/matrix_transform.hpp>
#include <glm/gtc/constants.hpp>

#include "Tests/Platform/Render/Studio.hpp"
#include "Tests/Support/GoldenPicture.hpp"
#include "Tests/Support/SyntheticFloor.hpp"

namespace orivanta::test {
namespace {

using graphics::Color;
using graphics::Vector3;
using scene::LightType;

Color colorOf(const Pixel& pixel) {
  const auto part = [&](std::size_t i) { return static_cast<float>(pixel[i]) / 255.0F; };
  return {part(0), part(1), part(2), part(3)};
}

int encoded(double linear) {
  const double value =
      linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
  return static_cast<int>(std::lround(255 * value));
}

TEST(SceneDrawing, ColorsThatAreLitFullyAreShownAsTheyAre) {
  Studio studio(16, 16);
  const auto material = scene::Material::make();
  studio.add(makeSlab(40, 40), material);
  for (const bool lit : {false, true}) {
    if (lit) {
      studio.addLight(LightType::directional, graphics::colors::white);
      studio.addLight(LightType::ambient,
                      graphics::colors::gray);  // light is limited
    }
    for (const Pixel color : {Pixel{0, 0, 0, 255},
                              {255, 255, 255, 255},
                              {1, 2, 3, 255},
                              {37, 150, 190, 255},
                              {128, 127, 64, 255},
                              {254, 10, 200, 255}}) {
      material->setDiffuseContents(colorOf(color));
      EXPECT_TRUE(isNear(pixelOf(*studio.draw(), 8, 8), color)) << "lit: " << lit;
    }
  }
}

struct Lights {
  const char* name;
  std::vector<std::tuple<LightType, Color, Vector3>> lights;
  double amount;
};

TEST(SceneDrawing, LightAddsUpInLinearSpace) {
  const float third = glm::pi<float>() / 3;
  const Color half = Color::fromWhite(0.5F);  // half of the light
  const Lights cases[] = {
      {"from above", {{LightType::directional, graphics::colors::white, {0, 0, 0}}}, 1.0},
      {"aslant", {{LightType::directional, graphics::colors::white, {third, 0, 0}}}, 0.5},
      {"from below", {{LightType::directional, graphics::colors::white, {3.1F, 0, 0}}}, 0.0},
      {"everywhere", {{LightType::ambient, half, {}}}, 0.5},
      {"cone beside", {{LightType::spot, graphics::colors::white, {third, 0, 0}}}, 0.0},
      {"two",
       {{LightType::directional, half, {third, 0, 0}}, {LightType::ambient, half, {}}},
       0.75},
  };
  for (const auto& [name, lights, amount] : cases) {
    Studio studio(16, 16);
    studio.add(makeSlab(40, 40), scene::Material::make());
    for (const auto& [type, color, angles] : lights)
      studio.addLight(type, color, angles)->setPosition({0, 0, 10});
    const int level = encoded(amount);
    EXPECT_TRUE(isNear(pixelOf(*studio.draw(), 8, 8), {level, level, level, 255}, 2)) << name;
  }
}

TEST(SceneDrawing, BothSidesAreLitAlikeWithNormalsEitherWayOrNone) {
  for (const float up : {1.0F, -1.0F, 0.0F})
    for (const int second : {1, 2}) {
      const std::vector<std::array<float, 8>> corners{
          {-20, -20, 0, 0, 0, up}, {20, -20, 0, 0, 0, up}, {0, 20, 0, 0, 0, up}};
      const std::vector<std::uint32_t> order{0, static_cast<std::uint32_t>(second),
                                             static_cast<std::uint32_t>(3 - second)};
      Studio studio(16, 16);
      studio.add(scene::Geometry::make(bytesOf(corners), {{.data = bytesOf(order)}}),
                 scene::Material::make());
      const float third = glm::pi<float>() / 3;
      studio.addLight(LightType::directional, graphics::colors::white, {third, 0, 0});
      const int half = encoded(0.5);
      EXPECT_TRUE(isNear(pixelOf(*studio.draw(), 8, 8), {half, half, half, 255}, 2))
          << up << ", " << second;
    }
}

TEST(SceneDrawing, ShadowsFallAwayFromTheLightAndAreDrawnOnlyWhenTheyChange) {
  Studio studio(200, 150);
  studio.add(makeSlab(180, 130), scene::Material::make(Color{0.9F, 0.85F, 0.7F}));
  const auto box = studio.add(makeSlab(40, 40, 20), scene::Material::make(Color{0.8F, 0.3F, 0.2F}),
                              {-20, 10, 10});
  studio.addLight(LightType::ambient, graphics::colors::darkGray);
  const auto sun =
      studio.addLight(LightType::directional, graphics::colors::white, {0.5F, 0.9F, 0}, true);
  studio.eye->setEulerAngles({0.2F, 0, 0});
  studio.eye->setPosition({0, -20, 98});
  const auto picture = studio.draw();
  EXPECT_TRUE(looksAsKept(*picture, "shadow"));
  EXPECT_EQ(studio.statistics().shadowMapsDrawn, 1);

  const auto drawnAfter = [&](const auto& change) {
    change();
    studio.draw();
    return studio.statistics().shadowMapsDrawn;
  };
  EXPECT_EQ(drawnAfter([] {}), 0);
  EXPECT_EQ(drawnAfter([&] { studio.eye->setPosition({0, 0, 90}); }), 0);
  EXPECT_EQ(drawnAfter([&] { sun->light()->color = graphics::colors::yellow; }), 0);
  EXPECT_EQ(drawnAfter([&] { sun->setEulerAngle(scene::Axis::y, -0.9F); }), 1);
  EXPECT_EQ(drawnAfter([&] { box->setPosition({20, 10, 10}); }), 1);
  EXPECT_EQ(drawnAfter([&] { box->setCastsShadow(false); }), 1);
}

TEST(SceneDrawing, OnlyWhatCastsShadowsDarkensAndOnlyTheLightThatCastsThem) {
  const auto levelBelow = [](bool boxCasts, bool ambient, double strength = 1) {
    Studio studio(32, 32);
    studio.add(makeSlab(60, 60), scene::Material::make());
    studio.add(makeSlab(20, 20), scene::Material::make(), {-30, 0, 30})->setCastsShadow(boxCasts);
    if (ambient) studio.addLight(LightType::ambient, graphics::colors::gray);
    studio
        .addLight(LightType::directional, graphics::colors::white, {0, -glm::pi<float>() / 4, 0},
                  true)
        ->light()
        ->shadowStrength = strength;
    return pixelOf(*studio.draw(), 16, 16)[0];
  };
  EXPECT_NEAR(levelBelow(true, false), 0, 2);
  EXPECT_NEAR(levelBelow(true, true), encoded(0.5), 2);
  EXPECT_NEAR(levelBelow(false, false), encoded(std::sqrt(0.5)), 3);
  EXPECT_NEAR(levelBelow(true, false, 0.4), encoded(0.6 * std::sqrt(0.5)), 3);
}

TEST(SceneDrawing, ADisplayColorReplacesColorsAndImagesButNotTheOpacity) {
  Studio studio(16, 16);
  const auto material = scene::Material::make(makeQuarters(128));
  const auto slab = studio.add(makeSlab(40, 40), material);
  const auto pixel = [&] { return pixelOf(*studio.draw(), 8, 8); };
  const Pixel original = pixel();
  slab->setDisplayColor(colorOf({10, 20, 30, 255}));
  EXPECT_EQ(pixel(), (Pixel{10, 20, 30, 255}));
  material->setDiffuseContents(graphics::colors::red);
  EXPECT_EQ(pixel(), (Pixel{10, 20, 30, 255}));
  material->setOpacity(0);
  EXPECT_EQ(pixel(), (Pixel{255, 255, 255, 255})) << "stays invisible";
  material->setOpacity(1);
  material->setDiffuseContents(makeQuarters(128));
  slab->setDisplayColor(std::nullopt);
  EXPECT_EQ(pixel(), original);
}

TEST(SceneDrawing, TranslucentPartsAreBlendedFromBackToFrontWhateverTheirOrder) {
  Pixel first{};
  for (const bool nearFirst : {false, true}) {
    Studio studio(16, 16);
    const auto red = scene::Material::make(graphics::colors::red);
    red->setOpacity(0.5F);
    const auto blue = scene::Material::make(Color{0, 0, 1, 0.5F});
    const auto addRed = [&] { studio.add(makeSlab(40, 40), red, {0, 0, 20}); };
    if (nearFirst) addRed();
    studio.add(makeSlab(40, 40), blue);
    if (!nearFirst) addRed();
    studio.add(makeSlab(40, 40), scene::Material::make(graphics::colors::green), {0, 0, 40})
        ->setHidden(true);
    // Each slab has a front and a back, so a quarter of the background passes through both.
    const Pixel pixel = pixelOf(*studio.draw(), 8, 8);
    EXPECT_TRUE(isNear(pixel, {207, 16, 64, 255}));  // 13, 1 and 4 sixteenths
    if (nearFirst) {
      EXPECT_EQ(pixel, first);
    }
    first = pixel;
  }
}

TEST(SceneDrawing, ImagesArePlacedWrappedAndBlended) {
  Studio studio(200, 150);
  using scene::WrapMode;
  const auto at = [&](float x, float y, WrapMode wrapS, WrapMode wrapT, graphics::Matrix4 transform,
                      std::uint8_t alpha = 255) {
    const auto material = scene::Material::make();
    material->setDiffuse({makeQuarters(alpha), transform, wrapS, wrapT});
    studio.add(makeSlab(50, 50), material, {x, y, 0});
  };
  const graphics::Matrix4 same(1.0F);
  const auto twice = glm::scale(same, Vector3(2, 2, 1));
  at(-62, 35, WrapMode::clamp, WrapMode::clamp, same);
  at(0, 35, WrapMode::clamp, WrapMode::clamp, glm::translate(same, Vector3(0.5F, 0, 0)));
  at(62, 35, WrapMode::repeat, WrapMode::clamp, twice);
  at(-62, -35, WrapMode::clamp, WrapMode::repeat, twice);
  at(0, -35, WrapMode::repeat, WrapMode::repeat,
     glm::rotate(same, glm::half_pi<float>(), Vector3(0, 0, 1)));
  at(62, -35, WrapMode::repeat, WrapMode::repeat, twice, 100);
  const auto picture = studio.draw();
  EXPECT_TRUE(looksAsKept(*picture, "images"));
  // The upper left corner of the first slab shows that of its image.
  EXPECT_TRUE(isNear(pixelOf(*picture, 16, 18), {255, 0, 0, 255}));
  EXPECT_TRUE(isNear(pixelOf(*picture, 60, 18), {0, 255, 0, 255}));
}

TEST(SceneDrawing, WithoutACameraOnlyTheBackgroundShows) {
  Studio studio(16, 16);
  studio.add(makeSlab(40, 40), scene::Material::make(graphics::colors::red));
  studio.eye->removeFromParent();
  EXPECT_TRUE(isNear(pixelOf(*studio.draw(), 8, 8), {255, 255, 255, 255}));
  studio.view->setBackgroundColor(Color{0.2F, 0.4F, 0.6F, 0.5F});
  EXPECT_TRUE(isNear(pixelOf(*studio.draw(), 8, 8), {51, 102, 153, 128}, 3));
}

TEST(SceneDrawing, WhatIsOutOfSightIsNotDrawn) {
  Studio studio(16, 16);
  studio.add(makeSlab(4, 4), scene::Material::make());
  studio.draw();
  const int triangles = studio.statistics().triangles;
  studio.eye->setPosition({50, 0, 100});
  studio.draw();
  EXPECT_EQ(studio.statistics().triangles, triangles - 12);
}

}  // namespace
}  // namespace orivanta::test
