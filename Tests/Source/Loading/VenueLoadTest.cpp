#include "Source/Loading/VenueLoad.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
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

Publish into(const std::shared_ptr<Venue>& venue) {
  return [venue](VenueContents contents) { return fillVenue(venue, std::move(contents)); };
}

TEST(VenueLoad, EveryOrderOfArrivalPublishesOnceAndPolygonsLastLinksTwice) {
  std::array<std::size_t, 6> order{0, 1, 2, 3, 4, 5};
  int orders = 0;
  do {
    const bool polygonsLast = order.back() == 5;
    const auto venue = test::smallVenue();
    int calls = 0;
    VenueLoad load(false, into(venue), [&](const std::shared_ptr<Venue>& ready) {
      ++calls;
      EXPECT_EQ(ready, venue);
    });
    for (const std::size_t arrival : order) {
      EXPECT_EQ(calls, 0);
      arrivals[arrival](load);
    }
    ASSERT_EQ(calls, 1);
    ASSERT_EQ(joinedLinks(*venue), smallVenueLinks(polygonsLast));
    ++orders;
  } while (std::next_permutation(order.begin(), order.end()));
  EXPECT_EQ(orders, 720);
}

TEST(VenueLoad, ASecondAnswerReplacesTheFirst) {
  const auto venue = test::smallVenue();
  int calls = 0;
  VenueLoad load(false, into(venue), [&](const auto&) { ++calls; });
  for (const std::size_t arrival : {2, 5, 5, 0, 1, 4, 3}) arrivals[arrival](load);
  for (const auto& polygon : *venue->polygons) EXPECT_TRUE(polygon->map);
  EXPECT_EQ(calls, 1);
  load.receive(&CollectionDictionary::polygons, Collection<Polygon>());
  EXPECT_EQ(calls, 2);  // all inputs are present, so all joins run again
  EXPECT_TRUE(venue->polygons->empty());
}

TEST(VenueLoad, CallsNobodyBackWhenThePublisherDoesNotWantIt) {
  int publications = 0;
  VenueLoad load(
      false,
      [&](const VenueContents&) {
        ++publications;
        return nullptr;
      },
      [](const auto&) { ADD_FAILURE() << "published"; });
  for (const Arrival arrival : arrivals) arrival(load);
  EXPECT_GT(publications, 0);
}

TEST(VenueLoadDeathTest, PublishingWithoutAnActiveVenueStopsTheProgram) {
  EXPECT_DEATH(fillActiveVenue({}), "unexpectedly found nil");
}

}  // namespace
}  // namespace orivanta
