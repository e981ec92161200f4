#include "Source/VenueJoin.hpp"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/ParallelFor.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Polygon.hpp"
#include "Source/References.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

constexpr std::size_t recordsAtOnce = 512;

// The record of that identifier, or null.
template <class Record>
std::shared_ptr<Record> named(const Collection<Record>& records, std::string_view id) {
  const auto entry = records.find(id);
  return entry == records.end() ? nullptr : entry->second;
}

// Calls a function with each number below the count, in blocks that are shared out: looking into
// the records' JSON takes most of the time of a join.
template <class Function>
void forEachShared(std::size_t count, const Function& function) {
  foundation::parallelFor((count + recordsAtOnce - 1) / recordsAtOnce, [&](std::size_t block) {
    const std::size_t end = std::min(count, (block + 1) * recordsAtOnce);
    for (std::size_t i = block * recordsAtOnce; i < end; ++i) function(i);
  });
}

// Sets each record's map and keeps those that have one.
template <class Record>
void linkMaps(Collection<Record>& records, const Collection<Map>& maps) {
  const auto& entries = records.values_container();
  std::vector<const std::shared_ptr<Map>*> found(entries.size());
  forEachShared(entries.size(), [&](std::size_t i) {
    const auto id = referenceIn(entries[i].second->_data, "map");
    const auto map = id ? maps.find(*id) : maps.end();
    found[i] = map == maps.end() ? nullptr : &map->second;
  });
  for (std::size_t i = 0; i < entries.size(); ++i)
    entries[i].second->map = found[i] == nullptr ? nullptr : *found[i];
  if (std::find(found.begin(), found.end(), nullptr) == found.end()) return;
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

// Appends the nodes that the elements of an array name.
void appendNodes(NodeList& list, const RawData& data, std::string_view key, std::string_view member,
                 const Collection<Node>& nodes) {
  forEachReference(data, key, member, [&](std::string_view id) {
    if (auto node = named(nodes, id)) list.push_back(std::move(node));
  });
}

void linkPolygonsOf(const std::shared_ptr<Location>& location,
                    const Collection<Polygon>& polygons) {
  std::unordered_set<const Node*> entrances;
  std::unordered_set<const Polygon*> seen;
  forEachReference(location->_data, "polygons", "id", [&](std::string_view id) {
    const auto polygon = named(polygons, id);
    if (!polygon) return;
    location->polygons.push_back(polygon);
    polygon->locations.push_back(location);
    if (!seen.insert(polygon.get()).second) return;
    for (const auto& entrance : polygon->entrances) entrances.insert(entrance.get());
  });
  std::erase_if(location->nodes, [&](const auto& node) { return entrances.contains(node.get()); });
}

}  // namespace

bool linkCategoryParents(CollectionDictionary& collections) {
  if (!collections.categories) return false;
  for (const auto& entry : *collections.categories) {
    const std::shared_ptr<Category>& category = entry.second;
    forEachReference(category->_data, "parents", [&](std::string_view parentId) {
      const auto parent = named(*collections.categories, parentId);
      if (!parent) return;
      category->parents.push_back(parent);
      parent->children.push_back(category);
    });
  }
  return true;
}

bool linkLocationCategories(CollectionDictionary& collections) {
  if (!collections.locations || !collections.categories) return false;
  for (const auto& entry : *collections.locations) {
    const std::shared_ptr<Location>& location = entry.second;
    forEachReference(location->_data, "categories", [&](std::string_view categoryId) {
      const auto category = named(*collections.categories, categoryId);
      if (!category) return;
      location->categories.push_back(category);
      category->locations.push_back(location);
    });
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
  const auto& entries = collections.polygons->values_container();
  forEachShared(entries.size(), [&](std::size_t i) {
    Polygon& polygon = *entries[i].second;
    appendNodes(polygon.entrances, polygon._data, "entrances", "id", *collections.nodes);
  });
  return true;
}

bool linkVortexNodes(CollectionDictionary& collections, bool accessible) {
  if (!collections.vortices || !collections.nodes || !collections.maps) return false;
  for (const auto& entry : *collections.vortices) {
    Vortex& vortex = *entry.second;
    vortex.maps.clear();
    std::unordered_set<const Map*> seen;
    forEachReference(vortex._data, "nodes", [&](std::string_view id) {
      const auto node = named(*collections.nodes, id);
      if (!node) return;
      if (seen.insert(&foundation::unwrap(node->map)).second) vortex.maps.push_back(node->map);
      vortex.nodes.push_back(node);
    });
  }
  collections.navigationGraph = std::make_shared<NavigationGraph>(
      *collections.nodes,
      accessible ? accessibleFirst(*collections.vortices) : *collections.vortices, accessible);
  return true;
}

bool linkLocationNodes(CollectionDictionary& collections) {
  if (!collections.nodes || !collections.locations || !collections.maps) return false;
  const auto& entries = collections.locations->values_container();
  forEachShared(entries.size(), [&](std::size_t i) {
    Location& location = *entries[i].second;
    appendNodes(location.nodes, location._data, "nodes", "node", *collections.nodes);
  });
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
