// Reads the demo venue's models as the map view does.
#include "Apps/DemoVenue/Models.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>
#include <map>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "Platform/Scene/Obj/Model.hpp"
#include "Tests/Apps/DemoVenue/GeneratedVenue.hpp"

namespace orivanta::test {

namespace json = boost::json;

namespace {

struct FloorModel {
  std::string map;
  std::set<std::string> images;
  scene::obj::Model model;
};

std::vector<FloorModel> floorModels() {
  std::vector<FloorModel> models;
  const json::value maps = json::parse(contentsOf(generatedVenue() / "map.json"));
  for (const json::value& map : maps.as_array()) {
    FloorModel floor{map.at("id").as_string().c_str(), {}, {}};
    const json::value& scene = map.at("scene");
    for (const json::value& image : scene.at("images").as_array())
      floor.images.insert(image.at("url").as_string().c_str());
    EXPECT_TRUE(std::filesystem::exists(generatedVenue() / scene.at("mtl").as_string().c_str()));
    floor.model =
        scene::obj::readModel(generatedVenue() / scene.at("obj").as_string().c_str()).value();
    models.push_back(std::move(floor));
  }
  return models;
}

// Twice the area of a triangle, as seen from the side of its first corner's normal.
double areaFromOutside(const scene::obj::Model& model, const std::uint32_t* corners) {
  const auto& [a, normal, unused] = model.vertices[corners[0]];
  const auto& b = model.vertices[corners[1]].position;
  const auto& c = model.vertices[corners[2]].position;
  double area = 0.0;
  for (std::size_t x = 0; x < 3; ++x) {
    const std::size_t y = (x + 1) % 3;
    const std::size_t z = (x + 2) % 3;
    area += ((b[y] - a[y]) * (c[z] - a[z]) - (b[z] - a[z]) * (c[y] - a[y])) * normal[x];
  }
  return area;
}

}  // namespace

TEST(DemoVenueModels, AreWholeAndLookWhereTheirNormalsPoint) {
  for (const auto& [map, images, model] : floorModels()) {
    EXPECT_EQ(model.skippedFaces, 0U) << map;
    EXPECT_TRUE(model.hasNormals) << map;
    for (const auto& [material, indices] : model.groups) {
      EXPECT_TRUE(material.defined) << map << ' ' << material.name;
      for (std::size_t i = 0; i < indices.size(); i += 3)
        ASSERT_GT(areaFromOutside(model, &indices[i]), 0.0) << map << ' ' << material.name;
    }
  }
}

TEST(DemoVenueModels, EveryPolygonHasAMaterialOfItsName) {
  std::map<std::string, std::set<std::string>> drawn;
  for (const auto& [map, images, model] : floorModels())
    for (const auto& group : model.groups) drawn[map].insert(group.material.name);
  const json::value polygons = json::parse(contentsOf(generatedVenue() / "polygon.json"));
  EXPECT_GT(polygons.as_array().size(), 200U);
  for (const json::value& polygon : polygons.as_array()) {
    const std::string map(polygon.at("map").as_string());
    EXPECT_TRUE(drawn[map].contains(polygon.at("id").as_string().c_str()))
        << map << ' ' << polygon.at("id");
  }
  for (const auto& [map, materials] : drawn) EXPECT_TRUE(materials.contains("Ground")) << map;
}

TEST(DemoVenueModels, TexturesAreListedWithTheFloorAndAreThere) {
  std::set<std::string> used;
  for (const auto& [map, images, model] : floorModels()) {
    for (const auto& group : model.groups) {
      if (!group.material.diffuseTexture) continue;
      const std::string image = "maps/" + group.material.diffuseTexture->filename().string();
      EXPECT_TRUE(model.hasTextureCoordinates && images.contains(image)) << map << ' ' << image;
      used.insert(image);
    }
    for (const std::string& image : images)
      EXPECT_EQ(contentsOf(generatedVenue() / image).substr(0, 8), "\x89PNG\r\n\x1a\n") << image;
  }
  EXPECT_EQ(used.size(), 3U);
}

}  // namespace orivanta::test
