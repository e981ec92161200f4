#include "Apps/Server/VenueServer.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/asio/io_context.hpp>
#include <stdexcept>
#include <thread>
#include <utility>

#include "Apps/Server/Listener.hpp"
#include "Apps/Server/Router.hpp"

namespace orivanta::server {

namespace {

// The URL at which a client on this machine reaches the server; a server that listens on all
// addresses is reached through loopback.
std::string originOf(const boost::asio::ip::tcp::endpoint& endpoint) {
  const auto address = endpoint.address();
  if (address.is_v4())
    return fmt::format("http://{}:{}", address.is_unspecified() ? "127.0.0.1" : address.to_string(),
                       endpoint.port());
  return fmt::format("http://[{}]:{}", address.is_unspecified() ? "::1" : address.to_string(),
                     endpoint.port());
}

std::optional<Credentials> credentialsOf(const ServerOptions& options) {
  if (options.username.has_value() != options.password.has_value())
    throw std::invalid_argument("user name and password must be set together");
  if (!options.username) return std::nullopt;
  return Credentials(*options.username, *options.password);
}

const ServerOptions& checked(const ServerOptions& options) {
  if (options.pageSize == 0) throw std::invalid_argument("the page size must be at least 1");
  if (options.limits.connections == 0)
    throw std::invalid_argument("at least one connection must be allowed");
  if (options.origin && !isOrigin(*options.origin))
    throw std::invalid_argument(fmt::format(
        "the origin \"{}\" is not of the form http://HOST or https://HOST", *options.origin));
  return options;
}

// An exception from a handler ends only the handler's connection.
void runToTheEnd(boost::asio::io_context& context) {
  for (;;) {
    try {
      context.run();
      return;
    } catch (...) {
      continue;
    }
  }
}

// Runs the context until the object is destroyed.
class Threads {
 public:
  explicit Threads(boost::asio::io_context& context) : context_(context) {}
  ~Threads() {
    context_.stop();
    for (std::thread& thread : threads_) thread.join();
  }
  Threads(const Threads&) = delete;
  Threads& operator=(const Threads&) = delete;

  void add() {
    threads_.emplace_back([this] { runToTheEnd(context_); });
  }

 private:
  boost::asio::io_context& context_;
  std::vector<std::thread> threads_;
};

}  // namespace

class VenueServer::Implementation {
 public:
  explicit Implementation(const ServerOptions& options) {
    std::optional<Credentials> credentials = credentialsOf(options);
    std::vector<VenuePackage> packages = readPackages(options.folders);
    listener_ = std::make_shared<Listener>(
        context_, Listener::Options{options.address, options.port, options.limits,
                                    options.trustedProxies, CrossOrigin(options.allowedOrigins)});
    origin_ = originOf(listener_->endpoint());
    router_.emplace(
        std::move(packages),
        Router::Options{origin_, options.pageSize, std::move(credentials), options.origin,
                        options.packageCheckInterval, options.report, options.web});
    listener_->start([this](const Request& request) { return router_->respond(request); });
    const unsigned threadCount = std::clamp(std::thread::hardware_concurrency(), 2U, 4U);
    for (unsigned count = 0; count < threadCount; ++count) threads_.add();
  }

  // Deferred responses refer to connections, so they end before the context is destroyed.
  ~Implementation() {
    if (router_) router_->stop();
  }
  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

  std::string root() const { return origin_ + "/1/"; }

 private:
  std::string origin_;
  std::optional<Router> router_;
  boost::asio::io_context context_;  // destroyed before the router, which its connections use
  std::shared_ptr<Listener> listener_;
  Threads threads_{context_};  // joined first, also when a thread cannot be started
};

VenueServer::VenueServer(const ServerOptions& options)
    : implementation_(std::make_unique<Implementation>(checked(options))) {}

VenueServer::~VenueServer() = default;

std::string VenueServer::root() const { return implementation_->root(); }

}  // namespace orivanta::server
