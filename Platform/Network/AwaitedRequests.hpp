// Requests that threads wait for and another thread may end.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Any thread, but that on which the transport reports.
class ORIVANTA_API AwaitedRequests {
 public:
  explicit AwaitedRequests(TransferRules rules = {});

  /// What answers, of any status, its body decoded; blocks. As for a session's request, redirects
  /// are followed, and it ends with an error when it breaks the rules.
  UrlResult get(const foundation::Url& url, HeaderFields headerFields = {});

  /// Ends all `get`, also later ones, with an error of the domain "http" and the code ECANCELED.
  void cancel();

 private:
  struct State;
  const TransferRules rules_;
  const std::shared_ptr<State> state_;
};

}  // namespace orivanta::network
