// Passes a JSON body through the parser, the records, the join, the navigation graph and the route
// search.
#include <string_view>
#include <utility>

#include "Fuzz/Fuzzer.hpp"
#include "Source/Category.hpp"
#include "Source/Directions.hpp"
#include "Source/ImageCollection.hpp"
#include "Source/Loading/VenueLoad.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {
namespace {

template <class Record>
Collection<Record> recordsOf(const RawData& elements) {
  Collection<Record> records;
  for (const RawData& element : elements.arrayValue())
    if (auto record = Record::make(element)) records.insert_or_assign(*record->id, record);
  return records;
}

// Loads an object with the six collections as a venue. The object can specify that polygons come
// last.
void loadCollections(const RawData& body) {
  activeVenue = Venue::make(*RawData::parse(R"({"id": "", "slug": "", "name": ""})"));
  VenueLoad load(body["accessible"].bool_().value_or(false), fillActiveVenue, [](const auto&) {});
  const bool polygonsLast = body["polygonsLast"].bool_().value_or(false);
  const auto receivePolygons = [&] {
    load.receive(&CollectionDictionary::polygons, recordsOf<Polygon>(body["polygon"]));
  };
  if (!polygonsLast) receivePolygons();
  load.receive(&CollectionDictionary::locations, recordsOf<Location>(body["location"]));
  load.receive(&CollectionDictionary::categories, recordsOf<Category>(body["category"]));
  load.receive(&CollectionDictionary::maps, recordsOf<Map>(body["map"]));
  load.receive(&CollectionDictionary::nodes, recordsOf<Node>(body["node"]));
  load.receive(&CollectionDictionary::vortices, recordsOf<Vortex>(body["vortex"]));
  if (polygonsLast) receivePolygons();
}

void findRoutes() {
  const auto& nodes = *activeVenue->nodes;
  if (!nodes.empty()) getDirections(*nodes.front(), *nodes.back());
  for (const auto& from : *activeVenue->locations)
    for (const auto& to : *activeVenue->locations) from->directionsTo(*to);
}

// Reads a list as a page of each collection.
void buildRecords(const RawData& page) {
  for (const auto& entry : recordsOf<Venue>(page))
    if (entry.second->logo) (*entry.second->logo)[100];
  recordsOf<Location>(page);
  recordsOf<Category>(page);
  recordsOf<Map>(page);
  recordsOf<Node>(page);
  recordsOf<Vortex>(page);
  recordsOf<Polygon>(page);
}

void loadVenueText(std::string_view text) {
  const auto body = RawData::parse(text);
  if (!body) return;
  buildRecords(*body);
  loadCollections(*body);
  findRoutes();
}

}  // namespace
}  // namespace orivanta

ORIVANTA_FUZZER(Venue, orivanta::loadVenueText)
