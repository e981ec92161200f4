#include "Apps/DemoVenue/Package.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <unordered_set>

#include "Apps/DemoVenue/DemoVenue.hpp"
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
  for (const auto join : {linkCategoryParents, linkLocationCategories, linkPolygonMaps,
                          linkNodeMaps, linkPolygonEntrances})
    join(collections);
  linkVortexNodes(collections, accessible);
  for (const auto join : {linkLocationNodes, linkLocationPolygons}) join(collections);
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

}  // namespace

TEST(DemoVenuePackage, EveryRecordIsKeptAndEveryReferenceNamesOne) {
  const CollectionDictionary collections = joined(false);
  const auto expectAll = [](const auto& records, const char* file) {
    EXPECT_EQ(records->size(), recordsOf(file).size()) << file;
  };
  expectAll(collections.maps, "map.json");
  expectAll(collections.categories, "category.json");
  expectAll(collections.locations, "location.json");
  expectAll(collections.nodes, "node.json");
  expectAll(collections.polygons, "polygon.json");
  expectAll(collections.vortices, "vortex.json");
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
      if (!read.insert(name).second) continue;  // many places share an image
      const auto file = generatedVenue() / name;
      const auto image = graphics::readImage(file);
      ASSERT_TRUE(image) << file;
      EXPECT_EQ(static_cast<int>(image->width()), rendition.width);
    }
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

TEST(DemoVenuePackage, IsTheSameEveryTimeAndReportsAFolderThatCannotBeWritten) {
  const TemporaryFolder again;
  demo::writeDemoVenue(again.path());
  const auto files = filesBelow(generatedVenue());
  const auto written = filesBelow(again.path());
  EXPECT_EQ(files.size(), 144U);
  EXPECT_EQ(written.size(), 144U);
  for (const auto& [name, bytes] : files)
    EXPECT_TRUE(written.contains(name) && written.at(name) == bytes) << name;
  fs::remove(again.path() / "map.json");
  fs::create_directory(again.path() / "map.json");
  EXPECT_THROW(demo::writeDemoVenue(again.path()), std::runtime_error);
}

}  // namespace orivanta::test
