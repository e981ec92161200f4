// Compares the costs of routes with an independent search over the records.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "Source/Guidance/Guide.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/GuideReference.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::guidance {
namespace {

using test::GuideReference;

// More malls with more stops; takes minutes.
const bool isThorough = std::getenv("ORIVANTA_THOROUGH") != nullptr;

class Comparison {
 public:
  Comparison(std::shared_ptr<Venue> venue, std::uint32_t seed)
      : venue_(std::move(venue)), guide_(Guide::make(*venue_)), random_(seed) {}

  void run(int queries) {
    Profile indoors = Profile::fastest();
    indoors.outdoors = Use::avoided;
    const Profile profiles[] = {indoors, Profile::stepFree(), Profile::preferLift(),
                                Profile::noEscalator()};
    for (const Profile& profile : profiles)
      for (const Closures& closures : {Closures(), randomClosures()}) {
        const GuideReference reference(*venue_, profile, closures);
        for (int i = 0; i < queries; ++i) compare(reference, profile, closures);
        compareMatrix(reference, profile, closures);
      }
  }

 private:
  std::size_t below(std::size_t count) { return std::size_t(random_()) % count; }

  Closures randomClosures() {
    std::vector<std::string> identifiers{"unknown"};
    for (const auto& vortex : *venue_->vortices)
      if (below(4) == 0) identifiers.push_back(*vortex->id);
    for (const auto& node : *venue_->nodes)
      if (below(30) == 0) identifiers.push_back(*node->id);
    for (const auto& location : *venue_->locations)
      if (below(10) == 0) identifiers.push_back(*location->id);
    return Closures(std::move(identifiers));
  }

  // Adds a random open stop to both lists.
  void addStop(const Closures& closures, std::vector<Stop>& stops, std::vector<NodeList>& nodes) {
    while (true) {
      const auto& location = (*venue_->locations)[below(venue_->locations->size())];
      const auto& node = (*venue_->nodes)[below(venue_->nodes->size())];
      if (closures.contains(*location->id) || closures.contains(*node->id)) continue;
      const bool isPlace = below(2) == 0 && !location->nodes.empty();
      stops.push_back(isPlace ? Stop(location) : Stop(node));
      nodes.push_back(isPlace ? location->nodes : NodeList{node});
      return;
    }
  }

  void compare(const GuideReference& reference, const Profile& profile, const Closures& closures) {
    Request request;
    request.profile = profile;
    request.closures = closures;
    request.bestOrder = below(2) == 0;
    request.alternatives = 2;
    std::vector<NodeList> nodes;
    const std::size_t count = 2 + (below(2) == 0 ? 0 : below(isThorough ? 7 : 4));
    while (nodes.size() < count) addStop(closures, request.stops, nodes);
    const auto expected = request.bestOrder ? reference.bestCost(nodes) : reference.cost(nodes);
    const Plan plan = guide_->plan(request);
    ASSERT_EQ(plan.itineraries.empty(), !expected.has_value());
    ASSERT_EQ(plan.problem.has_value(), !expected.has_value());
    if (!expected) return;
    const Itinerary& best = plan.itineraries.front();
    EXPECT_EQ(best.costMilliseconds, *expected);
    checkPath(best, reference, nodes);
    if (count != 2 || nodes.front().size() != 1) return;
    for (const Itinerary& each : plan.itineraries) {
      EXPECT_GE(each.costMilliseconds, *expected);
      const auto described = guide_->itinerary(each.path(), nullptr, nullptr, profile);
      ASSERT_TRUE(described);
      if (connectorsOf(*described) == connectorsOf(each)) {
        EXPECT_EQ(each.costMilliseconds, described->costMilliseconds);
      }
    }
  }

  static std::vector<std::shared_ptr<Vortex>> connectorsOf(const Itinerary& itinerary) {
    std::vector<std::shared_ptr<Vortex>> connectors;
    for (const Leg& leg : itinerary.legs) connectors.push_back(leg.connector);
    return connectors;
  }

  // The visits are at nodes of the stops, and the nodes cost what the itinerary claims.
  void checkPath(const Itinerary& itinerary, const GuideReference& reference,
                 const std::vector<NodeList>& nodes) {
    std::vector<NodeList> visited;
    for (const Visit& visit : itinerary.visits) {
      const auto& node = visit.leg == itinerary.legs.size()
                             ? itinerary.legs.back().nodes.back()
                             : itinerary.legs[visit.leg].nodes.front();
      const NodeList& allowed = nodes[visit.stop];
      EXPECT_NE(std::find(allowed.begin(), allowed.end(), node), allowed.end());
      visited.push_back({node});
    }
    ASSERT_EQ(visited.size(), nodes.size());
    if (itinerary.visits.size() == 2 && nodes.front().size() == 1) {
      EXPECT_EQ(reference.cost(visited), itinerary.costMilliseconds);
    }
  }

  void compareMatrix(const GuideReference& reference, const Profile& profile,
                     const Closures& closures) {
    std::vector<Stop> from;
    std::vector<Stop> to;
    std::vector<NodeList> fromNodes;
    std::vector<NodeList> toNodes;
    for (int i = 0; i < 3; ++i) addStop(closures, from, fromNodes);
    for (int i = 0; i < 4; ++i) addStop(closures, to, toNodes);
    const auto rows = guide_->costs(from, to, profile, closures).value();
    const auto leads = guide_->leadToAny(from, to, profile, closures);
    for (std::size_t row = 0; row < from.size(); ++row) {
      bool any = false;
      for (std::size_t column = 0; column < to.size(); ++column) {
        const auto expected = reference.cost({fromNodes[row], toNodes[column]});
        EXPECT_EQ(rows[row][column], expected.value_or(-1));
        any = any || expected.has_value();
      }
      EXPECT_EQ(leads[row], any);
    }
  }

  std::shared_ptr<Venue> venue_;
  std::shared_ptr<const Guide> guide_;
  std::mt19937 random_;
};

TEST(GuideExactness, CostsEqualAnIndependentSearchInMalls) {
  for (std::uint32_t seed = 1; seed <= (isThorough ? 50 : 4); ++seed) {
    SCOPED_TRACE(seed);
    Comparison(test::mallVenue(300 + 100 * (seed % 7), seed), seed).run(isThorough ? 40 : 10);
  }
}

TEST(GuideExactness, CostsEqualAnIndependentSearchInRealVenues) {
  const auto names = test::venueNames();
  if (names.empty()) GTEST_SKIP() << "no venues";
  for (const auto& name : names) {
    SCOPED_TRACE(name);
    Comparison(test::packageVenue(name), 1).run(isThorough ? 200 : 6);
  }
}

}  // namespace
}  // namespace orivanta::guidance
