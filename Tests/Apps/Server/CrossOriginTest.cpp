#include "Apps/Server/CrossOrigin.hpp"

#include <gmock/gmock.h>

#include <stdexcept>

#include "Apps/Server/VenueServer.hpp"
#include "Tests/Apps/Server/RawClient.hpp"
#include "Tests/Apps/Server/SmallPackage.hpp"

namespace orivanta::server {
namespace {

TEST(CrossOrigin, PagesOfAllowedOriginsReadEveryResponse) {
  struct Row {
    std::string request;
    unsigned status;
    bool isAllowed;
    const char* allowedHeaders = "";
  };
  const std::string get = " HTTP/1.1\r\nHost: h\r\nAuthorization: Basic bWU6cHc=\r\n";
  const std::string origin = "Origin: https://maps.example\r\n";
  const std::string options = "OPTIONS /1/venue HTTP/1.1\r\nHost: h\r\n";
  const std::string preflight = options + "Access-Control-Request-Method: GET\r\n";
  const std::string headers = preflight + origin + "Access-Control-Request-Headers: ";
  const Row rows[] = {
      {"GET /1/venue" + get, 200, false},
      {"GET /1/venue" + get + origin + "If-None-Match: *\r\n", 304, true},
      {"GET /1/files/mall/maps/floor.obj" + get + origin, 200, true},
      {"GET /1/route?venue=mall&from=x&to=y" + get + origin, 404, true},
      {"PUT /1/venue" + get + origin, 405, true},
      {"GET /1/venue HTTP/1.1\r\nHost: h\r\n" + origin, 401, true},
      {"GET / HTTP/1.1\r\nHost: h\r\nHost: h\r\n" + origin, 400, true},
      {"PUT / HTTP/1.1\r\nHost: h\r\nContent-Length: 99999\r\n" + origin, 413, true},
      {headers + "authorization,x-more\r\n", 204, true, "authorization,x-more"},
      {headers + "x-a, x-b\r\n", 204, true, "Authorization, x-a, x-b"},
      {headers + "x: \"y\"\r\n", 204, true, "Authorization"},
      {options + origin, 401, true},
      {preflight, 401, false},
      {preflight + "Origin: https://evil.example\r\n", 401, false},
      {preflight + origin + origin, 401, false},
      {preflight + "Origin: https://maps.example\nX: y\r\n", 400, false},
      {preflight + "Origin: " + std::string(20'000, 'x') + "\r\n", 431, false},
  };
  const test::TemporaryFolder root;
  test::writeSmallPackage(root, "mall", "mall");
  ServerOptions serverOptions;
  serverOptions.folders = {root.path()};
  serverOptions.username = "me";
  serverOptions.password = "pw";
  const VenueServer closed(serverOptions);
  serverOptions.allowedOrigins = {"http://h", "HTTPS://Maps.Example:0443"};
  const VenueServer two(serverOptions);
  serverOptions.allowedOrigins = {"*"};
  const VenueServer all(serverOptions);
  for (const Row& row : rows) {
    const auto answerOf = [&](const VenueServer& server) {
      test::RawClient client(server.root());
      client.send(row.request + "\r\n");
      return client.read();
    };
    const auto answer = answerOf(two);
    EXPECT_EQ(answer.result_int(), row.status) << row.request;
    EXPECT_EQ(answer["Access-Control-Allow-Origin"], row.isAllowed ? "https://maps.example" : "");
    EXPECT_EQ(answer["Access-Control-Allow-Headers"], row.allowedHeaders) << row.request;
    EXPECT_THAT(std::string(answer["Vary"]), testing::EndsWith("Origin")) << row.request;
    EXPECT_EQ(answer["Access-Control-Expose-Headers"].empty(), !row.isAllowed) << row.request;
    const auto open = answerOf(all);
    EXPECT_EQ(open["Access-Control-Allow-Origin"], "*") << row.request;
    EXPECT_THAT(std::string(open["Vary"]), testing::Not(testing::HasSubstr("Origin")));
    for (const auto& field : answerOf(closed))
      EXPECT_THAT(std::string(field.name_string()) + std::string(field.value()),
                  testing::Not(testing::AnyOf(testing::StartsWith("Access-Control"),
                                              testing::HasSubstr("Origin"))));
  }
}

TEST(CrossOrigin, PrivateNetworksAndTextsThatAreNoOrigins) {
  const CrossOrigin one({"http://[::1]:80"});
  Request request{.method = "OPTIONS", .origin = "http://[::1]", .requestedMethod = "GET"};
  const char* name = "Access-Control-Allow-Private-Network";
  EXPECT_EQ(one.preflight(request).value().header(name), "");
  request.requestedPrivateNetwork = "true";
  EXPECT_EQ(one.preflight(request).value().header(name), "true");
  for (const char* text : {"", "null", "maps.example", "https://", "https://h/", "https://*.h",
                           "https://u:p@h", "ftp://h", "https://h:65536", "https://h\r\nX: y"})
    EXPECT_THROW(CrossOrigin({text}), std::invalid_argument) << text;
}

}  // namespace
}  // namespace orivanta::server
