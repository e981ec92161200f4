// Between the messages of HTTP as Boost.Beast reads and writes them and those of the router.
#pragma once

#include <boost/beast/core/error.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/string_body.hpp>
#include <optional>

#include "Apps/Server/Message.hpp"
#include "Apps/Server/ResponseBody.hpp"

namespace orivanta::server {

using WireRequest = boost::beast::http::request<boost::beast::http::string_body>;
using WireResponse = boost::beast::http::response<ResponseBody>;

/// The answer to a header after which it is unclear what the client asks or where its request ends:
/// one without exactly one Host (optional in HTTP/1.0), or with another Transfer-Encoding than
/// "chunked". The connection cannot be used afterwards.
std::optional<Response> refusalOf(const boost::beast::http::request_header<>& header);

/// The answer to bytes that the parser refused. The connection cannot be used afterwards.
Response unreadableResponse(const boost::beast::error_code& error);

/// The X-Forwarded-... headers are read only from a trusted proxy.
Request requestFrom(const WireRequest& message, bool fromTrustedProxy);

/// The answer with a date and the connection's fate; `version` is 10 or 11. Throws
/// `std::length_error` if a header is too long to be sent.
WireResponse messageFrom(Response response, unsigned version, bool keepAlive);

}  // namespace orivanta::server
