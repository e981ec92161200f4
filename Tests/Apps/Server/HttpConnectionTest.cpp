#include "Apps/Server/HttpConnection.hpp"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <boost/asio/io_context.hpp>
#include <filesystem>
#include <future>
#include <stdexcept>
#include <thread>

#include "Apps/Server/Listener.hpp"
#include "Tests/Apps/Server/RawClient.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::server {
namespace {

using test::RawClient;

// Passes connections to a handler that the test provides.
class HandlerServer {
 public:
  explicit HandlerServer(RequestHandler handler, const ConnectionLimits& limits = {})
      : listener_(
            std::make_shared<Listener>(context_, Listener::Options{"127.0.0.1", 0, limits, {}})) {
    listener_->start(std::move(handler));
    for (std::thread& thread : threads_) thread = std::thread([this] { context_.run(); });
  }
  ~HandlerServer() {
    context_.stop();
    for (std::thread& thread : threads_) thread.join();
  }
  HandlerServer(const HandlerServer&) = delete;
  HandlerServer& operator=(const HandlerServer&) = delete;

  std::string root() const { return fmt::format("http://h:{}/", listener_->endpoint().port()); }

 private:
  boost::asio::io_context context_;
  std::shared_ptr<Listener> listener_;
  std::array<std::thread, 2> threads_;
};

std::string requestFor(const std::string& target) {
  return "GET " + target + " HTTP/1.1\r\nHost: h\r\n\r\n";
}

Response textResponse(const std::string& text) {
  Response response;
  response.text = std::make_shared<const std::string>(text);
  return response;
}

TEST(HttpConnection, HandlersThatFailAreAnsweredAndEndTheirConnectionOnly) {
  const HandlerServer server([](const Request& request) {
    if (request.target == "/throw") throw std::runtime_error("secret");
    if (request.target == "/odd") throw 5;
    Response response = textResponse("fine");
    if (request.target == "/long") response.headers.emplace_back("Link", std::string(70'000, 'x'));
    return response;
  });
  RawClient other(server.root());
  for (const char* target : {"/throw", "/odd", "/long"}) {
    RawClient client(server.root());
    client.send(requestFor(target));
    const auto answer = client.read();
    EXPECT_EQ(answer.result_int(), 500U) << target;
    EXPECT_THAT(answer.body(), testing::Not(testing::HasSubstr("secret")));
    EXPECT_EQ(client.readToEnd(), "");
    other.send(requestFor("/"));
    EXPECT_EQ(other.read().body(), "fine");
  }
}

TEST(HttpConnection, FilesThatChangeWhileTheyAreSent) {
  const test::TemporaryFolder folder;
  const std::string contents(100'000, 'a');
  const auto path = folder.write("file.png", contents);
  const auto root = std::filesystem::canonical(folder.path());
  const HandlerServer server([&](const Request& request) {
    std::filesystem::resize_file(path, contents.size());
    std::error_code shortage;
    Response response;
    response.file = PackageFile::open(root, {"file.png"}, shortage);
    std::filesystem::resize_file(path, request.target == "/grows" ? 150'000 : 50'000);
    return response;
  });
  RawClient client(server.root());
  client.send(requestFor("/grows") + requestFor("/grows"));
  for (int answer = 0; answer < 2; ++answer) EXPECT_EQ(client.read().body().size(), 100'000U);
  client.send(requestFor("/shrinks") + requestFor("/grows"));
  const std::string rest = client.readToEnd();
  EXPECT_EQ(rest.substr(rest.find("\r\n\r\n") + 4).size(), 50'000U);
}

TEST(HttpConnection, NewClientsWaitWhileAllOthersAreBusy) {
  ConnectionLimits limits;
  limits.connections = 1;
  std::promise<void> begun;
  std::promise<void> go;
  const HandlerServer server(
      [&](const Request& request) {
        if (request.target == "/slow") {
          begun.set_value();
          go.get_future().wait();
        }
        return textResponse(request.target);
      },
      limits);
  RawClient first(server.root());
  first.send(requestFor("/slow"));
  begun.get_future().wait();
  RawClient second(server.root());
  second.send(requestFor("/second"));
  go.set_value();
  EXPECT_EQ(first.read().body(), "/slow");
  EXPECT_EQ(second.read().body(), "/second");
}

TEST(HttpConnection, SlowClientsGiveBackWhatAnotherLacks) {
  ConnectionLimits limits;
  limits.rateWindow = std::chrono::milliseconds(1);
  limits.lowestRate = 0;
  std::weak_ptr<const std::string> held;
  const HandlerServer server(
      [&](const Request& request) {
        if (request.target != "/large")
          return held.expired() ? textResponse("fine") : unavailableResponse("");
        Response response = textResponse(std::string(20'000'000, 'x'));
        held = response.text;
        return response;
      },
      limits);
  RawClient slow(server.root());
  slow.send(requestFor("/large"));
  EXPECT_TRUE(slow.readByte());
  RawClient other(server.root());
  other.send(requestFor("/"));
  EXPECT_EQ(other.read().body(), "fine");
}

}  // namespace
}  // namespace orivanta::server
