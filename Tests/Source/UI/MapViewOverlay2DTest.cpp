#include "Source/UI/MapViewOverlay2D.hpp"

#include <gtest/gtest.h>

#include <array>

#include "Source/UI/MapViewMarker2D.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

TEST(MapViewOverlay2D, ShowsTheScore) {
  const auto overlay = MapViewOverlay2D::make({100, 100});
  EXPECT_EQ(overlay->score(), 0);
  EXPECT_EQ(overlay->pauseNode, nullptr);
  EXPECT_DEATH(overlay->setScore(1), "unexpectedly found nil");
  overlay->scoreNode = sprite::LabelNode::make();
  for (const int score : {7, -3}) {
    overlay->setScore(score);
    EXPECT_EQ(overlay->scoreNode->text(), "Score: " + std::to_string(score));
  }
}

TEST(MapViewOverlay2D, SaysWhichTouchesLandOnMarkers) {
  const DiagnosticLines lines;
  const auto overlay = MapViewOverlay2D::make({100, 100});
  const MapViewMarker2D marker({10, 10}, nullptr);
  marker.node->setPosition({50, 50});
  overlay->addChild(marker.node);
  const auto other = sprite::SpriteNode::make(nullptr, {10, 10});
  overlay->addChild(other);
  const std::array<graphics::Point, 4> touches{{{50, 50}, {80, 80}, {2, 2}, {46, 54}}};
  overlay->touchesBegan(touches);
  EXPECT_EQ(lines.lines(), std::vector<std::string>(2, "Node marker tapped"));
}

TEST(MapViewOverlay2D, ComesFromASizeOrAnArchive) {
  EXPECT_EQ(MapViewOverlay2D::make(view::Coder({{"width", 3}, {"height", 4}}))->size(),
            (graphics::Size{3, 4}));
  EXPECT_EQ(MapViewOverlay2D::make(view::Coder({{"width", 3}})), nullptr);
  EXPECT_DEATH(MapViewOverlay2D::make(), "unimplemented initializer 'init\\(\\)'");
}

}  // namespace
}  // namespace orivanta::test
