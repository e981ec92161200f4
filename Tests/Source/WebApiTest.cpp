#include "Source/WebApi.hpp"

#include <fmt/format.h>
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

namespace orivanta {
namespace {

using test::Answer;
using test::Awaited;
using test::MisbehavingServer;
using testing::ElementsAre;

WebApiSession sessionFor(const std::string& root,
                         std::shared_ptr<WebApiObserver> observer = nullptr) {
  return {root, "user", "secret", "en", std::move(observer)};
}

// Calls a function of the session and waits for the collection.
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
  // This element is valid for every kind of record.
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

// The calls that an observer received, as text.
class Witness : public WebApiObserver {
 public:
  void pageReceived(std::string_view collection, const network::HttpUrlResponse& response,
                    std::size_t bodyBytes) override {
    lines.push_back(fmt::format("{} {} {}", collection, response.statusCode, bodyBytes));
  }
  void collectionEnded(std::string_view collection,
                       const foundation::Result<void>& outcome) override {
    lines.push_back(fmt::format("{} {}", collection,
                                outcome ? "complete" : "failed " + outcome.error().domain));
  }

  std::vector<std::string> lines;
};

TEST(WebApi, AnObserverLearnsOfPagesAndReasons) {
  MisbehavingServer server;
  server.on("/1/location", Answer::json("[]").next("/1/2"));
  server.on("/1/2", Answer::json("{ }", 404));
  const auto witness = std::make_shared<Witness>();
  const WebApiSession session = sessionFor(server.root(), witness);
  const auto load = [&] {
    collected<Location>([&](auto done) { session.locations("v", done); });
    return std::exchange(witness->lines, {});
  };
  EXPECT_THAT(load(), ElementsAre("location 200 2", "location 404 3", "location complete"));
  server.on("/1/2", Answer::html("<p>"));
  EXPECT_THAT(load(), ElementsAre("location 200 2", "location 200 3", "location failed "));
  server.on("/1/2", Answer::json("[1]").resetAfter(1));
  EXPECT_THAT(load(), ElementsAre("location 200 2", "location failed curl"));
}

}  // namespace
}  // namespace orivanta
