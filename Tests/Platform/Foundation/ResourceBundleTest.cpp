#include "Platform/Foundation/ResourceBundle.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "Platform/Foundation/Files.hpp"
#include "Tests/Support/EnvironmentVariable.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::foundation {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr std::array<std::uint8_t, 3> model = {'o', 'b', 'j'};
constexpr std::array<std::uint8_t, 0> nothing = {};
constexpr std::array<Resource, 2> resources = {{{"pin.obj", model}, {"pin.mtl", nothing}}};

TEST(ResourceBundle, HandsOutItsFiles) {
  EXPECT_EQ(ResourceBundle::find("test.bytes"), nullptr);
  const ResourceBundle& bundle = ResourceBundle::add("test.bytes", "1", resources);
  EXPECT_EQ(ResourceBundle::find("test.bytes"), &bundle);
  EXPECT_EQ(&ResourceBundle::add("test.bytes", "2", {}), &bundle);
  EXPECT_THAT(*bundle.bytes("pin", "obj"), ElementsAre('o', 'b', 'j'));
  EXPECT_TRUE(bundle.bytes("pin", "mtl")->empty());
  EXPECT_FALSE(bundle.bytes("pin", "png"));
  EXPECT_FALSE(bundle.bytes("pi", "n.obj"));
}

TEST(ResourceBundle, WritesAllItsFilesBesideEachOtherPerVersion) {
  const test::TemporaryFolder folder;
  const test::EnvironmentVariable caches("XDG_CACHE_HOME", folder.path());
  const ResourceBundle& bundle = ResourceBundle::add("test.file", "1", resources);
  const auto path = bundle.file("pin", "obj");
  ASSERT_TRUE(path);
  EXPECT_EQ(readFile(*path, 10), "obj");
  EXPECT_TRUE(fs::exists(path->parent_path() / "pin.mtl"));
  EXPECT_FALSE(bundle.file("pin", "png"));

  const auto written = fs::last_write_time(*path);
  EXPECT_EQ(bundle.file("pin", "obj"), path);
  EXPECT_EQ(fs::last_write_time(*path), written);
  fs::resize_file(*path, 1);
  fs::remove(path->parent_path() / "pin.mtl");
  EXPECT_EQ(readFile(*bundle.file("pin", "obj"), 10), "obj");
  EXPECT_TRUE(fs::exists(path->parent_path() / "pin.mtl"));

  const auto other = ResourceBundle::add("test.other", "1", resources).file("pin", "obj");
  EXPECT_NE(other->parent_path(), path->parent_path());
  const test::EnvironmentVariable unusable("XDG_CACHE_HOME", *path);
  EXPECT_FALSE(bundle.file("pin", "obj"));
}

}  // namespace
}  // namespace orivanta::foundation
