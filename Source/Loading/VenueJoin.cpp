#include "Source/Loading/VenueJoin.hpp"

#include <algorithm>
#include <span>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/ParallelFor.hpp"
#include "Source/Category.hpp"
#include "Source/Json/References.hpp"
#include "Source/Loading/EntranceIndex.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/RecordMemory.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

constexpr std::size_t recordsAtOnce = 512;

// The memory of a link: the record found, the link, and the link back in a list that doubles its
// capacity when it grows.
constexpr std::size_t bytesPerLink = 64;

void pay(const CollectionDictionary& collections, std::size_t bytes) {
  if (collections.budget) collections.budget->take(bytes);
}

template <class Record>
using Entries = std::span<const std::pair<std::string, std::shared_ptr<Record>>>;

// Returns the record with this identifier, or null.
template <class Record>
std::shared_ptr<Record> named(const Collection<Record>& records, std::string_view id) {
  const auto entry = records.find(id);
  return entry == records.end() ? nullptr : entry->second;
}

// Looks up records of one collection. Consecutive references often name the same record.
template <class Record>
class Lookup {
 public:
  explicit Lookup(const Collection<Record>& records) : records_(records) {}

  // Returns null if there is no such record. The pointer is valid as long as the collection.
  const std::shared_ptr<Record>* operator()(std::string_view id) {
    if (latest_ == nullptr || *latestId_ != id) {
      const auto entry = records_.find(id);
      if (entry == records_.end()) return nullptr;
      latestId_ = &entry->first;
      latest_ = &entry->second;
    }
    return latest_;
  }

 private:
  const Collection<Record>& records_;
  const std::string* latestId_ = nullptr;
  const std::shared_ptr<Record>* latest_ = nullptr;
};

// Calls a function with blocks of entries and the index of each block's first entry. The blocks are
// distributed to several threads, because most of the time of a join is spent on access to the
// records' JSON.
template <class Record, class Function>
void forEachBlock(const Collection<Record>& records, const Function& function) {
  const Entries<Record> entries = records.values_container();
  foundation::parallelFor(
      (entries.size() + recordsAtOnce - 1) / recordsAtOnce, [&](std::size_t block) {
        const std::size_t first = block * recordsAtOnce;
        function(entries.subspan(first, std::min(recordsAtOnce, entries.size() - first)), first);
      });
}

// The records that several other records refer to. Those of record i end at `ends[i]`.
template <class Record>
struct NamedRecords {
  std::vector<const std::shared_ptr<Record>*> records;
  std::vector<std::size_t> ends;

  std::span<const std::shared_ptr<Record>* const> of(std::size_t i) const {
    const std::size_t first = i == 0 ? 0 : ends[i - 1];
    return std::span(records).subspan(first, ends[i] - first);
  }
};

// Finds the records that each record refers to in an array. Passes them to `link(record, found)`,
// concurrently for several records, and then to `linkBack(record, target)`, sequentially in the
// records' order. If `member` is empty, the elements are the identifiers.
template <class Record, class Target, class Link, class LinkBack>
void linkNamed(const CollectionDictionary& payer, const Collection<Record>& records,
               std::string_view key, std::string_view member, const Collection<Target>& targets,
               const Link& link, const LinkBack& linkBack) {
  std::vector<NamedRecords<Target>> blocks((records.size() + recordsAtOnce - 1) / recordsAtOnce);
  forEachBlock(records, [&](Entries<Record> entries, std::size_t first) {
    NamedRecords<Target>& found = blocks[first / recordsAtOnce];
    found.records.reserve(entries.size());
    found.ends.reserve(entries.size());
    Lookup<Target> lookup(targets);
    for (const auto& entry : entries) {
      forEachReference(entry.second->_data.data().get(), key, member, [&](std::string_view id) {
        if (const auto* target = lookup(id)) found.records.push_back(target);
      });
      found.ends.push_back(found.records.size());
    }
    pay(payer, found.records.size() * bytesPerLink);
    for (std::size_t i = 0; i < entries.size(); ++i) link(*entries[i].second, found.of(i));
  });
  const auto& entries = records.values_container();
  for (std::size_t i = 0; i < entries.size(); ++i)
    for (const auto* target : blocks[i / recordsAtOnce].of(i % recordsAtOnce))
      linkBack(entries[i].second, **target);
}

constexpr auto noLinkBack = [](const auto&, const auto&) {};

// `Handle` is an owning or a weak reference.
template <class Handle, class Record>
void append(std::vector<Handle>& list, std::span<const std::shared_ptr<Record>* const> found) {
  list.reserve(list.size() + found.size());
  for (const auto* record : found) list.emplace_back(*record);
}

// Sets the map of each record and removes the records without one.
template <class Record>
void linkMaps(const CollectionDictionary& payer, Collection<Record>& records,
              const Collection<Map>& maps) {
  const auto& entries = records.values_container();
  std::vector<const std::shared_ptr<Map>*> found(entries.size());
  forEachBlock(records, [&](Entries<Record> some, std::size_t first) {
    Lookup<Map> lookup(maps);
    constexpr std::size_t ahead = 8;
    for (std::size_t i = 0; i < some.size(); ++i) {
      if (i + ahead < some.size()) __builtin_prefetch(&some[i + ahead].second->_data);
      if (const auto id = referenceIn(some[i].second->_data.data().get(), "map"))
        found[first + i] = lookup(*id);
    }
  });
  // Sequential, because all of them change the reference counts of the same few maps.
  constexpr std::size_t ahead = 16;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (i + ahead < entries.size()) __builtin_prefetch(&entries[i + ahead].second->map, 1);
    entries[i].second->map = found[i] == nullptr ? nullptr : *found[i];
  }
  if (std::find(found.begin(), found.end(), nullptr) == found.end()) return;
  Collection<Record> kept;
  for (const auto& [id, record] : records) {
    if (!record->map) continue;
    pay(payer, collectionEntryBytes + memoryOf(id));
    kept.insert({id, record});
  }
  records = std::move(kept);
}

template <class Record>
std::vector<std::shared_ptr<Record>> listOf(const Collection<Record>& records) {
  std::vector<std::shared_ptr<Record>> list;
  list.reserve(records.size());
  for (const auto& entry : records) list.push_back(entry.second);
  return list;
}

// Returns the accessible vortices first: an accessible graph ends at the first one that is not
// accessible.
Collection<Vortex> accessibleFirst(const CollectionDictionary& payer) {
  const Collection<Vortex>& vortices = *payer.vortices;
  Collection<Vortex> ordered;
  for (const bool wanted : {true, false})
    for (const auto& [id, vortex] : vortices) {
      if (vortex->accessible != wanted) continue;
      pay(payer, collectionEntryBytes + memoryOf(id));
      ordered.insert({id, vortex});
    }
  return ordered;
}

// Returns the lists of a published venue and the dictionary of its polygons.
std::size_t memoryOfLists(const CollectionDictionary& collections) {
  const std::size_t records = collections.locations->size() + collections.categories->size() +
                              collections.maps->size() + collections.nodes->size() +
                              collections.vortices->size() + collections.polygons->size();
  std::size_t bytes = records * sizeof(std::shared_ptr<Node>);
  for (const auto& entry : *collections.polygons)
    bytes += collectionEntryBytes + memoryOf(entry.first);
  return bytes;
}

}  // namespace

bool linkCategoryParents(CollectionDictionary& collections) {
  if (!collections.categories) return false;
  linkNamed(
      collections, *collections.categories, "parents", "", *collections.categories,
      [](Category& category, auto parents) { append(category.parents, parents); },
      [](const auto& category, Category& parent) { parent.children.push_back(category); });
  return true;
}

bool linkLocationCategories(CollectionDictionary& collections) {
  if (!collections.locations || !collections.categories) return false;
  linkNamed(
      collections, *collections.locations, "categories", "", *collections.categories,
      [](Location& location, auto categories) { append(location.categories, categories); },
      [](const auto& location, Category& category) { category.locations.push_back(location); });
  return true;
}

bool linkPolygonMaps(CollectionDictionary& collections) {
  if (!collections.polygons || !collections.maps) return false;
  linkMaps(collections, *collections.polygons, *collections.maps);
  return true;
}

bool linkNodeMaps(CollectionDictionary& collections) {
  if (!collections.nodes || !collections.maps) return false;
  linkMaps(collections, *collections.nodes, *collections.maps);
  return true;
}

bool linkPolygonEntrances(CollectionDictionary& collections) {
  if (!collections.polygons || !collections.nodes || !collections.maps) return false;
  linkNamed(
      collections, *collections.polygons, "entrances", "id", *collections.nodes,
      [](Polygon& polygon, auto nodes) { append(polygon.entrances, nodes); }, noLinkBack);
  return true;
}

bool linkVortexNodes(CollectionDictionary& collections, bool accessible) {
  if (!collections.vortices || !collections.nodes || !collections.maps) return false;
  for (const auto& entry : *collections.vortices) {
    Vortex& vortex = *entry.second;
    vortex.maps.clear();
    std::unordered_set<const Map*> seen;
    forEachReference(vortex._data.data().get(), "nodes", "", [&](std::string_view id) {
      const auto node = named(*collections.nodes, id);
      if (!node) return;
      pay(collections, bytesPerLink);
      if (seen.insert(&foundation::unwrap(node->map)).second) vortex.maps.push_back(node->map);
      vortex.nodes.push_back(node);
    });
  }
  collections.navigationGraph = nullptr;  // from the first round; not published yet
  const auto graphOf = [&](const Collection<Vortex>& vortices) {
    return std::make_shared<NavigationGraph>(*collections.nodes, vortices, accessible,
                                             collections.budget);
  };
  collections.navigationGraph =
      accessible ? graphOf(accessibleFirst(collections)) : graphOf(*collections.vortices);
  return true;
}

bool linkLocationNodes(CollectionDictionary& collections) {
  if (!collections.nodes || !collections.locations || !collections.maps) return false;
  linkNamed(
      collections, *collections.locations, "nodes", "node", *collections.nodes,
      [](Location& location, auto nodes) { append(location.nodes, nodes); }, noLinkBack);
  return true;
}

bool linkLocationPolygons(CollectionDictionary& collections) {
  if (!collections.polygons || !collections.locations || !collections.maps) return false;
  const EntranceIndex entrances(*collections.polygons, collections.budget.get());
  linkNamed(
      collections, *collections.locations, "polygons", "id", *collections.polygons,
      [&](Location& location, EntranceIndex::FoundPolygons polygons) {
        append(location.polygons, polygons);
        entrances.drop(location.nodes, polygons);
      },
      [](const auto& location, Polygon& polygon) { polygon.locations.push_back(location); });
  return true;
}

std::shared_ptr<Venue> publishVenue(const CollectionDictionary& collections,
                                    const Publish& publish) {
  if (!collections.locations || !collections.categories || !collections.maps ||
      !collections.nodes || !collections.vortices || !collections.polygons ||
      !collections.navigationGraph)
    return nullptr;
  VenueContents contents;
  pay(collections, memoryOfLists(collections));
  contents.locations = listOf(*collections.locations);
  contents.categories = listOf(*collections.categories);
  contents.maps = listOf(*collections.maps);
  contents.nodes = listOf(*collections.nodes);
  contents.vortices = listOf(*collections.vortices);
  contents.polygons = listOf(*collections.polygons);
  contents.polygonDictionary = *collections.polygons;
  contents.navigationGraph = collections.navigationGraph;
  return publish(std::move(contents));
}

}  // namespace orivanta
