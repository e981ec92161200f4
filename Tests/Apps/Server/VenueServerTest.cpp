#include "Apps/Server/VenueServer.hpp"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "Tests/Apps/Server/RawClient.hpp"
#include "Tests/Apps/Server/SmallPackage.hpp"

namespace orivanta::server {
namespace {

using std::chrono::milliseconds;
using test::RawClient;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class VenueServerTest : public testing::Test {
 protected:
  VenueServerTest() {
    test::writeSmallPackage(root_, "mall", "mall");
    options_.folders = {root_.path()};
  }

  const test::TemporaryFolder root_;
  ServerOptions options_;
};

std::string requestFor(const std::string& target, const std::string& headers = {}) {
  return "GET " + target + " HTTP/1.1\r\nHost: here\r\n" + headers + "\r\n";
}

TEST_F(VenueServerTest, ConnectionsAreKeptAndRequestsMayComeInARow) {
  const VenueServer server(options_);
  EXPECT_THAT(server.root(), testing::MatchesRegex("http://127.0.0.1:[0-9]+/1/"));
  RawClient client(server.root());
  client.send(requestFor("/1/node?venue=mall&per-page=1"));
  EXPECT_EQ(client.read().body(), R"([{"id":"n1"}])");
  std::string row;
  for (const char* page : {"2", "3", "4", "5", "6"})
    row += requestFor(std::string("/1/node?venue=mall&per-page=1&page=") + page);
  client.send(row + "HEAD /1/venue HTTP/1.1\r\nHost: here\r\n\r\n" +
              requestFor("/1/files/mall/maps/floor.obj", "Connection: close\r\n"));
  for (const char* body :
       {R"([{"id":"n2"}])", R"([{"id":"n3"}])", R"([{"id":"n4"}])", R"([{"id":"n5"}])"})
    EXPECT_EQ(client.read().body(), body);
  const auto missing = client.read();
  EXPECT_EQ(missing.result_int(), 404U);
  EXPECT_EQ(missing.body(), R"({"error":{"status":404,"message":"The last page is 5."}})");
  const auto head = client.read(true);
  EXPECT_EQ(head.result_int(), 200U);
  EXPECT_NE(head["Content-Length"], "0");
  const auto last = client.read();
  EXPECT_EQ(last.body().size(), 2008U);
  EXPECT_FALSE(last.keep_alive());
  EXPECT_THAT(client.readToEnd(), IsEmpty());
}

TEST_F(VenueServerTest, AnswersAreWholeMessages) {
  const VenueServer server(options_);
  RawClient client(server.root());
  client.send(
      requestFor("/1/location?venue=mall", "accept-language: fr\r\nAccept-Language: ja\r\n"));
  const auto message = client.read();
  EXPECT_THAT(message.body(), HasSubstr("\"name\":\"昇降機\""));
  EXPECT_THAT(std::string(message["Vary"]), HasSubstr("Accept-Language"));
  EXPECT_THAT(std::string(message["Date"]), testing::EndsWith(" GMT"));
  EXPECT_EQ(message["X-Content-Type-Options"], "nosniff");
  client.send(requestFor("/1/location?venue=mall", "Accept-Language: ja\r\nIf-None-Match: " +
                                                       std::string(message["ETag"]) + "\r\n"));
  EXPECT_EQ(client.read().result_int(), 304U);
  client.send("GET /1/files/mall/images/logo.png HTTP/1.0\r\n\r\n");
  EXPECT_THAT(client.readToEnd(), testing::AllOf(StartsWith("HTTP/1.0 200 OK\r\n"),
                                                 testing::EndsWith("\r\n\r\na picture")));
}

TEST_F(VenueServerTest, FilesLargerThanTheSocketTakesAtOnceArriveWhole) {
  std::string large;
  large.resize(20'000'000);
  for (std::size_t index = 0; index < large.size(); ++index)
    large[index] = static_cast<char>(index * 31 / 7);
  root_.write("mall/images/large.png", large);
  const VenueServer server(options_);
  RawClient client(server.root());
  client.send("GET /1/files/mall/images/large.png HTTP/1.0\r\n\r\n");
  EXPECT_TRUE(client.readToEnd().ends_with("\r\n\r\n" + large));
}

TEST_F(VenueServerTest, WhatIsNoRequestIsAnsweredAndEndsTheConnection) {
  struct Row {
    std::string bytes;
    const char* status;
  };
  const std::string post = "POST / HTTP/1.1\r\nHost: h\r\n";
  const std::string other = requestFor("/1/venue");  // must not be answered
  const Row rows[] = {
      {"hello\r\n\r\n", "HTTP/1.1 400 "},
      {std::string("\0\xff\x16\x03\x01\r\n\r\n", 9), "HTTP/1.1 400 "},
      {"GET / HTTP/9.9\r\n\r\n", "HTTP/1.1 400 "},
      {"GET /\r\n\r\n", "HTTP/1.1 400 "},
      {"GET / HTTP/1.1\r\n\r\n" + other, "HTTP/1.1 400 "},
      {"GET / HTTP/1.1\r\nHost: a\r\nHost: a\r\n\r\n" + other, "HTTP/1.1 400 "},
      {"GET / HTTP/1.1\r\nbad header\r\n\r\n", "HTTP/1.1 400 "},
      {post + "Content-Length: x\r\n\r\n", "HTTP/1.1 400 "},
      {post + "Content-Length: 1\r\nContent-Length: 2\r\n\r\n", "HTTP/1.1 400 "},
      {"GET / HTTP/1.1\r\nX: " + std::string(100'000, 'x') + "\r\n\r\n", "HTTP/1.1 431 "},
      {"GET /" + std::string(100'000, 'x') + " HTTP/1.1\r\n\r\n", "HTTP/1.1 431 "},
      {post + "Content-Length: 99999999999\r\n\r\n", "HTTP/1.1 413 "},
      {post + "Transfer-Encoding: chunked\r\n\r\n20000\r\n" + std::string(0x20000, 'x'),
       "HTTP/1.1 413 "},
      {post + "Transfer-Encoding: chunked\r\n\r\nzz\r\n", "HTTP/1.1 400 "},
      {post + "Transfer-Encoding: xchunked\r\n\r\n" + other, "HTTP/1.1 501 "},
      {post + "Transfer-Encoding: chunked, identity\r\n\r\n" + other, "HTTP/1.1 501 "},
      {post + "Transfer-Encoding: gzip\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n",
       "HTTP/1.1 501 "},
      {post + "Transfer-Encoding: identity\r\nContent-Length: 0\r\n\r\n" + other, "HTTP/1.1 400 "},
      {"POST / HTTP/1.0\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n", "HTTP/1.1 400 "},
      {"GET / HTT", ""},
      {"", ""},
  };
  const VenueServer server(options_);
  for (const Row& row : rows) {
    RawClient client(server.root());
    client.send(row.bytes);
    client.endSending();
    const std::string answer = client.readToEnd();
    EXPECT_THAT(answer, StartsWith(row.status)) << row.bytes.substr(0, 60);
    EXPECT_EQ(answer.empty(), *row.status == '\0') << answer;
    EXPECT_EQ(answer.rfind("HTTP/1.1 "), answer.find("HTTP/1.1 ")) << row.bytes.substr(0, 60);
  }
  RawClient client(server.root());
  client.send(post + "Content-Length: 3\r\n\r\nabc" + post +
              "Transfer-Encoding: CHUNKED\r\n\r\n3\r\nabc\r\n0\r\n\r\n" + other);
  for (const unsigned status : {405U, 405U, 200U})  // bodies are not parsed as requests
    EXPECT_EQ(client.read().result_int(), status);
}

TEST_F(VenueServerTest, ManyClientsAtOnceGetTheirOwnAnswers) {
  const VenueServer server(options_);
  std::atomic<int> right = 0;
  std::vector<std::thread> clients;
  for (int number = 1; number <= 8; ++number)
    clients.emplace_back([&, page = std::to_string(number % 5 + 1)] {
      RawClient client(server.root());
      for (int round = 0; round < 50; ++round) {
        client.send(requestFor("/1/node?venue=mall&per-page=1&page=" + page));
        if (client.read().body() == "[{\"id\":\"n" + page + "\"}]") ++right;
      }
    });
  for (std::thread& client : clients) client.join();
  EXPECT_EQ(right, 8 * 50);
}

TEST_F(VenueServerTest, SilentClientsAreSentAway) {
  options_.limits.requestTime = milliseconds(50);
  const VenueServer server(options_);
  for (const char* bytes : {"", "GET /1/venue HTTP/1.1\r\nX:",
                            "POST / HTTP/1.1\r\nHost: h\r\nContent-Length: 9\r\n\r\n"}) {
    RawClient client(server.root());
    client.send(bytes);
    EXPECT_THAT(client.readToEnd(), IsEmpty());
  }
  options_.limits = {};
  options_.limits.idleTime = milliseconds(50);
  const VenueServer other(options_);
  RawClient client(other.root());
  client.send(requestFor("/1/venue"));
  EXPECT_EQ(client.read().result_int(), 200U);
  EXPECT_THAT(client.readToEnd(), IsEmpty());
}

TEST_F(VenueServerTest, SlowReadersAreCutOff) {
  root_.write("mall/images/large.png", std::string(20'000'000, 'x'));
  options_.limits.rateWindow = milliseconds(80);
  options_.limits.lowestRate = 1'000'000'000;
  const VenueServer server(options_);
  RawClient client(server.root());
  client.send(requestFor("/1/files/mall/images/large.png"));
  std::size_t count = 0;
  while (client.readByte()) ++count;
  EXPECT_LT(count, 20'000'000U);
}

TEST_F(VenueServerTest, SilentClientsMakeRoomForNewOnes) {
  options_.limits.connections = 3;
  const VenueServer server(options_);
  std::vector<std::unique_ptr<RawClient>> silent;
  for (int number = 0; number < 20; ++number) {
    silent.push_back(std::make_unique<RawClient>(server.root()));
    silent.back()->send("GET /1/venue HTTP/1.1\r\n");
  }
  RawClient client(server.root());
  client.send(requestFor("/1/venue"));
  EXPECT_EQ(client.read().result_int(), 200U);
  for (std::size_t number = 0; number < 18; ++number)
    EXPECT_THAT(silent[number]->readToEnd(), IsEmpty());
}

TEST_F(VenueServerTest, ForwardedOriginsCountFromTrustedProxiesOnly) {
  const std::string request = requestFor("/1/venue", "X-Forwarded-Proto: https\r\n");
  for (const auto& [proxies, link] : std::vector<std::pair<std::vector<std::string>, const char*>>{
           {{}, "<http://here/"},
           {{"127.0.0.2", "::1"}, "<http://here/"},
           {{"10.0.0.1", "::ffff:127.0.0.1"}, "<https://here/"}}) {
    options_.trustedProxies = proxies;
    const VenueServer server(options_);
    RawClient client(server.root());
    client.send(request);
    EXPECT_THAT(std::string(client.read()["Link"]), StartsWith(link));
  }
}

TEST_F(VenueServerTest, StopsWithConnectionsOpen) {
  std::string large;
  large.resize(20'000'000, 'x');
  root_.write("mall/images/large.png", large);
  auto server = std::make_unique<VenueServer>(options_);
  RawClient idle(server->root());
  RawClient begun(server->root());
  begun.send("GET /1/ve");
  RawClient served(server->root());
  served.send(requestFor("/1/venue"));
  EXPECT_EQ(served.read().result_int(), 200U);
  RawClient full(server->root());  // its response does not fit into the socket's buffer
  full.send(requestFor("/1/files/mall/images/large.png"));
  server.reset();
  EXPECT_THAT(idle.readToEnd(), IsEmpty());
  EXPECT_THAT(begun.readToEnd(), IsEmpty());
  EXPECT_THAT(served.readToEnd(), IsEmpty());
  EXPECT_LT(full.readToEnd().size(), 20'000'000U);
}

TEST_F(VenueServerTest, AddressesAndPorts) {
  options_.address = "0.0.0.0";
  const VenueServer everywhere(options_);
  EXPECT_THAT(everywhere.root(), StartsWith("http://127.0.0.1:"));

  const std::string port = everywhere.root().substr(everywhere.root().rfind(':') + 1);
  options_.port = static_cast<std::uint16_t>(std::stoul(port));
  EXPECT_THROW(VenueServer{options_}, std::system_error);
  options_.port = 0;
  options_.address = "localhost";
  EXPECT_THAT(VenueServer(options_).root(), StartsWith("http://127.0.0.1:"));
  options_.address = "no address";
  EXPECT_THROW(VenueServer{options_}, std::system_error);
}

}  // namespace
}  // namespace orivanta::server
