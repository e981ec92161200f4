#include "Benchmarks/LatencyRelay.hpp"

#include <array>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/write.hpp>
#include <thread>
#include <utility>

namespace orivanta::benchmarks {

namespace asio = boost::asio;
using asio::ip::tcp;
using ErrorCode = boost::system::error_code;

namespace {

// Copies one direction of a connection: reads, waits, writes, and repeats.
class Pipe : public std::enable_shared_from_this<Pipe> {
 public:
  Pipe(std::shared_ptr<tcp::socket> from, std::shared_ptr<tcp::socket> to,
       std::chrono::milliseconds latency)
      : from_(std::move(from)),
        to_(std::move(to)),
        latency_(latency),
        timer_(from_->get_executor()) {}

  void pump() {
    from_->async_read_some(asio::buffer(bytes_),
                           [self = shared_from_this()](ErrorCode error, std::size_t count) {
                             if (error) return self->stop();
                             self->delay(count);
                           });
  }

 private:
  void delay(std::size_t count) {
    if (latency_.count() == 0) return pass(count);
    timer_.expires_after(latency_);
    timer_.async_wait([self = shared_from_this(), count](ErrorCode) { self->pass(count); });
  }

  void pass(std::size_t count) {
    asio::async_write(*to_, asio::buffer(bytes_.data(), count),
                      [self = shared_from_this()](ErrorCode error, std::size_t) {
                        if (error) return self->stop();
                        self->pump();
                      });
  }

  void stop() {
    ErrorCode ignored;
    to_->shutdown(tcp::socket::shutdown_send, ignored);
  }

  std::shared_ptr<tcp::socket> from_;
  std::shared_ptr<tcp::socket> to_;
  std::chrono::milliseconds latency_;
  asio::steady_timer timer_;
  std::array<char, 65536> bytes_{};
};

}  // namespace

class LatencyRelay::Implementation {
 public:
  Implementation(std::uint16_t serverPort, std::chrono::milliseconds latency)
      : server_(asio::ip::address_v4::loopback(), serverPort),
        latency_(latency),
        acceptor_(context_, {asio::ip::address_v4::loopback(), 0}) {
    accept();
    thread_ = std::thread([this] { context_.run(); });
  }

  ~Implementation() {
    context_.stop();
    thread_.join();
  }
  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

  std::uint16_t port() const { return acceptor_.local_endpoint().port(); }

 private:
  void accept() {
    acceptor_.async_accept([this](ErrorCode error, tcp::socket socket) {
      if (!error) connect(std::make_shared<tcp::socket>(std::move(socket)));
      accept();
    });
  }

  void connect(const std::shared_ptr<tcp::socket>& client) {
    auto server = std::make_shared<tcp::socket>(context_);
    server->async_connect(server_, [this, client, server](ErrorCode error) {
      if (error) return;
      client->set_option(tcp::no_delay(true));
      server->set_option(tcp::no_delay(true));
      std::make_shared<Pipe>(client, server, latency_)->pump();
      std::make_shared<Pipe>(server, client, std::chrono::milliseconds(0))->pump();
    });
  }

  asio::io_context context_;
  tcp::endpoint server_;
  std::chrono::milliseconds latency_;
  tcp::acceptor acceptor_;
  std::thread thread_;
};

LatencyRelay::LatencyRelay(std::uint16_t serverPort, std::chrono::milliseconds latency)
    : implementation_(std::make_unique<Implementation>(serverPort, latency)) {}

LatencyRelay::~LatencyRelay() = default;

std::uint16_t LatencyRelay::port() const { return implementation_->port(); }

}  // namespace orivanta::benchmarks
