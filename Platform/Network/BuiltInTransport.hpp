// The port to the HTTP client of the platform. The linked adapter defines these functions: the
// folder Curl natively, and the folder Fetch in a browser.
#pragma once

#include <memory>

#include "Platform/Foundation/Result.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Returns the transport included in the library, always the same object. Thread-safe.
std::shared_ptr<UrlTransport> builtInTransport();

/// Starts a request and blocks until its result has arrived, which it returns. Must not be called
/// on the thread on which the transport calls completions. After the request's token is canceled,
/// fails with the domain "http" and the code ECANCELED. A browser can wait only for the built-in
/// transport, and not cancel it; for another transport that has not called its completion when
/// `start` returns, it fails.
UrlResult awaitAnswer(UrlTransport& transport, UrlRequest request);

/// Decodes a body as the built-in transport has received it, in place. Throws `BudgetExceeded` if
/// the decoded body exceeds the request's budget. See `decoded`.
foundation::Result<void> decodeBody(UrlAnswer& answer);

}  // namespace orivanta::network
