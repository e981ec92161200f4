// A guide through the venue of TwoFloorVenue.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Source/Guidance/Guide.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::guidance {

template <class Record>
std::shared_ptr<Record> withId(const std::vector<std::shared_ptr<Record>>& records,
                               std::string_view id) {
  for (const auto& record : records)
    if (record->id == id) return record;
  return nullptr;
}

// The venue of TwoFloorVenue, in which l1 is at n1 and l2, open from 9 to 18, at u2.
class GuideFixture : public ::testing::Test {
 protected:
  explicit GuideFixture() {
    records_.locations = R"([
        {"id": "l1", "name": "Bakery", "type": "shop", "nodes": [{"node": "n1"}],
         "categories": ["c2"]},
        {"id": "l2", "name": "Book Shop", "type": "shop", "nodes": [{"node": "u2"}],
         "categories": ["c1"], "hours": "09:00-18:00"},
        {"id": "l3", "name": "Nowhere", "type": "shop", "nodes": []}])";
    reload();
  }

  void reload() {
    venue_ = records_.load();
    guide_ = Guide::make(*venue_);
    ASSERT_NE(guide_, nullptr);
  }

  std::shared_ptr<Node> node(std::string_view id) const { return withId(*venue_->nodes, id); }
  std::shared_ptr<Location> place(std::string_view id) const {
    return withId(*venue_->locations, id);
  }
  std::shared_ptr<Map> floor(std::string_view id) const { return withId(*venue_->maps, id); }
  std::shared_ptr<Category> category(std::string_view id) const {
    return withId(*venue_->categories, id);
  }

  Plan plan(std::vector<Stop> stops, const Profile& profile = {}, Closures closures = {}) const {
    Request request;
    request.stops = std::move(stops);
    request.profile = profile;
    request.closures = std::move(closures);
    return guide_->plan(request);
  }

  // The identifiers of the nodes of each leg, a ride in brackets.
  static std::string described(const Itinerary& itinerary) {
    std::string text;
    for (const Leg& leg : itinerary.legs) {
      std::string names;
      for (const auto& each : leg.nodes) names += (names.empty() ? "" : " ") + *each->id;
      text += leg.kind == Leg::Kind::ride ? "[" + names + "]" : "(" + names + ")";
    }
    return text;
  }

  test::TwoFloorVenue records_;
  std::shared_ptr<Venue> venue_;
  std::shared_ptr<const Guide> guide_;
};

}  // namespace orivanta::guidance
