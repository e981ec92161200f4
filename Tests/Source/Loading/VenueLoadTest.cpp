#include "Source/Loading/VenueLoad.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Polygon.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/JoinedLinks.hpp"
#include "Tests/Support/SmallVenue.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta {
namespace {

using test::joinedLinks;
using test::smallVenueLinks;

template <class Record>
void arrive(VenueLoad& load, std::optional<Collection<Record>> CollectionDictionary::*member,
            const char* collection) {
  load.receive(member, test::recordsIn<Record>(test::smallVenueAnswers().at(collection)));
}

using All = CollectionDictionary;
using Arrival = void (*)(VenueLoad&);
constexpr Arrival arrivals[] = {[](VenueLoad& load) { arrive(load, &All::locations, "location"); },
                                [](VenueLoad& load) { arrive(load, &All::categories, "category"); },
                                [](VenueLoad& load) { arrive(load, &All::maps, "map"); },
                                [](VenueLoad& load) { arrive(load, &All::nodes, "node"); },
                                [](VenueLoad& load) { arrive(load, &All::vortices, "vortex"); },
                                [](VenueLoad& load) { arrive(load, &All::polygons, "polygon"); }};

TEST(VenueLoad, EveryOrderOfArrivalPublishesOnceAndPolygonsLastLinksTwice) {
  std::array<std::size_t, 6> order{0, 1, 2, 3, 4, 5};
  int orders = 0;
  do {
    const bool polygonsLast = order.back() == 5;
    activeVenue = test::smallVenue();
    int calls = 0;
    VenueLoad load(false, [&](const std::shared_ptr<Venue>& venue) {
      ++calls;
      EXPECT_EQ(venue, activeVenue);
    });
    for (const std::size_t arrival : order) {
      EXPECT_EQ(calls, 0);
      arrivals[arrival](load);
    }
    ASSERT_EQ(calls, 1);
    ASSERT_EQ(joinedLinks(*activeVenue), smallVenueLinks(polygonsLast));
    ++orders;
  } while (std::next_permutation(order.begin(), order.end()));
  EXPECT_EQ(orders, 720);
  activeVenue = nullptr;
}

TEST(VenueLoad, ASecondAnswerReplacesTheFirstAndRunsTheGateAgain) {
  activeVenue = test::smallVenue();
  int calls = 0;
  VenueLoad load(false, [&](const auto&) { ++calls; });
  for (const Arrival arrival : arrivals) arrival(load);
  load.receive(&CollectionDictionary::polygons, Collection<Polygon>());
  EXPECT_EQ(calls, 2);
  EXPECT_TRUE(activeVenue->polygons->empty());
  activeVenue = nullptr;
}

TEST(VenueLoad, AnAnswerReplacedBeforeTheGateOpensIsLinkedToo) {
  activeVenue = test::smallVenue();
  VenueLoad load(false, [](const auto&) {});
  for (const std::size_t arrival : {2, 5, 5, 0, 1, 4, 3}) arrivals[arrival](load);
  for (const auto& polygon : *activeVenue->polygons) EXPECT_TRUE(polygon->map);
  activeVenue = nullptr;
}

TEST(VenueLoad, PublishesNothingOnceItIsUnwanted) {
  activeVenue = nullptr;  // there is no venue to publish to any more
  int calls = 0;
  VenueLoad load(false, [](const auto&) { ADD_FAILURE() << "published"; },
                 {[&](const auto&) { ++calls; }});
  for (const Arrival arrival : arrivals) arrival(load);
  EXPECT_GT(calls, 0);
}

TEST(VenueLoadDeathTest, PublishingWithoutAnActiveVenueStopsTheProgram) {
  activeVenue = nullptr;
  VenueLoad load(false, [](const auto&) {});
  for (std::size_t arrival = 0; arrival < 5; ++arrival) arrivals[arrival](load);
  EXPECT_DEATH(arrivals[5](load), "unexpectedly found nil");
}

}  // namespace
}  // namespace orivanta
