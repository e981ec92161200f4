// A client's connection: reads its requests one after the other and sends the responses.
#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/parser.hpp>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

#include "Apps/Server/ConnectionLimits.hpp"
#include "Apps/Server/ConnectionTable.hpp"
#include "Apps/Server/CrossOrigin.hpp"
#include "Apps/Server/WireMessage.hpp"

namespace orivanta::server {

/// Shared by all connections of a server.
struct ServerContext {
  ServerContext(RequestHandler answer, const ConnectionLimits& bounds, CrossOrigin allowed = {});

  const RequestHandler handler;
  const ConnectionLimits limits;
  const CrossOrigin crossOrigin;
  ConnectionTable table;
};

/// HTTP/1.1 with keep-alive and pipelined requests, and HTTP/1.0. Malformed, oversized or ambiguous
/// requests are answered with an error, and the connection is closed. The object lives until the
/// connection ends or the `io_context` is destroyed; everything runs on the socket's executor,
/// which must be a strand. An exception that leaves one of its handlers ends the connection.
class HttpConnection : public std::enable_shared_from_this<HttpConnection> {
 public:
  HttpConnection(boost::asio::ip::tcp::socket socket, std::shared_ptr<ServerContext> context,
                 bool fromTrustedProxy);
  ~HttpConnection();
  HttpConnection(const HttpConnection&) = delete;
  HttpConnection& operator=(const HttpConnection&) = delete;

  /// Call once.
  void start();

 private:
  struct Outgoing;
  using Error = boost::beast::error_code;

  bool enter(ConnectionTable::Phase phase);
  void closeForAnother();
  void awaitRequest();
  void readHeader();
  void headerRead(const Error& error);
  void requestUnread(const Error& error);
  void answer();
  void answerLater();
  void answerDeferred(Response response);
  void respond(Response response);
  void refuse(Response response);
  std::shared_ptr<Outgoing> outgoing(Response response, unsigned version, bool keepAlive) const;
  void send(std::shared_ptr<Outgoing> outgoing);
  void write(std::shared_ptr<Outgoing> outgoing);
  void recordProgress();
  void startRateWindow();
  void watchRate();
  void judgeRate();
  std::uint64_t takenBytes();
  void cutOff();
  void finish();
  void discardRest();

  boost::beast::tcp_stream stream_;
  const std::shared_ptr<ServerContext> context_;
  const bool fromTrustedProxy_;
  std::optional<ConnectionTable::Place> place_;
  ConnectionTable::Phase phase_ = ConnectionTable::Phase::idle;
  boost::beast::flat_buffer buffer_;
  std::optional<boost::beast::http::request_parser<boost::beast::http::string_body>> parser_;

  unsigned attempts_ = 0;  // attempts to answer the request

  // Limits the time in which a response is computed on another thread, and keeps the connection
  // alive during that time. Null if no response is awaited.
  std::shared_ptr<boost::asio::steady_timer> computing_;

  boost::asio::steady_timer rateTimer_;
  bool watchesRate_ = false;
  unsigned looksInWindow_ = 0;
  std::uint64_t writtenBytes_ = 0;
  std::uint64_t takenBefore_ = 0;  // value of `takenBytes` at the last check
  std::uint64_t takenAtWindowStart_ = 0;
};

}  // namespace orivanta::server
