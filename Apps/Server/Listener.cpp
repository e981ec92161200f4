#include "Apps/Server/Listener.hpp"

#include <fmt/format.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <algorithm>
#include <boost/asio/post.hpp>
#include <boost/asio/strand.hpp>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>

#include "Apps/Server/HttpConnection.hpp"

namespace orivanta::server {

namespace asio = boost::asio;
using asio::ip::tcp;

namespace {

asio::ip::address addressOf(const std::string& text) {
  return text == "localhost" ? asio::ip::address_v4::loopback() : asio::ip::make_address(text);
}

// Returns the IPv4 address that an IPv6 address maps, or else the address itself.
asio::ip::address plainAddress(const asio::ip::address& address) {
  if (!address.is_v6() || !address.to_v6().is_v4_mapped()) return address;
  return asio::ip::make_address_v4(asio::ip::v4_mapped, address.to_v6());
}

asio::ip::address proxyAddress(const std::string& text) {
  boost::system::error_code error;
  const auto address = asio::ip::make_address(text, error);
  if (error) throw std::invalid_argument(fmt::format("\"{}\" is not an IP address", text));
  return plainAddress(address);
}

// Sends responses without delay, and limits the unsent data in the socket's buffer: otherwise it
// would grow to megabytes for every client that does not read.
void tune(tcp::socket& socket) {
  constexpr int mostUnsent = 128 << 10;
  boost::system::error_code ignored;
  socket.set_option(tcp::no_delay(true), ignored);
  ::setsockopt(socket.native_handle(), IPPROTO_TCP, TCP_NOTSENT_LOWAT, &mostUnsent,
               sizeof mostUnsent);
}

}  // namespace

Listener::Listener(asio::io_context& context, Options options)
    : context_(context),
      limits_(options.limits),
      crossOrigin_(std::move(options.crossOrigin)),
      acceptor_(asio::make_strand(context)),
      retry_(acceptor_.get_executor()) {
  for (const std::string& proxy : options.trustedProxies)
    trustedProxies_.push_back(proxyAddress(proxy));
  try {
    const tcp::endpoint endpoint(addressOf(options.address), options.port);
    acceptor_.open(endpoint.protocol());
    acceptor_.set_option(asio::socket_base::reuse_address(true));
    acceptor_.bind(endpoint);
    acceptor_.listen();
  } catch (const boost::system::system_error& error) {
    throw std::system_error(
        error.code(), fmt::format("cannot listen on {} port {}", options.address, options.port));
  }
}

void Listener::start(RequestHandler handler) {
  shared_ = std::make_shared<ServerContext>(std::move(handler), limits_, crossOrigin_);
  asio::post(acceptor_.get_executor(),
             [self = shared_from_this()] { self->attempt(&Listener::accept); });
}

// An exception that left this function would stop the server from accepting connections. The thread
// itself sleeps, because a timer needs memory.
void Listener::attempt(Step step) {
  while (!context_.stopped()) {
    try {
      return (this->*step)();
    } catch (...) {
      step = waiting_ ? &Listener::admitWaiting : &Listener::acceptLater;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }
}

void Listener::accept() {
  acceptor_.async_accept(
      asio::make_strand(context_),
      [self = shared_from_this()](const boost::system::error_code& error, tcp::socket socket) {
        if (error) return self->attempt(&Listener::acceptLater);
        self->waiting_ = std::move(socket);
        self->attempt(&Listener::admitWaiting);
      });
}

void Listener::admitWaiting() {
  if (!shared_->table.makeRoom(std::chrono::steady_clock::now()))
    return callLater(std::chrono::milliseconds(10), &Listener::admitWaiting);
  tcp::socket socket = *std::exchange(waiting_, std::nullopt);
  tune(socket);
  const bool trusted = isTrusted(socket);
  std::make_shared<HttpConnection>(std::move(socket), shared_, trusted)->start();
  accept();
}

// The system is out of descriptors or memory, for example. Retrying at once would not help, so a
// connection is closed first.
void Listener::acceptLater() {
  shared_->table.closeOne(std::chrono::steady_clock::now());
  callLater(std::chrono::milliseconds(100), &Listener::accept);
}

void Listener::callLater(std::chrono::milliseconds delay, Step step) {
  retry_.expires_after(delay);
  retry_.async_wait([self = shared_from_this(), step](const boost::system::error_code& error) {
    if (!error) self->attempt(step);
  });
}

bool Listener::isTrusted(const tcp::socket& socket) const {
  boost::system::error_code error;
  const auto peer = plainAddress(socket.remote_endpoint(error).address());
  return !error &&
         std::find(trustedProxies_.begin(), trustedProxies_.end(), peer) != trustedProxies_.end();
}

}  // namespace orivanta::server
