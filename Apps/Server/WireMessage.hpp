// Converts between the HTTP messages of Boost.Beast and those of the router.
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

/// Returns the error response for a header that leaves the request's meaning or end unclear:
/// without exactly one Host (optional in HTTP/1.0), or with a Transfer-Encoding other than
/// "chunked". The connection cannot be used afterwards.
std::optional<Response> refusalOf(const boost::beast::http::request_header<>& header);

/// The response to bytes that the parser rejected. The connection cannot be used afterwards.
Response unreadableResponse(const boost::beast::error_code& error);

/// The Origin header, or "" if there is none.
std::string originOf(const boost::beast::http::fields& header);

/// Reads the X-Forwarded-... headers only if a trusted proxy sent the request.
Request requestFrom(const WireRequest& message, bool fromTrustedProxy);

/// Adds the date and the Connection header to the response. `version` is 10 or 11. Throws
/// `std::length_error` if a header is too long to be sent.
WireResponse messageFrom(Response response, unsigned version, bool keepAlive);

}  // namespace orivanta::server
