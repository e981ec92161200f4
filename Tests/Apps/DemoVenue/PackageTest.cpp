#include "Apps/DemoVenue/Package.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/json.hpp>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <unordered_set>

#include "Apps/DemoVenue/Folder.hpp"
#include "Apps/DemoVenue/Pictures.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Apps/DemoVenue/GeneratedVenue.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::test {

namespace fs = std::filesystem;
namespace json = boost::json;

namespace {

CollectionDictionary joined(bool accessible) {
  CollectionDictionary collections = readPackage(generatedVenue());
  linkCategoryParents(collections);
  linkLocationCategories(collections);
  linkPolygonMaps(collections);
  linkNodeMaps(collections);
  linkPolygonEntrances(collections);
  linkVortexNodes(collections, accessible);
  linkLocationNodes(collections);
  linkLocationPolygons(collections);
  return collections;
}

json::array recordsOf(std::string_view file) {
  return json::parse(contentsOf(generatedVenue() / file)).as_array();
}

std::unordered_set<const Node*> reachableFrom(const NodeList& starts,
                                              const NavigationGraph& graph) {
  std::unordered_set<const Node*> reached;
  std::vector<const Node*> open;
  for (const auto& node : starts)
    if (reached.insert(node.get()).second) open.push_back(node.get());
  while (!open.empty()) {
    const Node* node = open.back();
    open.pop_back();
    for (const Edge& edge : graph[*node])
      if (reached.insert(edge.node().get()).second) open.push_back(edge.node().get());
  }
  return reached;
}

std::map<std::string, std::string> filesBelow(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_regular_file())
      files[fs::relative(entry.path(), folder).string()] = contentsOf(entry.path());
  return files;
}

void expectSameFiles(const fs::path& one, const fs::path& other) {
  const auto first = filesBelow(one);
  const auto second = filesBelow(other);
  for (const auto& [name, bytes] : second) EXPECT_TRUE(first.contains(name)) << name;
  for (const auto& [name, bytes] : first) {
    ASSERT_TRUE(second.contains(name)) << name;
    EXPECT_TRUE(second.at(name) == bytes) << name << " differs";
  }
}

}  // namespace

TEST(DemoVenuePackage, EveryRecordIsKeptAndEveryReferenceNamesOne) {
  const CollectionDictionary collections = joined(false);
  EXPECT_EQ(collections.maps->size(), recordsOf("map.json").size());
  EXPECT_EQ(collections.categories->size(), recordsOf("category.json").size());
  EXPECT_EQ(collections.locations->size(), recordsOf("location.json").size());
  EXPECT_EQ(collections.nodes->size(), recordsOf("node.json").size());
  EXPECT_EQ(collections.polygons->size(), recordsOf("polygon.json").size());
  EXPECT_EQ(collections.vortices->size(), recordsOf("vortex.json").size());
  const auto count = [](const auto& record, const char* key) {
    return record->_data[key].arrayValue().size();
  };
  for (const auto& [id, location] : *collections.locations) {
    EXPECT_EQ(location->categories.size(), count(location, "categories")) << id;
    EXPECT_EQ(location->nodes.size(), location->polygons.size()) << id;
    EXPECT_EQ(location->polygons.size(), count(location, "polygons")) << id;
    EXPECT_FALSE(location->nodes.empty() || location->categories.empty()) << id;
  }
  for (const auto& [id, category] : *collections.categories)
    EXPECT_EQ(category->parents.size(), count(category, "parents")) << id;
  for (const auto& [id, polygon] : *collections.polygons)
    EXPECT_EQ(polygon->entrances.size(), count(polygon, "entrances")) << id;
  for (const auto& [id, vortex] : *collections.vortices) {
    EXPECT_EQ(vortex->nodes.size(), count(vortex, "nodes")) << id;
    EXPECT_EQ(vortex->maps.size(), vortex->nodes.size()) << id;
    EXPECT_GE(vortex->maps.size(), 2U) << id;
  }
  for (const auto& [id, node] : *collections.nodes) {
    std::size_t walking = 0;
    for (const Edge& edge : (*collections.navigationGraph)[*node]) walking += edge.vortex() ? 0 : 1;
    EXPECT_EQ(walking, count(node, "paths")) << id;
  }
}

TEST(DemoVenuePackage, EveryLocationHasAPictureInAllItsSizes) {
  std::set<std::string> read;
  for (const json::value& record : recordsOf("location.json")) {
    const json::object& picture = record.at("picture").as_object();
    EXPECT_EQ(picture.at("original"), picture.at("large"));
    for (const demo::Rendition& rendition : demo::renditions) {
      const std::string name = picture.at(rendition.key).as_string().c_str();
      if (!read.insert(name).second) continue;  // many places have the same
      const auto file = generatedVenue() / name;
      const auto image = graphics::readImage(file);
      ASSERT_TRUE(image) << file;
      EXPECT_EQ(static_cast<int>(image->width()), rendition.width);
    }
  }
}

TEST(DemoVenuePackage, NamesComeInThreeLanguages) {
  for (const std::string_view file : {"location.json", "category.json", "map.json", "vortex.json"})
    for (const json::value& record : recordsOf(file)) {
      const json::object& names = record.at("names").as_object();
      EXPECT_EQ(names.at("en"), record.at("name"));
      EXPECT_GE(static_cast<unsigned char>(names.at("ar").as_string()[0]), 0xD8) << names;
      EXPECT_FALSE(names.at("ja").as_string().empty()) << names;
    }
}

TEST(DemoVenuePackage, EveryPlaceIsReachedFromEveryOther) {
  for (const bool accessible : {true, false}) {
    const CollectionDictionary collections = joined(accessible);
    for (const auto& [from, start] : *collections.locations) {
      const auto reached = reachableFrom(start->nodes, *collections.navigationGraph);
      for (const auto& [to, destination] : *collections.locations)
        for (const auto& node : destination->nodes)
          if (!reached.contains(node.get()))
            ADD_FAILURE() << from << " to " << to << (accessible ? " without steps" : "");
    }
  }
}

TEST(DemoVenuePackage, IsTheSameEveryTime) {
  const TemporaryFolder again;
  demo::writeDemoVenue(again.path());
  EXPECT_EQ(filesBelow(generatedVenue()).size(), 144U);
  expectSameFiles(generatedVenue(), again.path());
}

TEST(DemoVenuePackage, AFolderThatCannotBeWrittenIsReported) {
  const TemporaryFolder folder;
  fs::create_directories(folder.path() / "venue.json");
  try {
    demo::writeDemoVenue(folder.path());
    FAIL() << "a folder was overwritten";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("venue.json"));
  }
}

}  // namespace orivanta::test
