// Accepts connections and keeps count of them.
#pragma once

#include <atomic>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "Apps/Server/Router.hpp"

namespace orivanta::server {

/// At most `maximumConnections` are open at once; further clients wait in the system's queue.
class Listener : public std::enable_shared_from_this<Listener> {
 public:
  struct Options {
    std::string address;
    std::uint16_t port;
    std::chrono::milliseconds idleTimeout;
    std::size_t maximumConnections;
  };

  /// Listens, but accepts nobody yet. Throws `std::system_error` when the address is none or the
  /// port is taken.
  Listener(boost::asio::io_context& context, Options options);

  boost::asio::ip::tcp::endpoint endpoint() const { return acceptor_.local_endpoint(); }

  /// Accepts clients for as long as the context runs. The router must outlive the context.
  void start(Router& router);

  /// Before the context goes: connections that end from now on make no room for others.
  void stop() { stopping_ = true; }

 private:
  void accept();
  void accepted(boost::asio::ip::tcp::socket socket);
  void connectionClosed();
  void acceptLater();

  boost::asio::io_context& context_;
  const Options options_;
  boost::asio::ip::tcp::acceptor acceptor_;  // on a strand, as all that follows
  boost::asio::steady_timer retry_;
  Router* router_ = nullptr;
  std::size_t connections_ = 0;
  std::atomic<bool> stopping_ = false;
};

}  // namespace orivanta::server
