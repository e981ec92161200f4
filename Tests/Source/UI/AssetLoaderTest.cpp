#include "Source/UI/AssetLoader.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Material.hpp"
#include "Tests/Support/ShownVenue.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::test {
namespace {

using foundation::Url;

std::vector<std::string> namesOf(const scene::Node& container) {
  std::vector<std::string> names;
  for (const auto& child : container.children()) names.push_back(child->name().value_or("(none)"));
  return names;
}

TEST(AssetLoader, SplitsAModelByMaterial) {
  const TemporaryFolder folder;
  const auto picture = graphics::Image::make(2, 1, {255, 0, 0, 255, 0, 255, 0, 255});
  ASSERT_TRUE(graphics::writePng(*picture, folder.path() / "red.png"));
  folder.write("m.mtl", "newmtl A\nKd 0 1 0\nd 0.5\nnewmtl B\nmap_Kd red.png\n");
  const auto file = folder.write("m.obj",
                                 "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\n"
                                 "f 1 2 3\nusemtl B\nf 1 2 4\nusemtl A\nf 2 3 4\nusemtl C\n"
                                 "f 1 3 4\nusemtl B\nf 2 3 4\n");
  const DiagnosticLines lines;
  const auto floor = AssetLoader().loadObjFromURL(Url::fromFile(file.string()));
  EXPECT_TRUE(lines.contains("childNodes 0"));
  EXPECT_THAT(namesOf(*floor), testing::ElementsAre("(none)", "B", "A", "C"));
  const auto children = floor->children();
  for (const auto& child : children) {
    const auto geometry = child->geometry();
    EXPECT_EQ(geometry->sources().front().data, children[0]->geometry()->sources().front().data);
    EXPECT_EQ(geometry->elements().size(), 1U);
    EXPECT_EQ(geometry->materials().size(), 1U);
  }
  EXPECT_EQ(children[1]->geometry()->elements()[0].indexCount(), 6U);
  const auto textured = children[1]->geometry()->firstMaterial()->diffuse();
  EXPECT_EQ(std::get<1>(textured.contents)->width(), 2U);
  EXPECT_EQ(textured.wrapS, scene::WrapMode::repeat);
  const auto translucent = children[2]->geometry()->firstMaterial();
  EXPECT_EQ(translucent->opacity(), 0.5F);
  EXPECT_EQ(translucent->diffuse().contents, scene::Contents(graphics::colors::green));
}

TEST(AssetLoader, MakesNoSourcesOfWhatAModelDoesNotHold) {
  using scene::Semantic;
  const struct {
    const char* corners;
    bool normals, textureCoordinates;
  } cases[] = {{"1 2 3", false, false},
               {"1//2 2//2 3//2", false, false},  // no direction
               {"1//1 2//1 3//1", true, false},
               {"1/1 2/1 3/1", false, true},
               {"1/1/1 2 3", true, true}};
  const TemporaryFolder folder;
  for (const auto& [corners, normals, textureCoordinates] : cases) {
    const auto file =
        folder.write("m.obj", std::string("v 0 0 0\nv 1 0 0\nv 0 1 0\nvt 1 1\nvn 0 0 1\n"
                                          "vn 0 0 0\nf ") +
                                  corners);
    const auto floor = AssetLoader().loadObjFromURL(Url::fromFile(file.string()));
    const auto geometry = floor->children().front()->geometry();
    EXPECT_EQ(geometry->source(Semantic::normal) != nullptr, normals) << corners;
    EXPECT_EQ(geometry->source(Semantic::textureCoordinate) != nullptr, textureCoordinates)
        << corners;
    EXPECT_FALSE(geometry->boundingBox().isEmpty());
  }
}

TEST(AssetLoader, TakesOrRefusesDamagedModelsWithoutCrashing) {
  if (!venuesFolder()) GTEST_SKIP() << "the real venues are not available";
  const auto models = *venuesFolder() / "igml-pnu201-hostile" / "models";
  AssetLoader loader;
  const auto read = [&](const std::string& name) {
    return loader.readModel(Url::fromFile((models / name).string()));
  };
  for (const auto& entry : std::filesystem::directory_iterator(models))
    if (entry.path().extension() == ".obj") read(entry.path().filename().string());
  for (const char* const sound : {"sound.obj", "negative-indices.obj", "texture-truncated.obj"})
    EXPECT_TRUE(read(sound)) << sound;
  for (const char* const empty : {"empty.obj", "no-faces.obj", "there is none.obj"})
    EXPECT_FALSE(read(empty)) << empty;
  EXPECT_DEATH(loader.loadObjFromURL(Url::fromFile((models / "empty.obj").string())),
               "unexpectedly found nil");
}

TEST(AssetLoader, LoadsNodesFromTheLibrarysOwnScenes) {
  AssetLoader loader;
  const auto pin = loader.load3DAsset("Pin", "pin");
  ASSERT_NE(pin, nullptr);
  EXPECT_FALSE(pin->boundingBox().isEmpty());
  EXPECT_EQ(loader.load3DAsset("Pin", "no such node"), nullptr);
  EXPECT_DEATH(loader.loadObj("no such model"), "unexpectedly found nil");
}

}  // namespace
}  // namespace orivanta::test
