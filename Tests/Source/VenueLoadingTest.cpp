// Tests for loading venues over HTTP: Source/Orivanta and the layers below it.
#include <gtest/gtest.h>

#include <malloc.h>

#include <algorithm>
#include <boost/json/array.hpp>
#include <boost/json/serialize.hpp>
#include <chrono>
#include <map>
#include <thread>
#include <utility>

#include "Platform/Foundation/MainQueue.hpp"
#include "Source/Category.hpp"
#include "Source/Directions.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Polygon.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/Awaited.hpp"
#include "Tests/Support/JoinedLinks.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/SmallVenue.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta {
namespace {

using test::Answer;
using test::Awaited;
using test::expectSameLinks;
using test::joinedLinks;
using test::Latch;
using test::MisbehavingServer;
using test::smallVenue;
using test::smallVenueAnswers;

// Indicates when all chains have ended: each running chain owns a reference to its observer.
class SilentObserver : public WebApiObserver {
  void pageReceived(std::string_view, const network::HttpUrlResponse&, std::size_t) override {}
  void collectionEnded(std::string_view, const foundation::Result<void>&) override {}
};

WebApiSession sessionFor(const std::string& root,
                         std::shared_ptr<WebApiObserver> observer = nullptr) {
  return {root, "user", "secret", "en", std::move(observer)};
}

void serveSmallVenue(MisbehavingServer& server) {
  for (const auto& [collection, text] : smallVenueAnswers())
    server.on("/1/" + collection, Answer::json(text));
}

std::shared_ptr<Venue> loaded(const WebApiSession& session, const std::shared_ptr<Venue>& venue,
                              bool accessible = false) {
  const Awaited<std::shared_ptr<Venue>> arrived;
  loadVenue(session, venue, accessible,
            [=](std::shared_ptr<Venue> ready) { arrived.give(std::move(ready)); });
  return arrived.take();
}

// Returns whether the condition becomes true within `patience`.
bool happens(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + test::patience;
  while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
  return condition();
}

// Ensures that each test starts and ends without an active venue.
class VenueLoading : public testing::Test {
 protected:
  void SetUp() override { activeVenue = nullptr; }
  void TearDown() override { activeVenue = nullptr; }
};

TEST_F(VenueLoading, RequestsSixCollectionsSideBySideAndCallsBackInTheBackground) {
  MisbehavingServer server;
  const auto latch = std::make_shared<Latch>();
  for (const auto& [collection, text] : smallVenueAnswers())
    server.on("/1/" + collection, Answer::json(text).held(latch));
  const WebApiSession session = sessionFor(server.root());
  const Awaited<std::thread::id> arrived;
  loadVenue(session, smallVenue(), false,
            [=](const auto&) { arrived.give(std::this_thread::get_id()); });
  for (const auto& entry : smallVenueAnswers()) {
    ASSERT_TRUE(server.waitForRequests("/1/" + entry.first, 1));
    EXPECT_TRUE(server.requests("/1/" + entry.first).at(0).query.starts_with("venue=small"));
  }
  latch->open();
  EXPECT_NE(arrived.take(), std::this_thread::get_id());
}

VenueLoadReport reported(const WebApiSession& session) {
  const Awaited<VenueLoadReport> arrived;
  loadVenueReporting(session, smallVenue(), false,
                     {{}, [=](VenueLoadReport report) { arrived.give(std::move(report)); }});
  return arrived.take();
}

TEST_F(VenueLoading, FailedCollectionsCountAsEmptyAndAreReported) {
  const auto refused = loaded(sessionFor(MisbehavingServer::refusingRoot()), smallVenue());
  EXPECT_TRUE(refused->locations->empty());
  EXPECT_TRUE(refused->polygonDictionary->empty());
  EXPECT_TRUE(refused->navigationGraph->graph().empty());

  MisbehavingServer server;
  serveSmallVenue(server);
  server.on("/1/category", Answer::html("<p>"));
  server.on("/1/vortex", Answer::json("[{}]").resetAfter(2));
  server.on("/1/polygon", Answer::json(R"({"error": 1})", 403));
  const VenueLoadReport report = reported(sessionFor(server.root()));
  EXPECT_TRUE(report.complete);
  const Venue& venue = *report.venue;
  EXPECT_TRUE(venue.categories->empty() && venue.vortices->empty() && venue.polygons->empty());
  EXPECT_EQ(venue.locations->size(), 2U);
  EXPECT_EQ(venue.nodes->size(), 4U);
  // If the polygons arrived last, the list contains each node twice; no node is an entrance.
  EXPECT_EQ(venue.locations->at(0)->nodes.size() % 2, 0U);
  std::map<std::string, LoadProblem> problems;
  for (const LoadFailure& failure : report.failures) problems[failure.collection] = failure.problem;
  EXPECT_EQ(problems, (std::map<std::string, LoadProblem>{{"category", LoadProblem::unusable},
                                                          {"polygon", LoadProblem::refused},
                                                          {"vortex", LoadProblem::noAnswer}}));
}

TEST_F(VenueLoading, TheNextLoadClearsAndRefillsAndKeptRecordsStayValid) {
  MisbehavingServer server;
  serveSmallVenue(server);
  const WebApiSession session = sessionFor(server.root()).fillingActiveVenue();
  const auto venue = loaded(session, smallVenue());
  const auto cafe = venue->locations->at(0);
  const auto graph = venue->navigationGraph;

  for (const auto& next : {venue, smallVenue()}) {
    const auto latch = std::make_shared<Latch>();
    server.on("/1/map", Answer::json(smallVenueAnswers().at("map")).held(latch));
    const Awaited<bool> arrived;
    loadVenue(session, next, false, [=](const auto&) { arrived.give(true); });
    EXPECT_EQ(activeVenue, next);
    for (const auto& cleared : {venue, next}) {
      EXPECT_FALSE(cleared->locations || cleared->categories || cleared->maps || cleared->nodes);
      EXPECT_FALSE(cleared->vortices || cleared->polygons || cleared->polygonDictionary);
      EXPECT_FALSE(cleared->navigationGraph);
    }
    latch->open();
    arrived.take();
    EXPECT_EQ(next->nodes->size(), 4U);
    EXPECT_NE(next->locations->at(0), cafe);
  }
  EXPECT_EQ(*cafe->nodes.at(0)->map->id, "floor1");
  EXPECT_EQ((*graph)[*cafe->nodes.at(0)].front().node()->x, 5.0);
}

// Serves the elements of a package file in pages of one hundred.
void servePackage(MisbehavingServer& server, const std::filesystem::path& package) {
  for (const auto& entry : smallVenueAnswers()) {
    const std::string path = "/1/" + entry.first;
    const auto elements =
        boost::json::parse(test::contentsOf(package / (entry.first + ".json"))).as_array();
    std::size_t start = 0;
    do {
      const std::size_t end = std::min(elements.size(), start + 100);
      const boost::json::array page(elements.begin() + start, elements.begin() + end);
      Answer answer = Answer::json(boost::json::serialize(page)).gzipped();
      if (end < elements.size()) answer = answer.next(path + std::to_string(end));
      server.on(start == 0 ? path : path + std::to_string(start), answer);
      start = end;
    } while (start < elements.size());
  }
}

TEST_F(VenueLoading, RealVenuesArriveInPagesAsTheyAre) {
  if (test::venueNames().empty()) GTEST_SKIP() << "the real venues are not available";
  for (const std::string& name : test::venueNames()) {
    SCOPED_TRACE(name);
    const auto package = *test::venuesFolder() / name;
    MisbehavingServer server;
    servePackage(server, package);
    // The polygons arrive before the response with the maps is sent.
    const auto polygonsAreThere = std::make_shared<Latch>();
    server.on("/1/map",
              Answer::json(test::contentsOf(package / "map.json")).held(polygonsAreThere));
    const auto observer = std::make_shared<SilentObserver>();
    const WebApiSession session = sessionFor(server.root(), observer);
    const long idleOwners = observer.use_count();
    const Awaited<std::shared_ptr<Venue>> arrived;
    loadVenue(session, smallVenue(), false, [=](const auto& venue) { arrived.give(venue); });
    while (observer.use_count() > idleOwners + 3) std::this_thread::yield();
    polygonsAreThere->open();
    const auto expected = boost::json::parse(test::contentsOf(package / "joined.json")).as_object();
    expectSameLinks(joinedLinks(*arrived.take()), expected);
  }
}

TEST_F(VenueLoading, ReportsTheListOfVenues) {
  MisbehavingServer server;
  server.on("/1/venue", {Answer::json(R"([{"id": "a", "slug": "a", "name": "A"}])"),
                         Answer::json("[]"), Answer::json("{}", 401)});
  const auto listed = [](const std::string& root) {
    const Awaited<VenueListReport> arrived;
    loadVenuesReporting(sessionFor(root), {{}, [=](auto report) { arrived.give(report); }});
    return arrived.take();
  };
  EXPECT_EQ(listed(server.root()).venues.at(0)->slug, "a");
  EXPECT_TRUE(listed(server.root()).failures.empty());
  EXPECT_EQ(listed(server.root()).failures.at(0).problem, LoadProblem::refused);
  EXPECT_EQ(listed(server.root("/2/")).failures.at(0).problem, LoadProblem::notFound);
  EXPECT_EQ(listed(MisbehavingServer::refusingRoot()).failures.at(0).problem,
            LoadProblem::noAnswer);
}

// The documentation forbids this use, but it must be memory-safe.
TEST_F(VenueLoading, LoadsMayOverlapWhileRoutesAreSearched) {
  MisbehavingServer server;
  serveSmallVenue(server);
  const WebApiSession session = sessionFor(server.root()).fillingActiveVenue();
  const auto kept = loaded(session, smallVenue())->locations->front();
  for (int round = 0; round < 100; ++round) {
    const auto first = smallVenue();
    const auto second = round % 2 == 0 ? first : smallVenue();
    const auto latch = std::make_shared<Latch>();
    server.on("/1/map", Answer::json(smallVenueAnswers().at("map")).held(latch));
    const Awaited<std::shared_ptr<Venue>> ends[3];
    const auto start = [&](const auto& venue, const auto& end) {
      loadVenue(session, venue, false, [=](const auto& ready) { end.give(ready); });
    };
    start(first, ends[0]);
    start(second, ends[1]);
    latch->open();
    for (int i = 0; i < 20; ++i) getDirections(kept->nodes, kept->nodes);
    start(second, ends[2]);
    for (const auto& end : ends) EXPECT_EQ(end.take(), second);
  }
}

TEST_F(VenueLoading, VenuesOfOtherSessionsLiveSideBySide) {
  MisbehavingServer servers[2];
  std::weak_ptr<Venue> left[2];
  std::vector<std::thread> visitors;
  for (std::size_t i = 0; i < 2; ++i) {
    serveSmallVenue(servers[i]);
    visitors.emplace_back([&, i] {
      const WebApiSession session = sessionFor(servers[i].root());
      const auto first = loaded(session, smallVenue());
      const auto second = loaded(session, smallVenue());
      left[i] = first;
      EXPECT_EQ(first->nodes->size(), 4U) << "not cleared by the second load";
      for (const auto& venue : {first, second}) {
        const auto& cafe = venue->locations->front();
        const auto& start = venue->nodes->back();
        const auto directions = cafe->directionsFrom(*venue, *start);
        ASSERT_TRUE(directions);
        EXPECT_EQ(directions->path.front(), start);
        EXPECT_EQ(directions->directions.front().atLocation, cafe);
        EXPECT_EQ(start->directionsTo(*venue, *cafe)->path, directions->path);
        EXPECT_EQ(getDirections(*venue->navigationGraph, *start, cafe->nodes)->path,
                  directions->path);
        for (const auto& same :
             {getDirections(*venue, start, cafe), getDirections(*venue, {start}, {cafe})})
          EXPECT_EQ(same->path, directions->path);
      }
      EXPECT_FALSE(getDirections(*smallVenue(), *first->nodes->front(), *first->nodes->back()));
    });
  }
  for (std::thread& visitor : visitors) visitor.join();
  for (const auto& venue : left)
    EXPECT_TRUE(happens([&] { return venue.expired(); })) << "another owner keeps it";
  EXPECT_EQ(activeVenue, nullptr);
}

// The documentation forbids this use, but it must be memory-safe, and a venue must never have the
// records of one load and the graph of the other.
TEST_F(VenueLoading, TwoSessionsMayLoadOneVenueAtTheSameTime) {
  MisbehavingServer servers[2];
  for (MisbehavingServer& server : servers) serveSmallVenue(server);
  for (int round = 0; round < 30; ++round) {
    const auto venue = smallVenue();
    const auto latch = std::make_shared<Latch>();
    const Awaited<std::shared_ptr<Venue>> ends[2];
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < 2; ++i) {
      servers[i].on("/1/map", Answer::json(smallVenueAnswers().at("map")).held(latch));
      threads.emplace_back([&, i] {
        loadVenue(sessionFor(servers[i].root()), venue, false,
                  [end = ends[i]](const auto& ready) { end.give(ready); });
      });
    }
    for (std::thread& thread : threads) thread.join();
    latch->open();
    for (const auto& end : ends) EXPECT_EQ(end.take(), venue);
    for (const auto& location : *venue->locations)
      for (const auto& node : location->nodes)
        EXPECT_EQ(std::count(venue->nodes->begin(), venue->nodes->end(), node), 1);
    EXPECT_TRUE(venue->locations->front()->directionsFrom(*venue, *venue->nodes->back()));
  }
}

TEST_F(VenueLoading, ManyLoadsLeaveNothingBehind) {
  MisbehavingServer server;
  serveSmallVenue(server);
  const WebApiSession session = sessionFor(server.root());
  std::vector<std::weak_ptr<const void>> made;
  std::size_t usedBytes[2];
  for (std::size_t& bytes : usedBytes) {
    for (int i = 0; i < 100; ++i) {
      const auto venue = loaded(i % 2 == 0 ? session : session.fillingActiveVenue(), smallVenue());
      made.emplace_back(venue);
      made.emplace_back(venue->navigationGraph);
      const auto note = [&](const auto& records) {
        ASSERT_FALSE(records->empty());
        made.insert(made.end(), records->begin(), records->end());
      };
      note(venue->locations);
      note(venue->categories);
      note(venue->maps);
      note(venue->nodes);
      note(venue->vortices);
      note(venue->polygons);
    }
    activeVenue = nullptr;
    EXPECT_TRUE(happens([&] {
      return std::all_of(made.begin(), made.end(), [](const auto& each) { return each.expired(); });
    }));
    made = {};
    server.forgetRequests();
    bytes = mallinfo2().uordblks;  // constant with the allocator of a sanitizer
  }
  EXPECT_LT(usedBytes[1], usedBytes[0] + 500'000);
}

// A transport that returns responses from a map.
class MemoryTransport : public network::UrlTransport {
 public:
  void start(network::UrlRequest request, Completion completed) override {
    const auto page = pages.find(request.url.absoluteString());
    if (page == pages.end()) return completed(foundation::failure("memory transport", 1, "none"));
    network::HttpUrlResponse response{request.url, 200, {}};
    if (page->first == "http://h/1/venue") response.headerFields = {{"Link", "<x>; rel=next"}};
    completed(network::UrlAnswer{std::move(response), page->second});
  }

  std::map<std::string, std::string> pages;
};

TEST_F(VenueLoading, ATransportOfTheApplicationCarriesTheRequests) {
  const auto transport = std::make_shared<MemoryTransport>();
  transport->pages = {{"http://h/1/venue", R"([{"id": "a", "slug": "a", "name": "A"}])"},
                      {"http://h/1/x", R"([{"id": "b", "slug": "small", "name": "B"}])"},
                      {"http://h/1/category?venue=small", R"([{"id": "c", "name": "C"}])"}};
  const WebApiSession session("http://h/1/", "", "", "en", nullptr, defaultLoadBytes, transport);
  const Awaited<Collection<Venue>> listed;
  session.venues([=](auto venues) { listed.give(std::move(venues)); });
  EXPECT_EQ(loaded(session, listed.take().at("b"))->categories->front()->name, "C");
}

TEST_F(VenueLoading, HandlersAreCalledByTheExecutorAndNotAfterCanceling) {
  MisbehavingServer server;
  serveSmallVenue(server);
  for (const char* const canceled : {"", "the handle", "the session"}) {
    const bool isCanceled = *canceled != '\0';
    SCOPED_TRACE(canceled);
    std::string calls;
    LoadProgress latest;
    const foundation::CancellationSource source;
    const auto handle = loadVenueReporting(sessionFor(server.root()).canceledBy(source.token()),
                                           smallVenue(), false,
                                           {.progressed =
                                                [&](const LoadProgress& progress) {
                                                  calls += 'p';
                                                  latest = progress;
                                                },
                                            .ended = [&](const auto&) { calls += 'e'; },
                                            .executor = foundation::mainQueue::async});
    ASSERT_TRUE(foundation::mainQueue::wait(60));
    EXPECT_EQ(calls, "");
    if (canceled == std::string_view("the handle")) handle->cancel();
    if (canceled == std::string_view("the session")) source.cancel();
    // The start, six pages, the ends of six collections, and the end of the load.
    do {
      ASSERT_TRUE(foundation::mainQueue::wait(60));
      foundation::mainQueue::drain();
    } while (!isCanceled && calls.size() < 14);
    EXPECT_EQ(calls, isCanceled ? "" : "pppppppppppppe");
    EXPECT_EQ(latest.collectionsDone, isCanceled ? 0U : 6U);
    EXPECT_EQ(latest.pages, isCanceled ? 0U : 6U);
    EXPECT_EQ(latest.bytes > 0, !isCanceled);
  }
}

TEST_F(VenueLoading, ATrickleEndsWithItsCollection) {
  MisbehavingServer server;
  serveSmallVenue(server);
  server.on("/1/node", Answer::json(std::string(10'000, ' ') + "[]").trickled());
  const VenueLoadReport report =
      reported(sessionFor(server.root()).withLowestRate({1'000'000, std::chrono::seconds(1)}));
  ASSERT_EQ(report.failures.size(), 1U);
  EXPECT_EQ(report.failures[0].collection, "node");
  EXPECT_NE(report.failures[0].reason.find("too slow"), std::string::npos);
  EXPECT_FALSE(report.venue->maps->empty());
}

TEST_F(VenueLoading, ACanceledLoadTellsNothingFillsNothingAndLetsGo) {
  MisbehavingServer server;
  serveSmallVenue(server);
  const auto latch = std::make_shared<Latch>();
  server.on("/1/node", Answer::json("[]").held(latch));
  const auto letGo = std::make_shared<Latch>();
  const auto venue = smallVenue();
  const auto handle = loadVenueReporting(
      sessionFor(server.root()), venue, false,
      {{}, [held = test::opensWhenGone(letGo)](const auto&) { ADD_FAILURE() << "canceled"; }});
  ASSERT_TRUE(server.waitForRequests("/1/node", 1));
  handle->cancel();
  EXPECT_TRUE(letGo->wait());
  latch->open();
  EXPECT_TRUE(happens([&] { return venue.use_count() == 1; })) << "the load still has the venue";
  EXPECT_FALSE(venue->nodes);
}

using VenueLoadingDeathTest = VenueLoading;

TEST_F(VenueLoadingDeathTest, AVenueWithoutASlugStopsTheProgram) {
  const WebApiSession session = sessionFor("http://127.0.0.1:1/");
  const auto venue = smallVenue();
  venue->slug.reset();
  const std::string absence = "unexpectedly found nil while unwrapping an Optional value";
  EXPECT_DEATH(loadVenue(session, venue, false, [](const auto&) {}), absence);
  EXPECT_DEATH(loadVenue(session, nullptr, false, [](const auto&) {}), absence);
}

// Runs in a separate process, because the process-wide session is created only once.
[[noreturn]] void loadThroughTheProcessWideSession() {
  MisbehavingServer server;
  serveSmallVenue(server);
  server.on("/1/venue", Answer::json(R"([{"id": "b", "slug": "small", "name": "B"}])").next("x"));
  server.on("/1/x", Answer::json(R"([{"id": "a", "slug": "a", "name": "A"}])"));
  setApiSettings({.endpoint = server.root(), .username = "user", .password = "secret"});
  const Awaited<std::vector<std::shared_ptr<Venue>>> listed;
  getVenues([=](auto venues) { listed.give(std::move(venues)); });
  const auto venues = listed.take();
  setApiSettings({.endpoint = MisbehavingServer::refusingRoot()});  // too late to have an effect
  const Awaited<std::shared_ptr<Venue>> arrived;
  getVenue(venues.at(0), [=](const auto& venue) { arrived.give(venue); });
  const auto venue = arrived.take();
  const auto request = server.requests("/1/node").at(0);
  std::fprintf(stderr, "%zu venues, %s has %zu nodes, %s\n", venues.size(), venue->name->c_str(),
               venue->nodes->size(), request.field("Authorization")->c_str());
  std::_Exit(0);
}

TEST_F(VenueLoadingDeathTest, TheProcessWideSessionTakesTheFirstSettings) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(loadThroughTheProcessWideSession(), testing::ExitedWithCode(0),
              "^2 venues, B has 4 nodes, Basic dXNlcjpzZWNyZXQ=\n$");
}

// Loads continue in the background while the process runs its exit handlers.
[[noreturn]] void endDuringALoad() {
  const auto server = std::make_shared<MisbehavingServer>();
  serveSmallVenue(*server);
  const WebApiSession session = sessionFor(server->root());
  const std::function<void()> loadForEver = [&, server] {
    loadVenue(session, smallVenue(), false, [&](const auto&) { loadForEver(); });
  };
  loadForEver();
  EXPECT_TRUE(server->waitForRequests("/1/node", 50));
  std::exit(0);
}

TEST_F(VenueLoadingDeathTest, AProgramMayEndWhileALoadIsUnderWay) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (int i = 0; i < 10; ++i) EXPECT_EXIT(endDuringALoad(), testing::ExitedWithCode(0), "^$");
}

}  // namespace
}  // namespace orivanta
