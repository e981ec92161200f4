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

template <class Handles>
json::array idsOf(const Handles& records) {
  json::array ids;
  for (const auto& record : records)
    if constexpr (requires { record.lock(); })
      ids.emplace_back(*record.lock()->id);
    else
      ids.emplace_back(*record->id);
  return ids;
}

json::array sorted(json::array ids) {
  std::sort(ids.begin(), ids.end(), [](const json::value& left, const json::value& right) {
    return left.get_string() < right.get_string();
  });
  return ids;
}

}  // namespace

json::object joinedLinks(const Venue& venue) {
  json::object categories;
  json::object locations;
  json::object polygons;
  json::object vortices;
  for (const auto& each : venue.categories.value())
    categories[*each->id] = {{"parents", idsOf(each->parents)},
                             {"children", idsOf(each->children)},
                             {"locations", idsOf(each->locations)}};
  for (const auto& each : venue.locations.value())
    locations[*each->id] = {{"categories", idsOf(each->categories)},
                            {"nodes", idsOf(each->nodes)},
                            {"polygons", idsOf(each->polygons)}};
  for (const auto& each : venue.polygons.value())
    polygons[*each->id] = {{"map", *each->map->id},
                           {"entrances", idsOf(each->entrances)},
                           {"locations", idsOf(each->locations)}};
  for (const auto& each : venue.vortices.value())
    vortices[*each->id] = {{"maps", sorted(idsOf(each->maps))},
                           {"nodes", idsOf(each->nodes)},
                           {"accessible", each->accessible}};
  return {{"categories", categories},
          {"locations", locations},
          {"polygons", polygons},
          {"vortices", vortices}};
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
