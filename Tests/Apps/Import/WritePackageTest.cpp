#include "Apps/Import/Write/WritePackage.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <boost/json.hpp>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "Apps/Import/Import.hpp"
#include "Apps/Import/Model/Faces.hpp"
#include "Apps/Import/PackageLayout.hpp"
#include "Apps/Import/Report/Summary.hpp"
#include "Apps/Import/Stages.hpp"
#include "Apps/Package/Numbers.hpp"
#include "Tests/Apps/Import/House/House.hpp"

namespace orivanta::importer {

namespace fs = std::filesystem;
namespace json = boost::json;

namespace {

Building imported(Building building = house::make()) {
  Findings findings;
  runStages(building, {}, findings);
  return building;
}

class WritePackage : public testing::Test {
 protected:
  fs::path folder_ = fs::path(testing::TempDir()) /
                     ("package-" + std::to_string(testing::UnitTest::GetInstance()->random_seed()) +
                      testing::UnitTest::GetInstance()->current_test_info()->name());
  void SetUp() override { fs::remove_all(folder_); }
  void TearDown() override { fs::remove_all(folder_); }

  static std::string contents(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  static std::map<std::string, std::string> files(const fs::path& folder) {
    std::map<std::string, std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
      if (entry.is_regular_file())
        all[fs::relative(entry.path(), folder).string()] = contents(entry.path());
    return all;
  }
  json::value parsed(const char* name) const { return json::parse(contents(folder_ / name)); }
  json::array records(const char* name) const { return parsed(name).as_array(); }
};

}  // namespace

TEST(PackageNumbers, AreTheShortestThatAreReadAsTheSame) {
  for (const double value : {0.0, -0.5, 1.0, 12.34, -0.0001, 0.00012, 100.1, 99999.9999, 1.0 / 3.0,
                             1e9, 123456789012.5, 1e300, 5e-324, 0.1 + 0.2}) {
    std::string text;
    package::appendNumber(text, value);
    EXPECT_EQ(text, fmt::format("{}", value));
  }
}

TEST_F(WritePackage, RecordsReferToEachOther) {
  const Building building = imported();
  writePackage(building, folder_);
  std::set<std::string> maps;
  std::map<std::string, std::string> materials;  // of all models, by map
  for (const json::value& map : records("map.json")) {
    const std::string id(map.at("id").as_string());
    maps.insert(id);
    materials[id] = contents(folder_ / map.at("scene").at("mtl").as_string().c_str());
    EXPECT_TRUE(fs::exists(folder_ / map.at("plan").as_string().c_str()));
  }
  EXPECT_EQ(maps.size(), 3U);
  std::set<std::string> nodes;
  for (const json::value& node : records("node.json")) nodes.emplace(node.at("id").as_string());
  std::set<std::string> polygons;
  for (const json::value& polygon : records("polygon.json")) {
    const std::string id(polygon.at("id").as_string());
    polygons.insert(id);
    EXPECT_NE(materials.at(std::string(polygon.at("map").as_string())).find("newmtl " + id + "\n"),
              std::string::npos)
        << id;
    for (const json::value& door : polygon.at("entrances").as_array())
      EXPECT_TRUE(nodes.contains(std::string(door.at("id").as_string())));
  }
  std::map<std::string, json::value> places;
  for (const json::value& place : records("location.json")) {
    places[std::string(place.at("name").as_string())] = place;
    EXPECT_FALSE(place.at("nodes").as_array().empty()) << place;
    for (const json::value& node : place.at("nodes").as_array())
      EXPECT_TRUE(nodes.contains(std::string(node.at("node").as_string())));
    for (const json::value& polygon : place.at("polygons").as_array())
      EXPECT_TRUE(polygons.contains(std::string(polygon.at("id").as_string())));
  }
  EXPECT_EQ(places.size(), 13U);  // twelve rooms and the entrance
  EXPECT_EQ(places.at("Entrance").at("type"), "entrance");
  EXPECT_EQ(places.at("Library").at("names").at("de"), "Bibliothek");
  const json::array connectors = records("vortex.json");
  ASSERT_EQ(connectors.size(), 3U);
  EXPECT_EQ(connectors.at(0).at("type"), "elevator");  // those without steps come first
  for (const json::value& connector : connectors)
    for (const json::value& node : connector.at("nodes").as_array())
      EXPECT_TRUE(nodes.contains(std::string(node.as_string())));
  EXPECT_EQ(parsed("venue.json").at("slug"), "house-of-trades");
  EXPECT_EQ(parsed("venue.json").at("unitsPerMetre").to_number<double>(), 20.0);
}

TEST_F(WritePackage, SameBuildingGivesSameBytes) {
  writePackage(imported(), folder_);
  const auto before = files(folder_);
  writePackage(imported(), folder_);
  EXPECT_EQ(files(folder_), before);
  // A moved room changes the records of the room and what is near it.
  Building moved = house::make();
  for (Area& area : moved.areas)
    if (area.id == "kitchen")
      for (Point& point : area.shape.front().outer)
        if (point.x > 29.0) point.x += 0.5;
  const auto nodesIn = [](const std::string& text) {
    std::map<std::string, json::value> nodes;
    const json::value parsed = json::parse(text);
    for (const json::value& node : parsed.as_array())
      nodes[std::string(node.at("id").as_string())] = node;
    return nodes;
  };
  writePackage(imported(moved), folder_);
  for (const auto& [name, bytes] : files(folder_)) {
    if (name.ends_with(".json") && name != "node.json") {
      EXPECT_EQ(bytes, before.at(name)) << name;
    }
  }
  const auto old = nodesIn(before.at("node.json"));
  std::size_t changed = 0;
  for (const auto& [id, node] : nodesIn(contents(folder_ / "node.json"))) {
    const auto same = old.find(id);
    if (same != old.end() && same->second == node) continue;
    ++changed;
    EXPECT_EQ(node.at("map").as_string(), old.at("kitchen-door0").at("map").as_string()) << id;
    EXPECT_GT(node.at("x").to_number<double>(), 17.0 * 20.0) << id;  // 5 m from the kitchen
    EXPECT_LT(node.at("y").to_number<double>(), 11.0 * 20.0) << id;
  }
  EXPECT_GT(changed, 0U);
}

TEST_F(WritePackage, ChoosesRoundUnits) {
  for (const auto& [meters, units] : {std::pair(10.0, 200.0),
                                      {39.0, 50.0},
                                      {41.0, 20.0},
                                      {990.0, 2.0},
                                      {1500.0, 1.0},
                                      {19000.0, 0.1}}) {
    Building building;
    building.storeys.emplace_back();
    building.storeys.front().footprint = {{package::rectangle(0, 0, meters, 5), {}}};
    EXPECT_EQ(PackageLayout(building).unitsPerMeter(), units) << meters;
  }
}

TEST(Faces, CoverThePolygonWithoutItsHoles) {
  Polygon polygon = {package::rectangle(0, 0, 10, 10), {}};
  for (const double x : {1.0, 4.0, 7.0})
    for (const double y : {1.0, 4.0, 7.0}) {
      Outline hole = package::rectangle(x, y, x + 2, y + 2);
      std::reverse(hole.begin(), hole.end());
      polygon.holes.push_back(hole);
    }
  double covered = 0.0;
  for (const Outline& face : facesOf(polygon)) covered += package::signedArea(face);
  EXPECT_NEAR(covered, 100.0 - 9.0 * 4.0, 1e-9);
}

TEST(Review, NamesWhatCannotBeReached) {
  Building building = house::make();
  std::erase_if(building.areas, [](const Area& area) {
    return area.kind == AreaKind::escalator ||
           (area.level == 1.0 &&
            (area.kind == AreaKind::stairs || area.kind == AreaKind::elevator));
  });
  std::erase_if(building.doors, [](const Door& door) { return door.id == "lift-door@1"; });
  building = imported(building);
  Findings findings;
  reviewBuilding(building, findings);
  const Summary summary = summarize(building);
  EXPECT_EQ(summary.rooms, 12U);
  EXPECT_EQ(summary.roomsReachable, 8U);
  EXPECT_EQ(findings.countOf("unreachable"), 1U);
  EXPECT_EQ(summaryText(summary), "3 floors, 12 rooms, 1 lift, 1 stairs; 8 rooms reachable");
}

}  // namespace orivanta::importer
