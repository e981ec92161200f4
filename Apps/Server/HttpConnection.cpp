#include "Apps/Server/HttpConnection.hpp"

#include <fmt/chrono.h>

#include <algorithm>
#include <array>
#include <boost/asio/dispatch.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/file_body.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/serializer.hpp>
#include <boost/beast/http/span_body.hpp>
#include <boost/beast/http/write.hpp>
#include <ctime>
#include <exception>
#include <utility>

namespace orivanta::server {

namespace beast = boost::beast;
namespace http = boost::beast::http;

namespace {

std::string joined(const http::fields& fields, http::field name) {
  std::string value;
  const auto [begin, end] = fields.equal_range(name);
  for (auto line = begin; line != end; ++line) {
    if (line != begin) value += ',';
    value += line->value();
  }
  return value;
}

Request requestFrom(const http::request<http::string_body>& message) {
  Request request;
  request.method = message.method_string();
  request.target = message.target();
  request.host = joined(message, http::field::host);
  request.authorization = joined(message, http::field::authorization);
  request.acceptEncoding = joined(message, http::field::accept_encoding);
  request.acceptLanguage = joined(message, http::field::accept_language);
  request.ifNoneMatch = joined(message, http::field::if_none_match);
  return request;
}

template <class Body>
http::response<Body> messageFrom(const Response& response, unsigned version, bool keepAlive) {
  http::response<Body> message(static_cast<http::status>(response.status), version);
  message.set(http::field::server, "orivanta");
  message.set(http::field::date,
              fmt::format("{:%a, %d %b %Y %H:%M:%S} GMT", fmt::gmtime(std::time(nullptr))));
  message.set("X-Content-Type-Options", "nosniff");
  for (const auto& [name, value] : response.headers) message.set(name, value);
  if (response.status != 304) message.content_length(response.contentLength());
  message.keep_alive(keepAlive);
  return message;
}

unsigned statusOf(const beast::error_code& error) {
  if (error == http::error::header_limit || error == http::error::buffer_overflow) return 431;
  return error == http::error::body_limit ? 413 : 400;
}

}  // namespace

// A message on its way, with what its body refers to.
template <class Body>
struct HttpConnection::Outgoing {
  explicit Outgoing(http::response<Body> response)
      : message(std::move(response)), serializer(message) {}

  http::response<Body> message;
  http::response_serializer<Body> serializer;
  std::shared_ptr<const std::string> text;
};

HttpConnection::HttpConnection(boost::asio::ip::tcp::socket socket, Router& router,
                               std::chrono::milliseconds idleTimeout, std::function<void()> closed)
    : stream_(std::move(socket)),
      router_(router),
      idleTimeout_(idleTimeout),
      closed_(std::move(closed)) {}

HttpConnection::~HttpConnection() { closed_(); }

void HttpConnection::start() {
  boost::asio::dispatch(stream_.get_executor(),
                        [self = shared_from_this()] { self->readRequest(); });
}

void HttpConnection::readRequest() {
  parser_.emplace();
  parser_->header_limit(largestHeader);
  parser_->body_limit(largestBody);
  stream_.expires_after(idleTimeout_);  // for the whole request: a trickle of bytes wins no time
  http::async_read(stream_, buffer_, *parser_,
                   [self = shared_from_this()](const beast::error_code& error, std::size_t) {
                     self->requestRead(error);
                   });
}

void HttpConnection::requestRead(const beast::error_code& error) {
  if (!error) return answer();
  if (error == http::error::end_of_stream || error == http::error::partial_message) return finish();
  if (error.category() == make_error_code(http::error::end_of_stream).category())
    answerUnreadable(error);
}

void HttpConnection::answer() {
  const auto& message = parser_->get();
  Response response;
  try {
    response = router_.respond(requestFrom(message));
  } catch (const std::exception& exception) {
    response = errorResponse(500, exception.what());
  }
  send(std::move(response), message.version(), message.keep_alive());
}

void HttpConnection::answerUnreadable(const beast::error_code& error) {
  send(errorResponse(statusOf(error), "The request cannot be read: " + error.message() + "."), 11,
       false);
}

void HttpConnection::send(Response response, unsigned version, bool keepAlive) {
  if (response.file && !response.bodyOmitted) {
    auto message = messageFrom<http::file_body>(response, version, keepAlive);
    beast::file_posix file;
    file.native_handle(response.file->release());
    beast::error_code error;
    message.body().reset(std::move(file), error);
    if (!error) write(std::make_shared<Outgoing<http::file_body>>(std::move(message)));
  } else if (response.text && !response.bodyOmitted) {
    auto message = messageFrom<http::span_body<const char>>(response, version, keepAlive);
    message.body() = {response.text->data(), response.text->size()};
    auto outgoing = std::make_shared<Outgoing<http::span_body<const char>>>(std::move(message));
    outgoing->text = std::move(response.text);
    write(std::move(outgoing));
  } else {
    write(std::make_shared<Outgoing<http::empty_body>>(
        messageFrom<http::empty_body>(response, version, keepAlive)));
  }
}

// Writes what the socket takes, again and again: the time limit is for each step, so that a large
// file may take long as long as something moves.
template <class Body>
void HttpConnection::write(std::shared_ptr<Outgoing<Body>> outgoing) {
  stream_.expires_after(idleTimeout_);
  auto& serializer = outgoing->serializer;
  http::async_write_some(stream_, serializer,
                         [self = shared_from_this(), outgoing = std::move(outgoing)](
                             const beast::error_code& error, std::size_t) mutable {
                           if (error) return;
                           if (!outgoing->serializer.is_done())
                             return self->write(std::move(outgoing));
                           outgoing->message.keep_alive() ? self->readRequest() : self->finish();
                         });
}

// Closing while the client still sends would reset the connection and could take the answer with
// it, so what comes is read for a moment.
void HttpConnection::finish() {
  beast::error_code ignored;
  stream_.socket().shutdown(boost::asio::socket_base::shutdown_send, ignored);
  buffer_.clear();
  stream_.expires_after(std::min<std::chrono::milliseconds>(idleTimeout_, std::chrono::seconds(2)));
  discardRest();
}

void HttpConnection::discardRest() {
  stream_.async_read_some(buffer_.prepare(4096),
                          [self = shared_from_this()](const beast::error_code& error, std::size_t) {
                            if (!error) self->discardRest();
                          });
}

}  // namespace orivanta::server
