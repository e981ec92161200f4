#include "Tests/Support/JoinedLinks.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <boost/json/array.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::test {

namespace json = boost::json;

namespace {

template <class Record>
const std::string& idOf(const std::shared_ptr<Record>& record) {
  return *record->id;
}
template <class Record>
const std::string& idOf(const std::weak_ptr<Record>& record) {
  return *record.lock()->id;
}

template <class Handles>
json::array idsOf(const Handles& records) {
  json::array ids;
  for (const auto& record : records) ids.emplace_back(idOf(record));
  return ids;
}

template <class Record, class Links>
json::object linksOf(const std::optional<std::vector<std::shared_ptr<Record>>>& records,
                     const Links& links) {
  json::object byId;
  for (const auto& record : records.value()) byId[*record->id] = links(*record);
  return byId;
}

json::object linksOfVortex(const Vortex& vortex) {
  json::array maps = idsOf(vortex.maps);
  std::sort(maps.begin(), maps.end(), [](const json::value& left, const json::value& right) {
    return left.get_string() < right.get_string();
  });
  return {{"maps", maps}, {"nodes", idsOf(vortex.nodes)}, {"accessible", vortex.accessible}};
}

}  // namespace

json::object joinedLinks(const Venue& venue) {
  return {{"categories", linksOf(venue.categories,
                                 [](const Category& category) -> json::object {
                                   return {{"parents", idsOf(category.parents)},
                                           {"children", idsOf(category.children)},
                                           {"locations", idsOf(category.locations)}};
                                 })},
          {"locations", linksOf(venue.locations,
                                [](const Location& location) -> json::object {
                                  return {{"categories", idsOf(location.categories)},
                                          {"nodes", idsOf(location.nodes)},
                                          {"polygons", idsOf(location.polygons)}};
                                })},
          {"polygons", linksOf(venue.polygons,
                               [](const Polygon& polygon) -> json::object {
                                 return {{"map", *polygon.map->id},
                                         {"entrances", idsOf(polygon.entrances)},
                                         {"locations", idsOf(polygon.locations)}};
                               })},
          {"vortices", linksOf(venue.vortices, linksOfVortex)}};
}

void expectSameLinks(const json::object& actual, const json::object& expected) {
  for (const char* kind : {"categories", "locations", "polygons", "vortices"}) {
    const json::object& records = actual.at(kind).as_object();
    const json::object& wanted = expected.at(kind).as_object();
    EXPECT_EQ(records.size(), wanted.size()) << kind;
    for (const auto& [id, links] : wanted) {
      const json::value* found = records.if_contains(id);
      ASSERT_NE(found, nullptr) << kind << " " << id;
      EXPECT_EQ(*found, links) << kind << " " << id;
    }
  }
}

}  // namespace orivanta::test
