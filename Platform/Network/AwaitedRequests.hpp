// Requests that threads wait for and another thread may end.
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

  /// What answers, whatever its status, with its body decoded. Blocks. Follows redirects like a
  /// session's request, and fails if it breaks the rules.
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
