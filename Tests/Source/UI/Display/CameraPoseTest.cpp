#include "Source/UI/Display/CameraPose.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "Source/UI/Display/Framing.hpp"

namespace orivanta {

namespace {

const std::vector<CameraPose> poses{
    {0, 0, 800, 0, 0}, {120, -40, 500, 0.7, 0}, {-30, 60, 1500, 1.04, 2.5}, {0, 0, 90, 0.3, -3}};
const Lens wide{{1280, 800}, 40};
const Lens upright{{390, 844}, 40};

CameraLimits limits() {
  CameraLimits result;
  result.floor.add(graphics::Vector3{-500, -400, 0});
  result.floor.add(graphics::Vector3{500, 400, 6});
  return result;
}

void expectNear(const std::optional<graphics::Point>& found, graphics::Point wanted) {
  ASSERT_TRUE(found);
  EXPECT_NEAR(found->x, wanted.x, 1e-3);
  EXPECT_NEAR(found->y, wanted.y, 1e-3);
}

}  // namespace

TEST(CameraPose, FindsTheGroundThatShowsAtAPoint) {
  for (const CameraPose& pose : poses)
    for (const Lens& lens : {wide, upright})
      for (const graphics::Point point :
           {graphics::Point{0, lens.size.height}, {100, 700}, {300, 400}}) {
        const auto ground = groundUnder(pose, lens, point);
        ASSERT_TRUE(ground);
        expectNear(shownAt(pose, lens, *ground), point);
      }
  EXPECT_FALSE(groundUnder({0, 0, 800, 1.04, 0}, upright, {195, 0})) << "above the horizon";
}

TEST(CameraPose, DragsTheGroundWithThePointer) {
  for (const CameraPose& pose : poses) {
    const auto held = groundUnder(pose, wide, {900, 600});
    expectNear(groundUnder(dragged(pose, wide, {900, 600}, {400, 500}), wide, {400, 500}), *held);
  }
}

TEST(CameraPose, ZoomsTowardsThePointerAsFarAsItMay) {
  const CameraPose pose{20, 10, 700, 0.5, 1};
  const auto held = groundUnder(pose, wide, {700, 500});
  const CameraPose closer = zoomed(pose, wide, limits(), 2, {700, 500});
  EXPECT_DOUBLE_EQ(closer.distance, 350);
  expectNear(groundUnder(closer, wide, {700, 500}), *held);
  EXPECT_EQ(zoomed(pose, wide, limits(), 1e6, {640, 400}).distance, limits().nearest);
  EXPECT_EQ(zoomed(pose, wide, limits(), 1e-6, {640, 400}).distance, limits().farthest);
}

TEST(CameraPose, StaysWithinItsLimits) {
  const CameraPose far = limits().clamped({9000, -9000, 1, 2, 7});
  EXPECT_EQ(far.x, 500);
  EXPECT_EQ(far.y, -400);
  EXPECT_EQ(far.distance, limits().nearest);
  EXPECT_EQ(far.tilt, limits().steepest);
  EXPECT_NEAR(std::remainder(far.turn - 7, 2 * 3.14159265358979), 0, 1e-9);
  EXPECT_EQ(limits().clamped({0, 0, 500, -0.2, 0}).tilt, 0);
}

TEST(CameraPose, FramesPointsInWhatIsFree) {
  const std::vector<graphics::Vector3> points{
      {-350, -290, 0}, {340, 270, 0}, {-350, 270, 0}, {340, -290, 0}};
  const Insets insets{360, 20, 80, 10};
  for (const CameraPose& pose : poses) {
    const CameraPose framed = framing(points, pose, wide, insets, {});
    EXPECT_EQ(framed.tilt, pose.tilt);
    EXPECT_EQ(framed.turn, pose.turn);
    Insets room{1e9, 1e9, 1e9, 1e9};
    for (const graphics::Vector3& point : points) {
      const auto shown = shownAt(framed, wide, {point.x, point.y});
      ASSERT_TRUE(shown);
      room = {std::min(room.left, shown->x - 360), std::min(room.top, shown->y - 20),
              std::min(room.right, 1200 - shown->x), std::min(room.bottom, 790 - shown->y)};
    }
    const double across = std::max(std::abs(room.left), std::abs(room.right));
    const double up = std::max(std::abs(room.top), std::abs(room.bottom));
    EXPECT_LT(std::min(across, up), 1e-6) << "as close as possible";
    EXPECT_GT(std::min({room.left, room.top, room.right, room.bottom}), -1e-6);
  }
}

TEST(CameraPose, FramesAPointWithItsSurroundings) {
  const std::array point{graphics::Vector3{70, -20, 0}};
  const CameraPose framed = framing(point, {0, 0, 1, 0, 1}, wide, {}, {0.25, 200});
  expectNear(shownAt(framed, wide, {70, -20}), {640, 400});
  EXPECT_NEAR(groundUnder(framed, wide, {640, 0})->x - groundUnder(framed, wide, {640, 800})->x,
              -250 * std::sin(1), 1e-6);
}

TEST(CameraPose, FramesAModelThatIsHigherThanWide) {
  graphics::Box tower;
  tower.add(graphics::Vector3{-20, -30, 0});
  tower.add(graphics::Vector3{40, 30, 900});
  const auto corners = cornersOf(tower);
  for (const Lens& lens : {wide, upright})
    for (const double tilt : {0.0, 0.6, 1.0}) {
      const CameraPose pose = framing(corners, {0, 0, 1, tilt, 0.4}, lens, {}, {});
      Insets room{1e9, 1e9, 1e9, 1e9};
      for (const graphics::Vector3& corner : corners) {
        const double depth = depthOf(corner, pose);
        ASSERT_GT(depth, 0);
        // The corner and the ground point behind it have the same position on the screen.
        const double share =
            pose.distance * std::cos(tilt) / (pose.distance * std::cos(tilt) - corner.z);
        const graphics::Point eye{pose.x + pose.distance * std::sin(tilt) * std::sin(0.4),
                                  pose.y - pose.distance * std::sin(tilt) * std::cos(0.4)};
        const auto shown = shownAt(
            pose, lens, {eye.x + (corner.x - eye.x) * share, eye.y + (corner.y - eye.y) * share});
        ASSERT_TRUE(shown);
        room = {std::min(room.left, shown->x), std::min(room.top, shown->y),
                std::min(room.right, lens.size.width - shown->x),
                std::min(room.bottom, lens.size.height - shown->y)};
      }
      const double least = std::min({room.left, room.top, room.right, room.bottom});
      EXPECT_GT(least, -1e-3) << "nothing is clipped";
      EXPECT_LT(least, 1) << "and it fills the view";
    }
}

TEST(CameraPose, GoesTheShorterWayRound) {
  const CameraPose from{0, 0, 100, 0, 3};
  const CameraPose to{10, 20, 400, 1, -3};
  EXPECT_EQ(between(from, to, 0), from);
  const CameraPose half = between(from, to, 0.5);
  EXPECT_NEAR(half.distance, 200, 1e-9);
  EXPECT_NEAR(half.turn, 3.14159, 1e-3);
  EXPECT_NEAR(between(from, to, 1).turn, 3.2832, 1e-3);
}

}  // namespace orivanta
