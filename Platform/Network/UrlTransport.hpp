// The port to an HTTP client: start a GET request, cancel it. Adapters live in folders of their
// own; the one that is linked in defines `defaultTransport`.
// Public header.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Error.hpp"
#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/MemoryBudget.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/HttpUrlResponse.hpp"
#include "Platform/Network/TransferRules.hpp"

namespace orivanta::network {

using HeaderFields = std::vector<std::pair<std::string, std::string>>;

struct UrlRequest {
  foundation::Url url;
  HeaderFields headerFields;
  TransferRules rules = {};
};

/// How a request ended. `body` is as it came over the wire; `decodeBody` undoes the compression
/// that the transport asked for.
struct UrlResult {
  std::optional<foundation::Error> error;
  HttpUrlResponse response;
  std::string body;
  /// What the body has taken from the request's budget. Null if the request has none.
  std::shared_ptr<foundation::BudgetShare> share = nullptr;
};

/// One running request. Dropping the handle does not cancel it.
class UrlTransfer {
 public:
  virtual ~UrlTransfer() = default;
  /// The callback will not be called after this has returned, unless it is being called just now.
  /// Any thread.
  virtual void cancel() = 0;
};

class UrlTransport {
 public:
  virtual ~UrlTransport() = default;

  /// Starts a GET request and returns at once. `completed` is called exactly once, on a thread of
  /// the transport, unless the transfer is canceled first; it must return quickly. Any thread.
  virtual std::shared_ptr<UrlTransfer> start(UrlRequest request,
                                             std::function<void(UrlResult)> completed) = 0;

  /// Undoes the "Content-Encoding" of the body in place; an error when the body is damaged or
  /// grows beyond the transport's limit. Throws `BudgetExceeded` if it grows beyond the budget.
  /// Costs time: call it outside the transport's thread.
  virtual std::optional<foundation::Error> decodeBody(UrlResult& result) = 0;
};

/// The process-wide transport. Any thread.
ORIVANTA_API UrlTransport& defaultTransport();

}  // namespace orivanta::network
