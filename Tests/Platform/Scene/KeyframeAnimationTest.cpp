#include "Platform/Scene/KeyframeAnimation.hpp"

#include <gtest/gtest.h>

#include "Platform/Scene/Material.hpp"

namespace orivanta::scene {
namespace {

using graphics::Matrix4;

constexpr const char* transformPath = "diffuse.contentsTransform";

/// A matrix identified by the number in its last column.
Matrix4 matrix(float x) {
  Matrix4 result(0.0F);
  result[3][0] = x;
  return result;
}

float valueAt(const KeyframeAnimation& animation, double elapsed, float base = 100) {
  return animation.value(elapsed, matrix(base))[3][0];
}

KeyframeAnimation makeAnimation(std::vector<double> keyTimes, double duration, double repeatCount) {
  return {.keyPath = transformPath,
          .values = {matrix(0), matrix(10)},
          .keyTimes = std::move(keyTimes),
          .duration = duration,
          .repeatCount = repeatCount};
}

TEST(KeyframeAnimation, FollowsItsKeyTimes) {
  const std::vector<double> whole{0, 1};
  const std::vector<double> beyond{0, 5};  // one run covers a fifth of the way
  const std::vector<double> inside{0.25, 0.75};
  struct Case {
    std::vector<double> keyTimes;
    double duration, repeatCount;
    bool autoreverses;
    double elapsed;
    float expected;
  };
  const std::vector<Case> cases{
      {whole, 4, 1, false, -1, 0},          {whole, 4, 1, false, 1, 2.5F},
      {whole, 4, 1, false, 4, 10},          {whole, 4, 1, false, 99, 10},
      {whole, 0.1, 3, false, 0.3, 10},      {whole, 4, 2, false, 5, 2.5F},
      {whole, 4, 1.5, false, 99, 5},        {whole, 4, 0, false, 1, 0},
      {beyond, 10, 5e7, false, 0, 0},       {beyond, 10, 5e7, false, 5, 1},
      {beyond, 10, 5e7, false, 9, 1.8F},    {beyond, 10, 5e7, false, 10, 0},
      {beyond, 10, 5e7, false, 1e8 + 5, 1}, {beyond, 10, 1, false, 11, 2},
      {inside, 4, 1, false, 0.5, 0},        {inside, 4, 1, false, 2, 5},
      {inside, 4, 1, false, 3.5, 10},       {whole, 4, 1, true, 3, 7.5F},
      {whole, 4, 1, true, 5, 7.5F},         {whole, 4, 1, true, 99, 0},
      {whole, 0, 1, false, 1, 100},         {{0}, 4, 1, false, 1, 100},
  };
  for (const auto& [keyTimes, duration, repeatCount, autoreverses, elapsed, expected] : cases) {
    auto animation = makeAnimation(keyTimes, duration, repeatCount);
    animation.autoreverses = autoreverses;
    EXPECT_NEAR(valueAt(animation, elapsed), expected, 1e-5)
        << "key times until " << keyTimes.back() << ", duration " << duration << " x "
        << repeatCount << (autoreverses ? ", back" : "") << ", at " << elapsed;
  }
}

TEST(KeyframeAnimation, AddsToTheBaseWhenAdditive) {
  auto animation = makeAnimation({0, 1}, 4, 1);
  animation.isAdditive = true;
  EXPECT_FLOAT_EQ(valueAt(animation, 2, 100), 105);
}

TEST(KeyframeAnimation, RunsUntilItsLastRunEnds) {
  auto animation = makeAnimation({0, 1}, 4, 1.5);
  EXPECT_TRUE(animation.isRunning(5.9));
  EXPECT_FALSE(animation.isRunning(6));
  animation.autoreverses = true;
  EXPECT_TRUE(animation.isRunning(11.9));
  EXPECT_FALSE(animation.isRunning(12));
  EXPECT_FALSE(makeAnimation({0, 1}, 0, 1).isRunning(0));
}

TEST(Material, AnAnimationBeginsWhenItIsFirstShown) {
  const auto material = Material::make(graphics::colors::red);
  const auto shown = [&](double time) {
    return material->presentedDiffuse(time).contentsTransform[3][0];
  };
  material->addAnimation(std::make_shared<KeyframeAnimation>(makeAnimation({0, 1}, 4, 1)), "a");
  EXPECT_FLOAT_EQ(shown(1000), 0);
  EXPECT_FLOAT_EQ(shown(1001), 2.5F);
  EXPECT_EQ(material->diffuse().contentsTransform, Matrix4(1));
  EXPECT_EQ(std::get<graphics::Color>(material->presentedDiffuse(1001).contents),
            graphics::colors::red);

  const auto slower = std::make_shared<KeyframeAnimation>(makeAnimation({0, 1}, 8, 1));
  material->addAnimation(slower, "a");
  EXPECT_EQ(material->animation("a"), slower);
  EXPECT_FLOAT_EQ(shown(1001), 0);
  EXPECT_FLOAT_EQ(shown(1003), 2.5F);
  material->addAnimation(nullptr, "a");
  EXPECT_EQ(material->animation("a"), nullptr);
  EXPECT_FLOAT_EQ(shown(1004), 0);
}

TEST(Material, AnimationsOfOtherKeyPathsChangeNothing) {
  auto animation = makeAnimation({0, 1}, 4, 1);
  animation.keyPath = "opacity";
  const auto material = Material::make();
  material->addAnimation(std::make_shared<KeyframeAnimation>(animation), "a");
  EXPECT_EQ(material->presentedDiffuse(0).contentsTransform, Matrix4(1));
}

}  // namespace
}  // namespace orivanta::scene
