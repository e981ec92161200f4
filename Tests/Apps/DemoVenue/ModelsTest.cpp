#include "Apps/DemoVenue/Models.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <boost/json.hpp>
#include <cmath>
#include <cstdio>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "Tests/Apps/DemoVenue/GeneratedVenue.hpp"

namespace orivanta::test {

namespace json = boost::json;

namespace {

using Triple = std::array<double, 3>;

struct FaceCorner {
  std::size_t vertex = 0;
  std::size_t textureCoordinates = 0;
  std::size_t normal = 0;
};

struct Face {
  std::string material;
  std::vector<FaceCorner> corners;
};

struct ObjFile {
  std::string library;
  std::vector<Triple> vertices;
  std::vector<Triple> normals;
  std::size_t textureCoordinates = 0;
  std::vector<Face> faces;
};

// Reads "1//2" and "1/2/3".
// NOLINTBEGIN(cert-err34-c): the number of fields tells what matters
FaceCorner cornerOf(const std::string& text) {
  FaceCorner corner;
  if (std::sscanf(text.c_str(), "%zu//%zu", &corner.vertex, &corner.normal) == 2) return corner;
  EXPECT_EQ(std::sscanf(text.c_str(), "%zu/%zu/%zu", &corner.vertex, &corner.textureCoordinates,
                        &corner.normal),
            3)
      << text;
  return corner;
}
// NOLINTEND(cert-err34-c)

ObjFile readObj(const std::filesystem::path& file) {
  ObjFile obj;
  std::istringstream stream(contentsOf(file));
  std::string material;
  for (std::string line; std::getline(stream, line);) {
    std::istringstream words(line);
    std::string keyword;
    words >> keyword;
    if (keyword == "mtllib") words >> obj.library;
    if (keyword == "usemtl") words >> material;
    if (keyword == "vt") ++obj.textureCoordinates;
    if (keyword == "v" || keyword == "vn") {
      Triple triple{};
      words >> triple[0] >> triple[1] >> triple[2];
      EXPECT_TRUE(words) << line;
      (keyword == "v" ? obj.vertices : obj.normals).push_back(triple);
    }
    if (keyword == "f") {
      Face face = {material, {}};
      for (std::string corner; words >> corner;) face.corners.push_back(cornerOf(corner));
      obj.faces.push_back(std::move(face));
    }
  }
  return obj;
}

// Each material's texture, or "".
std::map<std::string, std::string> readMtl(const std::filesystem::path& file) {
  std::map<std::string, std::string> textures;
  std::istringstream stream(contentsOf(file));
  std::string material;
  for (std::string keyword, value; stream >> keyword && std::getline(stream, value);) {
    if (keyword == "newmtl") textures[material = value.substr(1)] = "";
    if (keyword == "map_Kd") textures[material] = value.substr(1);
  }
  return textures;
}

struct FloorModel {
  std::string map;
  std::set<std::string> images;
  ObjFile obj;
  std::map<std::string, std::string> materials;
};

std::vector<FloorModel> floorModels() {
  std::vector<FloorModel> models;
  const auto& folder = generatedVenue();
  const json::value maps = json::parse(contentsOf(folder / "map.json"));
  for (const json::value& map : maps.as_array()) {
    FloorModel model;
    model.map = map.at("id").as_string().c_str();
    const json::value& scene = map.at("scene");
    for (const json::value& image : scene.at("images").as_array())
      model.images.insert(image.at("url").as_string().c_str());
    model.obj = readObj(folder / scene.at("obj").as_string().c_str());
    model.materials = readMtl(folder / scene.at("mtl").as_string().c_str());
    EXPECT_EQ("maps/" + model.obj.library, scene.at("mtl").as_string());
    models.push_back(std::move(model));
  }
  return models;
}

double longestSide(const ObjFile& obj) {
  double longest = 0.0;
  for (const std::size_t axis : {0U, 1U}) {
    const auto [least, most] =
        std::minmax_element(obj.vertices.begin(), obj.vertices.end(),
                            [axis](const Triple& a, const Triple& b) { return a[axis] < b[axis]; });
    longest = std::max(longest, (*most)[axis] - (*least)[axis]);
  }
  return longest;
}

// The normal of a face by Newell's method, as long as twice its area.
Triple areaVector(const ObjFile& obj, const Face& face) {
  Triple sum{};
  for (std::size_t i = 0; i < face.corners.size(); ++i) {
    const Triple& a = obj.vertices[face.corners[i].vertex - 1];
    const Triple& b = obj.vertices[face.corners[(i + 1) % face.corners.size()].vertex - 1];
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const std::size_t next = (axis + 1) % 3;
      const std::size_t last = (axis + 2) % 3;
      sum[axis] += (a[next] - b[next]) * (a[last] + b[last]);
    }
  }
  return sum;
}

double dot(const Triple& a, const Triple& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

}  // namespace

TEST(DemoVenueModels, IndicesAreInRangeAndMaterialsKnown) {
  for (const auto& [map, images, obj, materials] : floorModels()) {
    EXPECT_GT(obj.faces.size(), 500U) << map;
    for (const Face& face : obj.faces) {
      ASSERT_TRUE(materials.contains(face.material)) << map << ' ' << face.material;
      EXPECT_GE(face.corners.size(), 3U);
      for (const FaceCorner& corner : face.corners) {
        ASSERT_TRUE(corner.vertex >= 1 && corner.vertex <= obj.vertices.size()) << map;
        ASSERT_TRUE(corner.normal >= 1 && corner.normal <= obj.normals.size()) << map;
        ASSERT_LE(corner.textureCoordinates, obj.textureCoordinates) << map;
        ASSERT_EQ(corner.textureCoordinates != 0, !materials.at(face.material).empty()) << map;
      }
    }
  }
}

TEST(DemoVenueModels, FacesHaveAnAreaAndLookWhereTheirNormalPoints) {
  for (const auto& [map, images, obj, materials] : floorModels())
    for (const Face& face : obj.faces) {
      const Triple area = areaVector(obj, face);
      const double size = std::sqrt(dot(area, area));
      ASSERT_GT(size, 0.001) << map << ' ' << face.material;
      const Triple& normal = obj.normals[face.corners.front().normal - 1];
      EXPECT_NEAR(dot(normal, normal), 1.0, 0.001) << map << ' ' << face.material;
      EXPECT_GT(dot(normal, area) / size, 0.95) << map << ' ' << face.material;
    }
}

TEST(DemoVenueModels, EveryPolygonHasAMaterialOfItsName) {
  std::map<std::string, std::set<std::string>> drawn;
  for (const auto& [map, images, obj, materials] : floorModels())
    for (const Face& face : obj.faces) drawn[map].insert(face.material);
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
  for (const auto& [map, images, obj, materials] : floorModels()) {
    for (const auto& [material, texture] : materials) {
      if (texture.empty()) continue;
      EXPECT_TRUE(images.contains("maps/" + texture)) << map << ' ' << material;
      used.insert("maps/" + texture);
    }
    for (const std::string& image : images)
      EXPECT_EQ(contentsOf(generatedVenue() / image).substr(0, 8), "\x89PNG\r\n\x1a\n") << image;
  }
  EXPECT_EQ(used.size(), 3U);
}

TEST(DemoVenueModels, FloorsHaveMapSizeAndTheLargestComesFirst) {
  const auto models = floorModels();
  for (const FloorModel& model : models) {
    const double side = longestSide(model.obj);
    EXPECT_GE(side, 500.0) << model.map;
    EXPECT_LE(side, 3000.0) << model.map;
    EXPECT_LE(side, longestSide(models.front().obj)) << model.map;
  }
}

TEST(DemoVenueModels, OneWalksOnTopOfTheFloor) {
  for (const auto& [map, images, obj, materials] : floorModels())
    for (const Face& face : obj.faces) {
      if (face.material.find("-ring-") == std::string::npos) continue;
      for (const FaceCorner& corner : face.corners)
        EXPECT_LT(obj.vertices[corner.vertex - 1][2], 0.5) << face.material;
    }
}

}  // namespace orivanta::test
