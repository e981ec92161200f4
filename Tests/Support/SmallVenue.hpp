// A venue with two floors and one of everything: a parent category, a location with a polygon and a
// door, elevators and stairs, and references to missing records.
//
//   floor 1:  atrium -- hall -- door     elevator at the hall, stairs at the atrium
//   floor 2:  roof                       both arrive here
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/value.hpp>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Source/Venue.hpp"

namespace orivanta::test {

/// The responses of the web API by collection.
inline const std::map<std::string, std::string>& smallVenueAnswers() {
  static const std::map<std::string, std::string> answers{
      {"location", R"([{"id": "cafe", "name": "Cafe", "type": "shop", "categories": ["food", "?"],
                        "nodes": [{"node": "atrium"}, {"node": "door"}, {"node": "?"}],
                        "polygons": [{"id": "room"}, {"id": "nowhere"}]},
                       {"id": "desk", "name": "Desk", "type": "service", "categories": []}])"},
      {"category", R"([{"id": "food", "name": "Food", "parents": ["shops", "?"]},
                       {"id": "shops", "name": "Shops"}])"},
      {"map", R"([{"id": "floor1", "elevation": 0}, {"id": "floor2", "elevation": 4}])"},
      {"node", R"([{"id": "atrium", "x": 0, "y": 0, "map": "floor1", "paths": [{"node": "hall"}]},
                   {"id": "hall", "x": 5, "y": 0, "map": "floor1",
                    "paths": [{"node": "atrium"}, {"node": "door"}, {"node": "lost"}]},
                   {"id": "door", "x": 5, "y": 3, "map": "floor1", "paths": [{"node": "hall"}]},
                   {"id": "roof", "x": 0, "y": 0, "map": "floor2"},
                   {"id": "lost", "x": 0, "y": 0, "map": "?"},
                   {"id": "loose", "x": 0, "y": 0}])"},
      {"vortex", R"([{"id": "stairs", "name": "Stairs", "type": "stairs", "accessible": false,
                      "nodes": ["atrium", "roof"]},
                     {"id": "lift", "name": "Lift", "type": "lift",
                      "nodes": ["hall", "roof", "hall", "lost"]},
                     {"id": "shaft", "name": "Shaft", "type": "lift", "nodes": ["?"]}])"},
      {"polygon", R"([{"id": "room", "map": "floor1", "entrances": [{"id": "door"}, {"id": "?"}]},
                      {"id": "nowhere", "map": "?"}, {"id": "loose"}])"}};
  return answers;
}

/// The links after one pass, or after two, when those that need no polygons exist twice.
inline boost::json::object smallVenueLinks(bool doubled) {
  const char* const once = R"({
    "categories": {"food": {"parents": ["shops"], "children": [], "locations": ["cafe"]},
                   "shops": {"parents": [], "children": ["food"], "locations": []}},
    "locations": {"cafe": {"categories": ["food"], "nodes": ["atrium"], "polygons": ["room"]},
                  "desk": {"categories": [], "nodes": [], "polygons": []}},
    "polygons": {"room": {"map": "floor1", "entrances": ["door"], "locations": ["cafe"]}},
    "vortices": {"stairs": {"maps": ["floor1", "floor2"], "nodes": ["atrium", "roof"],
                            "accessible": false},
                 "lift": {"maps": ["floor1", "floor2"], "nodes": ["hall", "roof", "hall"],
                          "accessible": true},
                 "shaft": {"maps": [], "nodes": [], "accessible": true}}})";
  auto links = boost::json::parse(once).as_object();
  if (!doubled) return links;
  for (const auto& [kind, fields] : std::map<const char*, std::vector<const char*>>{
           {"categories", {"parents", "children", "locations"}},
           {"locations", {"categories", "nodes"}},
           {"vortices", {"nodes"}}})
    for (auto& [id, record] : links.at(kind).as_object())
      for (const char* field : fields) {
        boost::json::array& list = record.at(field).as_array();
        const boost::json::array again = list;
        list.insert(list.end(), again.begin(), again.end());
      }
  return links;
}

/// The venue record, with nothing loaded.
inline std::shared_ptr<Venue> smallVenue() {
  return Venue::make(*RawData::parse(R"({"id": "v", "slug": "small", "name": "Small"})"));
}

}  // namespace orivanta::test
