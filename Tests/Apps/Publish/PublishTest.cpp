// Publishes packages and reads them with the ordinary client from a real nginx.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <filesystem>
#include <thread>

#include "Apps/Server/VenueServer.hpp"
#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Apps/DemoVenue/GeneratedVenue.hpp"
#include "Tests/Apps/Server/RawClient.hpp"
#include "Tests/Support/TwoFloorPackage.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::publish {
namespace {

namespace fs = std::filesystem;
using test::Program;
using test::runProgram;
using testing::HasSubstr;

std::uint16_t freePort() {
  const int descriptor = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof(address);
  ::bind(descriptor, reinterpret_cast<sockaddr*>(&address), size);
  ::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size);
  ::close(descriptor);
  return ntohs(address.sin_port);
}

// Returns the whole response, with its head.
std::string get(std::uint16_t port, const std::string& target, const std::string& language = "",
                const std::string& headers = "", const std::string& method = "GET ") {
  test::RawClient client("http://127.0.0.1:" + std::to_string(port));
  client.send(method + target + " HTTP/1.1\r\nHost: h\r\nConnection: close\r\nAccept-Language: " +
              language + "\r\n" + headers + "\r\n");
  return client.readToEnd();
}

// nginx with the published fragment.
class WebServer {
 public:
  WebServer(const test::TemporaryFolder& root, const fs::path& published, std::uint16_t port) {
    const std::string at = root.path().string();
    const auto configuration = root.write(
        "nginx.conf",
        "daemon off; master_process off; error_log " + at + "/log; pid " + at +
            "/pid;\nevents {}\nhttp {\n  access_log off;\n  client_body_temp_path " + at +
            "/a; proxy_temp_path " + at + "/b; fastcgi_temp_path " + at + "/c; uwsgi_temp_path " +
            at + "/d; scgi_temp_path " + at + "/e;\n  include " + published.string() +
            "/nginx/maps.conf;\n  server {\n    listen 127.0.0.1:" + std::to_string(port) +
            ";\n    root " + published.string() + ";\n    include " + published.string() +
            "/nginx/locations.conf;\n    location / {\n      root " + at +
            "/page;\n      include " + published.string() + "/nginx/page.conf;\n    }\n  }\n}\n");
    std::string program = "/usr/sbin/nginx";
    std::string flag = "-c";
    std::string file = configuration.string();
    char* arguments[] = {program.data(), flag.data(), file.data(), nullptr};
    if (posix_spawn(&process_, program.c_str(), nullptr, nullptr, arguments, environ) != 0)
      throw std::runtime_error("cannot start nginx");
    while (!fs::exists(root.path() / "pid")) {
      if (waitpid(process_, nullptr, WNOHANG) != 0) throw std::runtime_error("nginx has ended");
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }
  ~WebServer() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;

 private:
  pid_t process_ = 0;
};

class Publish : public testing::Test {
 protected:
  Publish() {
    test::TwoFloorVenue venue;
    venue.locations = R"([
      {"id": "l1", "name": "Bakery", "names": {"de": "Bäckerei", "de-AT": "Bäck", "fr": "Fournil"},
       "type": "shop", "nodes": [{"node": "n1"}]},
      {"id": "l2", "name": "Book Shop", "names": {"de": "Buchladen"}, "type": "shop",
       "nodes": [{"node": "u2"}]}])";
    test::writePackage(root_, "small", venue);
    root_.write("small/closure.json", R"([{"id": "lift", "reason": "Maintenance"}])");
    root_.write("small/.secret", "");
  }

  test::ProgramResult publish(const std::string& baseUrl, const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {"publish", "-o", (root_.path() / "site").string(),
                                          "--base-url", baseUrl};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return runProgram(arguments);
  }

  std::string small() const { return (root_.path() / "small").string(); }
  std::string at(const std::string& name) const {
    return test::contentsOf(root_.path() / "site" / name);
  }

  test::TemporaryFolder root_;
};

TEST_F(Publish, OrdinaryClientsSeeTheSameFromNginxAsFromTheServer) {
  const std::uint16_t port = freePort();
  const std::string origin = "http://127.0.0.1:" + std::to_string(port);
  const std::string demo = test::generatedVenue().string();
  ASSERT_EQ(publish(origin + "/maps/", {demo, small()}).exitCode, 0);
  const WebServer web(root_, root_.path() / "site", port);
  server::ServerOptions options;
  options.folders = {demo, root_.path() / "small"};
  const server::VenueServer server(options);
  const std::string picture = (root_.path() / "picture.png").string();
  const std::string cache = "XDG_CACHE_HOME=" + (root_.path() / "cache").string();
  const std::vector<std::vector<std::string>> queries = {
      {"venues"},
      {"venue", "small", "--locations"},
      {"venue", "astrolabe-court", "--json", "--locations"},
      {"route", "astrolabe-court", "--from", "paper-kestrel", "--to", "ecliptic-1", "--guide"},
      {"render", "astrolabe-court", "--map", "0", "--labels", "-q", "-o", picture}};
  for (const std::string language : {"LANGUAGE=de-AT:de", "LANGUAGE=fr", "LANGUAGE="})
    for (const auto& query : queries) {
      const bool isPicture = query.front() == "render";
      if (isPicture && language != "LANGUAGE=") continue;
      std::vector<std::string> results;
      for (const std::string& root : {server.root(), origin + "/maps/1/"}) {
        const auto result =
            runProgram(query, {"ORIVANTA_ENDPOINT=" + root, language, "LC_ALL=C.UTF-8", cache});
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        results.push_back(isPicture ? test::contentsOf(picture) : result.output);
      }
      EXPECT_FALSE(results[0].empty());
      EXPECT_TRUE(results[0] == results[1]) << query.front() << ' ' << language;
    }
  const auto one = runProgram({"venue", "small", "--locations"},
                              {"ORIVANTA_ENDPOINT=" + origin + "/maps/small/de/1/"});
  EXPECT_THAT(one.output, HasSubstr("Buchladen")) << one.errors;
}

TEST_F(Publish, NginxSelectsTheLanguageThatTheServerSelects) {
  const std::uint16_t port = freePort();
  ASSERT_EQ(publish("http://127.0.0.1:" + std::to_string(port), {small()}).exitCode, 0);
  const WebServer web(root_, root_.path() / "site", port);
  const std::pair<const char*, const char*> rows[] = {{"", "Bakery"},
                                                      {"de", "Bäckerei"},
                                                      {"DE-ch;q=0.9", "Bäckerei"},
                                                      {"de-AT", "Bäck\""},
                                                      {"de-at-vienna", "Bäck\""},
                                                      {"den, fr", "Fournil"},
                                                      {"ja, fr;q=0.5, de;q=0.1", "Fournil"},
                                                      {"fr;q=0, de", "Bäckerei"},
                                                      {"ja, ja ,ja", "Bakery"},
                                                      {"fr ; q=0.000 ,\tde-AT", "Bäck\""}};
  for (const auto& [header, name] : rows)
    EXPECT_THAT(get(port, "/1/location?venue=small", header),
                HasSubstr(std::string("\"name\":\"") + name))
        << header;
  for (const char* target :
       {"/1/map?venue=../small", "/1/map", "/1/files/small/.secret", "/1/venues/../../nginx.conf"})
    EXPECT_THAT(get(port, target), HasSubstr(" 404 ")) << target;
}

TEST_F(Publish, NginxLetsPagesOfAllowedOriginsReadResponses) {
  const std::uint16_t port = freePort();
  const std::string url = "http://127.0.0.1:" + std::to_string(port);
  const std::string page = "Origin: https://a.example\r\nAccess-Control-Request-Headers: x\r\n";
  for (const std::string allowed : {"https://A.example:443", "*"}) {
    ASSERT_EQ(publish(url, {small(), "--allow-origin", allowed}).exitCode, 0);
    const WebServer web(root_, root_.path() / "site", port);
    const bool isOpen = allowed == "*";
    const auto expected = HasSubstr(std::string("Access-Control-Allow-Origin: ") +
                                    (isOpen ? "*" : "https://a.example") + "\r\n");
    for (const char* target : {"/1/venue", "/1/map", "/1/files/small/none", "/small/de/1/map"}) {
      const std::string answer = get(port, target, "", page);
      EXPECT_THAT(answer, testing::AllOf(expected, HasSubstr("Expose-Headers: ETag, Link")));
      EXPECT_EQ(answer.find("Vary: Origin") == std::string::npos, isOpen) << target;
      const std::string permission = get(port, target, "", page, "OPTIONS ");
      EXPECT_THAT(permission, testing::AllOf(testing::StartsWith("HTTP/1.1 204 "), expected,
                                             HasSubstr("Allow-Headers: x\r\n")));
      const std::string other = get(port, target, "", "Origin: https://b\r\n", "OPTIONS ");
      EXPECT_EQ(other.find("Access-Control") != std::string::npos, isOpen) << target;
    }
  }
  EXPECT_EQ(publish(url, {small(), "--allow-origin", "a.example"}).exitCode, 2);
}

TEST_F(Publish, NginxSendsFilesWithThePoliciesOfTheServer) {
  root_.write("small/plan.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\"/>");
  root_.write("page/index.html", "<p>");
  root_.write("page/core.wasm", "");
  const std::uint16_t port = freePort();
  ASSERT_EQ(publish("http://127.0.0.1:" + std::to_string(port), {small()}).exitCode, 0);
  const WebServer web(root_, root_.path() / "site", port);
  const auto has = [](const std::string& type, const std::string& policy) {
    return testing::AllOf(HasSubstr("Content-Type: " + type), HasSubstr(policy),
                          HasSubstr("X-Content-Type-Options: nosniff"));
  };
  EXPECT_THAT(get(port, "/1/files/small/plan.svg"), has("image/svg+xml", "data:; sandbox\r\n"));
  EXPECT_THAT(get(port, "/"), has("text/html", "script-src 'self' 'wasm-unsafe-eval';"));
  EXPECT_THAT(get(port, "/core.wasm"), has("application/wasm", "object-src 'none'"));
  EXPECT_THAT(get(port, "/1/venue"), testing::Not(HasSubstr("Content-Security-Policy")));
}

TEST_F(Publish, ReplacesTheFolderAsAWholeAndKeepsWhatIsNotItsOwn) {
  ASSERT_EQ(publish("https://maps.example", {small()}).exitCode, 0);
  EXPECT_THAT(at("small/de-at/1/location"), HasSubstr("Buchladen"));
  EXPECT_EQ(at("small/default/1/closure"), R"([{"id":"lift","reason":"Maintenance"}])");
  const auto time = fs::last_write_time(root_.path() / "site/small/fr/1/node");
  root_.write("small/closure.json", "[]");
  ASSERT_EQ(publish("https://maps.example", {small()}).exitCode, 0);
  EXPECT_EQ(at("small/default/1/closure"), "[]");
  EXPECT_EQ(fs::last_write_time(root_.path() / "site/small/fr/1/node"), time);

  root_.write("small/category.json", R"([{"id": "c1"}])");
  const auto refused = publish("https://maps.example", {small()});
  EXPECT_EQ(refused.exitCode, 2);
  EXPECT_THAT(refused.errors, HasSubstr("orivanta check"));
  EXPECT_THAT(at("small/de/1/category"), HasSubstr("Shops"));
  EXPECT_EQ(publish("https://maps.example", {small(), "--force"}).exitCode, 0);

  EXPECT_EQ(publish("maps.example", {small(), "--force"}).exitCode, 2);
  root_.write("site/robots.txt", "words");
  EXPECT_EQ(publish("https://maps.example", {small(), "--force"}).exitCode, 0);
  EXPECT_EQ(at("robots.txt"), "words");
  root_.write("site/small/de/1/category", "words");
  EXPECT_EQ(publish("https://maps.example", {small(), "--force"}).exitCode, 2);
  EXPECT_EQ(at("small/de/1/category"), "words");
  EXPECT_EQ(std::distance(fs::directory_iterator(root_.path()), {}), 2);
}

}  // namespace
}  // namespace orivanta::publish
