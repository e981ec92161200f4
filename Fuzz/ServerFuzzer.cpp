// Sends the input to the server on a connection. Every response must be a complete HTTP message and
// must not reveal files outside of the package and the web page, nor forge headers. A server with
// credentials must reveal nothing but the web page.
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/strand.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "Apps/Server/HttpConnection.hpp"
#include "Apps/Server/Router.hpp"
#include "Apps/Server/VenuePackage.hpp"
#include "Fuzz/Fuzzer.hpp"
#include "Source/HttpLink.hpp"
#include "Tests/Apps/Server/SmallPackage.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::server {
namespace {

namespace asio = boost::asio;
namespace http = boost::beast::http;
using Answer = http::response<http::string_body>;

constexpr std::string_view secret = "what nobody may read";

// A package and a web page with symbolic links to a file outside of them.
const test::TemporaryFolder& folder() {
  static const test::TemporaryFolder made;
  static const bool filled = [] {
    made.write("outside.txt", secret);
    test::writeSmallPackage(made, "mall", "mall");
    made.write("mall/.hidden/inside.txt", secret);
    made.write("page/index.html", "a page");
    for (const char* parent : {"mall", "page"})
      std::filesystem::create_symlink("../outside.txt", made.path() / parent / "link.txt");
    return true;
  }();
  ORIVANTA_REQUIRE(filled);
  return made;
}

std::shared_ptr<ServerContext> makeServer(std::optional<Credentials> credentials) {
  Router::Options options;
  options.origin = "http://127.0.0.1:80";
  options.pageSize = 2;
  if (credentials) options.web = folder().path() / "page";
  options.credentials = std::move(credentials);
  const auto router =
      std::make_shared<Router>(readPackages({folder().path() / "mall"}), std::move(options));
  const auto answer = [router](const Request& request) { return router->respond(request); };
  return std::make_shared<ServerContext>(answer, ConnectionLimits(), CrossOrigin({"https://h"}));
}

// The bytes that the server sends until it closes the connection. The client sends all its bytes
// first.
std::string answersTo(std::string_view bytes, const std::shared_ptr<ServerContext>& server) {
  std::array<int, 2> ends{};
  ORIVANTA_REQUIRE(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) == 0);
  const int client = ends[1];
  ORIVANTA_REQUIRE(::fcntl(client, F_SETFL, O_NONBLOCK) == 0);
  asio::io_context context;
  asio::ip::tcp::socket socket(asio::make_strand(context));
  socket.assign(asio::ip::tcp::v4(), ends[0]);
  std::make_shared<HttpConnection>(std::move(socket), server, /*fromTrustedProxy=*/true)->start();
  std::string answers;
  do {
    if (const auto sent = ::send(client, bytes.data(), bytes.size(), MSG_NOSIGNAL); sent > 0)
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    if (bytes.empty()) ::shutdown(client, SHUT_WR);
    context.run_one_for(std::chrono::seconds(1));
    std::array<char, 65536> part;
    for (;;) {
      const auto count = ::recv(client, part.data(), part.size(), 0);
      if (count <= 0) break;
      answers.append(part.data(), static_cast<std::size_t>(count));
    }
  } while (!context.stopped());
  ::close(client);
  return answers;
}

// Removes the first response from the front and returns it.
Answer takeAnswer(std::string_view& answers) {
  http::response_parser<http::string_body> parser;
  parser.header_limit(1U << 20U);
  parser.eager(true);
  boost::beast::error_code error;
  const std::size_t size = parser.put(asio::buffer(answers.data(), answers.size()), error);
  ORIVANTA_REQUIRE(!error && parser.is_done());
  answers.remove_prefix(size);
  return parser.release();
}

void checkLinks(const Answer& answer) {
  for (const Link& link : parseLinkHeader(std::string(answer[http::field::link]))) {
    if (link.uri.empty()) continue;
    const auto url = foundation::Url::parse(link.uri);
    ORIVANTA_REQUIRE(url && url->isAbsolute() && link.relationType());
  }
}

void checkAnswers(std::string_view answers, const std::set<unsigned>& allowed) {
  ORIVANTA_REQUIRE(answers.find(secret) == std::string_view::npos);
  while (!answers.empty()) {
    const Answer answer = takeAnswer(answers);
    const bool isFromPage = answer.count("Content-Security-Policy") != 0;
    ORIVANTA_REQUIRE(isFromPage || allowed.contains(answer.result_int()));
    const auto origin = answer[http::field::access_control_allow_origin];
    ORIVANTA_REQUIRE(origin.empty() || origin == "https://h");
    checkLinks(answer);
  }
}

void serveBytes(std::string_view bytes) {
  static const auto open = makeServer(std::nullopt);
  static const auto locked = makeServer(Credentials("somebody", "a password that is not guessed"));
  if (bytes.find("HEAD") != std::string_view::npos) {
    answersTo(bytes, open);  // the responses cannot be separated without the requests
    return;
  }
  checkAnswers(answersTo(bytes, open), {200, 204, 304, 400, 404, 405, 413, 431, 501});
  checkAnswers(answersTo(bytes, locked), {204, 400, 401, 413, 431, 501});
}

}  // namespace
}  // namespace orivanta::server

ORIVANTA_FUZZER(Server, orivanta::server::serveBytes)
