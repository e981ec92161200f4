#include "Source/HttpSession.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

#include "Tests/Support/ChainCourse.hpp"
#include "Tests/Support/MisbehavingServer.hpp"

namespace orivanta {
namespace {

using test::Answer;
using test::Awaited;
using test::Course;
using test::courseOf;
using test::MisbehavingServer;
using test::ReceivedRequest;
using test::sessionFor;
using test::Texts;
using test::withPage;

TEST(HttpSession, ARequestThatCannotBeSentIsAnError) {
  EXPECT_EQ(courseOf(sessionFor(MisbehavingServer::refusingRoot())).error->code, 7);
  // Without a base URL, a path must not be interpreted as a host name.
  MisbehavingServer server;
  server.on("/", Answer::json("[]"));
  const std::string host = server.rootByName("").substr(std::string("http://").size());
  for (const std::string root : {"not a URL", "", "relative/"}) {
    const Course course = courseOf(sessionFor(root), "//" + host);
    ASSERT_TRUE(course.error) << root;
    EXPECT_EQ(course.error->domain, "curl");
  }
  EXPECT_EQ(courseOf(sessionFor("http:/" + host + "/")).error->domain, "curl");
  EXPECT_EQ(courseOf(sessionFor("ftp://" + host + "/")).error->code, 1);
  EXPECT_TRUE(server.requests().empty());
}

TEST(HttpSession, RequestsNameThePathAndTheParameters) {
  struct {
    std::string root;
    std::string path;
    Dictionary<std::string> parameters;
    std::string target;
  } const cases[] = {
      {"/1/", "venue", {}, "/1/venue"},
      {"/1", "venue", {}, "/venue"},
      {"/1/", "/venue", {}, "/venue"},
      {"/1/?key=1", "venue", {}, "/1/venue"},
      {"/1/", "venue?old=1", {}, "/1/venue"},
      {"/1/", "node", {{"venue", "b"}, {"a", "c"}}, "/1/node?venue=b&a=c"},
      {"/1/", "node", {{"perspective", "well-known:3D"}}, "/1/node?perspective=well-known:3D"},
      {"/1/", "a", {{"q", "1+1=2 & \"3\""}}, "/1/a?q=1%2B1%3D2%20%26%20%223%22"},
      {"/1/", "a", {{"q", "\xC3\xA9#"}}, "/1/a?q=%C3%A9%23"},
  };
  for (const auto& request : cases) {
    MisbehavingServer server;
    courseOf(sessionFor(server.root(request.root)), request.path, request.parameters);
    ASSERT_EQ(server.requests().size(), 1U) << request.target;
    EXPECT_EQ(server.requests()[0].target, request.target);
  }
}

TEST(HttpSession, PostIsAGetWithoutParametersAndBodyAndAnEmptyLanguageIsSent) {
  MisbehavingServer server;
  server.on("/1/a", Answer::json("[]"));
  const Awaited<Texts> completed;
  HttpSession(server.root(), "", "", "")
      .post("a", {{"ignored", "1"}})
      .onPage(Texts(), withPage)
      .onComplete([=](Texts texts) { completed.give(std::move(texts)); });
  completed.take();
  const ReceivedRequest request = server.requests().at(0);
  EXPECT_EQ(request.method, "GET");
  EXPECT_EQ(request.target, "/1/a");
  EXPECT_FALSE(request.field("Content-Length"));
  EXPECT_EQ(request.field("Accept-Language"), "");
}

TEST(HttpSession, EveryPageCarriesCredentialsAndLanguageOverOneConnection) {
  MisbehavingServer server;
  server.on("/1/a", Answer::json("[]").next("b"));
  server.on("/1/b", Answer::json("[]").next("c").gzipped());
  server.on("/1/c", Answer::json("[]").chunked());
  const HttpSession session = sessionFor(server.root());
  for (int chain = 0; chain < 3; ++chain) EXPECT_TRUE(courseOf(session).completed);
  ASSERT_EQ(server.requests().size(), 9U);
  for (const ReceivedRequest& request : server.requests()) {
    EXPECT_EQ(request.field("Authorization"), "Basic dXNlcjpzZWNyZXQ=");
    EXPECT_EQ(request.field("Accept-Language"), "de, en");
  }
  EXPECT_EQ(server.connectionCount(), 1U);
}

TEST(HttpSession, CredentialsAreEncodedAsUtf8) {
  struct {
    const char *username, *password, *authString;
  } const cases[] = {{"Aladdin", "open sesame", "Basic QWxhZGRpbjpvcGVuIHNlc2FtZQ=="},
                     {"test", "123\xC2\xA3", "Basic dGVzdDoxMjPCow=="},
                     {"a:b", ":", "Basic YTpiOjo="},
                     {"", "", "Basic Og=="}};
  for (const auto& account : cases)
    EXPECT_EQ(HttpSession("", account.username, account.password, "en").authString,
              account.authString);
}

TEST(HttpSession, ARedirectCarriesCredentialsOnlyWithinTheHost) {
  MisbehavingServer server;
  MisbehavingServer otherPort;
  for (MisbehavingServer* each : {&server, &otherPort}) each->on("/x", Answer::json("[]"));
  const std::pair<std::string, bool> cases[] = {{"/x", true},
                                                {server.root("/x"), true},
                                                {server.rootByName("/x"), false},
                                                {otherPort.root("/x"), false}};
  for (const auto& [location, expected] : cases) {
    SCOPED_TRACE(location);
    const std::size_t before = server.requests("/x").size() + otherPort.requests("/x").size();
    server.on("/1/a", Answer::redirect(location, 307));
    EXPECT_TRUE(courseOf(sessionFor(server.root())).completed);
    const bool here = otherPort.requests("/x").empty();
    const auto requests = (here ? server : otherPort).requests("/x");
    ASSERT_EQ(server.requests("/x").size() + otherPort.requests("/x").size(), before + 1);
    EXPECT_EQ(requests.back().field("Authorization").has_value(), expected);
    EXPECT_TRUE(requests.back().field("Accept-Language"));
  }
}

TEST(HttpSession, RequestsGoThroughTheProxyOfTheEnvironment) {
  MisbehavingServer proxy;
  proxy.on("http://venues.invalid/1/a", Answer::json(R"(["1"])"));
  ::setenv("http_proxy", proxy.root("").c_str(), 1);
  const Course course = courseOf(sessionFor("http://venues.invalid/1/"));
  ::unsetenv("http_proxy");
  EXPECT_EQ(course.completed, Texts({"1"}));
}

TEST(HttpSessionDeathTest, AbsentSettingsAndPathsThatAreNoUrlStopTheProgram) {
  const std::string absence = "fatal error: unexpectedly found nil while unwrapping an Optional";
  const std::string root = "http://127.0.0.1:1/";
  EXPECT_DEATH(HttpSession(root, std::nullopt, "", "en"), absence);
  EXPECT_DEATH(HttpSession(root, "", std::nullopt, "en"), absence);
  EXPECT_DEATH(HttpSession(root, "", "", std::nullopt), absence);
  EXPECT_DEATH(sessionFor(root).get("a b"), absence);
  EXPECT_DEATH(sessionFor(root).get(""), absence);
  EXPECT_DEATH(sessionFor("no URL").post("a b"), absence);
}

}  // namespace
}  // namespace orivanta
