#include "Apps/Server/Listener.hpp"

#include <fmt/format.h>

#include <boost/asio/post.hpp>
#include <boost/asio/strand.hpp>
#include <system_error>
#include <utility>

#include "Apps/Server/HttpConnection.hpp"

namespace orivanta::server {

namespace asio = boost::asio;
using asio::ip::tcp;

namespace {

asio::ip::address addressOf(const std::string& text) {
  return text == "localhost" ? asio::ip::address_v4::loopback() : asio::ip::make_address(text);
}

}  // namespace

Listener::Listener(asio::io_context& context, Options options)
    : context_(context),
      options_(std::move(options)),
      acceptor_(asio::make_strand(context)),
      retry_(acceptor_.get_executor()) {
  try {
    const tcp::endpoint endpoint(addressOf(options_.address), options_.port);
    acceptor_.open(endpoint.protocol());
    acceptor_.set_option(asio::socket_base::reuse_address(true));
    acceptor_.bind(endpoint);
    acceptor_.listen();
  } catch (const boost::system::system_error& error) {
    throw std::system_error(
        error.code(), fmt::format("cannot listen on {} port {}", options_.address, options_.port));
  }
}

void Listener::start(Router& router) {
  router_ = &router;
  asio::post(acceptor_.get_executor(), [self = shared_from_this()] { self->accept(); });
}

void Listener::accept() {
  acceptor_.async_accept(
      asio::make_strand(context_),
      [self = shared_from_this()](const boost::system::error_code& error, tcp::socket socket) {
        error ? self->acceptLater() : self->accepted(std::move(socket));
      });
}

void Listener::accepted(tcp::socket socket) {
  boost::system::error_code ignored;
  socket.set_option(tcp::no_delay(true), ignored);
  ++connections_;
  const auto closed = [weak = weak_from_this()] {
    const auto self = weak.lock();
    if (self && !self->stopping_)
      asio::post(self->acceptor_.get_executor(), [self] { self->connectionClosed(); });
  };
  std::make_shared<HttpConnection>(std::move(socket), *router_, options_.idleTimeout, closed)
      ->start();
  if (connections_ < options_.maximumConnections) accept();
}

void Listener::connectionClosed() {
  if (connections_-- == options_.maximumConnections) accept();
}

// Out of descriptors, say: nothing is won by asking again at once.
void Listener::acceptLater() {
  retry_.expires_after(std::chrono::milliseconds(100));
  retry_.async_wait([self = shared_from_this()](const boost::system::error_code& error) {
    if (!error) self->accept();
  });
}

}  // namespace orivanta::server
