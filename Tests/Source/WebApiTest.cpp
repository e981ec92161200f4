#include "Source/WebApi.hpp"

#include <gmock/gmock.h>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/Awaited.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta {
namespace {

using test::Answer;
using test::Awaited;
using test::MisbehavingServer;
using testing::ElementsAre;
using testing::IsEmpty;

WebApiSession sessionFor(const std::string& root,
                         std::shared_ptr<WebApiObserver> observer = nullptr) {
  return {root, "user", "secret", "en", std::move(observer)};
}

// Starts a call by its function and waits for the collection.
template <class Record>
Collection<Record> collected(const std::function<void(WebApiSession::Callback<Record>)>& call) {
  const Awaited<Collection<Record>> arrived;
  call([=](Collection<Record> records) { arrived.give(std::move(records)); });
  return arrived.take();
}

Collection<Location> locationsFrom(const MisbehavingServer& server) {
  const WebApiSession session = sessionFor(server.root());
  return collected<Location>([&](auto callback) { session.locations("v", callback); });
}

template <class Record>
std::vector<std::string> idsOf(const Collection<Record>& records) {
  std::vector<std::string> ids;
  for (const auto& [id, record] : records) {
    EXPECT_EQ(id, record->id);
    ids.push_back(id);
  }
  return ids;
}

TEST(WebApi, EveryCallNamesItsCollectionAndBuildsItsRecords) {
  MisbehavingServer server;
  // Every kind of record builds from this one element.
  const Answer answer =
      Answer::json(R"([{"id": "i", "slug": "s", "name": "n", "type": "t", "x": 1, "y": 2}])");
  for (const char* path : {"venue", "location", "category", "map", "node", "vortex", "polygon"})
    server.on(std::string("/1/") + path, answer);
  const WebApiSession session = sessionFor(server.root());
  const auto check = [&](const auto& records, const std::string& target) {
    EXPECT_THAT(idsOf(records), ElementsAre("i")) << target;
    EXPECT_EQ(server.requests().back().target, target);
  };
  check(collected<Venue>([&](auto done) { session.venues(done); }), "/1/venue");
  check(collected<Location>([&](auto done) { session.locations("a b", done); }),
        "/1/location?venue=a%20b");
  check(collected<Category>([&](auto done) { session.categories("v", done); }),
        "/1/category?venue=v");
  check(collected<Map>([&](auto done) { session.maps("v", done); }), "/1/map?venue=v");
  check(collected<Node>([&](auto done) { session.nodes("v", done); }),
        "/1/node?venue=v&perspective=well-known:3D");
  check(collected<Vortex>([&](auto done) { session.vortices("v", done); }), "/1/vortex?venue=v");
  check(collected<Polygon>([&](auto done) { session.polygons("v", done); }), "/1/polygon?venue=v");
}

std::string location(const std::string& id, const std::string& name = "") {
  return R"({"id": ")" + id + R"(", "type": "", "name": ")" + name + "\"}";
}

TEST(WebApi, ACollectionIsTheUnionOfItsPagesWithoutWhatFormsNoRecord) {
  MisbehavingServer server;
  server.on("/1/location",
            Answer::json("[" + location("b", "1") + ", null, 3, \"x\", [], {}, {\"id\": 7}, " +
                         location("a") + "," + location("a", "twice") + "]")
                .next("/1/2"));
  server.on("/1/2", Answer::json(R"({"id": "c", "name": "", "type": ""})", 500).next("/1/3"));
  server.on("/1/3", Answer::json("[]").next("/1/4"));
  server.on("/1/4", Answer::json("[" + location("d") + "," + location("b", "2") + "]"));
  const auto locations = locationsFrom(server);
  EXPECT_THAT(idsOf(locations), ElementsAre("b", "a", "d"));
  EXPECT_EQ(locations.at("b")->name, "2");
  EXPECT_EQ(locations.at("a")->name, "twice");
}

TEST(WebApi, AFailureOnAnyPageGivesAnEmptyCollection) {
  MisbehavingServer server;
  server.on("/1/location", Answer::json("[" + location("a") + "]").next("/1/2"));
  const Answer failures[] = {Answer::html("<p>"), Answer::json("[" + location("b")),
                             Answer::json("[1, 2, 3]").resetAfter(5),
                             Answer::json("[1, 2, 3]").closedAfter(5)};
  for (const Answer& failure : failures) {
    server.on("/1/2", failure);
    EXPECT_THAT(locationsFrom(server), IsEmpty());
  }
  const WebApiSession session = sessionFor(MisbehavingServer::refusingRoot());
  EXPECT_THAT(collected<Venue>([&](auto done) { session.venues(done); }), IsEmpty());
}

// What an observer was told, in words.
class Witness : public WebApiObserver {
 public:
  void pageReceived(std::string_view collection, const network::HttpUrlResponse& response,
                    std::size_t bodyBytes) override {
    add(std::string(collection) + " " + std::to_string(response.statusCode) + " " +
        std::to_string(bodyBytes));
  }
  void collectionEnded(std::string_view collection,
                       const std::optional<foundation::Error>& error) override {
    add(std::string(collection) + " " + (error ? "failed " + error->domain : "complete"));
  }

  std::vector<std::string> taken() {
    const std::lock_guard lock(mutex_);
    return std::exchange(lines_, {});
  }

 private:
  void add(std::string line) {
    const std::lock_guard lock(mutex_);
    lines_.push_back(std::move(line));
  }

  std::mutex mutex_;
  std::vector<std::string> lines_;
};

TEST(WebApi, AnObserverLearnsOfPagesAndReasons) {
  MisbehavingServer server;
  server.on("/1/location", Answer::json("[]").next("/1/2"));
  server.on("/1/2", Answer::json("{ }", 404));
  const auto witness = std::make_shared<Witness>();
  const WebApiSession session = sessionFor(server.root(), witness);
  const auto load = [&] {
    collected<Location>([&](auto done) { session.locations("v", done); });
    return witness->taken();
  };
  EXPECT_THAT(load(), ElementsAre("location 200 2", "location 404 3", "location complete"));
  server.on("/1/2", Answer::html("<p>"));
  EXPECT_THAT(load(), ElementsAre("location 200 2", "location 200 3", "location failed "));
  server.on("/1/2", Answer::json("[1]").resetAfter(1));
  EXPECT_THAT(load(), ElementsAre("location 200 2", "location failed curl"));
}

// The response bodies of the hostile package: what becomes of each as a collection of locations,
// nodes or venues. Nothing for a body that must fail.
struct HostileBody {
  const char* file;
  const char* collection;
  std::optional<std::vector<std::string>> ids;
};

const std::vector<HostileBody>& hostileBodies() {
  using Ids = std::vector<std::string>;
  static const std::vector<HostileBody> bodies{
      {"venues", "venue", Ids{"venue-igml-pnu201-hostile", "v5", "v6"}},
      {"empty", "location", {}},
      {"blank", "location", {}},
      {"bare-number", "location", {}},
      {"bare-text", "location", {}},
      {"bare-null", "location", {}},
      {"object", "location", Ids{}},
      {"empty-list", "location", Ids{}},
      {"truncated", "location", {}},
      {"trailing-comma", "location", {}},
      {"comment", "location", {}},
      {"single-quotes", "location", {}},
      {"trailing-garbage", "location", {}},
      {"two-values", "location", {}},
      {"duplicate-keys", "location", Ids{"second"}},
      {"nested-10000-lists", "location", {}},
      {"nested-10000-objects", "location", {}},
      {"nested-10000-in-record", "location", {}},
      {"nested-10000-open", "location", {}},
      {"nested-1000000-open", "location", {}},
      {"number-1e308", "node", Ids{"a"}},
      {"number-1e999", "node", {}},
      {"number-1e-999", "node", Ids{"a"}},
      {"number-30-digits", "node", Ids{"a"}},
      {"number-400-digits", "node", {}},
      {"number-2-63", "node", Ids{"a"}},
      {"number-forms", "node", Ids{"a", "b"}},
      {"number-bad-forms", "node", {}},
      {"number-nan", "node", {}},
      {"invalid-utf8", "location", {}},
      {"overlong-utf8", "location", {}},
      {"surrogate-utf8", "location", {}},
      {"latin1", "location", {}},
      {"lone-surrogate", "location", {}},
      {"surrogate-pair", "location", Ids{"a"}},
      {"nul-escape", "location", Ids{std::string("a\0b", 3)}},
      {"raw-control", "location", {}},
      {"bad-escape", "location", {}},
      {"bom", "location", {}},
      {"utf16le", "location", {}},
      {"html-error", "location", {}},
      {"long-text", "location", Ids{"a"}},
      {"many-keys", "location", Ids{"a"}},
  };
  return bodies;
}

TEST(WebApi, HostileBodiesGiveWhatTheyMustAndNothingElse) {
  const auto folder = test::venuesFolder();
  if (!folder) GTEST_SKIP() << "no venues beside the project";
  const auto witness = std::make_shared<Witness>();
  MisbehavingServer server;
  const WebApiSession session = sessionFor(server.root(), witness);
  for (const HostileBody& body : hostileBodies()) {
    SCOPED_TRACE(body.file);
    const auto file = *folder / "igml-pnu201-hostile/json" / (std::string(body.file) + ".json");
    ASSERT_TRUE(std::filesystem::exists(file));
    const std::string collection = body.collection;
    server.on("/1/" + collection, Answer::json(test::contentsOf(file)));
    std::vector<std::string> ids;
    if (collection == "venue")
      ids = idsOf(collected<Venue>([&](auto done) { session.venues(done); }));
    else if (collection == "node")
      ids = idsOf(collected<Node>([&](auto done) { session.nodes("v", done); }));
    else
      ids = idsOf(collected<Location>([&](auto done) { session.locations("v", done); }));
    EXPECT_EQ(ids, body.ids.value_or(std::vector<std::string>()));
    EXPECT_EQ(witness->taken().back(), collection + (body.ids ? " complete" : " failed "));
  }
}

}  // namespace
}  // namespace orivanta
