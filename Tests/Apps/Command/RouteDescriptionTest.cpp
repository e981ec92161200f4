#include "Apps/Command/RouteDescription.hpp"

#include <gtest/gtest.h>

#include "Apps/Command/Places.hpp"
#include "Apps/Text/Json.hpp"
#include "Source/Directions.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::command {
namespace {

TEST(RouteDescription, TellsFloorsRidesLengthAndWeight) {
  const auto venue = test::TwoFloorVenue().load(/*accessible=*/true);
  const RouteEnd from = findRouteEnd(*venue, {"Bakery"});
  const RouteEnd to = findRouteEnd(*venue, {"Book Shop"});
  const auto route = describeRoute(*venue, getDirections(*venue, from, to));
  EXPECT_EQ(text::jsonText(routeJson(route)),
            R"({"path":["n1","n2","n3","u1","u2"],)"
            R"("directions":[{"node":"n1","action":"departure","location":"l1",)"
            R"("instruction":"Depart from Bakery"},{"node":"u2","action":"arrival",)"
            R"("location":"l2","instruction":"Arrive at Book Shop"}],)"
            R"("floors":[{"id":"g","name":"Ground","shortName":"G"},)"
            R"({"id":"f1","name":"First","shortName":"F1"}],)"
            R"("connectors":[{"id":"lift","name":"Lift A","type":"elevator","accessible":true,)"
            R"("from":"g","to":"f1"}],"length":9,"lengthMetres":4.5,"seconds":36,"weight":31})");
}

TEST(RouteDescription, LengthInMetersNeedsAPositiveScale) {
  for (const char* scale : {"0", "-2", "\"2\"", "null"}) {
    test::TwoFloorVenue small;
    small.venue =
        R"({"id": "v", "slug": "s", "name": "n", "unitsPerMetre": )" + std::string(scale) + "}";
    const auto venue = small.load();
    const auto route = describeRoute(
        *venue, Directions::make(NodeList(venue->nodes->begin(), venue->nodes->begin() + 2)));
    EXPECT_FALSE(route.lengthMeters) << scale;
    EXPECT_EQ(routeText(route), "Floors:  G\nLength:  3.0 units\n");
  }
}

}  // namespace
}  // namespace orivanta::command
