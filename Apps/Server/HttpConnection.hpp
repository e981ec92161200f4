// One client's connection: its requests, one after the other, and their answers.
#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "Apps/Server/Router.hpp"

namespace orivanta::server {

/// HTTP/1.1 with connections kept alive and requests in a row; HTTP/1.0 too. What is no HTTP, or
/// too large, is answered with an error and ends the connection. Lives until the connection ends or
/// the `io_context` goes; all that happens runs on the socket's executor, which must be a strand.
class HttpConnection : public std::enable_shared_from_this<HttpConnection> {
 public:
  static constexpr std::uint32_t largestHeader = 16U << 10U;
  static constexpr std::uint64_t largestBody = 64U << 10U;  // of requests; it is not used

  /// `closed` is called once, by the destructor. The router must outlive the connection.
  HttpConnection(boost::asio::ip::tcp::socket socket, Router& router,
                 std::chrono::milliseconds idleTimeout, std::function<void()> closed);
  ~HttpConnection();

  void start();

 private:
  template <class Body>
  struct Outgoing;

  void readRequest();
  void requestRead(const boost::beast::error_code& error);
  void answer();
  void answerUnreadable(const boost::beast::error_code& error);
  void send(Response response, unsigned version, bool keepAlive);
  template <class Body>
  void write(std::shared_ptr<Outgoing<Body>> outgoing);
  void finish();
  void discardRest();

  boost::beast::tcp_stream stream_;
  Router& router_;
  const std::chrono::milliseconds idleTimeout_;
  const std::function<void()> closed_;
  boost::beast::flat_buffer buffer_;
  std::optional<boost::beast::http::request_parser<boost::beast::http::string_body>> parser_;
};

}  // namespace orivanta::server
