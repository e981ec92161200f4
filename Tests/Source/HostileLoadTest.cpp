// Tests with servers whose responses would use unlimited memory or time.
#include <gmock/gmock.h>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Source/Location.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/Awaited.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/SmallVenue.hpp"

namespace orivanta {
namespace {

using test::Answer;
using test::Awaited;
using test::MisbehavingServer;

constexpr std::size_t budgetBytes = std::size_t{8} << 20U;

// Returns a list with this number of elements; each "#" in the pattern becomes the element's
// number.
std::string listOf(std::size_t count, const std::string& pattern, std::size_t first = 0) {
  std::string list = "[";
  for (std::size_t i = first; i < first + count; ++i) {
    if (i > first) list += ',';
    for (const char character : pattern)
      if (character == '#')
        list += std::to_string(i);
      else
        list += character;
  }
  return list + "]";
}

constexpr const char* node = R"({"id":"#","x":0,"y":0,"map":"floor1"})";

std::string polygon(const std::string& entrances) {
  return R"({"id":"#","map":"floor1","entrances":)" + entrances + "}";
}

std::string location(const std::string& nodes, const std::string& polygons) {
  return R"({"id":"#","name":"","type":"","nodes":)" + nodes + R"(,"polygons":)" + polygons + "}";
}

struct Attack {
  const char* name;
  const char* collection;  // the one that exceeds the budget; "venue" for all together
  std::function<void(MisbehavingServer&)> prepare;
};

const std::vector<Attack>& attacks() {
  static const std::string blanks = "[" + std::string(10U << 20U, ' ') + "]";
  static const std::vector<Attack> all{
      {"a small page with many elements", "node",
       [](MisbehavingServer& server) {
         server.on("/1/node", Answer::json(listOf(300'000, "0")).gzipped());
       }},
      {"a page of blanks", "map",
       [](MisbehavingServer& server) { server.on("/1/map", Answer::json(blanks)); }},
      {"a compressed page of blanks", "map",
       [](MisbehavingServer& server) { server.on("/1/map", Answer::json(blanks).gzipped()); }},
      {"pages without end", "polygon",
       [](MisbehavingServer& server) {
         const auto count = std::make_shared<std::size_t>(0);
         server.on("/1/polygon", [count](const auto&) {
           const std::size_t page = ++*count;
           return Answer::json(listOf(500, polygon("[]"), page * 500))
               .next("/1/polygon?" + std::to_string(page));
         });
       }},
      {"a connector of many nodes", "venue",
       [](MisbehavingServer& server) {
         server.on("/1/vortex", Answer::json(R"([{"id":"v","name":"","type":"","nodes":)" +
                                             listOf(500, R"("hall")") + "}]"));
       }},
      {"many nodes and polygons of each place", "venue", [](MisbehavingServer& server) {
         constexpr std::size_t each = 64;
         server.on("/1/node", Answer::json(listOf(each, node)));
         const std::string entrances = listOf(each, R"({"id":"#"})");
         server.on("/1/polygon", Answer::json(listOf(each, polygon(entrances))));
         const std::string nodes = listOf(each, R"({"node":"#"})");
         server.on("/1/location", Answer::json(listOf(100, location(nodes, entrances))));
       }}};
  return all;
}

class HostileLoad : public testing::Test {
 protected:
  void TearDown() override { activeVenue = nullptr; }
};

TEST_F(HostileLoad, EndsWithAnErrorWhenItExceedsItsBudget) {
  for (const Attack& attack : attacks()) {
    SCOPED_TRACE(attack.name);
    MisbehavingServer server;
    for (const auto& [collection, text] : test::smallVenueAnswers())
      server.on("/1/" + collection, Answer::json(text));
    attack.prepare(server);
    const WebApiSession session(server.root(), "", "", "en", nullptr, budgetBytes);

    const Awaited<VenueLoadReport> reported;
    loadVenueReporting(session, test::smallVenue(), false,
                       {{}, [=](VenueLoadReport report) { reported.give(std::move(report)); }});
    const VenueLoadReport report = reported.take();
    EXPECT_FALSE(report.complete);
    EXPECT_FALSE(report.venue->nodes);
    ASSERT_EQ(report.failures.size(), 1U);
    // A chain that fails as a consequence may be the first to end the load.
    EXPECT_THAT(report.failures[0].collection, testing::AnyOf(attack.collection, "venue"));
    EXPECT_EQ(report.failures[0].problem, LoadProblem::tooLarge);

    std::string told;
    foundation::setDiagnosticSink([&](std::string_view line) { told = line; });
    const Awaited<std::shared_ptr<Venue>> arrived;
    loadVenue(session, test::smallVenue(), false, [=](const auto& venue) { arrived.give(venue); });
    const auto venue = arrived.take();
    foundation::setDiagnosticSink(nullptr);
    EXPECT_EQ(told, "the venue remains empty: the memory budget is exceeded");
    EXPECT_TRUE(venue->locations->empty() && venue->nodes->empty() && venue->polygons->empty());
    EXPECT_TRUE(venue->navigationGraph->graph().empty());
  }
}

// Each location refers to the same polygon, and each node is an entrance of it.
TEST_F(HostileLoad, EntrancesAreNotLookedThroughForEachPlace) {
  constexpr std::size_t count = 20'000;
  MisbehavingServer server;
  for (const auto& [collection, text] : test::smallVenueAnswers())
    server.on("/1/" + collection, Answer::json(text));
  server.on("/1/node", Answer::json(listOf(count, node)));
  server.on("/1/polygon", Answer::json(listOf(1, polygon(listOf(count, R"({"id":"#"})")))));
  server.on("/1/location",
            Answer::json(listOf(count, location(R"([{"node":"#"}])", R"([{"id":"0"}])"))));
  const Awaited<std::shared_ptr<Venue>> arrived;
  loadVenue({server.root(), "", "", "en"}, test::smallVenue(), false,
            [=](const auto& venue) { arrived.give(venue); });
  const auto venue = arrived.take();
  ASSERT_EQ(venue->locations->size(), count);
  for (const auto& location : *venue->locations) ASSERT_TRUE(location->nodes.empty());
}

TEST_F(HostileLoad, IdentifiersCannotBeMadeToFallIntoOnePlace) {
  // The standard library's hash is the same for both.
  EXPECT_NE(TextHash()("2RiI7OduXbNIadeW"), TextHash()("fjG6SilQK1iWSj?4"));
}

}  // namespace
}  // namespace orivanta
