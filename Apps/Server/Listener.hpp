// Accepts connections and makes room for new ones.
#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Server/ConnectionLimits.hpp"
#include "Apps/Server/CrossOrigin.hpp"
#include "Apps/Server/Message.hpp"

namespace orivanta::server {

struct ServerContext;

class Listener : public std::enable_shared_from_this<Listener> {
 public:
  struct Options {
    std::string address;
    std::uint16_t port = 0;
    ConnectionLimits limits{};
    std::vector<std::string> trustedProxies{};  ///< IP addresses
    CrossOrigin crossOrigin{};
  };

  /// Listens, but does not accept connections yet. Throws `std::system_error` if the address is
  /// invalid or the port is in use, and `std::invalid_argument` if the address of a proxy is
  /// invalid.
  Listener(boost::asio::io_context& context, Options options);

  boost::asio::ip::tcp::endpoint endpoint() const { return acceptor_.local_endpoint(); }

  /// Accepts clients as long as the context runs.
  void start(RequestHandler handler);

 private:
  using Step = void (Listener::*)();

  void attempt(Step step);
  void accept();
  void admitWaiting();
  void acceptLater();
  void callLater(std::chrono::milliseconds delay, Step step);
  bool isTrusted(const boost::asio::ip::tcp::socket& socket) const;

  boost::asio::io_context& context_;
  const ConnectionLimits limits_;
  const CrossOrigin crossOrigin_;
  std::vector<boost::asio::ip::address> trustedProxies_;
  boost::asio::ip::tcp::acceptor acceptor_;  // on a strand, like all members below
  boost::asio::steady_timer retry_;
  std::shared_ptr<ServerContext> shared_;
  std::optional<boost::asio::ip::tcp::socket> waiting_;  // waits for room
};

}  // namespace orivanta::server
