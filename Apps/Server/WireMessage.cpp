#include "Apps/Server/WireMessage.hpp"

#include <fmt/chrono.h>

#include <boost/algorithm/string/predicate.hpp>
#include <boost/beast/http/error.hpp>
#include <ctime>
#include <utility>

namespace orivanta::server {

namespace http = boost::beast::http;

namespace {

template <class Name>
std::string joined(const http::fields& fields, Name name) {
  std::string value;
  const auto [begin, end] = fields.equal_range(name);
  for (auto line = begin; line != end; ++line) {
    if (line != begin) value += ',';
    value += line->value();
  }
  return value;
}

unsigned statusOf(const boost::beast::error_code& error) {
  if (error == http::error::header_limit || error == http::error::buffer_overflow) return 431;
  return error == http::error::body_limit ? 413 : 400;
}

}  // namespace

std::optional<Response> refusalOf(const http::request_header<>& header) {
  const std::size_t hosts = header.count(http::field::host);
  if (hosts > 1 || (hosts == 0 && header.version() >= 11))
    return errorResponse(400, "The request must have exactly one Host header.");
  if (header.count(http::field::transfer_encoding) == 0) return std::nullopt;
  if (header.version() < 11 || header.count(http::field::content_length) != 0)
    return errorResponse(400, "The length of the request body is ambiguous.");
  if (!boost::algorithm::iequals(joined(header, http::field::transfer_encoding), "chunked"))
    return errorResponse(501, "The only supported Transfer-Encoding is chunked.");
  return std::nullopt;
}

Response unreadableResponse(const boost::beast::error_code& error) {
  return errorResponse(statusOf(error), "The request cannot be read: " + error.message() + ".");
}

std::string originOf(const http::fields& header) { return joined(header, http::field::origin); }

Request requestFrom(const WireRequest& message, bool fromTrustedProxy) {
  Request request;
  request.method = message.method_string();
  request.target = message.target();
  request.host = joined(message, http::field::host);
  request.authorization = joined(message, http::field::authorization);
  request.accept = joined(message, http::field::accept);
  request.acceptEncoding = joined(message, http::field::accept_encoding);
  request.acceptLanguage = joined(message, http::field::accept_language);
  request.ifNoneMatch = joined(message, http::field::if_none_match);
  request.origin = originOf(message);
  request.requestedMethod = joined(message, http::field::access_control_request_method);
  request.requestedHeaders = joined(message, http::field::access_control_request_headers);
  request.requestedPrivateNetwork = joined(message, "Access-Control-Request-Private-Network");
  if (fromTrustedProxy) {
    request.forwardedProtocol = joined(message, "X-Forwarded-Proto");
    request.forwardedHost = joined(message, "X-Forwarded-Host");
  }
  return request;
}

WireResponse messageFrom(Response response, unsigned version, bool keepAlive) {
  WireResponse message(static_cast<http::status>(response.status), version);
  message.set(http::field::server, "orivanta");
  message.set(http::field::date,
              fmt::format("{:%a, %d %b %Y %H:%M:%S} GMT", fmt::gmtime(std::time(nullptr))));
  message.set("X-Content-Type-Options", "nosniff");
  for (const auto& [name, value] : response.headers) message.set(name, value);
  if (response.status != 304 && response.status != 204)
    message.content_length(response.contentLength());
  message.keep_alive(keepAlive);
  if (!response.bodyOmitted) message.body() = {std::move(response.text), std::move(response.file)};
  return message;
}

}  // namespace orivanta::server
