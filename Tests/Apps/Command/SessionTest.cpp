// Where the program gets its settings from, and what it prints when the server fails.
#include "Apps/Command/Session.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Apps/Command/CommandError.hpp"
#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/SmallVenue.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::command {
namespace {

using test::Answer;
using test::Latch;
using test::MisbehavingServer;
using test::runProgram;

constexpr const char* venues = R"([{"id": "v", "slug": "s", "name": "n"}])";

TEST(Settings, EndpointsAreCompletedOrRefused) {
  const std::vector<std::pair<std::string, std::string>> usable = {
      {"http://localhost:8080/1/", "http://localhost:8080/1/"},
      {"https://h", "https://h/"},
      {"HTTP://h/1", "HTTP://h/1/"},
  };
  for (const auto& [text, endpoint] : usable) EXPECT_EQ(usableEndpoint(text, "x"), endpoint);
  for (const char* text : {"", "localhost", "localhost:8080/1/", "/1/", "http://", "http:/h/",
                           "ftp://h/", "http://h/ 1/", "http://h/?a=b", "http://h/1/#top"})
    try {
      usableEndpoint(text, "--endpoint");
      ADD_FAILURE() << text;
    } catch (const CommandError& error) {
      EXPECT_EQ(error.code, ExitCode::wrongUse);
      EXPECT_TRUE(std::string(error.what())
                      .starts_with(fmt::format("the endpoint \"{}\" (--endpoint) ", text)));
    }
  for (const std::string text : {"ftp://u:p@h/", "http://u:p@h/?a", "http://u: /p@h/"}) {
    const auto result = runProgram({"venues", "--endpoint", text});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.errors.find("://h/"), std::string::npos) << result.errors;
  }
}

TEST(Settings, CommandLineGoesBeforeEnvironmentBeforePropertyLists) {
  MisbehavingServer server;
  for (const char* place : {"/file/", "/environment/", "/option/"})
    server.on(place + std::string("venue"), [place](const test::ReceivedRequest& request) {
      return Answer::json(fmt::format(R"([{{"id": "1", "slug": "{}", "name": "{}"}}])", place,
                                      *request.field("Authorization")));
    });
  const test::TemporaryFolder folder;
  folder.write("settings.plist", fmt::format(R"(<plist version="1.0"><dict>
      <key>OrivantaEndpoint</key><string>{}</string><key>OrivantaUsername</key><string>a</string>
      <key>OrivantaPassword</key><string>a</string></dict></plist>)",
                                             server.root("/file/")));
  const std::vector<std::string> settings = {"--settings", folder.path().string()};
  const std::vector<std::string> options = {
      "--endpoint", server.root("/option/"), "--username", "c", "--password", "c"};
  const std::vector<std::string> environment = {"ORIVANTA_ENDPOINT=" + server.root("/environment/"),
                                                "ORIVANTA_USERNAME=b", "ORIVANTA_PASSWORD=b"};
  const auto run = [](std::vector<std::string> arguments, const std::vector<std::string>& more,
                      const std::vector<std::string>& variables) {
    arguments.insert(arguments.end(), more.begin(), more.end());
    arguments.emplace_back("venues");
    return runProgram(arguments, variables).output;
  };
  EXPECT_EQ(run(settings, {}, {}), "/file/  Basic YTph\n");
  EXPECT_EQ(run(settings, {}, environment), "/environment/  Basic Yjpi\n");
  EXPECT_EQ(run(settings, options, environment), "/option/  Basic Yzpj\n");
  EXPECT_EQ(run(settings, options, {}), "/option/  Basic Yzpj\n");
  EXPECT_EQ(run(settings, {"--username", "c"}, {"ORIVANTA_PASSWORD="}), "/file/  Basic Yzo=\n");
  const std::string inEndpoint = "http://d:d@" + server.root("/option/").substr(7);
  EXPECT_EQ(run({"--endpoint", inEndpoint}, {}, {}), "/option/  Basic ZDpk\n");
  EXPECT_EQ(run({"--endpoint", inEndpoint}, {}, environment), "/option/  Basic Yjpi\n");
}

TEST(Session, SaysWhatTheServerDidInsteadOfAnswering) {
  struct Case {
    Answer list;
    std::vector<std::string> arguments;
    std::string said;  // after the root
  };
  for (const Case& each : {Case{Answer::html("<p>Busy</p>", 503),
                                {"venues"},
                                "venue returned HTTP status 503: the server failed"},
                           {Answer::json(venues),
                            {"venue", "s"},
                            "node?venue=s&perspective=well-known:3D returned HTTP status 404"},
                           {Answer::json(venues),
                            {"route", "s", "--from", "a", "--to", "b"},
                            "map?venue=s returned HTTP status"}}) {
    MisbehavingServer server;
    server.on("/1/venue", each.list);
    const auto result = runProgram(each.arguments, {"ORIVANTA_ENDPOINT=" + server.root()});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors.find(server.root() + each.said), std::string::npos) << result.errors;
  }
  const auto refused = runProgram({"--endpoint", MisbehavingServer::refusingRoot(), "venues"});
  EXPECT_EQ(refused.exitCode, 3);
  EXPECT_TRUE(refused.errors.starts_with("orivanta: no response from http://")) << refused.errors;
}

TEST(Session, OnlyWarnsOfACollectionThatTheQueryDoesNotNeed) {
  MisbehavingServer server;
  server.on("/1/venue", Answer::json(venues));
  for (const char* name : {"location", "vortex", "polygon"})
    server.on("/1/" + std::string(name), Answer::json("[]"));
  server.on("/1/map", Answer::json(R"([{"id": "m"}])"));
  server.on("/1/node", Answer::json(R"([{"id": "a", "x": 0, "y": 0, "map": "m"}])"));
  const std::vector<std::string> environment = {"ORIVANTA_ENDPOINT=" + server.root()};
  const auto route = runProgram({"route", "s", "--from", "a", "--to", "a"}, environment);
  EXPECT_EQ(route.exitCode, 0);
  EXPECT_TRUE(route.errors.starts_with("orivanta: warning: " + server.root() +
                                       "category?venue=s returned HTTP status 404"))
      << route.errors;
  EXPECT_EQ(runProgram({"venue", "s"}, environment).exitCode, 3);
}

TEST(Session, EndsWhileRequestsAreStillRunning) {
  const auto never = std::make_shared<Latch>();
  MisbehavingServer server;
  server.on("/1/venue", Answer::json(venues));
  for (const char* name : {"location", "map", "vortex", "polygon", "node"})
    server.on("/1/" + std::string(name), Answer::json("[]").held(never));
  server.on("/1/category", Answer::json("[]").next("/1/category?venue=s"));
  const auto result =
      runProgram({"route", "s", "--from", "a", "--to", "b", "--endpoint", server.root()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_NE(result.errors.find("the page links of category are circular"), std::string::npos)
      << result.errors;
  never->open();
}

TEST(Session, ListsWhateverTheServerHas) {
  MisbehavingServer server;
  server.on("/1/venue", Answer::json("[]"));
  const std::vector<std::string> query = {"venues", "--endpoint", server.root()};
  const auto none = runProgram(query);
  EXPECT_EQ(none.exitCode, 0);
  EXPECT_EQ(none.output, "");
  EXPECT_NE(none.errors.find("no venues for this account"), std::string::npos);
  server.on("/1/venue", Answer::json(R"([{"id": "1", "slug": "a\u001bb", "name": "c\u0007\nd"}])"));
  EXPECT_EQ(runProgram(query).output, "a\uFFFDb  c\uFFFD d\n") << "control characters are replaced";
}

TEST(Session, StoredVenuesNeedNoServer) {
  const test::TemporaryFolder caches;
  const std::vector<std::string> environment{"XDG_CACHE_HOME=" + caches.path().string()};
  MisbehavingServer server;
  server.on("/1/venue", Answer::json(venues));
  for (const auto& [name, json] : test::smallVenueAnswers())
    server.on("/1/" + name, Answer::json(json));
  const auto run = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--endpoint", server.root()});
    return runProgram(arguments, environment);
  };
  const std::vector<std::string> queries[] = {
      {"venues"}, {"venue", "s", "--locations"}, {"route", "s", "--from", "Cafe", "--to", "roof"}};
  EXPECT_EQ(run({"venue", "s", "--no-store"}).exitCode, 0);
  EXPECT_EQ(run({"venue", "s", "--offline"}).exitCode, 3);
  std::vector<std::string> outputs;
  for (const auto& query : queries) outputs.push_back(run(query).output);
  server.forgetRequests();
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    auto query = queries[i];
    query.emplace_back("--offline");
    EXPECT_EQ(run(query).output, outputs[i]);
    EXPECT_NE(outputs[i], "");
  }
  EXPECT_EQ(run({"venue", "other", "--offline"}).exitCode, 3);
  EXPECT_EQ(run({"venue", "s", "--offline", "--no-store"}).exitCode, 2);
  EXPECT_TRUE(server.requests().empty());
}

}  // namespace
}  // namespace orivanta::command
