// Reads the demo venue's models as the map view does.
#include "Apps/DemoVenue/Models.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>
#include <map>
#include <set>
#include <string>

#include "Platform/Scene/Obj/Model.hpp"
#include "Tests/Apps/DemoVenue/GeneratedVenue.hpp"

namespace orivanta::test {

namespace json = boost::json;

namespace {

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

TEST(DemoVenueModels, ShowEveryPolygonFromOutsideWithTheTexturesOfTheFloor) {
  std::map<std::string, std::set<std::string>> drawn;
  const json::value maps = json::parse(contentsOf(generatedVenue() / "map.json"));
  for (const json::value& record : maps.as_array()) {
    const std::string map(record.at("id").as_string());
    const json::value& files = record.at("scene");
    std::set<std::string> images;
    for (const json::value& image : files.at("images").as_array())
      images.insert(image.at("url").as_string().c_str());
    const auto model =
        scene::obj::readModel(generatedVenue() / files.at("obj").as_string().c_str()).value();
    EXPECT_EQ(model.skippedFaces, 0U) << map;
    EXPECT_TRUE(model.hasNormals) << map;
    for (const auto& [material, indices] : model.groups) {
      EXPECT_TRUE(material.defined) << map << ' ' << material.name;
      for (std::size_t i = 0; i < indices.size(); i += 3)
        ASSERT_GT(areaFromOutside(model, &indices[i]), 0.0) << map << ' ' << material.name;
      drawn[map].insert(material.name);
      if (!material.diffuseTexture) continue;
      const std::string image = "maps/" + material.diffuseTexture->filename().string();
      EXPECT_TRUE(model.hasTextureCoordinates && images.contains(image)) << map << ' ' << image;
      EXPECT_TRUE(std::filesystem::exists(generatedVenue() / image)) << image;
    }
    EXPECT_TRUE(drawn[map].contains("Ground")) << map;
  }
  const json::value polygons = json::parse(contentsOf(generatedVenue() / "polygon.json"));
  EXPECT_GT(polygons.as_array().size(), 200U);
  for (const json::value& polygon : polygons.as_array()) {
    const std::string map(polygon.at("map").as_string());
    EXPECT_TRUE(drawn[map].contains(polygon.at("id").as_string().c_str()))
        << map << ' ' << polygon.at("id");
  }
}

}  // namespace orivanta::test
