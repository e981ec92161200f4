// Requests that threads wait for and another thread may end.
// Public header.
#pragma once

#include <cstddef>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Any thread but the one on which the transport reports.
class ORIVANTA_API AwaitedRequests {
 public:
  /// Each request gets a budget of its own of `requestBytes`, in place of that of the rules, so
  /// that one that exceeds it fails alone. 0 leaves the rules as they are.
  explicit AwaitedRequests(TransferOptions options = {}, std::size_t requestBytes = 0);

  /// What answers, whatever its status, with its body decoded. Blocks. Follows redirects like a
  /// session's request, and fails if it breaks the rules. Fails with an error of the domain "http"
  /// and the code ECANCELED once the options' token is canceled.
  UrlResult get(const foundation::Url& url, HeaderFields headerFields = {}) const;

 private:
  const TransferOptions options_;
  const std::size_t requestBytes_;
};

}  // namespace orivanta::network
