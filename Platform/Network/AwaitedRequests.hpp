// Requests that threads wait for and another thread may end.
// Public header.
#pragma once

#include <cstddef>
#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Any thread, but that on which the transport reports.
class ORIVANTA_API AwaitedRequests {
 public:
  /// Each request gets a budget of its own of `requestBytes`, in place of that of the rules, so
  /// that one that exceeds it ends alone; 0 leaves the rules as they are.
  explicit AwaitedRequests(TransferRules rules = {}, std::size_t requestBytes = 0);

  /// What answers, of any status, its body decoded; blocks. As for a session's request, redirects
  /// are followed, and it ends with an error when it breaks the rules.
  UrlResult get(const foundation::Url& url, HeaderFields headerFields = {});

  /// Ends all `get`, also later ones, with an error of the domain "http" and the code ECANCELED.
  void cancel();

 private:
  struct State;
  const TransferRules rules_;
  const std::size_t requestBytes_;
  const std::shared_ptr<State> state_;
};

}  // namespace orivanta::network
