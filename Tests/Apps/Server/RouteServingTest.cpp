// Requests for routes and closures to a running server.
#include <gmock/gmock.h>

#include <boost/json/parse.hpp>
#include <mutex>

#include "Apps/Server/VenueServer.hpp"
#include "Tests/Apps/Server/RawClient.hpp"
#include "Tests/Support/TwoFloorPackage.hpp"

namespace orivanta::server {
namespace {

using test::RawClient;
using testing::HasSubstr;

class RouteServing : public testing::Test {
 protected:
  RouteServing() {
    test::writePackage(root_, "small", {});
    options_.folders = {root_.path()};
    options_.report = [this](const std::string& line) {
      const std::lock_guard lock(mutex_);
      reports_.push_back(line);
    };
    start();
  }

  void start() { server_ = std::make_unique<VenueServer>(options_); }

  static std::string request(const std::string& target, const std::string& headers = {},
                             const std::string& method = "GET") {
    return method + " /1/" + target + " HTTP/1.1\r\nHost: here\r\n" + headers + "\r\n";
  }

  RawClient::Response get(const std::string& target, const std::string& headers = {}) const {
    RawClient client(server_->root());
    client.send(request(target, headers));
    return client.read();
  }

  std::vector<std::string> reports() {
    const std::lock_guard lock(mutex_);
    return reports_;
  }

  const test::TemporaryFolder root_;
  std::mutex mutex_;
  std::vector<std::string> reports_;
  ServerOptions options_;
  std::unique_ptr<VenueServer> server_;
};

constexpr const char* fromBakery = "route?venue=small&from=bakery";

TEST_F(RouteServing, AnswersQueries) {
  std::string many;
  for (int i = 0; i < 10; ++i) many += "&via=n1";
  std::string ends;
  for (int i = 0; i < 33; ++i) ends += "&to=n1";
  const struct {
    std::string rest;  // after `fromBakery`
    unsigned status;
    std::string part;
  } cases[] = {
      {"&to=Book+Shop", 200, R"("path":["n1","n2","u2"])"},
      {"&to=l2&profile=step-free", 200, R"("path":["n1","n2","n3","u1","u2"])"},
      {"&to=l2&closed=stairs", 200, R"("path":["n1","n2","n3","u1","u2"])"},
      {"&nearest=c1&closed=l1&at=2026-11-21T18:30", 200, R"("location":"l2")"},
      {"&to=%40F1,5,9&speed=0.5&avoid-outdoors", 200, R"("meters":)"},
      {"&to=n1&via=u2&via=n2&best-order=1&alternatives=2", 200, R"("visits":[{"stop":0,)"},
      {"&to=n3&to=n2&flying=1", 200, R"("path":["n1","n2"])"},
      {"&to=n4", 200, R"("problem":{"kind":"unreachable","stop":1,"text":")"},
      {"", 400, "The destination of the route is missing."},
      {"&to=", 400, "A place must not be an empty text."},
      {"&to=zoo", 404, R"(The venue has no location or node \"zoo\".)"},
      {"&to=k", 400,
       "names 2 places; give the identifier of one: l1 (Bakery, G), l2 (Book Shop, F1)."},
      {"&nearest=c9", 404, "has no category"},
      {"&to=l2&nearest=c1", 400, "either a destination"},
      {"&to=l2&profile=", 400, "is not a profile"},
      {"&to=l2&at=now", 400, "not a local time"},
      {"&to=l2&speed=fast", 400, "Speed must be a number."},
      {"&to=l2&speed=nan", 400, "0.2 to 5"},
      {"&to=l2&alternatives=-1", 400, "must be 0 to 4"},
      {"&to=l2&alternatives=99999999999", 400, "must be a number"},
      {"&to=l2&best-order=maybe", 400, "must be 0 or 1"},
      {"&to=l2" + many, 200, R"("path":["n1",)"},
      {"&to=l2&best-order=1" + many, 200, R"("path":["n1",)"},
      {"&to=l2&via=n1" + many, 400, "Via must not occur more than 10 times."},
      {ends, 400, "To must not occur more than 32 times."},
      {"&to=" + std::string(1001, 'x'), 400, "too long"},
      {"&to=%zz", 400, "malformed"},
  };
  for (const auto& each : cases) {
    const auto response = get(fromBakery + each.rest);
    EXPECT_EQ(response.result_int(), each.status) << each.rest;
    EXPECT_EQ(response["Content-Type"], "application/json");
    if (each.status == 200) {
      EXPECT_THAT(response.body(), HasSubstr(each.part)) << each.rest;
      EXPECT_TRUE(boost::json::parse(response.body()).is_object());
      continue;
    }
    const auto error = boost::json::parse(response.body()).at("error");
    EXPECT_EQ(error.at("status").to_number<unsigned>(), each.status) << each.rest;
    EXPECT_THAT(response.body(), HasSubstr(each.part)) << each.rest;
  }
  EXPECT_EQ(get("route?from=l1&to=l2").result_int(), 400U);
  EXPECT_EQ(get("route?venue=none&from=l1&to=l2").result_int(), 404U);
  EXPECT_EQ(get("route?venue=small&to=l2").result_int(), 400U);
}

TEST_F(RouteServing, SpeaksTheLanguageOfTheClient) {
  const std::string target = fromBakery + std::string("&to=l2");
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"", "", "en"},
      {"Accept-Language: de-AT, en;q=0.5\r\n", "", "de"},
      {"Accept-Language: tlh, fr;q=0.3, ja;q=0.2\r\n", "", "fr"},
      {"Accept-Language: *\r\n", "", "en"},
      {"Accept-Language: de\r\n", "&language=ja", "ja"},
      {"Accept-Language: de\r\n", "&language=", "en"},
  };
  for (const auto& [header, query, language] : cases) {
    const auto response = get(target + query, header);
    EXPECT_EQ(response["Content-Language"], language) << header << query;
    EXPECT_THAT(response.body(), HasSubstr("\"language\":\"" + language + '"'));
    EXPECT_EQ(response["Vary"], "Accept-Language");
  }
}

TEST_F(RouteServing, AnswersInTheOrderOfTheRequests) {
  RawClient client(server_->root());
  const std::string route = fromBakery + std::string("&to=l2");
  client.send(request(route) + request(route, {}, "HEAD") + request("venue") + request(fromBakery) +
              request(route, "Connection: close\r\n"));
  const auto first = client.read();
  EXPECT_THAT(first.body(), HasSubstr("\"steps\""));
  const auto head = client.read(true);
  EXPECT_EQ(head.result_int(), 200U);
  EXPECT_EQ(head["Content-Length"], std::to_string(first.body().size()));
  EXPECT_THAT(client.read().body(), HasSubstr("Small Mall"));
  EXPECT_EQ(client.read().result_int(), 400U);
  EXPECT_EQ(client.read().body(), first.body());
  EXPECT_EQ(client.readToEnd(), "");
}

TEST_F(RouteServing, RespectsClosuresAsTheyChange) {
  const std::string target = fromBakery + std::string("&to=l2");
  const auto file = root_.path() / "small/closure.json";
  const std::string list = R"([{"id":"stairs","reason":"Painting","n":1.50}])";
  const std::string byStairs = R"("path":["n1","n2","u2"])";
  const std::string byLift = R"("path":["n1","n2","n3","u1","u2"])";
  const struct {
    std::string text;  // of the file; it is removed if this is empty
    std::string served, route;
    std::size_t reports;
  } cases[] = {
      {"", "[]", byStairs, 0},
      {list, list, byLift, 0},
      {"[{\"id\":\"stairs\"", list, byLift, 1},
      {"[{\"id\": 7}]", list, byLift, 2},
      {R"([{"id":"stairs"},{"id":"lift"}])", R"([{"id":"stairs"},{"id":"lift"}])",
       R"("kind":"closed")", 2},
      {"{}", R"([{"id":"stairs"},{"id":"lift"}])", R"("kind":"closed")", 3},
      {"", "[]", byStairs, 3},
  };
  for (const auto& each : cases) {
    if (each.text.empty())
      std::filesystem::remove(file);
    else
      root_.write("small/closure.json", each.text);
    for (int round = 0; round < 2; ++round) {
      EXPECT_EQ(get("closure?venue=small").body(), each.served);
      EXPECT_THAT(get(target).body(), HasSubstr(each.route)) << each.text;
    }
    ASSERT_EQ(reports().size(), each.reports);
  }
  EXPECT_THAT(reports().front(), HasSubstr("small/closure.json: not a list of closures"));
  EXPECT_EQ(get("closure?venue=none").result_int(), 404U);
  EXPECT_EQ(get("closure").result_int(), 400U);
}

TEST_F(RouteServing, SurvivesClientsAndServersThatLeave) {
  const std::string route = request(fromBakery + std::string("&to=l2&alternatives=4"));
  for (int round = 0; round < 10; ++round) {
    for (int number = 0; number < 5; ++number) RawClient(server_->root()).send(route + route);
    std::vector<std::unique_ptr<RawClient>> clients;
    for (int number = 0; number < 5; ++number) {
      clients.push_back(std::make_unique<RawClient>(server_->root()));
      clients.back()->send(route);
    }
    if (round % 2 == 0) {
      EXPECT_EQ(clients.back()->read().result_int(), 200U);
    }
    start();  // destroys the other server
  }
}

}  // namespace
}  // namespace orivanta::server
