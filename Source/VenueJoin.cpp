#include "Source/VenueJoin.hpp"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "Platform/Foundation/Fatal.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

// The record that an identifier in the JSON names, or null.
template <class Record>
std::shared_ptr<Record> named(const Collection<Record>& records, const RawData& identifier) {
  const auto id = identifier.stringView();
  if (!id) return nullptr;
  const auto entry = records.find(std::string(*id));
  return entry == records.end() ? nullptr : entry->second;
}

// Sets each record's map and keeps those that have one.
template <class Record>
void linkMaps(Collection<Record>& records, const Collection<Map>& maps) {
  std::size_t linked = 0;
  for (const auto& entry : records) {
    entry.second->map = named(maps, entry.second->_data["map"]);
    if (entry.second->map) ++linked;
  }
  if (linked == records.size()) return;
  Collection<Record> kept;
  for (const auto& [id, record] : records)
    if (record->map) kept.insert({id, record});
  records = std::move(kept);
}

template <class Record>
std::vector<std::shared_ptr<Record>> listOf(const Collection<Record>& records) {
  std::vector<std::shared_ptr<Record>> list;
  list.reserve(records.size());
  for (const auto& entry : records) list.push_back(entry.second);
  return list;
}

// The accessible vortices first: an accessible graph stops at the first one that is not.
Collection<Vortex> accessibleFirst(const Collection<Vortex>& vortices) {
  Collection<Vortex> ordered;
  for (const bool wanted : {true, false})
    for (const auto& [id, vortex] : vortices)
      if (vortex->accessible == wanted) ordered.insert({id, vortex});
  return ordered;
}

void linkPolygonsOf(const std::shared_ptr<Location>& location,
                    const Collection<Polygon>& polygons) {
  std::unordered_set<const Node*> entrances;
  std::unordered_set<const Polygon*> seen;
  for (const RawData& element : location->_data["polygons"].arrayValue()) {
    const auto polygon = named(polygons, element["id"]);
    if (!polygon) continue;
    location->polygons.push_back(polygon);
    polygon->locations.push_back(location);
    if (!seen.insert(polygon.get()).second) continue;
    for (const auto& entrance : polygon->entrances) entrances.insert(entrance.get());
  }
  std::erase_if(location->nodes, [&](const auto& node) { return entrances.contains(node.get()); });
}

}  // namespace

bool linkCategoryParents(CollectionDictionary& collections) {
  if (!collections.categories) return false;
  for (const auto& [id, category] : *collections.categories)
    for (const RawData& element : category->_data["parents"].arrayValue())
      if (const auto parent = named(*collections.categories, element)) {
        category->parents.push_back(parent);
        parent->children.push_back(category);
      }
  return true;
}

bool linkLocationCategories(CollectionDictionary& collections) {
  if (!collections.locations || !collections.categories) return false;
  for (const auto& [id, location] : *collections.locations)
    for (const RawData& element : location->_data["categories"].arrayValue())
      if (const auto category = named(*collections.categories, element)) {
        location->categories.push_back(category);
        category->locations.push_back(location);
      }
  return true;
}

bool linkPolygonMaps(CollectionDictionary& collections) {
  if (!collections.polygons || !collections.maps) return false;
  linkMaps(*collections.polygons, *collections.maps);
  return true;
}

bool linkNodeMaps(CollectionDictionary& collections) {
  if (!collections.nodes || !collections.maps) return false;
  linkMaps(*collections.nodes, *collections.maps);
  return true;
}

bool linkPolygonEntrances(CollectionDictionary& collections) {
  if (!collections.polygons || !collections.nodes || !collections.maps) return false;
  for (const auto& [id, polygon] : *collections.polygons)
    for (const RawData& element : polygon->_data["entrances"].arrayValue())
      if (auto node = named(*collections.nodes, element["id"]))
        polygon->entrances.push_back(std::move(node));
  return true;
}

bool linkVortexNodes(CollectionDictionary& collections, bool accessible) {
  if (!collections.vortices || !collections.nodes || !collections.maps) return false;
  for (const auto& [id, vortex] : *collections.vortices) {
    std::vector<std::shared_ptr<Map>> maps;
    std::unordered_set<const Map*> seen;
    for (const RawData& element : vortex->_data["nodes"].arrayValue()) {
      const auto node = named(*collections.nodes, element);
      if (!node) continue;
      if (seen.insert(&foundation::unwrap(node->map)).second) maps.push_back(node->map);
      vortex->nodes.push_back(node);
    }
    vortex->maps = std::move(maps);
  }
  collections.navigationGraph = std::make_shared<NavigationGraph>(
      *collections.nodes,
      accessible ? accessibleFirst(*collections.vortices) : *collections.vortices, accessible);
  return true;
}

bool linkLocationNodes(CollectionDictionary& collections) {
  if (!collections.nodes || !collections.locations || !collections.maps) return false;
  for (const auto& [id, location] : *collections.locations)
    for (const RawData& element : location->_data["nodes"].arrayValue())
      if (auto node = named(*collections.nodes, element["node"]))
        location->nodes.push_back(std::move(node));
  return true;
}

bool linkLocationPolygons(CollectionDictionary& collections) {
  if (!collections.polygons || !collections.locations || !collections.maps) return false;
  for (const auto& entry : *collections.locations)
    linkPolygonsOf(entry.second, *collections.polygons);
  return true;
}

bool publishVenue(const CollectionDictionary& collections,
                  const std::function<void(std::shared_ptr<Venue>)>& callback) {
  if (!collections.locations || !collections.categories || !collections.maps ||
      !collections.nodes || !collections.vortices || !collections.polygons ||
      !collections.navigationGraph)
    return false;
  const std::shared_ptr<Venue> venue = activeVenue;
  if (!venue) foundation::fatalAbsence();
  venue->locations = listOf(*collections.locations);
  venue->categories = listOf(*collections.categories);
  venue->maps = listOf(*collections.maps);
  venue->nodes = listOf(*collections.nodes);
  venue->vortices = listOf(*collections.vortices);
  venue->polygons = listOf(*collections.polygons);
  venue->polygonDictionary = *collections.polygons;
  venue->navigationGraph = collections.navigationGraph;
  callback(venue);
  return true;
}

}  // namespace orivanta
