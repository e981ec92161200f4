// Many parts take few draw calls, and unchanged data is not uploaded again.
#include <epoxy/gl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "Platform/Render/DrawRuns.hpp"
#include "Platform/Scene/Batch.hpp"
#include "Tests/Platform/Render/Studio.hpp"
#include "Tests/Support/GoldenPicture.hpp"
#include "Tests/Support/SyntheticFloor.hpp"

namespace orivanta::test {
namespace {

using render::Choice;
using render::Run;

struct Runs {
  const char* choices;  ///< for parts of 300 indices: d draw, a allow, l leave
  std::vector<Run> expected;
};

TEST(DrawRuns, CoverWhatIsDrawnInFewRuns) {
  const Runs cases[] = {
      {"", {}},
      {"al", {}},
      {"ddd", {{0, 900}}},
      {"dld", {{0, 300}, {600, 300}}},
      {"adad", {{300, 900}}},              // a short invisible stretch saves a call
      {"daaad", {{0, 300}, {1200, 300}}},  // a long one does not
      {"dald", {{0, 300}, {900, 300}}},
  };
  for (const auto& [choices, expected] : cases) {
    std::vector<render::MeshPart> parts;
    for (std::uint32_t i = 0; choices[i] != '\0'; ++i) parts.push_back({300 * i, 300, {}});
    const auto runs = render::chooseRuns(parts, [text = choices](std::size_t part) {
      return text[part] == 'd' ? Choice::draw : text[part] == 'a' ? Choice::allow : Choice::leave;
    });
    EXPECT_EQ(runs, expected) << choices;
  }
}

class FloorDrawing : public testing::Test {
 protected:
  FloorDrawing() : floor(makeSyntheticFloor(8, 6)) {
    studio.scene->rootNode()->addChild(floor);
    studio.eye->removeFromParent();
    rig = lightAndWatch(*studio.scene, 8, 6);
  }

  std::shared_ptr<scene::Material> materialOf(std::size_t room) const {
    return floor->children()[room]->geometry()->firstMaterial();
  }

  Studio studio{200, 150};
  std::shared_ptr<scene::Node> floor;
  LightAndCamera rig;
};

TEST_F(FloorDrawing, HighlightingARoomUploadsOneTexel) {
  const auto first = studio.draw();
  const auto again = studio.draw();
  const auto before = studio.statistics();
  EXPECT_EQ(before.drawCalls, 1);  // the previous frame is reused
  EXPECT_TRUE(std::ranges::equal(again->pixels(), first->pixels()));
  materialOf(27)->setDiffuseContents(graphics::colors::red);
  EXPECT_TRUE(looksAsKept(*studio.draw(), "highlight"));
  EXPECT_EQ(studio.statistics().bytesUploaded, before.bytesUploaded + 4);
  EXPECT_EQ(studio.statistics().drawCalls, 2);  // all rooms, and the finished scene
  EXPECT_EQ(studio.statistics().shadowMapsDrawn, 0);
  studio.addLight(scene::LightType::spot, graphics::colors::black);  // everything is lit per pixel
  EXPECT_TRUE(looksAsKept(*studio.draw(), "highlight"));
}

TEST_F(FloorDrawing, ARoomMayBecomeTranslucentOrHiddenOrGetAnImage) {
  const auto drawCalls = [&] {
    studio.draw();
    return studio.statistics().drawCalls;
  };
  drawCalls();
  materialOf(27)->setDiffuseContents(graphics::Color{1, 0, 0, 0.5F});
  EXPECT_EQ(drawCalls(), 2 + 1 + 1 + 2);  // a run on either side, the room; two runs for shadows
  materialOf(27)->setDiffuseContents(makeQuarters());
  EXPECT_EQ(drawCalls(), 2 + 1 + 1 + 1);
  floor->children()[27]->setHidden(true);
  EXPECT_EQ(drawCalls(), 2 + 0 + 1 + 2);
}

TEST_F(FloorDrawing, APreparedBatchLooksLikeOneMadeForTheFrame) {
  const auto made = studio.draw();
  floor->setPreparedBatch(scene::Batch::make(*floor));
  const auto prepared = studio.draw();
  EXPECT_TRUE(std::equal(made->pixels().begin(), made->pixels().end(), prepared->pixels().begin()));

  // A batch that no longer matches is ignored.
  floor->children()[0]->setPosition({-50, 0, 0});
  const auto moved = studio.draw();
  floor->setPreparedBatch(nullptr);
  const auto unprepared = studio.draw();
  EXPECT_FALSE(std::equal(made->pixels().begin(), made->pixels().end(), moved->pixels().begin()));
  EXPECT_TRUE(
      std::equal(moved->pixels().begin(), moved->pixels().end(), unprepared->pixels().begin()));
}

TEST_F(FloorDrawing, ALongRouteCostsFewCalls) {
  studio.draw();
  const int calls = studio.statistics().drawCalls;
  const auto route = makeSyntheticRoute(40, 8);
  studio.scene->rootNode()->addChild(route);
  studio.draw();
  studio.draw(0.5);
  EXPECT_LE(studio.statistics().drawCalls, calls + 8);  // visible parts with one look share a call
  EXPECT_LE(studio.statistics().bytesUploaded, 40 * 32 + 200);  // the new positions of the images
  EXPECT_TRUE(looksAsKept(*studio.draw(0.5), "route"));
}

TEST_F(FloorDrawing, ShadowsGetFinerAsTheCameraComesCloser) {
  rig.eye->camera()->zNear = 1;
  const auto drawFrom = [&](float distance) {
    rig.eye->setPosition({0, 0, distance});
    studio.draw();
    return studio.statistics().shadowMapSide;
  };
  const int far = drawFrom(250);
  EXPECT_GT(far, 0);
  EXPECT_EQ(drawFrom(240), 0);  // the same map is reused
  EXPECT_GT(drawFrom(30), far);
  EXPECT_EQ(drawFrom(32), 0);
  EXPECT_EQ(drawFrom(250), far);
}

TEST_F(FloorDrawing, LeavesOutFacesThatAreTurnedAwayOnlyWhereNobodySeesThem) {
  rig.eye->camera()->zNear = 1;
  rig.orbit->setEulerAngles({0, 0, 0});
  rig.orbit->setPosition({15, 15, 0});
  rig.eye->setPosition({0, 0, 5});  // inside a room, looking at its floor
  EXPECT_FALSE(isNear(pixelOf(*studio.draw(), 100, 75), {255, 255, 255, 255}, 20));
}

TEST_F(FloorDrawing, MovingANodeUploadsItsOwnVerticesAlone) {
  const auto add = [&] { return studio.add(makeSlab(5, 5), scene::Material::make()); };
  const auto moving = add();
  for (int i = 0; i < 20; ++i) add();
  studio.draw();
  studio.draw();
  const std::int64_t before = studio.statistics().bytesUploaded;
  moving->setPosition({3, 4, 5});
  studio.draw();
  EXPECT_EQ(studio.statistics().bytesUploaded - before, 24 * 36);  // four corners per side
}

TEST_F(FloorDrawing, WhatLiesExactlyOnItsLikeIsDrawnOnce) {
  const auto add = [&](graphics::Color color) {
    studio.add(scene::makeCylinder(9, 9), scene::Material::make(color), {60, 60, 60})
        ->setCastsShadow(false);
  };
  studio.draw();
  add(graphics::colors::green);
  studio.draw();
  EXPECT_EQ(studio.statistics().shadowMapsDrawn, 0);
  int before = studio.statistics().triangles;
  const auto trianglesOfAnother = [&](graphics::Color color) {
    add(color);
    studio.draw();
    return studio.statistics().triangles - std::exchange(before, studio.statistics().triangles);
  };
  EXPECT_GT(trianglesOfAnother(graphics::colors::red), 20);
  EXPECT_EQ(trianglesOfAnother(graphics::colors::red), 0);
  EXPECT_GT(trianglesOfAnother(graphics::colors::blue), 20);
}

// Counts the buffers and textures that exist in the driver.
int liveNames() {
  int count = 0;
  for (GLuint name = 1; name < 500; ++name)
    count += (glIsBuffer(name) != 0 ? 1 : 0) + (glIsTexture(name) != 0 ? 1 : 0);
  return count;
}

TEST_F(FloorDrawing, WhatIsTakenAwayIsLetGo) {
  studio.draw();
  const int names = liveNames();
  auto image = studio.add(makeSlab(5, 5), scene::Material::make(makeQuarters()), {50, 50, 50});
  auto other = makeSyntheticFloor(6, 6);
  studio.scene->rootNode()->addChild(other);
  studio.draw();
  EXPECT_EQ(liveNames(), names + 2 * 4 + 1);  // two meshes with four names, and an image
  const std::weak_ptr<scene::Geometry> geometry = image->geometry();
  const std::weak_ptr<scene::Node> part = other->children().front();
  for (auto* node : {&image, &other}) {
    (*node)->removeFromParent();
    node->reset();
  }
  studio.draw();
  EXPECT_TRUE(geometry.expired());
  EXPECT_TRUE(part.expired());
  studio.draw();                      // releases what the previous frame still used
  EXPECT_EQ(liveNames(), names + 4);  // the mesh of single nodes is kept, but empty
}

}  // namespace
}  // namespace orivanta::test
