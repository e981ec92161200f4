// Blocking requests that another thread can cancel.
// Public header.
#pragma once

#include <cstddef>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Sends blocking requests. Any thread except the one on which the transport calls completions.
class ORIVANTA_API AwaitedRequests {
 public:
  /// Gives each request a separate budget of `requestBytes` bytes instead of the budget of the
  /// rules, so that only the request that exceeds it fails. 0 leaves the rules unchanged.
  explicit AwaitedRequests(TransferOptions options = {}, std::size_t requestBytes = 0);

  /// Sends a GET request, waits for the response and returns it with its body decoded. A response
  /// of any status is a success. Follows redirects as `UrlSession` does. Fails if the request
  /// breaks the rules. After the token of the options is canceled, fails with the domain "http" and
  /// the code ECANCELED.
  UrlResult get(const foundation::Url& url, HeaderFields headerFields = {}) const;

 private:
  const TransferOptions options_;
  const std::size_t requestBytes_;
};

}  // namespace orivanta::network
